#include <g3d/g3d_Plane.h>
#include <g3d/g3d_Ray.h>

g3d_Point g3d_Plane::Project(const g3d_Ray& ray) const noexcept {
    const float approach = g3d_Dot(ray.Direction(), _normal);
    if (approach == 0.0F) return {};
    const float t = g3d_Dot(_point - ray.Origin(), _normal) / approach;
    return ray.Origin() + t * ray.Direction();
}
