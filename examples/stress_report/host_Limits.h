#ifndef ORV_STRESS_REPORT_HOST_LIMITS_H
#define ORV_STRESS_REPORT_HOST_LIMITS_H

#include <algorithm>
#include <array>
#include <cmath>

/// What can be drawn: of the command line and of a saved model alike.
namespace host_Limits {

struct Range {
    int least, greatest;
    [[nodiscard]] constexpr bool Holds(int value) const { return value >= least && value <= greatest; }
};
inline constexpr Range bands{2, 24};
inline constexpr Range pixels{200, 8000};

/// So near that squares and products of lengths are within single precision. False for NaN.
[[nodiscard]] inline bool IsDrawable(const std::array<double, 3>& place) {
    constexpr double farthest = 1e15;
    return std::ranges::all_of(place, [](double x) { return std::abs(x) <= farthest; });
}

/// Finite ends with something between them, and no more than a double can tell.
[[nodiscard]] inline bool IsRange(double low, double high) { return low < high && std::isfinite(high - low); }

}  // namespace host_Limits

#endif
