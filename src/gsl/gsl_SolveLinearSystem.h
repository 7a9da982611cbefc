#ifndef ORV_GSL_GSL_SOLVELINEARSYSTEM_H
#define ORV_GSL_GSL_SOLVELINEARSYSTEM_H

#include <base/orv_Export.h>

/// Solves the 3x3 system
///
///     a11 x + a12 y + a13 z = b1
///     a21 x + a22 y + a23 z = b2
///     a31 x + a32 y + a33 z = b3
///
/// by Cramer's rule. Nothing is written, and nothing tells so, when the determinant as it stands is below
/// `gsl_Util::LinTol` in absolute value (strict): scale the rows to unit length before. A NaN spreads into the result.
ORV_EXPORT void gsl_SolveLinearSystem(double a11, double a12, double a13, double a21, double a22, double a23,
                                      double a31, double a32, double a33, double b1, double b2, double b3, double& x,
                                      double& y, double& z) noexcept;

#endif
