#ifndef ORV_GSL_GSL_MERGECOINCIDENTPOINTS_H
#define ORV_GSL_GSL_MERGECOINCIDENTPOINTS_H

#include <base/cow_List.h>
#include <base/orv_Export.h>
#include <gsl/gsl_Point.h>

#include <span>

/// For each point the index of the point it becomes; the indices that map to themselves are kept.
///
/// In order of index, a point becomes the kept point of the lowest index that is less than `tol` away (strict, distance
/// in space), and is kept itself when there is none. So kept points are at least `tol` apart, no chain of close points
/// is followed, and the result depends on the order of the points but on nothing else. A `tol` of 0 or less, or NaN,
/// keeps all, equal points too; points with a NaN are kept.
///
/// Seeds `std::rand`, as the bulk insertion of `gsl_CoordTree` does.
[[nodiscard]] ORV_EXPORT cow_List<unsigned> gsl_MergeCoincidentPoints(std::span<const gsl_Point> points, double tol);

#endif
