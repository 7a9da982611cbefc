#ifndef ORV_GSL_GSL_TRITRIMINDIRECTIONALDIST_H
#define ORV_GSL_GSL_TRITRIMINDIRECTIONALDIST_H

#include <base/orv_Export.h>

class gsl_Point;
class gsl_Vector;

/// Least distance, at least 0, that the triangle m1 m2 m3 travels along `direction`, of any length, until it touches
/// f1 f2 f3. False, and `distance` untouched, when it never does or when the direction is shorter than LinTol.
///
/// The travels at which two triangles touch form one closed interval: the result is its lower end, 0 when that is
/// negative; there is none when its upper end is below -LinTol. Contact is closed, and a graze within LinTol across the
/// direction counts. A zero-area triangle is met at its edges. Orientation does not matter. False with a coordinate
/// that is not finite; with sides of 1e77 or more, squares of areas overflow, also where the triangles meet.
[[nodiscard]] ORV_EXPORT bool gsl_TriTriMinDirectionalDist(const gsl_Vector& direction, const gsl_Point& f1,
                                                           const gsl_Point& f2, const gsl_Point& f3,
                                                           const gsl_Point& m1, const gsl_Point& m2,
                                                           const gsl_Point& m3, double& distance);

/// The same for the segments m1 m2 and f1 f2. Made for segments in a common plane along the direction; others meet, if
/// at all, where they cross.
[[nodiscard]] ORV_EXPORT bool gsl_InPlaneSegSegMinDirectionalDist(const gsl_Vector& direction, const gsl_Point& f1,
                                                                  const gsl_Point& f2, const gsl_Point& m1,
                                                                  const gsl_Point& m2, double& distance);

#endif
