#include <g3d/g3d_Camera.h>
#include <g3d/g3d_FrustumPlanes.h>

#include <cmath>

namespace {

/// The plane where row 3 plus `sign` times `row` of the projection is 0.
g3d_Plane Bound(const g3d_Camera& camera, int row, double sign) noexcept {
    const g3d_XForm &projection = camera.GetPM(), &view = camera.GetVOM();
    double plane[4] = {};
    for (int k = 0; k < 4; ++k) {
        const double seen = projection.M(3, k) + sign * projection.M(row, k);
        for (int j = 0; j < 4; ++j) plane[j] += seen * view.M(k, j);
    }
    const g3d_Point target = camera.GetTarget().Cartesian();
    const double length = std::hypot(plane[0], plane[1], plane[2]);
    if (!(length > 0.0) || !std::isfinite(length)) return {target, g3d_Vector()};
    const double n[] = {plane[0] / length, plane[1] / length, plane[2] / length};
    const double x = target.X(), y = target.Y(), z = target.Z();
    const double height = n[0] * x + n[1] * y + n[2] * z + plane[3] / length;
    return {g3d_Point(x - height * n[0], y - height * n[1], z - height * n[2]), g3d_Vector(n[0], n[1], n[2])};
}

}  // namespace

std::array<g3d_Plane, 6> g3d_FrustumPlanes(const g3d_Camera& camera) noexcept {
    return {Bound(camera, 0, 1.0),  Bound(camera, 0, -1.0), Bound(camera, 1, 1.0),
            Bound(camera, 1, -1.0), Bound(camera, 2, 1.0),  Bound(camera, 2, -1.0)};
}
