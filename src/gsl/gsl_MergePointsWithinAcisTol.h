#ifndef ORV_GSL_GSL_MERGEPOINTSWITHINACISTOL_H
#define ORV_GSL_GSL_MERGEPOINTSWITHINACISTOL_H

#include <gsl/gsl_Point.h>

/// Moves both points to their midpoint, each keeping its identity, when they are equal as points (at most LinTol, 1e-6,
/// apart: inclusive). Whether they were; if not, they stay.
inline bool gsl_MergePointsWithinAcisTol(gsl_Point& a, gsl_Point& b) noexcept {
    if (a != b) return false;
    a.SetPos(gsl_Point(a, b));
    b.SetPos(a);
    return true;
}

#endif
