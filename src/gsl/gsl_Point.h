#ifndef ORV_GSL_GSL_POINT_H
#define ORV_GSL_GSL_POINT_H

#include <base/aio_ostream.h>
#include <base/cls_Uid.h>
#include <base/orv_Export.h>
#include <gsl/gsl_SameCoordinates.h>
#include <gsl/gsl_TypeId.h>
#include <gsl/gsl_Util.h>
#include <gsl/gsl_Vector.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <functional>
#include <span>
#include <tuple>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;
class gsl_Matrix;
class gsl_Plane;
class gsl_Segment;
class gsl_StLine;

/// A point in space, in model units, with a persistent identity.
///
/// Copying and assigning copy coordinates *and* identity. Points computed from other points (midpoint, weighted sum)
/// and points read from a stream get a fresh identity; all others have the default one (number 0).
///
/// Nothing throws but the reading constructor. Tolerances are those of `gsl_Util`.
class ORV_EXPORT gsl_Point {
public:
    /// The origin.
    gsl_Point() noexcept = default;

    /// With the default identity.
    gsl_Point(double x, double y, double z) noexcept : _xyz{x, y, z} {}

    /// From three contiguous numbers (`std::array<double, 3>` and `double[3]` convert).
    explicit gsl_Point(std::span<const double, 3> xyz) noexcept : gsl_Point(xyz[0], xyz[1], xyz[2]) {}

    /// The midpoint (a + b) / 2, with a fresh identity.
    gsl_Point(const gsl_Point& a, const gsl_Point& b);

    /// weightA a + weightB b, with a fresh identity.
    gsl_Point(const gsl_Point& a, double weightA, const gsl_Point& b, double weightB);

    gsl_Point(const gsl_Point&) noexcept = default;
    gsl_Point& operator=(const gsl_Point&) noexcept = default;
    virtual ~gsl_Point() = default;

    // ---- Coordinates and identity

    /// The coordinates. (Of y there are two names.)
    [[nodiscard]] double X() const noexcept { return _xyz[0]; }
    [[nodiscard]] double Y() const noexcept { return _xyz[1]; }
    [[nodiscard]] double Z() const noexcept { return _xyz[2]; }
    [[nodiscard]] double GetY() const noexcept { return Y(); }

    /// 0, 1, 2 select x, y, z; anything above selects z.
    [[nodiscard]] double operator[](unsigned i) const noexcept { return _xyz[i < 2 ? i : 2]; }
    [[nodiscard]] double& operator[](unsigned i) noexcept { return _xyz[i < 2 ? i : 2]; }

    /// The coordinates as an array and as a view; both live as long as the point.
    [[nodiscard]] const std::array<double, 3>& AsArray() const noexcept { return _xyz; }
    [[nodiscard]] std::span<const double, 3> AsSpan() const noexcept { return _xyz; }

    /// Structured bindings: `auto [x, y, z] = p;` gives values.
    template <std::size_t I>
    [[nodiscard]] double get() const noexcept {
        return std::get<I>(_xyz);
    }

    /// Takes the coordinates of `other`; the identity stays.
    void SetPos(const gsl_Point& other) noexcept { _xyz = other._xyz; }

    [[nodiscard]] cls_Uid Uid() const noexcept { return _uid; }

    // ---- Operations

    /// The results have the default identity.
    [[nodiscard]] gsl_Point operator+(const gsl_Vector& v) const noexcept;
    [[nodiscard]] gsl_Point operator-(const gsl_Vector& v) const noexcept;

    /// The vector from `other` to this.
    [[nodiscard]] gsl_Vector operator-(const gsl_Point& other) const noexcept;

    /// In place: R p + t of the first three rows of `matrix`; the identity stays.
    void Transform(const gsl_Matrix& matrix) noexcept;

    /// |p - q|.
    [[nodiscard]] double GetDistance(const gsl_Point& other) const noexcept;

    /// This point moved by `distance` along the unit of `direction`, with the default identity; a copy of this point
    /// (identity too) when |direction| < LinTol (strict).
    [[nodiscard]] gsl_Point PointAtDistInDirection(double distance, const gsl_Vector& direction) const noexcept;

