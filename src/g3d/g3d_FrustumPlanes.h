#ifndef ORV_G3D_G3D_FRUSTUMPLANES_H
#define ORV_G3D_G3D_FRUSTUMPLANES_H

#include <base/orv_Export.h>
#include <g3d/g3d_Plane.h>

#include <array>

class g3d_Camera;

/// The planes that bound what the camera shows, in the order left, right, bottom, top, near, far. Normals are unit and
/// point *inwards*: a world point p is seen when (p - plane point) . normal >= 0 for all six. Each plane's point is the
/// one closest to the target. Taken from the rows of the projection (Gribb and Hartmann, "Fast extraction of viewing
/// frustum planes", 2001), in double and rounded once. A singular supplied view leaves normals of (0, 0, 0).
[[nodiscard]] ORV_EXPORT std::array<g3d_Plane, 6> g3d_FrustumPlanes(const g3d_Camera& camera) noexcept;

#endif
