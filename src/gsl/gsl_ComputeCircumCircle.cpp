#include <gsl/gsl_ComputeCircumCircle.h>
#include <gsl/gsl_Point.h>
#include <gsl/gsl_SolveLinearSystem.h>
#include <gsl/gsl_Util.h>
#include <gsl/gsl_Vector.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace {

/// One equation of the centre: coefficients . centre = value.
struct Equation {
    gsl_Vector coefficients;
    double value;
};

double SquaredNorm(const gsl_Point& p) noexcept { return gsl_GetDistSqr(p, gsl_Point()); }

/// The plane of the points as far from p as from q.
Equation Bisector(const gsl_Point& p, const gsl_Point& q) noexcept {
    const gsl_Vector coefficients = (p - q) * 2.0;
    const double value = SquaredNorm(p) - SquaredNorm(q), length = coefficients.Length();
    if (length < gsl_Util::LinTol()) return {coefficients, value};
    return {{coefficients.X() / length, coefficients.Y() / length, coefficients.Z() / length}, value / length};
}

}  // namespace

void gsl_ComputeCircumCircle(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3, gsl_Point& center,
                             gsl_Vector& normal) noexcept {
    gsl_Vector axis = (p2 - p1).CrossProduct(p3 - p1);
    axis.Normalize();
    const auto [a, valueA] = Bisector(p1, p2);
    const auto [b, valueB] = Bisector(p2, p3);
    double x = 0.0, y = 0.0, z = 0.0;
    gsl_SolveLinearSystem(a.X(), a.Y(), a.Z(), b.X(), b.Y(), b.Z(), axis.X(), axis.Y(), axis.Z(), valueA, valueB,
                          axis.DotProduct(p1 - gsl_Point()), x, y, z);
    center.SetPos({x, y, z});
    normal = axis;
}

double gsl_ComputeAreaTriByPts(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3) noexcept {
    return (p2 - p1).CrossProduct(p3 - p1).Length() * 0.5;
}

double gsl_ComputeShapeFactorTriByPnts(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3) noexcept {
    // The area is 2 R^2 times the sines of the three angles, of which each is 60 degrees in the equilateral triangle.
    constexpr double sinesOfEquilateral = 3.0 * std::numbers::sqrt3 / 8.0;
    gsl_Vector sides[] = {p3 - p2, p1 - p3, p2 - p1};
    double greatest = 0.0;
    for (const gsl_Vector& side : sides) {
        for (const double component : side.AsArray()) {
            if (!std::isfinite(component)) return std::numeric_limits<double>::quiet_NaN();
            greatest = std::max(greatest, std::abs(component));
        }
    }
    if (greatest == 0.0) return 0.0;
    // To about 1, where no square overflows; by a power of two, which costs no digits.
    const int exponent = std::ilogb(greatest);
    for (gsl_Vector& side : sides)
        side = {std::scalbn(side.X(), -exponent), std::scalbn(side.Y(), -exponent), std::scalbn(side.Z(), -exponent)};
    const double a = sides[0].Length(), b = sides[1].Length(), c = sides[2].Length();
    if (a == 0.0 || b == 0.0 || c == 0.0) return 0.0;
    const double twiceArea = sides[2].CrossProduct(sides[1]).Length();
    const double sines = twiceArea / (b * c) * (twiceArea / (c * a)) * (twiceArea / (a * b));
    return std::min(sines / sinesOfEquilateral, 1.0);
}

bool gsl_Transcribe3PointsIntoOriginAndAxes(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3,
                                            gsl_Point& origin, gsl_Vector& x, gsl_Vector& y, gsl_Vector& z) noexcept {
    gsl_Vector along = p2 - p1, normal;
    if (!gsl_NormalToThreePoints(p1, p2, p3, normal) || !along.Normalize()) return false;
    origin.SetPos(p1);
    x = along;
    y = normal.CrossProduct(along);
    z = normal;
    return true;
}
