#ifndef ORV_G3D_DETAIL_G3D_POLYGONSWEEP_H
#define ORV_G3D_DETAIL_G3D_POLYGONSWEEP_H

#include <base/cow_List.h>
#include <g3d/g3d_Point.h>

#include <span>

/// How the areas of two polygons of the plane overlap, by the even-odd rule; made by `g3d_SweepPolygons`.
struct g3d_PolygonOverlap {
    bool onlyFirst = false;                ///< some area is in the first alone
    bool onlySecond = false;               ///< some area is in the second alone
    bool both = false;                     ///< some area is in both
    cow_List<cow_List<g3d_Point>> pieces;  ///< the area in both: y-monotone polygons, counter-clockwise
};

/// Cuts the plane into horizontal slabs at every vertex and crossing. No edges cross within a slab, so that walking
/// along it from edge to edge and counting tells which polygon each trapezoid belongs to, whatever the polygons look
/// like; trapezoids that continue each other are joined. Levels closer than `tolerance` are one, and trapezoids
/// narrower than it are left out, so rounding in the crossings cannot make slivers.
///
/// All coordinates must be finite.
///
/// Method: the scan beams of Vatti, "A generic solution to polygon clipping", CACM 35 (1992), without his tracing of
/// outlines; the slab decomposition is in Preparata and Shamos, "Computational Geometry", section 2.2.
[[nodiscard]] g3d_PolygonOverlap g3d_SweepPolygons(std::span<const g3d_Point> first, std::span<const g3d_Point> second,
                                                   double tolerance);

#endif
