#ifndef ORV_G3D_G3D_POINT_H
#define ORV_G3D_G3D_POINT_H

#include <base/orv_Export.h>
#include <g3d/g3d_TypeId.h>
#include <g3d/g3d_Vector.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// A position of the viewing code in homogeneous coordinates: four floats, standing for (x/w, y/w, z/w). w is 1 for an
/// ordinary point and 0 for a point at infinity; both are taken as they are where a point is made ordinary.
///
/// Two ways of making it ordinary round differently, and both are kept: `HNormalize` and what builds on it multiply by
/// the rounded reciprocal 1/w, while `Cartesian`, the difference of two points and the translations of `g3d_XForm`
/// divide by w. Arithmetic as for `g3d_Vector`; nothing throws.
class ORV_EXPORT g3d_Point {
public:
    /// (0, 0, 0, 1).
    g3d_Point() noexcept = default;
    /// Of these components, doubles rounded.
    g3d_Point(float x, float y, float z, float w = 1.0F) noexcept : _x(x), _y(y), _z(z), _w(w) {}
    g3d_Point(double x, double y, double z, double w = 1.0) noexcept
        : _x(static_cast<float>(x)), _y(static_cast<float>(y)), _z(static_cast<float>(z)), _w(static_cast<float>(w)) {}

    // ---- Components, as they stand: not divided by w

    /// As stored, by value and by reference.
    [[nodiscard]] float X() const noexcept { return _x; }
    [[nodiscard]] float Y() const noexcept { return _y; }
    [[nodiscard]] float Z() const noexcept { return _z; }
    [[nodiscard]] float W() const noexcept { return _w; }
    [[nodiscard]] float GetW() const noexcept { return _w; }
    [[nodiscard]] float& X() noexcept { return _x; }
    [[nodiscard]] float& Y() noexcept { return _y; }
    [[nodiscard]] float& Z() noexcept { return _z; }
    [[nodiscard]] float& W() noexcept { return _w; }

    /// A copy with x, y, z divided by w and w = 1; unchanged when w is 0 or 1.
    [[nodiscard]] inline g3d_Point Cartesian() const noexcept;

    // ---- Change in place

    /// Unless w is 0 or 1: x, y, z are multiplied by 1/w and w becomes 1.
    g3d_Point& HNormalize() noexcept;

    /// `HNormalize`, then x, y, z are moved; w stays (a point at infinity stays at infinity).
    inline g3d_Point& operator+=(const g3d_Vector& by) noexcept;
    inline g3d_Point& operator-=(const g3d_Vector& by) noexcept;

    /// (-x, -y, -z, w).
    [[nodiscard]] g3d_Point operator-() const noexcept { return {-_x, -_y, -_z, _w}; }

    // ---- Comparison

    /// Exact on all four components: -0 equals 0, a NaN equals nothing. (2, 0, 0, 2) and (1, 0, 0, 1) are unequal.
    [[nodiscard]] bool operator==(const g3d_Point& other) const noexcept = default;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return g3d_TypeId(1); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const;
    explicit g3d_Point(const cls_ReadVisitor& visitor);

private:
    float _x = 0.0F;
    float _y = 0.0F;
    float _z = 0.0F;
    float _w = 1.0F;
};

/// A copy, moved as by `+=` and `-=`.
[[nodiscard]] inline g3d_Point operator+(g3d_Point point, const g3d_Vector& by) noexcept { return point += by; }
[[nodiscard]] inline g3d_Point operator-(g3d_Point point, const g3d_Vector& by) noexcept { return point -= by; }

/// From `b` to `a`: the difference of the x, y, z of their `Cartesian` forms. A point at infinity counts with its x, y,
/// z as they stand.
[[nodiscard]] inline g3d_Vector operator-(const g3d_Point& a, const g3d_Point& b) noexcept {
    const g3d_Point to = a.Cartesian(), from = b.Cartesian();
    return {to.X() - from.X(), to.Y() - from.Y(), to.Z() - from.Z()};
}

inline g3d_Point g3d_Point::Cartesian() const noexcept {
    if (_w == 0.0F || _w == 1.0F) return *this;
    return {_x / _w, _y / _w, _z / _w};
}

inline g3d_Point& g3d_Point::HNormalize() noexcept {
    if (_w == 0.0F || _w == 1.0F) return *this;
    const float reciprocal = 1.0F / _w;
    return *this = g3d_Point(_x * reciprocal, _y * reciprocal, _z * reciprocal);
}

inline g3d_Point& g3d_Point::operator+=(const g3d_Vector& by) noexcept {
    HNormalize();
    return *this = g3d_Point(_x + by.X(), _y + by.Y(), _z + by.Z(), _w);
}

inline g3d_Point& g3d_Point::operator-=(const g3d_Vector& by) noexcept {
    HNormalize();
    return *this = g3d_Point(_x - by.X(), _y - by.Y(), _z - by.Z(), _w);
}

#endif
