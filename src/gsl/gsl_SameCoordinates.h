#ifndef ORV_GSL_GSL_SAMECOORDINATES_H
#define ORV_GSL_GSL_SAMECOORDINATES_H

#include <array>
#include <cstddef>
#include <functional>

/// Exact equality of points or vectors: coordinate by coordinate with the arithmetic `==`, so -0.0 equals 0.0 and a NaN
/// equals nothing. Identity and length cache do not take part.
///
/// The `==` of points and vectors works within a tolerance: it is no equivalence (a near b and b near c does not make a
/// near c), so no hash can agree with it. `std::hash` of points and vectors hashes the exact coordinates and agrees
/// with this comparison; hashed containers need both: `std::unordered_set<gsl_Point, std::hash<gsl_Point>,
/// gsl_SameCoordinates>`. To find points *near* each other a hash is the wrong tool.
struct gsl_SameCoordinates {
    /// Whether all coordinates are equal as numbers.
    template <class T>
    [[nodiscard]] bool operator()(const T& a, const T& b) const noexcept {
        return a.AsArray() == b.AsArray();
    }
};

/// Hash of exact coordinates, 0.0 and -0.0 alike. The value is for use within one process only.
[[nodiscard]] inline std::size_t gsl_HashCoordinates(const std::array<double, 3>& xyz) noexcept {
    std::size_t result = 0;
    for (const double coordinate : xyz) {
        // Golden-ratio mixing keeps permuted coordinates apart.
        result ^= std::hash<double>{}(coordinate) + std::size_t{0x9e3779b9U} + (result << 6) + (result >> 2);
    }
    return result;
}

#endif
