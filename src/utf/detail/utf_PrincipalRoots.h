#ifndef ORV_UTF_DETAIL_UTF_PRINCIPALROOTS_H
#define ORV_UTF_DETAIL_UTF_PRINCIPALROOTS_H

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

// Principal values of symmetric 3x3 tensors in closed form: the one arithmetic behind utf_Tensor, its batches and the
// flat routines, so that all of them agree to the last bit. All in double; non-finite input gives non-finite values.

/// A symmetric tensor as its mean and what is left: direct deviators d11, d22, d33 and tensor (not engineering) shears.
struct utf_Deviator {
    double mean;
    double d1, d2, d3;
    double s12, s13, s23;
};

[[nodiscard]] inline utf_Deviator utf_DeviatorOf(double t11, double t22, double t33, double s12, double s13,
                                                 double s23) noexcept {
    const double mean = (t11 + t22 + t33) / 3.0;
    return {mean, t11 - mean, t22 - mean, t33 - mean, s12, s13, s23};
}

[[nodiscard]] inline double utf_LargestDirect(const utf_Deviator& t) noexcept {
    return std::max(std::max(std::abs(t.d1), std::abs(t.d2)), std::abs(t.d3));
}
[[nodiscard]] inline double utf_LargestShear(const utf_Deviator& t) noexcept {
    return std::max(std::max(std::abs(t.s12), std::abs(t.s13)), std::abs(t.s23));
}

/// The outer roots of 4 x^3 - 3 x = c for |c| <= 1: cos a, the greatest, and cos(a + 2 pi / 3), the least, with
/// a = acos(c) / 3. NaN gives NaN.
///
/// Without acos, cos and sin, which would take most of the time of a principal value: with u = sin(acos|c| / 2) the
/// sine s of a third of that angle solves 3 s - 4 s^3 = u. A polynomial good to 3e-6 starts it, one step of Halley's
/// iteration ends it at the last digit, also where |c| nears 1 and two roots meet.
[[nodiscard]] inline std::pair<double, double> utf_OuterRoots(double c) noexcept {
    const double w = (1.0 - std::abs(c)) * 0.5;
    const double u = std::sqrt(w);
    double s = u * (0.333335 + w * (0.0492529 + w * (0.0239367 + w * (0.00288984 + w * 0.027467))));
    const double slope = 3.0 - 12.0 * s * s;
    const double excess = s * (3.0 - 4.0 * s * s) - u;
    s -= excess * slope / (slope * slope + 12.0 * s * excess);
    const double cosine = 1.0 - 2.0 * s * s;
    const double sine = 2.0 * s * std::sqrt(1.0 - s * s);
    const double sign = std::copysign(1.0, c);  // the roots for -c are those for c, negated
    const double one = sign * cosine;
    const double other = sign * (-0.5 * cosine - 0.86602540378443865 * sine);
    return {std::max(one, other), std::min(one, other)};
}

/// The three principal values, descending but for rounding. Never treats the tensor as diagonal. The trigonometric
/// solution of the characteristic cubic (O. K. Smith, Eigenvalues of a symmetric 3x3 matrix, Comm. ACM 4 (1961) 168),
/// scaled to 4 x^3 - 3 x = c.
[[nodiscard]] inline std::array<double, 3> utf_PrincipalRoots(const utf_Deviator& t) noexcept {
    constexpr double Limit = 0.9999999999999998;  // from here on two roots coincide
    const double j =
        ((t.d1 * t.d1 + t.d2 * t.d2 + t.d3 * t.d3) * 0.5 + t.s12 * t.s12 + t.s13 * t.s13 + t.s23 * t.s23) * (1.0 / 3.0);
    const double r = 2.0 * std::sqrt(j);
    const double k = r > 2.220446049250313e-16 ? 2.0 / r : 0.0;  // absolute on purpose, whatever the units
    const double d1 = k * t.d1, d2 = k * t.d2, d3 = k * t.d3;
    const double s1 = k * t.s12, s2 = k * t.s13, s3 = k * t.s23;
    double c = (d1 * d2 * d3 - d1 * (s3 * s3) - d2 * (s2 * s2) - d3 * (s1 * s1)) * 0.5 + s1 * s2 * s3;
    if (c >= Limit) c = 1.0;
    if (c <= -Limit) c = -1.0;
    const auto [greatest, least] = utf_OuterRoots(c);
    const double middle = -(greatest + least);
    return {greatest * r + t.mean, middle * r + t.mean, least * r + t.mean};
}

/// Descending, by the three compare-and-swap steps 0-1, 0-2, 1-2; each strict, so that a NaN stays where it is.
inline void utf_SortDescending(std::array<double, 3>& p) noexcept {
    if (p[1] > p[0]) std::swap(p[0], p[1]);
    if (p[2] > p[0]) std::swap(p[0], p[2]);
    if (p[2] > p[1]) std::swap(p[1], p[2]);
}

/// All six components at work, shears as tensor shears; descending. The direct components themselves when the largest
/// shear is below 2.2204460492503132e-20 times the largest direct deviator (strict).
[[nodiscard]] inline std::array<double, 3> utf_FullPrincipalValues(const utf_Deviator& t) noexcept {
    // Each shear on its own: the largest one would hide a NaN.
    const double limit = utf_LargestDirect(t) * 2.2204460492503132e-20;
    const bool diagonal = limit > std::abs(t.s12) && limit > std::abs(t.s13) && limit > std::abs(t.s23);
    std::array<double, 3> p =
        diagonal ? std::array{t.mean + t.d1, t.mean + t.d2, t.mean + t.d3} : utf_PrincipalRoots(t);
    utf_SortDescending(p);
    return p;
}

/// In-plane principal values, p0 along (cosine, sine), p1 across; neither sorted nor swapped: the turn is at most 45
/// degrees, so p0 < p1 when t11 < t22.
struct utf_InPlanePair {
    double p0, p1;
    double cosine, sine;
};

/// One plane rotation. `twiceShear` is 2 T12, which is the engineering shear itself. No difference and no shear: axes.
[[nodiscard]] inline utf_InPlanePair utf_InPlanePrincipal(double t11, double t22, double twiceShear) noexcept {
    const double d = t11 - t22;
    const double g = twiceShear;
    double t = std::sqrt(d * d + g * g);
    if (d < 0.0) t = -t;
    const double e = std::abs(t) <= 2.2250738585072014e-308 ? 1.0 : 0.0;
    t += e;
    const double h = (1.0 - e) * 0.5;
    const double c = std::sqrt((d / t + 1.0) * h) + e;
    const double s = (g / t) * h / c;
    return {c * c * t11 + c * s * g + s * s * t22, s * s * t11 - c * s * g + c * c * t22, c, s};
}

#endif
