#ifndef ORV_GSL_GSL_VECTOR_H
#define ORV_GSL_GSL_VECTOR_H

#include <base/aio_ostream.h>
#include <base/orv_Export.h>
#include <gsl/gsl_SameCoordinates.h>
#include <gsl/gsl_Util.h>

#include <array>
#include <cmath>
#include <concepts>
#include <cstddef>
#include <functional>
#include <span>
#include <tuple>

class gsl_Matrix;
class gsl_Plane;
class gsl_Point;

/// A free vector in model units that remembers its own length.
///
/// The length is kept in a cache, of which a negative value (always -1.0) means "not known":
///
/// | operation                                                         | cache afterwards               |
/// |-------------------------------------------------------------------|--------------------------------|
/// | default construction, a successful `Normalize`                    | exactly 1.0                    |
/// | three-point construction                                          | the length as computed, or 0   |
/// | construction from numbers or two points, `+ - *`, `CrossProduct`, | unknown                        |
/// | `NormalizedCopy`, transformation, non-const `v[i]`                |                                |
/// | copying, assigning, `Negate`                                      | as it was                      |
/// | `Scale(s)`                                                        | as it was, times abs(s)        |
/// | `Length`, unit components, and whatever needs them                | filled                         |
/// | `LengthSq`                                                        | used when known, never filled  |
///
/// Const queries write the cache, so one vector must not be read by two threads while either may fill it.
/// Lengths are computed as sqrt(x^2 + y^2 + z^2), without rescaling: components beyond about 1e154 overflow to
/// infinity, below about 1e-162 the length is 0.
///
/// Nothing throws. Tolerances are those of `gsl_Util`.
class ORV_EXPORT gsl_Vector {
public:
    /// (0, 0, 1), length 1 - not the zero vector.
    gsl_Vector() noexcept = default;

    /// Length not known yet.
    gsl_Vector(double x, double y, double z) noexcept : _xyz{x, y, z}, _magnitude(Unknown) {}

    /// From three contiguous numbers (`std::array<double, 3>` and `double[3]` convert).
    explicit gsl_Vector(std::span<const double, 3> xyz) noexcept : gsl_Vector(xyz[0], xyz[1], xyz[2]) {}

    /// `to` minus `from`. A template only because points are not known here yet.
    template <std::derived_from<gsl_Point> From, std::derived_from<gsl_Point> To>
    gsl_Vector(const From& from, const To& to) noexcept
        : gsl_Vector(to.X() - from.X(), to.Y() - from.Y(), to.Z() - from.Z()) {}

    /// Unit normal of three points, (p2 - p1) x (p3 - p2) divided by its length, right-handed. With a = p2 - p1,
    /// b = p3 - p2: (0, 0, 0) with its length known when |a| AngTol |b| >= |a x b| (inclusive), that is when the points
    /// are collinear within the angular tolerance or coincide.
    gsl_Vector(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3) noexcept;

    // ---- Components and length

    /// Components without touching the cache.
    [[nodiscard]] double X() const noexcept { return _xyz[0]; }
    [[nodiscard]] double Y() const noexcept { return _xyz[1]; }
    [[nodiscard]] double Z() const noexcept { return _xyz[2]; }

    /// 0, 1, 2 select x, y, z; anything above selects z.
    [[nodiscard]] double operator[](unsigned i) const noexcept { return _xyz[i < 2 ? i : 2]; }

    /// The same for writing: drops the cache, even when the caller only reads. Do not keep the reference across a query
    /// that fills the cache.
    [[nodiscard]] double& operator[](unsigned i) noexcept;

    /// The components as an array and as a view; both live as long as the vector.
    [[nodiscard]] const std::array<double, 3>& AsArray() const noexcept { return _xyz; }
    [[nodiscard]] std::span<const double, 3> AsSpan() const noexcept { return _xyz; }

    /// Structured bindings: `auto [x, y, z] = v;` gives values.
    template <std::size_t I>
    [[nodiscard]] double get() const noexcept {
        return std::get<I>(_xyz);
    }

    /// Computed once and cached.
    [[nodiscard]] double Length() const noexcept;

    /// The cache squared when it is known, else x^2 + y^2 + z^2 without filling it.
    [[nodiscard]] double LengthSq() const noexcept;

    /// Component divided by the length; 0 when the length is exactly 0.
    [[nodiscard]] double UnitX() const noexcept { return UnitComponent(_xyz[0]); }
    [[nodiscard]] double UnitY() const noexcept { return UnitComponent(_xyz[1]); }
    [[nodiscard]] double UnitZ() const noexcept { return UnitComponent(_xyz[2]); }

    // ---- Arithmetic

    /// Component by component, length not known yet.
    [[nodiscard]] gsl_Vector operator+(const gsl_Vector& other) const noexcept;
    [[nodiscard]] gsl_Vector operator-(const gsl_Vector& other) const noexcept;
    [[nodiscard]] gsl_Vector operator*(double factor) const noexcept;

    /// a . b and a x b.
    [[nodiscard]] double DotProduct(const gsl_Vector& other) const noexcept;
    [[nodiscard]] gsl_Vector CrossProduct(const gsl_Vector& other) const noexcept;

