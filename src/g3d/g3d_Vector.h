#ifndef ORV_G3D_G3D_VECTOR_H
#define ORV_G3D_G3D_VECTOR_H

#include <base/aio_ostream.h>
#include <base/orv_Export.h>
#include <g3d/g3d_TypeId.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// A direction of the viewing code: three floats, nothing cached.
///
/// Arithmetic is single precision, each operation rounded on its own and sums from left to right, so that results are
/// the same bit for bit on every machine. Where double precision is used inside it is said; the result is then rounded
/// to float once, beyond the range to infinity. Nothing throws, NaN and infinities run through.
class ORV_EXPORT g3d_Vector {
public:
    /// (0, 0, 0).
    g3d_Vector() noexcept = default;
    /// Of these components, doubles rounded.
    g3d_Vector(float x, float y, float z) noexcept : _x(x), _y(y), _z(z) {}
    g3d_Vector(double x, double y, double z) noexcept
        : _x(static_cast<float>(x)), _y(static_cast<float>(y)), _z(static_cast<float>(z)) {}

    // ---- Components and length

    /// By value and by reference.
    [[nodiscard]] float X() const noexcept { return _x; }
    [[nodiscard]] float Y() const noexcept { return _y; }
    [[nodiscard]] float Z() const noexcept { return _z; }
    [[nodiscard]] float& X() noexcept { return _x; }
    [[nodiscard]] float& Y() noexcept { return _y; }
    [[nodiscard]] float& Z() noexcept { return _z; }

    /// sqrt(x^2 + y^2 + z^2) in double, so that squares neither overflow nor underflow.
    [[nodiscard]] float Length() const noexcept;

    // ---- Change in place

    /// Scales in place.
    inline g3d_Vector& operator*=(float factor) noexcept;

    /// Times the rounded reciprocal 1 / `divisor`: not always the bits of a division.
    g3d_Vector& operator/=(float divisor) noexcept { return *this *= 1.0F / divisor; }

    /// To length 1. The length is kept in double: below the least positive normal float, 1.1754944e-38 (strict), the
    /// vector becomes (0, 0, 0); else each component is multiplied by 1 / length in double, so exactly 1 leaves it
    /// alone.
    g3d_Vector& Normalize() noexcept;

    // ---- Angles, in radians

    /// In [0, pi], from the cosine c = a . b in single precision, divided by |a|, then by |b| unless `alreadyUnit`.
    /// c becomes 0 when a length is not positive: a zero vector is at a right angle to all. *The ends snap*: 0 when
    /// c >= 0.99999 (some 0.26 degrees), 3.1415927 when c <= -0.99999; else acos(c) in double.
    [[nodiscard]] float AngleWith(const g3d_Vector& other, bool alreadyUnit) const noexcept;

    /// The same, but 2 pi - angle when (this x other) . reference < 0 (strict): counter-clockwise from this to `other`
    /// as seen from the tip of `reference`. In [0, 2 pi), but 2 pi itself where an angle below zero snapped to 0.
    [[nodiscard]] float AngleWith(const g3d_Vector& other, bool alreadyUnit,
                                  const g3d_Vector& reference) const noexcept;

    // ---- Comparison

    /// Exact on all components: -0 equals 0, a NaN equals nothing.
    [[nodiscard]] bool operator==(const g3d_Vector& other) const noexcept = default;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return g3d_TypeId(2); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const;
    explicit g3d_Vector(const cls_ReadVisitor& visitor);

private:
    float _x = 0.0F;
    float _y = 0.0F;
    float _z = 0.0F;
};

/// Component by component.
[[nodiscard]] inline g3d_Vector operator+(const g3d_Vector& a, const g3d_Vector& b) noexcept {
    return {a.X() + b.X(), a.Y() + b.Y(), a.Z() + b.Z()};
}
[[nodiscard]] inline g3d_Vector operator-(const g3d_Vector& a, const g3d_Vector& b) noexcept {
    return {a.X() - b.X(), a.Y() - b.Y(), a.Z() - b.Z()};
}
[[nodiscard]] inline g3d_Vector operator*(g3d_Vector vector, float factor) noexcept { return vector *= factor; }
[[nodiscard]] inline g3d_Vector operator*(float factor, g3d_Vector vector) noexcept { return vector *= factor; }

/// Times the rounded reciprocal, as `/=`.
[[nodiscard]] inline g3d_Vector operator/(g3d_Vector vector, float divisor) noexcept { return vector /= divisor; }

/// a . b.
[[nodiscard]] inline float g3d_Dot(const g3d_Vector& a, const g3d_Vector& b) noexcept {
    return a.X() * b.X() + a.Y() * b.Y() + a.Z() * b.Z();
}

/// a x b
[[nodiscard]] inline g3d_Vector g3d_Cross(const g3d_Vector& a, const g3d_Vector& b) noexcept {
    return {a.Y() * b.Z() - a.Z() * b.Y(), a.Z() * b.X() - a.X() * b.Z(), a.X() * b.Y() - a.Y() * b.X()};
}

/// (a x b) . c
[[nodiscard]] inline float g3d_TripleProduct(const g3d_Vector& a, const g3d_Vector& b, const g3d_Vector& c) noexcept {
    return g3d_Dot(g3d_Cross(a, b), c);
}

/// In place, as the member `Normalize`; the zero vector stays.
inline void g3d_Normalize(g3d_Vector& a) noexcept { a.Normalize(); }

/// "(x, y, z)", each printed as a double with the stream's precision and flags.
ORV_EXPORT aio_ostream& operator<<(aio_ostream& out, const g3d_Vector& vector);

inline g3d_Vector& g3d_Vector::operator*=(float factor) noexcept {
    _x *= factor;
    _y *= factor;
    _z *= factor;
    return *this;
}

#endif