    /// Barycentric weights of this point's projection on the line p1 p2; `weights` takes two numbers.
    /// *The first weight belongs to the second point*: weights[0] is 0 at p1 and 1 at p2, weights[1] the other way
    /// round. With L = |p1 - p2|:
    /// - L <= LinTol: (0, 1) and true when this point is within LinTol of p1 (inclusive); else false, nothing stored;
    /// - otherwise both are stored; false when L weights[k] < -LinTol (strict) for either, that is when the projection
    ///   lies beyond an end by more than LinTol. How far this point is from the line plays no part.
    [[nodiscard]] bool Bary(const gsl_Point& p1, const gsl_Point& p2, double* weights) const noexcept;

    /// Barycentric weights of this point's projection on the triangle's plane; `weights` takes three numbers,
    /// weights[k] belonging to the k-th point. All are stored; false when weights[k] |n|^2 < -LinTolSq (strict) for
    /// any, with |n| twice the area. A degenerate triangle (n = 0) is not guarded against: the weights become infinite
    /// or NaN, and the result is true.
    [[nodiscard]] bool Bary(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3,
                            double* weights) const noexcept;

    // ---- Lines, planes and segments. A line without direction and a plane without normal (length 0) are at the
    // distance NaN of every point, and no point is on them.

    /// |(p - q) x d| / |d| for a line through q along d.
    [[nodiscard]] double GetDistance(const gsl_StLine& line) const noexcept;

    /// ((p - q) . n) / |n| for a plane through q: positive on the side to which the normal n points.
    [[nodiscard]] double GetSignedDistance(const gsl_Plane& plane) const noexcept;
    /// Its absolute value.
    [[nodiscard]] double GetDistance(const gsl_Plane& plane) const noexcept;

    /// To where the ray from this point along `direction`, or against it, meets the plane; where it does not
    /// (`RayIntersect`), the plain distance.
    [[nodiscard]] double GetDistance(const gsl_Plane& plane, const gsl_Vector& direction) const noexcept;

    /// To the nearest point of the segment, ends included; its coordinates are stored in `nearest`. A segment up to
    /// LinTol long (inclusive) is its first point.
    double GetDistance(const gsl_Segment& segment, gsl_Point& nearest) const noexcept;

    /// To the nearest point of the triangle: of its inside, an edge or a corner. Collinear corners (see the three-point
    /// `gsl_Vector`) leave the three edges; edges of any length count as they are, and one with a NaN corner does
    /// not count. NaN when none is left, and for a NaN point.
    [[nodiscard]] double GetDistance(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3) const noexcept;

    /// Within LinTol (inclusive; two lines, and two points, are compared strictly).
    [[nodiscard]] bool IsOn(const gsl_StLine& line) const noexcept;
    [[nodiscard]] bool IsOn(const gsl_Plane& plane) const noexcept;

    /// Foot of the perpendicular, with the default identity. `distance` is how far it lies from the line's point along
    /// the line's direction, negative against it: what `gsl_StLine::PointAtDistance` takes. A line without direction
    /// gives its point and 0.
    [[nodiscard]] gsl_Point ProjectOn(const gsl_StLine& line, double& distance) const noexcept;

    /// Foot of the perpendicular, with the default identity; this point's place for a plane without normal.
    [[nodiscard]] gsl_Point ProjectOn(const gsl_Plane& plane) const noexcept;

    /// Foot of the perpendicular on the line that carries the segment, its coordinates stored in `foot`, and how far it
    /// lies from the first end towards the second in `distance`. True when it lies within the segment by the two-point
    /// `Bary`: beyond an end by at most LinTol (inclusive). A segment up to LinTol long (inclusive) gives its first
    /// point and 0, and true when this point is within LinTol of that (inclusive).
    [[nodiscard]] bool ProjectOn(const gsl_Segment& segment, gsl_Point& foot, double& distance) const noexcept;

    /// Where the line from this point along `direction`, in either sense, meets the plane: coordinates stored in `out`.
    /// In this order:
    /// - false when |direction| < LinTol (strict);
    /// - this point and true when it is on the plane (inclusive), whatever the direction;
    /// - false when the direction is parallel to the plane (`gsl_Vector::IsOrthogonal` to the normal);
    /// - true otherwise, *also when the place is not finite*: NaN with a plane without normal, which is parallel to
    ///   nothing; infinite where numbers end.
    /// After false, `out` has this point's coordinates.
    [[nodiscard]] bool RayIntersect(const gsl_Vector& direction, const gsl_Plane& plane, gsl_Point& out) const noexcept;

    // ---- Comparison