    /// (this x b) . c
    [[nodiscard]] double TripleProduct(const gsl_Vector& b, const gsl_Vector& c) const noexcept;

    // ---- Change in place

    /// In place.
    void Negate() noexcept;
    void Scale(double factor) noexcept;

    /// Turned and scaled by the 3x3 part of `matrix`, never translated (despite the name).
    void RotateAndTransform(const gsl_Matrix& matrix) noexcept;

    /// To length 1 by multiplying with 1 / length. False, and the vector unchanged, when the length is less than
    /// `tolerance` (strict). A tolerance of 0 lets the zero vector through: it becomes NaN.
    bool Normalize(double tolerance = gsl_Util::LinTol()) noexcept;

    // ---- Derived vectors

    /// A unit copy with its cache unknown; (0, 0, 0) when the length is less than LinTol (strict).
    [[nodiscard]] gsl_Vector NormalizedCopy() const noexcept;

    /// (UnitX, UnitY, UnitZ), however short this vector is; (0, 0, 0) when the length is exactly 0. Cache unknown.
    [[nodiscard]] gsl_Vector Unit() const noexcept { return {UnitX(), UnitY(), UnitZ()}; }

    /// The part of this vector that lies in the plane, v - (v . n) n with n the unit normal; this vector when the
    /// plane has no normal (length 0). The plane's point plays no part.
    [[nodiscard]] gsl_Vector ProjectOn(const gsl_Plane& plane) const noexcept;

    /// (y - z, z - x, x - y) normalised; (1, -1, 0) normalised when that is shorter than LinTol (strict): for the zero
    /// vector, for one along (1, 1, 1), for a tiny one. Only the first form is sure to be orthogonal to this vector.
    [[nodiscard]] gsl_Vector AnyOrthogonalUnit() const noexcept;

    /// (n x p) x n with n this vector as it stands and p the longest of the projections of the coordinate axes on the
    /// plane normal to it. A later axis wins only if its projection is longer by more than LinTol (strict), so ties go
    /// to the lower axis. Despite the name the result is *not* normalised: its length is |n|^2 |p|, and (0, 0, 2) gives
    /// (4, 0, 0). Zero for the zero vector.
    [[nodiscard]] gsl_Vector BestAlignedOrthogonalUnit() const noexcept;

    // ---- Angles, in radians

    /// Angle in [0, pi]. With `areUnit` the lengths are taken to be 1 without a look. Otherwise pi/2 when either length
    /// is at most LinTol (inclusive). A cosine beyond 1 or -1 counts as 1 or -1.
    [[nodiscard]] double AngleWith(const gsl_Vector& other, bool areUnit) const noexcept;

    /// The same, 2 pi - angle when (this x other) . reference < 0 (strict): the angle seen from the tip of `reference`,
    /// counter-clockwise from this to `other`. In [0, 2 pi), but 2 pi itself when the cosine rounds to 1.
    [[nodiscard]] double AngleWith(const gsl_Vector& other, bool areUnit, const gsl_Vector& reference) const noexcept;

    /// Called on an axis: the turn about it that takes `a` into `b`, in (-pi, pi], counter-clockwise positive.
    /// False, and `angleRadians` untouched, when a or b is shorter than LinTol (strict) or when they do not stand at
    /// the same slope to the axis: the dot products of the unit vectors with the unit axis differ by more than LinTol.
    /// An axis shorter than LinTol is used as it is. With a and b along the axis what is left of them is rounding: any
    /// angle, often 0 or pi.
    [[nodiscard]] bool AngleBetween(gsl_Vector a, gsl_Vector b, double& angleRadians) const noexcept;

    // ---- Comparison

    /// The same object, or |a - b| < LinTol (strict; points are inclusive). `!=` is its negation.
    [[nodiscard]] bool operator==(const gsl_Vector& other) const noexcept;

    /// Parallel or opposite by the sine: |a x b| < |a| tolerance |b| (strict, so false for a zero vector).
    [[nodiscard]] bool IsOn(const gsl_Vector& other, double tolerance) const noexcept;

    /// |a . b| < |a| AngTol |b| (strict, so false for a zero vector).
    [[nodiscard]] bool IsOrthogonal(const gsl_Vector& other) const noexcept;

    /// Unit components equal within `tolerance` on each axis (inclusive); a zero vector's are 0.
    [[nodiscard]] bool SameDirection(const gsl_Vector& other, double tolerance) const noexcept;

    /// `SameDirection` with `other` or with its negative.
    [[nodiscard]] bool IsParallel(const gsl_Vector& other, double tolerance) const noexcept;

    // ---- Output

    /// Two lines, each after `indentation` blanks: "magnitude:\t" and the length, then the line of `gsl_Point::Print`.
    /// 15 significant digits, whatever the state of the stream, which stays as it is; flushes.
    void Print(aio_ostream& out, int indentation) const;

protected:
    /// Components and cache; a negative or NaN magnitude makes the cache unknown.
    void FromCoordinates(double x, double y, double z, double magnitude) noexcept;

