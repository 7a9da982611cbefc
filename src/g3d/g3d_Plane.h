#ifndef ORV_G3D_G3D_PLANE_H
#define ORV_G3D_G3D_PLANE_H

#include <base/orv_Export.h>
#include <g3d/g3d_Point.h>
#include <g3d/g3d_Vector.h>

class g3d_Ray;

/// The plane through a point across a normal; the normal need not be unit.
class ORV_EXPORT g3d_Plane {
public:
    /// Through (0, 0, 0, 1), with the normal (0, 0, 0): no plane yet.
    g3d_Plane() noexcept = default;
    /// Through `point`, across `normal`.
    g3d_Plane(const g3d_Point& point, const g3d_Vector& normal) noexcept : _point(point), _normal(normal) {}

    /// As given: the normal is of any length.
    [[nodiscard]] const g3d_Point& Point() const noexcept { return _point; }
    [[nodiscard]] const g3d_Vector& Normal() const noexcept { return _normal; }

    /// Where the line of `ray` meets the plane, in front of the ray's origin or *behind* it: origin + t direction with
    /// t = ((point - origin) . normal) / d, d = direction . normal. *The origin of coordinates, (0, 0, 0, 1), when d is
    /// exactly 0*: nothing tells it from a hit. A line merely close to parallel gives a far point or infinities.
    [[nodiscard]] g3d_Point Project(const g3d_Ray& ray) const noexcept;

    /// Exact, component by component: the same plane through another of its points is unequal.
    [[nodiscard]] bool operator==(const g3d_Plane& other) const noexcept = default;

private:
    g3d_Point _point;
    g3d_Vector _normal;
};

#endif
