#ifndef ORV_STRESS_REPORT_HOST_OPTIONS_H
#define ORV_STRESS_REPORT_HOST_OPTIONS_H

#include "host_Camera.h"
#include "host_Picture.h"
#include "host_Results.h"

#include <array>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

/// What the command line asks for.
struct host_Options {
    std::string results;  ///< the result file; none when a model is loaded
    std::string load;     ///< the saved model; none when results are read

    std::optional<int> set;
    std::optional<host_QuantityEnm> quantity;
    std::vector<std::array<double, 3>> probes;
    std::array<double, 3> direction{0.0, 0.0, -1.0};  ///< of the gaps
    std::string limit;                                ///< of the Mises stress, or what to do with it; none where empty

    double deform = 0.0;  ///< how many times the displacements are drawn
    host_View view;
    std::array<int, 2> size{1200, 900};  ///< pixels
    bool edges = true;
    int bands = 12;
    std::optional<std::array<double, 2>> range;  ///< of the legend, ascending
    std::optional<std::string> unit;             ///< of the quantity

    std::string picture, csv, save;  ///< files to write; none where empty
    host_PictureFormat format = host_PictureFormat::Png;

    [[nodiscard]] const std::string& Input() const { return load.empty() ? results : load; }
};

/// None when help was asked for, which is then on `help`. Throws std::runtime_error with one line on what makes no
/// sense.
[[nodiscard]] std::optional<host_Options> host_ReadOptions(int argc, const char* const* argv, std::ostream& help);

#endif
