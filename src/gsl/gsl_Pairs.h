#ifndef ORV_GSL_GSL_PAIRS_H
#define ORV_GSL_GSL_PAIRS_H

#include <base/orv_Export.h>

class gsl_Dot;
class gsl_Plane;
class gsl_StLine;

// How the datum geometry of a model stands to each other. A null address gives false.

/// Equality of points: within LinTol (inclusive).
[[nodiscard]] ORV_EXPORT bool gsl_PointsAreCoincident(const gsl_Dot* a, const gsl_Dot* b) noexcept;

/// No three-point normal (see `gsl_Vector`): a sine of at most AngTol (inclusive), so true when two of them coincide.
/// False with NaN.
[[nodiscard]] ORV_EXPORT bool gsl_ThreePointsColinear(const gsl_Dot* a, const gsl_Dot* b, const gsl_Dot* c) noexcept;

/// `gsl_StLine::IsParallel`, `gsl_StLine::IsSkewed`, `gsl_Plane::IsParallel`.
[[nodiscard]] ORV_EXPORT bool gsl_LinesAreParallel(const gsl_StLine* a, const gsl_StLine* b) noexcept;
[[nodiscard]] ORV_EXPORT bool gsl_LinesAreSkew(const gsl_StLine* a, const gsl_StLine* b) noexcept;
[[nodiscard]] ORV_EXPORT bool gsl_PlanesAreParallel(const gsl_Plane* a, const gsl_Plane* b) noexcept;

#endif
