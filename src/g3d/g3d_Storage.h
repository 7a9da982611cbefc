#ifndef ORV_G3D_G3D_STORAGE_H
#define ORV_G3D_G3D_STORAGE_H

#include <base/orv_Export.h>

#include <cmath>

/// Three doubles, a position or a direction as the operation takes it: what `g3d_GeomUtils` computes with in space, so
/// that its tests do not suffer from the single precision of `g3d_Point` and `g3d_Vector`.
///
/// No operation guards against overflow: components beyond some 1e154 give infinite lengths.
class ORV_EXPORT g3d_Storage {
public:
    /// (0, 0, 0).
    constexpr g3d_Storage() noexcept = default;
    /// Of these coordinates.
    constexpr g3d_Storage(double x, double y, double z) noexcept : _x(x), _y(y), _z(z) {}

    /// The difference a - b: from b to a.
    constexpr g3d_Storage(const g3d_Storage& a, const g3d_Storage& b) noexcept
        : _x(a._x - b._x), _y(a._y - b._y), _z(a._z - b._z) {}

    /// Becomes a - b; either may be this.
    constexpr void Set(const g3d_Storage& a, const g3d_Storage& b) noexcept { *this = g3d_Storage(a, b); }

    /// The coordinates.
    [[nodiscard]] constexpr double GetX() const noexcept { return _x; }
    [[nodiscard]] constexpr double GetY() const noexcept { return _y; }
    [[nodiscard]] constexpr double GetZ() const noexcept { return _z; }

    /// Scales in place.
    constexpr g3d_Storage& operator*=(double factor) noexcept {
        return *this = g3d_Storage(_x * factor, _y * factor, _z * factor);
    }

    /// Divides each component (no reciprocal); by zero it gives infinities and NaN.
    constexpr g3d_Storage& operator/=(double divisor) noexcept {
        return *this = g3d_Storage(_x / divisor, _y / divisor, _z / divisor);
    }

private:
    double _x = 0.0;
    double _y = 0.0;
    double _z = 0.0;
};

/// a x b.
[[nodiscard]] constexpr g3d_Storage g3d_Cross(const g3d_Storage& a, const g3d_Storage& b) noexcept {
    return {a.GetY() * b.GetZ() - a.GetZ() * b.GetY(), a.GetZ() * b.GetX() - a.GetX() * b.GetZ(),
            a.GetX() * b.GetY() - a.GetY() * b.GetX()};
}

/// a . b.
[[nodiscard]] constexpr double g3d_Dot(const g3d_Storage& a, const g3d_Storage& b) noexcept {
    return a.GetX() * b.GetX() + a.GetY() * b.GetY() + a.GetZ() * b.GetZ();
}

/// (a x b) . c
[[nodiscard]] constexpr double g3d_TripleProduct(const g3d_Storage& a, const g3d_Storage& b,
                                                 const g3d_Storage& c) noexcept {
    return g3d_Dot(g3d_Cross(a, b), c);
}

/// In place, to length 1. A length of exactly 0 (no tolerance) leaves `a` as it is.
inline void g3d_Normalize(g3d_Storage& a) noexcept {
    const double length = std::sqrt(g3d_Dot(a, a));
    if (length != 0.0) a /= length;
}

#endif