    /// Components and length (fills the cache first).
    void ToCoordinates(double& x, double& y, double& z, double& magnitude) const noexcept;

private:
    static constexpr double Unknown = -1.0;

    [[nodiscard]] inline double UnitComponent(double component) const noexcept;

    std::array<double, 3> _xyz{0.0, 0.0, 1.0};
    mutable double _magnitude = 1.0;
};

/// "(x, y, z)" with the stream's own precision and flags.
ORV_EXPORT aio_ostream& operator<<(aio_ostream& out, const gsl_Vector& vector);

/// Stores the three-point normal (see the constructor) in `normal`; true when its length exceeds LinTol, so false, with
/// (0, 0, 0) stored, for collinear points.
ORV_EXPORT bool gsl_NormalToThreePoints(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3,
                                        gsl_Vector& normal) noexcept;

/// Where the line through p1 along d1 meets the line through p2 along d2: the point of the *first* line closest to the
/// second, its coordinates stored in `out` (whose identity stays). The directions need not be unit. False, and `out`
/// untouched, when the lines are parallel (sine at most AngTol, inclusive; also when a direction is zero) or when their
/// gap exceeds LinTol (a gap of LinTol still meets).
[[nodiscard]] ORV_EXPORT bool Intersection(const gsl_Vector& d1, const gsl_Point& p1, const gsl_Vector& d2,
                                           const gsl_Point& p2, gsl_Point& out) noexcept;

/// Hash of the exact components (0.0 and -0.0 alike). It agrees with `gsl_SameCoordinates`, not with `==`.
template <>
struct std::hash<gsl_Vector> {
    [[nodiscard]] std::size_t operator()(const gsl_Vector& v) const noexcept {
        return gsl_HashCoordinates(v.AsArray());
    }
};
template <>
struct std::tuple_size<gsl_Vector> : std::integral_constant<std::size_t, 3> {};
template <std::size_t I>
struct std::tuple_element<I, gsl_Vector> : std::type_identity<double> {};

inline double& gsl_Vector::operator[](unsigned i) noexcept {
    _magnitude = Unknown;
    return _xyz[i < 2 ? i : 2];
}

inline double gsl_Vector::Length() const noexcept {
    if (_magnitude < 0.0) _magnitude = std::sqrt(_xyz[0] * _xyz[0] + _xyz[1] * _xyz[1] + _xyz[2] * _xyz[2]);
    return _magnitude;
}

inline double gsl_Vector::LengthSq() const noexcept {
    if (_magnitude < 0.0) return _xyz[0] * _xyz[0] + _xyz[1] * _xyz[1] + _xyz[2] * _xyz[2];
    return _magnitude * _magnitude;
}

inline double gsl_Vector::UnitComponent(double component) const noexcept {
    const double length = Length();
    return length == 0.0 ? 0.0 : component / length;
}

inline gsl_Vector gsl_Vector::operator+(const gsl_Vector& other) const noexcept {
    return {_xyz[0] + other._xyz[0], _xyz[1] + other._xyz[1], _xyz[2] + other._xyz[2]};
}

inline gsl_Vector gsl_Vector::operator-(const gsl_Vector& other) const noexcept {
    return {_xyz[0] - other._xyz[0], _xyz[1] - other._xyz[1], _xyz[2] - other._xyz[2]};
}

inline gsl_Vector gsl_Vector::operator*(double factor) const noexcept {
    return {_xyz[0] * factor, _xyz[1] * factor, _xyz[2] * factor};
}

inline double gsl_Vector::DotProduct(const gsl_Vector& other) const noexcept {
    return _xyz[0] * other._xyz[0] + _xyz[1] * other._xyz[1] + _xyz[2] * other._xyz[2];
}

inline gsl_Vector gsl_Vector::CrossProduct(const gsl_Vector& other) const noexcept {
    return {_xyz[1] * other._xyz[2] - _xyz[2] * other._xyz[1], _xyz[2] * other._xyz[0] - _xyz[0] * other._xyz[2],
            _xyz[0] * other._xyz[1] - _xyz[1] * other._xyz[0]};
}

inline double gsl_Vector::TripleProduct(const gsl_Vector& b, const gsl_Vector& c) const noexcept {
    return CrossProduct(b).DotProduct(c);
}

inline void gsl_Vector::Negate() noexcept {
    for (double& component : _xyz) component = -component;
}

inline void gsl_Vector::Scale(double factor) noexcept {
    for (double& component : _xyz) component *= factor;
    if (!(_magnitude < 0.0)) _magnitude *= std::abs(factor);
}

inline bool gsl_Vector::Normalize(double tolerance) noexcept {
    const double length = Length();
    if (length < tolerance) return false;
    *this = *this * (1.0 / length);
    _magnitude = 1.0;
    return true;
}

inline gsl_Vector gsl_Vector::NormalizedCopy() const noexcept {
    const double length = Length();
    return length < gsl_Util::LinTol() ? gsl_Vector(0.0, 0.0, 0.0) : *this * (1.0 / length);
}

inline bool gsl_Vector::operator==(const gsl_Vector& other) const noexcept {
    return this == &other || (*this - other).Length() < gsl_Util::LinTol();
}

#endif
