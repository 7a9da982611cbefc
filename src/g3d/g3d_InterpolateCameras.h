#ifndef ORV_G3D_G3D_INTERPOLATECAMERAS_H
#define ORV_G3D_G3D_INTERPOLATECAMERAS_H

#include <base/orv_Export.h>
#include <g3d/g3d_Camera.h>

/// A camera on the way from `from` to `to`, for smooth changes of view. Exactly `from` for t <= 0 and for NaN, exactly
/// `to` for t >= 1. Between them the target moves on a line, the camera turns at constant speed by the shorter way
/// about it (Shoemake, "Animating rotation with quaternion curves", 1985), and distance, window, near and far change by
/// equal ratios; offsets, viewport fractions and the distance factor change linearly, everything else is that of
/// `from`, but that no camera on the way counts as fitted to its viewport.
///
/// A `to` of the other projection takes part as the camera of `from`'s projection that shows the same at the target.
/// Supplied views are not interpolated: `from` below t = 0.5, then `to`.
[[nodiscard]] ORV_EXPORT g3d_Camera g3d_InterpolateCameras(float t, const g3d_Camera& from, const g3d_Camera& to);

#endif
