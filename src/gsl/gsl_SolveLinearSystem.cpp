#include <gsl/gsl_SolveLinearSystem.h>
#include <gsl/gsl_Util.h>

#include <cmath>

void gsl_SolveLinearSystem(double a11, double a12, double a13, double a21, double a22, double a23, double a31,
                           double a32, double a33, double b1, double b2, double b3, double& x, double& y,
                           double& z) noexcept {
    const double minor11 = a22 * a33 - a23 * a32, minor12 = a21 * a33 - a23 * a31, minor13 = a21 * a32 - a22 * a31;
    const double determinant = a11 * minor11 - a12 * minor12 + a13 * minor13;
    if (std::abs(determinant) < gsl_Util::LinTol()) return;
    x = (minor11 * b1 - (a12 * a33 - a13 * a32) * b2 + (a12 * a23 - a13 * a22) * b3) / determinant;
    y = (-minor12 * b1 + (a11 * a33 - a13 * a31) * b2 - (a11 * a23 - a13 * a21) * b3) / determinant;
    z = (minor13 * b1 - (a11 * a32 - a12 * a31) * b2 + (a11 * a22 - a12 * a21) * b3) / determinant;
}
