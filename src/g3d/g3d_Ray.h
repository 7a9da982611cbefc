#ifndef ORV_G3D_G3D_RAY_H
#define ORV_G3D_G3D_RAY_H

#include <base/orv_Export.h>
#include <g3d/g3d_Point.h>
#include <g3d/g3d_Vector.h>

/// A half line of the viewing code, kept as given: the origin is not made ordinary, the direction not normalised.
class ORV_EXPORT g3d_Ray {
public:
    /// At (0, 0, 0, 1), without a direction.
    g3d_Ray() noexcept = default;
    /// From `origin` along `direction`.
    g3d_Ray(const g3d_Point& origin, const g3d_Vector& direction) noexcept : _origin(origin), _direction(direction) {}

    /// As given: the direction is of any length.
    [[nodiscard]] const g3d_Point& Origin() const noexcept { return _origin; }
    [[nodiscard]] const g3d_Vector& Direction() const noexcept { return _direction; }

    /// Exact, component by component.
    [[nodiscard]] bool operator==(const g3d_Ray& other) const noexcept = default;

private:
    g3d_Point _origin;
    g3d_Vector _direction;
};

#endif
