#include <annC/annC_NamedAnchor.h>
#include <annC/annC_Point3DAnchor.h>
#include <annC/annC_ResolveAnchor.h>
#include <annC/annC_ViewportAnchor.h>
#include <g3d/g3d_Camera.h>
#include <g3d/g3d_Viewport.h>

namespace {

/// The pixel at fractions of a viewport: that of a point before the camera whose window is the square from (-1, -1) to
/// (1, 1).
auto PixelAt(const std::array<double, 2>& fractions, const g3d_Viewport& viewport) {
    g3d_Camera square;
    square.FitVP(2.0F, 2.0F);
    return viewport.ToPixel(square, g3d_Viewport::Triple{2.0 * fractions[0] - 1.0, 2.0 * fractions[1] - 1.0, 0.0});
}

}  // namespace

std::optional<std::array<double, 2>> annC_AnchorFractions(const annC_AnchorHld& anchor) {
    if (anchor.IsNull()) return {{0.0, 0.0}};
    if (const auto* const named = dynamic_cast<const annC_NamedAnchor*>(anchor.Get()); named != nullptr) {
        // The positions are numbered row by row from below, three in a row.
        const int position = static_cast<int>(named->Position());
        if (position < 0 || position > 8) return {{0.0, 0.0}};
        const int row = position / 3;
        return {{(position % 3) / 2.0, row / 2.0}};
    }
    if (const auto* const inViewport = dynamic_cast<const annC_ViewportAnchor*>(anchor.Get()); inViewport != nullptr)
        return {{inViewport->PositionX(), inViewport->PositionY()}};
    return std::nullopt;
}

std::optional<annC_DrawPoint> annC_ResolveAnchor(const annC_AnchorHld& anchor, const g3d_Camera& camera,
                                                 const g3d_Viewport& viewport) {
    std::optional<g3d_Viewport::Triple> pixel;
    if (const auto fractions = annC_AnchorFractions(anchor); fractions) {
        pixel = PixelAt(*fractions, viewport);
    } else if (const auto* const point = dynamic_cast<const annC_Point3DAnchor*>(anchor.Get()); point != nullptr) {
        pixel =
            viewport.ToPixel(camera, g3d_Viewport::Triple{point->PositionX(), point->PositionY(), point->PositionZ()});
    }
    if (!pixel) return std::nullopt;
    return annC_DrawPoint{(*pixel)[0], (*pixel)[1]};
}
