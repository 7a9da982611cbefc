#ifndef ORV_G3D_G3D_VIEWPORT_H
#define ORV_G3D_G3D_VIEWPORT_H

#include <base/orv_Export.h>
#include <g3d/g3d_Point.h>

#include <array>
#include <optional>

class g3d_Camera;

/// The rectangle of a screen that shows what a camera sees. Pixel coordinates run to the right and *down* from the
/// screen's upper left corner, as windows and images count, and are continuous: the first pixel spans 0 to 1, its
/// middle is 0.5. Depth is 0 at the near plane and 1 at the far plane.
///
/// Made for picking: the camera's matrices are taken as they are, all else is in double, so that there and back agree
/// far below a pixel although a float has not enough digits for that. World points that come back as `g3d_Point` are
/// rounded to float; the triple of doubles is what keeps the pixel.
class ORV_EXPORT g3d_Viewport {
public:
    /// x, y and z.
    using Triple = std::array<double, 3>;

    /// Left and upper edge and size, in pixels. A viewport whose width or height is not positive shows nothing.
    g3d_Viewport(double left, double top, double width, double height) noexcept
        : _left(left), _top(top), _width(width), _height(height) {}

    /// Pixel x, y and depth of a world point, also outside the rectangle and beyond near and far. Nothing for points in
    /// or behind the plane of a perspective camera's eye, and where a result is not finite.
    [[nodiscard]] std::optional<Triple> ToPixel(const g3d_Camera& camera, const Triple& world) const noexcept;
    [[nodiscard]] std::optional<Triple> ToPixel(const g3d_Camera& camera, const g3d_Point& world) const noexcept;

    /// The world point of a pixel x, y and a depth. Nothing when a matrix of the camera is singular (a supplied view
    /// may be), for the depth that would be infinitely far, and where a result is not finite. Solved by elimination
    /// with partial pivoting.
    [[nodiscard]] std::optional<Triple> ToWorld(const g3d_Camera& camera, const Triple& pixel) const noexcept;

private:
    double _left;
    double _top;
    double _width;
    double _height;
};

#endif
