#ifndef ORV_G3D_G3D_SPHERE_H
#define ORV_G3D_G3D_SPHERE_H

#include <base/orv_Export.h>
#include <g3d/g3d_Point.h>

/// A centre and a radius in world units, kept as given: a radius that is negative or NaN is the reader's to repair.
class ORV_EXPORT g3d_Sphere {
public:
    /// At (0, 0, 0, 1), of radius 0.
    g3d_Sphere() noexcept = default;
    /// About `center`.
    g3d_Sphere(const g3d_Point& center, float radius) noexcept : _center(center), _radius(radius) {}

    /// As given.
    [[nodiscard]] const g3d_Point& Center() const noexcept { return _center; }
    [[nodiscard]] float Radius() const noexcept { return _radius; }

    /// Exact.
    [[nodiscard]] bool operator==(const g3d_Sphere& other) const noexcept = default;

private:
    g3d_Point _center;
    float _radius = 0.0F;
};

#endif
