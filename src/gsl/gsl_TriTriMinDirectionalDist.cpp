#include <gsl/detail/gsl_DirTriangle.h>
#include <gsl/gsl_TriTriMinDirectionalDist.h>

#include <cmath>

bool gsl_TriTriMinDirectionalDist(const gsl_Vector& direction, const gsl_Point& f1, const gsl_Point& f2,
                                  const gsl_Point& f3, const gsl_Point& m1, const gsl_Point& m2, const gsl_Point& m3,
                                  double& distance) {
    const std::optional<gsl_DirFrame> frame = gsl_DirFrame::Along(direction, f1);
    if (!frame) return false;
    const gsl_DirTriangle fixed(frame->ToFrame(f1), frame->ToFrame(f2), frame->ToFrame(f3), 0);
    const gsl_DirTriangle movable(frame->ToFrame(m1), frame->ToFrame(m2), frame->ToFrame(m3), 0);
    gsl_DirPoint contact;
    return fixed.IsFinite() && movable.IsFinite() && gsl_LeastTravel(fixed, movable, distance, contact);
}

bool gsl_InPlaneSegSegMinDirectionalDist(const gsl_Vector& direction, const gsl_Point& f1, const gsl_Point& f2,
                                         const gsl_Point& m1, const gsl_Point& m2, double& distance) {
    return gsl_TriTriMinDirectionalDist(direction, f1, f2, f2, m1, m2, m2, distance);
}