    /// The same object, or a squared distance of at most LinTolSq (inclusive). `!=` is its negation.
    [[nodiscard]] bool operator==(const gsl_Point& other) const noexcept;

    /// Squared distance strictly less than LinTol^2: unlike `==` the boundary is out, on purpose.
    [[nodiscard]] bool IsOn(const gsl_Point& other) const noexcept;

    /// Strictly greater in all three coordinates. A partial order, no tolerance; false with NaN.
    [[nodiscard]] bool operator>(const gsl_Point& other) const noexcept;

    /// No coordinate of `other` exceeds this point's. A NaN exceeds nothing, so it does not make this false.
    [[nodiscard]] bool operator>=(const gsl_Point& other) const noexcept;

    // ---- Output

    /// `indentation` blanks, "x:\t", x, "\ty:\t", y, "\tz:\t", z and a newline, 15 significant digits whatever the
    /// state of the stream, which stays as it is; flushes.
    void Print(aio_ostream& out, int indentation) const;

    // ---- Persistence

    /// A persistent class that derives from this one overrides `DynTypeId` and `DBWrite`, both: held by a holder of
    /// points it is written by them.
    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return gsl_TypeId(1); }
    [[nodiscard]] virtual unsigned DynTypeId() const;

    /// Destroys a point made with `new` that is known by its untyped address only; null is allowed. Registered with the
    /// class: `cls_ClassMetadata::cowDtor`.
    static void CowDtor(void* point);

    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    virtual void DBWrite(const cls_WriteVisitor& visitor) const;
    explicit gsl_Point(const cls_ReadVisitor& visitor);

private:
    std::array<double, 3> _xyz{};
    cls_Uid _uid;
};

/// Squared distance.
[[nodiscard]] double gsl_GetDistSqr(const gsl_Point& a, const gsl_Point& b) noexcept;

/// "(x, y, z)" with the stream's own precision and flags.
ORV_EXPORT aio_ostream& operator<<(aio_ostream& out, const gsl_Point& point);

/// Hash of the exact coordinates (0.0 and -0.0 alike). It agrees with `gsl_SameCoordinates`, not with `==`.
template <>
struct std::hash<gsl_Point> {
    [[nodiscard]] std::size_t operator()(const gsl_Point& p) const noexcept { return gsl_HashCoordinates(p.AsArray()); }
};
template <>
struct std::tuple_size<gsl_Point> : std::integral_constant<std::size_t, 3> {};
template <std::size_t I>
struct std::tuple_element<I, gsl_Point> : std::type_identity<double> {};

inline gsl_Point gsl_Point::operator+(const gsl_Vector& v) const noexcept {
    return {_xyz[0] + v.X(), _xyz[1] + v.Y(), _xyz[2] + v.Z()};
}

inline gsl_Point gsl_Point::operator-(const gsl_Vector& v) const noexcept {
    return {_xyz[0] - v.X(), _xyz[1] - v.Y(), _xyz[2] - v.Z()};
}

inline gsl_Vector gsl_Point::operator-(const gsl_Point& other) const noexcept {
    return {_xyz[0] - other._xyz[0], _xyz[1] - other._xyz[1], _xyz[2] - other._xyz[2]};
}

inline double gsl_GetDistSqr(const gsl_Point& a, const gsl_Point& b) noexcept { return (a - b).LengthSq(); }

inline double gsl_Point::GetDistance(const gsl_Point& other) const noexcept {
    return std::sqrt(gsl_GetDistSqr(*this, other));
}

inline bool gsl_Point::operator==(const gsl_Point& other) const noexcept {
    return this == &other || gsl_GetDistSqr(*this, other) <= gsl_Util::LinTolSq();
}

inline bool gsl_Point::IsOn(const gsl_Point& other) const noexcept {
    return gsl_GetDistSqr(*this, other) < gsl_Util::LinTol() * gsl_Util::LinTol();
}

inline bool gsl_Point::operator>(const gsl_Point& other) const noexcept {
    return _xyz[0] > other._xyz[0] && _xyz[1] > other._xyz[1] && _xyz[2] > other._xyz[2];
}

inline bool gsl_Point::operator>=(const gsl_Point& other) const noexcept {
    return !(other._xyz[0] > _xyz[0]) && !(other._xyz[1] > _xyz[1]) && !(other._xyz[2] > _xyz[2]);
}

#endif
