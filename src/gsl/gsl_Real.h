#ifndef ORV_GSL_GSL_REAL_H
#define ORV_GSL_GSL_REAL_H

#include <base/orv_Export.h>

/// True when -tolerance <= b - a <= tolerance (inclusive). A NaN anywhere gives false; so does a negative tolerance.
[[nodiscard]] inline bool gsl_RealEqual(double a, double b, double tolerance) noexcept {
    const double difference = b - a;
    return -tolerance <= difference && difference <= tolerance;
}

/// a <= b + tolerance (inclusive), and its mirror image a >= b - tolerance. A NaN anywhere gives false.
[[nodiscard]] inline bool gsl_RealLessEqual(double a, double b, double tolerance) noexcept {
    return a <= b + tolerance;
}
[[nodiscard]] inline bool gsl_RealGreaterEqual(double a, double b, double tolerance) noexcept {
    return a >= b - tolerance;
}

/// True when a == b exactly, or when both give the same signed integer after rounding to `digits` significant decimal
/// digits (half away from zero; zero gives 0). Oddities to know:
/// - unequal values with digits above 15: always false;
/// - only the digits are compared, not the decade: 1.5 and 15 are equal to any number of digits;
/// - with digits of 0 or less hardly anything is left to compare (0 digits leave 0 or 1, fewer leave 0);
/// - a value that is not finite, or not finite after scaling (possible below 1e-293): false.
[[nodiscard]] ORV_EXPORT bool gsl_RealEqualDig(double a, double b, int digits) noexcept;

#endif
