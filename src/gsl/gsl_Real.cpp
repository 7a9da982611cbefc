#include <gsl/gsl_Real.h>

#include <cmath>
#include <cstdint>
#include <optional>

namespace {

/// The digits of `value` as a signed integer; nothing when the scaled value is not finite. A scaled value stays below
/// 1e17, whatever the rounding of the logarithm, and so within 64 bits.
std::optional<std::int64_t> RoundToDigits(double value, int digits) noexcept {
    if (value == 0.0) return 0;
    const double magnitude = std::abs(value);
    const double exponent = static_cast<double>(digits) - std::floor(std::log10(magnitude)) - 1.0;
    const double scaled = magnitude * std::pow(10.0, exponent);
    if (!std::isfinite(scaled)) return std::nullopt;
    const double whole = std::floor(scaled);
    const std::int64_t rounded = static_cast<std::int64_t>(whole) + (scaled - whole >= 0.5 ? 1 : 0);
    return value < 0.0 ? -rounded : rounded;
}

}  // namespace

bool gsl_RealEqualDig(double a, double b, int digits) noexcept {
    constexpr int mostDigits = 15;
    if (a == b) return true;
    if (digits > mostDigits) return false;
    const std::optional<std::int64_t> left = RoundToDigits(a, digits);
    return left && left == RoundToDigits(b, digits);
}
