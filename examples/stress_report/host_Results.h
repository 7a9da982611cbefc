#ifndef ORV_STRESS_REPORT_HOST_RESULTS_H
#define ORV_STRESS_REPORT_HOST_RESULTS_H

#include "frd_Model.h"

#include <gsl/gsl_Point.h>
#include <gsl/gsl_Vector.h>

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

/// What can be drawn.
enum class host_QuantityEnm { Mises, Tresca, MaxPrincipal, MinPrincipal, Displacement };

struct host_Quantity {
    const char* option;  ///< as the command line says it
    const char* name;
    bool stress;
};

/// By the enumeration.
inline constexpr std::array<host_Quantity, 5> host_Quantities{{
    {"mises", "Mises", true},
    {"tresca", "Tresca", true},
    {"max-principal", "Max principal", true},
    {"min-principal", "Min principal", true},
    {"displacement", "Displacement", false},
}};

/// What of a result set is understood here; null where the set lacks it.
struct host_Set {
    int number = 0;
    double time = 0.0;
    const frd_Result* displacements = nullptr;  ///< three components
    const frd_Result* stresses = nullptr;       ///< six components, in the order xx yy zz xy yz zx
};

/// In the order of the file, those without displacements and stresses too.
[[nodiscard]] std::vector<host_Set> host_Sets(const frd_Model& model);

/// The set and the quantity to be drawn and tabled: those asked for, else the last set that has the quantity, which is
/// the Mises stress where there are stresses. Throws std::runtime_error when the model lacks what is asked for; without
/// any set it gives an empty one.
struct host_Choice {
    host_Set set;
    host_QuantityEnm quantity = host_QuantityEnm::Displacement;
};
[[nodiscard]] host_Choice host_Choose(const frd_Model& model, std::optional<int> set,
                                      std::optional<host_QuantityEnm> quantity);

/// Measures of stress tensors, in their unit. A row for each row of the result.
struct host_Stresses {
    std::vector<double> mises;
    std::vector<double> tresca;
    std::vector<std::array<double, 3>> principal;   ///< descending
    std::vector<std::array<double, 9>> directions;  ///< unit vectors that belong to them, one after the other
};
[[nodiscard]] host_Stresses host_StressesOf(const frd_Result& stress);

[[nodiscard]] gsl_Vector host_DisplacementAt(const frd_Result& displacements, std::size_t row);

/// For each row; the quantity must be a stress.
[[nodiscard]] std::vector<double> host_RowValues(const host_Stresses& stresses, host_QuantityEnm quantity);
[[nodiscard]] std::vector<double> host_DisplacementLengths(const frd_Result& displacements);

/// The quantity by node of the model; NaN where there is none or no finite one.
[[nodiscard]] std::vector<double> host_NodeValues(const frd_Model& model, const host_Choice& choice);

/// Where the greatest value is, or the least of min principal values; NaN left out. None when there is no other.
[[nodiscard]] std::optional<std::size_t> host_Extreme(const std::vector<double>& values, host_QuantityEnm quantity);

[[nodiscard]] std::vector<gsl_Point> host_Positions(const frd_Model& model);
/// Moved by `factor` times the displacements; as they are when these are null or the factor is 0: a diverged solution
/// has displacements that are not numbers, and its model can be drawn all the same.
[[nodiscard]] std::vector<gsl_Point> host_Deformed(std::vector<gsl_Point> positions, const frd_Result* displacements,
                                                   double factor);

#endif
