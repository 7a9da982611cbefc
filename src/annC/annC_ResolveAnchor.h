#ifndef ORV_ANNC_ANNC_RESOLVEANCHOR_H
#define ORV_ANNC_ANNC_RESOLVEANCHOR_H

#include <annC/annC_Anchor.h>
#include <annC/annC_DrawList.h>
#include <base/orv_Export.h>

#include <array>
#include <optional>

class g3d_Camera;
class g3d_Viewport;

/// Where an anchor lies in a rectangle, as fractions of its width and height from its lower left corner: of a named
/// anchor and of a viewport anchor, nothing for any other. No anchor and a position that is not listed count as
/// BOTTOM_LEFT.
[[nodiscard]] ORV_EXPORT std::optional<std::array<double, 2>> annC_AnchorFractions(const annC_AnchorHld& anchor);

/// The pixel of an anchor: of a point in the model through the camera, of all others in the viewport's rectangle. It
/// may lie outside of the viewport. Nothing where g3d_Viewport::ToPixel has nothing: for a viewport without size, a
/// point in or behind the plane of a perspective camera's eye, and numbers that are not finite; and for anchors of a
/// host's own classes.
[[nodiscard]] ORV_EXPORT std::optional<annC_DrawPoint> annC_ResolveAnchor(const annC_AnchorHld& anchor,
                                                                          const g3d_Camera& camera,
                                                                          const g3d_Viewport& viewport);

#endif
