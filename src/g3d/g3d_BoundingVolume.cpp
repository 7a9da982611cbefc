#include <g3d/g3d_BoundingVolume.h>

g3d_BoundingVolume::g3d_BoundingVolume(std::span<const g3d_Point> vertices)
    : _vertices(vertices.begin(), vertices.end()) {}

g3d_BoundingVolume g3d_BoundingVolume::Box(const g3d_Point& a, const g3d_Point& b) {
    const g3d_Point corners[] = {a.Cartesian(), b.Cartesian()};
    g3d_BoundingVolume box;
    for (unsigned k = 0; k < 8; ++k)
        box._vertices.emplace_back(corners[k & 1].X(), corners[k >> 1 & 1].Y(), corners[k >> 2].Z());
    return box;
}
