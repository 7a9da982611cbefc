#ifndef ORV_GSL_GSL_INTERVAL_H
#define ORV_GSL_GSL_INTERVAL_H

#include <base/orv_Export.h>

/// A range of a parameter, from a lower to an upper bound, kept as given (not sorted).
class ORV_EXPORT gsl_Interval {
public:
    /// From 0 to 0.
    constexpr gsl_Interval() noexcept = default;
    /// From `lower` to `upper`.
    constexpr gsl_Interval(double lower, double upper) noexcept : _lower(lower), _upper(upper) {}

    /// The bounds, as given.
    [[nodiscard]] constexpr double Lower() const noexcept { return _lower; }
    [[nodiscard]] constexpr double Upper() const noexcept { return _upper; }

    /// lower + t (upper - lower): the lower bound at 0, the upper one at 1 (but for rounding), beyond them elsewhere.
    [[nodiscard]] constexpr double Interpolate(double t) const noexcept { return _lower + t * (_upper - _lower); }

    /// Both bounds, exactly.
    [[nodiscard]] constexpr bool operator==(const gsl_Interval& other) const noexcept = default;

private:
    double _lower = 0.0;
    double _upper = 0.0;
};

#endif
