#include <utf/detail/utf_PrincipalRoots.h>
#include <utf/utf_flat.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

// Choices that the data make at random go by index: a mispredicted branch costs as much as a square root.

namespace {

using Axis = std::array<double, 3>;

Axis Cross(const Axis& a, const Axis& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

/// Diagonalises a tensor in the plane of two orthogonal unit axes by turning them, by at most 45 degrees, and stores
/// them as columns, that of the greater value first and its right-handed neighbour second. d is T11 - T22 and g is 2
/// T12 in that plane, of a tensor that was scaled to about 1. Halves the angle of (d, g) by adding its length to its
/// component along d: no cancellation. No difference and no shear: no turn, since 1e-100 decides when nothing else
/// does.
void DiagonaliseInPlane(double d, double g, const Axis& first, const Axis& second, double* columns) {
    const double along = std::abs(d) + std::sqrt(d * d + g * g) + 1e-100;
    const double scale = 1.0 / std::sqrt(along * along + g * g);
    const bool secondIsGreater = d < 0.0;
    const double sign = std::copysign(1.0, d + 0.0);  // -0 counts as 0
    const double x = along * scale, y = sign * g * scale;
    double* const near = columns + 3 * static_cast<std::size_t>(secondIsGreater);
    double* const far = columns + 3 * static_cast<std::size_t>(!secondIsGreater);
    for (std::size_t k = 0; k < 3; ++k) {
        near[k] = x * first[k] + y * second[k];
        far[k] = sign * (x * second[k] - y * first[k]);
    }
}

/// cos(acos(c) / 3) for 0 <= c <= 1, the greatest root of 4 x^3 - 3 x = c, which is far from the others: a polynomial
/// good to 5e-6, then one step of Halley's iteration.
double GreatestRoot(double c) {
    const double x = (0.86603043202269 + c * 0.1664117217875961) +
                     c * c * (-0.04592193313076431 + c * (0.01751218857521114 - c * 0.004035398716655599));
    const double excess = x * (4.0 * x * x - 3.0) - c;
    const double slope = 12.0 * x * x - 3.0;
    return x - excess * slope / (slope * slope - 12.0 * x * excess);
}

/// Orthonormal, right-handed axes of the greatest, middle and least value, as columns. One value always stands apart
/// from both others, and its direction is well determined; one cross product for each value would not be, and need not
/// give a frame. `scale` brings the greatest component of the deviator to 1.
void PrincipalAxes(const utf_Deviator& t, double scale, double* columns) {
    constexpr double Third = 1.0 / 3.0;
    const double a = (t.d1 - t.d2) * scale, b = (t.d2 - t.d3) * scale;  // differences: what is left of the mean goes
    const double d1 = (2.0 * a + b) * Third, d2 = (b - a) * Third, d3 = -(a + 2.0 * b) * Third;
    const double s12 = t.s12 * scale, s13 = t.s13 * scale, s23 = t.s23 * scale;

    const double j = ((d1 * d1 + d2 * d2 + d3 * d3) * 0.5 + (s12 * s12 + s13 * s13 + s23 * s23)) * Third;
    const double root = std::sqrt(j);
    const double det = d1 * (d2 * d3 - s23 * s23) - (d2 * (s13 * s13) + d3 * (s12 * s12)) + 2.0 * s12 * s13 * s23;
    const double apart = std::copysign(2.0 * root * GreatestRoot(std::min(std::abs(det) / (2.0 * j * root), 1.0)), det);

    // The cross products of the rows of T - apart I are the columns of its adjugate. It has rank 1, so the longest
    // column, the greatest component of each and the greatest element of the diagonal are in one place.
    const double r1 = d1 - apart, r2 = d2 - apart, r3 = d3 - apart;
    const double a12 = s13 * s23 - s12 * r3, a13 = s12 * s23 - s13 * r2, a23 = s12 * s13 - s23 * r1;
    const Axis products[3] = {
        {r2 * r3 - s23 * s23, a12, a13}, {a12, r1 * r3 - s13 * s13, a23}, {a13, a23, r1 * r2 - s12 * s12}};
    const double size[3] = {std::abs(products[0][0]), std::abs(products[1][1]), std::abs(products[2][2])};
    const std::size_t longer = size[1] > size[0], shorter = 1 - longer;
    const std::size_t longest = longer + (2 - longer) * static_cast<std::size_t>(size[2] > size[longer]);
    const Axis& v = products[longest];

    // The cross product with the coordinate axis that v is least aligned with, then a right-handed frame.
    const std::size_t k = shorter + (2 - shorter) * static_cast<std::size_t>(size[2] < size[shorter]);
    constexpr std::size_t Next[] = {1, 2, 0};
    const std::size_t l = Next[k], m = Next[l];
    const double squares = v[l] * v[l] + v[m] * v[m];
    const double unit = 1.0 / std::sqrt(squares + v[k] * v[k]), across = 1.0 / std::sqrt(squares);
    const Axis axis = {v[0] * unit, v[1] * unit, v[2] * unit};
    Axis first = {};
    first[l] = -v[m] * across;
    first[m] = v[l] * across;
    const Axis second = Cross(axis, first);

    const Axis image = {d1 * first[0] + s12 * first[1] + s13 * first[2],
                        s12 * first[0] + d2 * first[1] + s23 * first[2],
                        s13 * first[0] + s23 * first[1] + d3 * first[2]};
    const double t11 = first[0] * image[0] + first[1] * image[1] + first[2] * image[2];
    const double t12 = second[0] * image[0] + second[1] * image[1] + second[2] * image[2];
    const std::size_t isGreatest = apart > 0.0;
    for (std::size_t i = 0; i < 3; ++i) columns[6 - 6 * isGreatest + i] = axis[i];
    DiagonaliseInPlane(2.0 * t11 + apart, 2.0 * t12, first, second, columns + 3 * isGreatest);  // T22 = - apart - T11
}

/// What utf_sprind tells, the directions as columns.
void Solve(const double* s, bool engineeringShears, int32_t ndi, int32_t nshr, double* p, double* columns) {
    ndi = std::clamp(ndi, 0, 3);
    const double* const shears = s + ndi;
    const double factor = engineeringShears ? 0.5 : 1.0;
    const double t11 = ndi > 0 ? s[0] : 0.0, t22 = ndi > 1 ? s[1] : 0.0, t33 = ndi > 2 ? s[2] : 0.0;
    const utf_Deviator t = utf_DeviatorOf(t11, t22, t33, nshr > 0 ? factor * shears[0] : 0.0,
                                          nshr > 1 ? factor * shears[1] : 0.0, nshr > 2 ? factor * shears[2] : 0.0);
    const double direct = utf_LargestDirect(t), shear = utf_LargestShear(t);
    // So great that scaling would overflow counts as infinite; the squares in the values overflow long before.
    const double sum =
        std::abs(t.d1) + std::abs(t.d2) + std::abs(t.d3) + std::abs(t.s12) + std::abs(t.s13) + std::abs(t.s23);
    const bool finite = sum < 1e300;
    const double scale = 1.0 / std::max(std::max(direct, shear), 1e-300);
    std::fill_n(columns, 9, 0.0);
    columns[0] = columns[4] = columns[8] = 1.0;

    if (std::isfinite(sum) && (shear == 0.0 || shear < 2.22e-12 * direct)) {
        p[0] = t11;
        p[1] = t22;
        p[2] = t33;
    } else if (nshr == 1) {
        const utf_InPlanePair pair = utf_InPlanePrincipal(t11, t22, 2.0 * t.s12);
        p[0] = std::max(pair.p0, pair.p1);
        p[1] = std::min(pair.p0, pair.p1);
        p[2] = t33;
        if (finite)
            DiagonaliseInPlane((t.d1 - t.d2) * scale, 2.0 * t.s12 * scale, {1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, columns);
    } else {
        std::array<double, 3> values = utf_PrincipalRoots(t);
        utf_SortDescending(values);
        std::copy_n(values.data(), 3, p);
        if (finite) PrincipalAxes(t, scale, columns);
    }
}

/// Of what s is, by its code or, above 1000, by its thousands.
bool HasEngineeringShears(int32_t lflag) {
    const int32_t f = lflag > 1000 ? lflag / 1000 : lflag;
    return (f >= 21 && f <= 25) || (f >= 88 && f <= 91);
}

}  // namespace

void utf_asortd(double* p, double* v, const int32_t* code) {
    const auto order = [p, v](std::size_t i, std::size_t j) {
        if (!(p[j] > p[i])) return;
        std::swap(p[i], p[j]);
        std::swap_ranges(v + 3 * i, v + 3 * i + 3, v + 3 * j);
    };
    order(0, 1);
    if (*code != 7) return;
    order(0, 2);
    order(1, 2);
}

void utf_sprind(const double* s, double* p, double* v, const int32_t* strainFlag, const int32_t* ndi,
                const int32_t* nshr) {
    const int32_t three = 3;
    double columns[9];
    Solve(s, *strainFlag != 1, *ndi, *nshr, p, columns);
    utf_atra(columns, v, &three, &three);
}

void utf_calprinquat(const double* s, double* out, const int32_t* lflag, const int32_t* code, const int32_t* ndi,
                     const int32_t* nshr) {
    const bool surface = *code == 9 && *ndi == 1 && *nshr == 1;
    const double surfaceComponents[3] = {s[0], 0.0, surface ? s[1] : 0.0};
    const int32_t directs = surface ? 2 : *ndi;
    double columns[9];
    Solve(surface ? surfaceComponents : s, HasEngineeringShears(*lflag), directs, *nshr, out, columns);
    if (directs > 1) utf_asortd(out, columns, code);
    utf_getquat(out + 3, columns);
    if (*code >= 7 && *code <= 9) return;
    out[3] = out[5];
    out[4] = out[6];
    out[5] = out[6] = 0.0;
}
