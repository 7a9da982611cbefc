#ifndef ORV_G3D_G3D_BOUNDINGVOLUME_H
#define ORV_G3D_G3D_BOUNDINGVOLUME_H

#include <base/orv_Export.h>
#include <g3d/g3d_Point.h>

#include <span>
#include <vector>

/// What a view is fitted to: vertices whose hull holds the model. The volume owns them, in the order given; they may
/// coincide and need not be ordinary points.
class ORV_EXPORT g3d_BoundingVolume {
public:
    /// Empty.
    g3d_BoundingVolume() noexcept = default;

    /// Copies the vertices.
    explicit g3d_BoundingVolume(std::span<const g3d_Point> vertices);

    /// The rectangular box of two opposite corners, taken in their Cartesian form. Vertex k has `b`'s x, y, z where bit
    /// 0, 1, 2 of k is set, and `a`'s elsewhere: vertex 0 is a, vertex 7 is b. Always eight, also where a and b agree.
    [[nodiscard]] static g3d_BoundingVolume Box(const g3d_Point& a, const g3d_Point& b);

    /// Number of vertices, and whether that is 0.
    [[nodiscard]] int Count() const noexcept { return static_cast<int>(_vertices.size()); }
    [[nodiscard]] bool IsEmpty() const noexcept { return _vertices.empty(); }
    /// Lives as long as the volume is neither assigned to nor destroyed.
    [[nodiscard]] std::span<const g3d_Point> Vertices() const noexcept { return _vertices; }

    /// The same vertices, exactly, in the same order.
    [[nodiscard]] bool operator==(const g3d_BoundingVolume& other) const noexcept = default;

private:
    std::vector<g3d_Point> _vertices;
};

#endif
