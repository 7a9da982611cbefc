#ifndef ORV_GSL_GSL_COMPUTECIRCUMCIRCLE_H
#define ORV_GSL_GSL_COMPUTECIRCUMCIRCLE_H

#include <base/orv_Export.h>

class gsl_Point;
class gsl_Vector;

// What three points, the corners of a triangle, define. Nothing throws; an output may be one of the points.

/// Centre and normal of the circle through three points. The normal is (p2 - p1) x (p3 - p1) normalised, left as it is
/// when shorter than LinTol (strict). The centre gets coordinates only, its identity stays.
/// *(0, 0, 0), which means nothing*, when the points are collinear (sine of the angle at p2 below LinTol) or close
/// together (twice the area below LinTol, or the side p1 p2 or p2 p3 below half of LinTol; all strict).
ORV_EXPORT void gsl_ComputeCircumCircle(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3,
                                        gsl_Point& center, gsl_Vector& normal) noexcept;

/// Area of the triangle, never negative.
[[nodiscard]] ORV_EXPORT double gsl_ComputeAreaTriByPts(const gsl_Point& p1, const gsl_Point& p2,
                                                        const gsl_Point& p3) noexcept;

/// Area over that of the equilateral triangle in the same circumcircle, in [0, 1]: 1 for an equilateral triangle, 0 for
/// one of collinear or coincident points, without tolerance, whatever the size. NaN when a coordinate or the difference
/// of two is not finite.
[[nodiscard]] ORV_EXPORT double gsl_ComputeShapeFactorTriByPnts(const gsl_Point& p1, const gsl_Point& p2,
                                                                const gsl_Point& p3) noexcept;

/// A right-handed frame of unit axes: the origin is p1 (coordinates only), x runs from p1 to p2, z is the normal of
/// the three points, y = z x x. False, and nothing written, when the points are collinear by `gsl_NormalToThreePoints`
/// or p2 is closer to p1 than LinTol (strict).
[[nodiscard]] ORV_EXPORT bool gsl_Transcribe3PointsIntoOriginAndAxes(const gsl_Point& p1, const gsl_Point& p2,
                                                                     const gsl_Point& p3, gsl_Point& origin,
                                                                     gsl_Vector& x, gsl_Vector& y,
                                                                     gsl_Vector& z) noexcept;

#endif
