#include <g3d/g3d_Camera.h>
#include <g3d/g3d_Viewport.h>
#include <g3d/g3d_XForm.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

using Homogeneous = std::array<double, 4>;

Homogeneous Transformed(const g3d_XForm& xform, const Homogeneous& p) noexcept {
    Homogeneous result{};
    for (unsigned i = 0; i < 16; ++i) result[i / 4] += xform.M(0, static_cast<int>(i)) * p[i % 4];
    return result;
}

/// The x with `xform` x = b; nothing when a pivot vanishes.
std::optional<Homogeneous> Solved(const g3d_XForm& xform, const Homogeneous& b) noexcept {
    double rows[4][5];
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) rows[i][j] = xform.M(i, j);
        rows[i][4] = b[static_cast<unsigned>(i)];
    }
    for (int k = 0; k < 4; ++k) {
        int pivot = k;
        for (int i = k + 1; i < 4; ++i) {
            if (std::abs(rows[i][k]) > std::abs(rows[pivot][k])) pivot = i;
        }
        if (rows[pivot][k] == 0.0) return std::nullopt;
        std::swap(rows[k], rows[pivot]);
        for (int i = 0; i < 4; ++i) {
            const double factor = rows[i][k] / rows[k][k];
            for (int j = k; i != k && j < 5; ++j) rows[i][j] -= factor * rows[k][j];
        }
    }
    return Homogeneous{rows[0][4] / rows[0][0], rows[1][4] / rows[1][1], rows[2][4] / rows[2][2],
                       rows[3][4] / rows[3][3]};
}

std::optional<g3d_Viewport::Triple> IfFinite(const g3d_Viewport::Triple& p) noexcept {
    if (std::all_of(p.begin(), p.end(), [](double x) { return std::isfinite(x); })) return p;
    return std::nullopt;
}

}  // namespace

auto g3d_Viewport::ToPixel(const g3d_Camera& camera, const Triple& world) const noexcept -> std::optional<Triple> {
    if (!(_width > 0.0 && _height > 0.0)) return std::nullopt;
    const Homogeneous seen = Transformed(camera.GetVOM(), {world[0], world[1], world[2], 1.0});
    const Homogeneous clip = Transformed(camera.GetPM(), seen);
    const double w = clip[3];
    if (!(w > 0.0)) return std::nullopt;
    return IfFinite({_left + (1.0 + clip[0] / w) / 2.0 * _width, _top + (1.0 - clip[1] / w) / 2.0 * _height,
                     (1.0 + clip[2] / w) / 2.0});
}

auto g3d_Viewport::ToPixel(const g3d_Camera& camera, const g3d_Point& world) const noexcept -> std::optional<Triple> {
    const g3d_Point p = world.Cartesian();
    return ToPixel(camera, Triple{p.X(), p.Y(), p.Z()});
}

auto g3d_Viewport::ToWorld(const g3d_Camera& camera, const Triple& pixel) const noexcept -> std::optional<Triple> {
    if (!(_width > 0.0 && _height > 0.0)) return std::nullopt;
    const Homogeneous clip{2.0 * (pixel[0] - _left) / _width - 1.0, 1.0 - 2.0 * (pixel[1] - _top) / _height,
                           2.0 * pixel[2] - 1.0, 1.0};
    const auto seen = Solved(camera.GetPM(), clip);
    const auto world = seen ? Solved(camera.GetVOM(), *seen) : std::nullopt;
    if (!world) return std::nullopt;
    const auto& [x, y, z, w] = *world;
    return IfFinite({x / w, y / w, z / w});
}
