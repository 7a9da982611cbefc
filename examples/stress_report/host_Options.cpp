#include "host_Options.h"

#include "host_Limits.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <ostream>
#include <stdexcept>

namespace {

const std::map<std::string, host_PictureFormat> formats{
    {".png", host_PictureFormat::Png}, {".svg", host_PictureFormat::Svg}, {".pdf", host_PictureFormat::Pdf}};

std::map<std::string, host_QuantityEnm> QuantitiesByOption() {
    std::map<std::string, host_QuantityEnm> quantities;
    for (std::size_t i = 0; i < host_Quantities.size(); ++i)
        quantities.emplace(host_Quantities.at(i).option, static_cast<host_QuantityEnm>(i));
    return quantities;
}

constexpr char hint[] = " (--help tells the options)";

/// Empty for a number; CLI11 takes "nan" and "inf" too.
std::string CheckFinite(const std::string& text) {
    double value = 0.0;
    return CLI::detail::lexical_cast(text, value) && std::isfinite(value) ? "" : text + " is not a finite number";
}

CLI::Range Within(const host_Limits::Range& range) { return {range.least, range.greatest}; }

std::string CheckPicture(const std::string& path) {
    const bool known = formats.contains(std::filesystem::path(path).extension().string());
    return known ? "" : path + " does not end in .png, .svg or .pdf";
}

}  // namespace

std::optional<host_Options> host_ReadOptions(int argc, const char* const* argv, std::ostream& help) {
    host_Options options;
    std::string quantity;
    std::array<double, 2> range{};
    std::string unit;
    int set = 0;
    const CLI::Validator finite(CheckFinite, "");
    const auto quantities = QuantitiesByOption();

    CLI::App app("Tells and draws what is in an ASCII result file of CalculiX.", "stress_report");
    const auto add = [&app](const char* name, auto& value, const char* type, const char* description) {
        return app.add_option(name, value, description)->type_name(type);
    };
    add("RESULTS", options.results, "", "Result file (.frd)");
    add("--load", options.load, "FILE", "Saved model to read in the place of RESULTS");
    auto* const setOption = add("--set", set, "N", "Result set; else the last one with the quantity");
    add("--probe", options.probes, "X Y Z", "Tell the node nearest to this point; as often as you like")
        ->allow_extra_args(false)
        ->check(finite);
    add("--direction", options.direction, "X Y Z", "Direction of the gaps between bodies; else 0 0 -1")->check(finite);
    add("--limit", options.limit, "STRESS", "Allowable Mises stress, kept by --save; FREED takes back a saved one");
    add("--picture", options.picture, "FILE", "Picture to write: .png, .svg or .pdf")
        ->check(CLI::Validator(CheckPicture, ""));
    add("--csv", options.csv, "FILE", "Table of the set to write, a line for each node");
    add("--save", options.save, "FILE", "Model to write: results, annotations and camera");

    auto* const quantityOption =
        add("--quantity", quantity, "", "Quantity to draw; else mises, or displacement without stresses")
            ->check(CLI::IsMember(quantities));
    auto* const rangeOption = add("--range", range, "LOW HIGH", "Range of the legend")->check(finite);
    auto* const unitOption = add("--unit", unit, "TEXT", "Unit of the quantity; else MPa or mm");
    const auto ofPicture = {
        quantityOption,
        rangeOption,
        unitOption,
        add("--deform", options.deform, "FACTOR", "Draw the displacements so many times; else 0")->check(finite),
        add("--view", options.view.name, "", "Where to look from; else iso")->check(CLI::IsMember(host_ViewNames())),
        app.add_flag("--perspective", options.view.perspective, "Perspective instead of parallel view"),
        add("--zoom", options.view.zoom, "F", "How large to draw; 1 fits")
            ->check(finite)
            ->check(CLI::Range(0.01, 100.0)),
        add("--size", options.size, "W H", "Size of the picture in pixels; else 1200 900")
            ->check(Within(host_Limits::pixels)),
        app.add_flag("!--no-edges", options.edges, "Without the edges of the elements"),
        add("--bands", options.bands, "N", "Number of the legend's bands; else 12")->check(Within(host_Limits::bands)),
    };

    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        help << app.help();
        return std::nullopt;
    } catch (const CLI::ParseError& failure) {
        throw std::runtime_error(std::string(failure.what()) + hint);
    }
    if (options.results.empty() == options.load.empty())
        throw std::runtime_error(std::string("either RESULTS or --load is needed") + hint);
    for (const CLI::Option* const option : ofPicture)
        if (!options.load.empty() && *option)
            throw std::runtime_error(option->get_name() + " does not go with --load: the picture is in the model");
    if (*setOption) options.set = set;
    if (*unitOption) options.unit = unit;
    if (*rangeOption) options.range = range;
    if (*quantityOption) options.quantity = quantities.at(quantity);
    if (options.range && !host_Limits::IsRange(range[0], range[1]))
        throw std::runtime_error("--range: LOW is not below HIGH");
    if (std::ranges::count(options.direction, 0.0) == 3) throw std::runtime_error("--direction: has no length");
    if (!options.picture.empty())
        options.format = formats.at(std::filesystem::path(options.picture).extension().string());
    return options;
}
