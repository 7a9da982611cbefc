#ifndef ORV_GSL_GSL_DIRECTIONALCONTACT_H
#define ORV_GSL_GSL_DIRECTIONALCONTACT_H

#include <base/cow_List.h>
#include <base/orv_Export.h>
#include <gsl/gsl_Point.h>
#include <gsl/gsl_Triangle.h>

#include <optional>

class gsl_Vector;

/// How far one set of triangles travels until it touches another, and where.
struct gsl_DirectionalContact {
    double distance = 0.0;  ///< a length in model units, at least 0; 0 when they touch or overlap from the start
    /// Positions in the lists of triangles.
    int fixedTriangle = -1;
    int movableTriangle = -1;
    gsl_Point point;  ///< on the fixed triangle; where the two meet after the travel
};

/// Least distance that `movable` can travel along `direction`, of any length, before it touches `fixed`: a
/// `gsl_TriTriDirDist` over octrees made here, as deep as the numbers of triangles call for. Of several triangles that
/// meet at the same distance any are named. Nothing when they never meet or when the direction is shorter than LinTol.
/// Triangles with a coordinate that is not finite are left out; with sides of 1e77 or more others are missed, as
/// squares of areas overflow.
///
/// Time and memory grow as n log n with the number of triangles in surfaces that do not pass through each other and
/// that few triangles share a place of. Where many do, bounds do not tell pairs apart, and the time grows up to the
/// product of the numbers there: fans whose triangles all meet at one corner, stacks of triangles that are nearly
/// copies. Of exact copies one is searched.
[[nodiscard]] ORV_EXPORT std::optional<gsl_DirectionalContact> gsl_FindDirectionalContact(
    const cow_List<gsl_Triangle>& fixed, const cow_List<gsl_Triangle>& movable, const gsl_Vector& direction);

#endif
