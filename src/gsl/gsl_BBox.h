#ifndef ORV_GSL_GSL_BBOX_H
#define ORV_GSL_GSL_BBOX_H

#include <base/aio_ostream.h>
#include <base/orv_Export.h>
#include <gsl/gsl_Point.h>
#include <gsl/gsl_Real.h>
#include <gsl/gsl_TypeId.h>
#include <gsl/gsl_Vector.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;
class g3d_Sphere;
class gsl_Matrix;

/// Axis-parallel box, in model units, held by its low and its high corner.
///
/// A box is empty when low exceeds high on any axis (strict); the default one is, with low (0, 0, 0) and high
/// (-1, -1, -1). A box without thickness (low = high on an axis) is not empty.
///
/// The empty box is the set without points: adding it changes nothing, it intersects nothing, and every box contains
/// it. Coordinates that are NaN pass through as they stand: they exceed nothing, so they widen no box and make none
/// empty, and no containment holds with them.
///
/// Nothing throws but the reading constructor.
class ORV_EXPORT gsl_BBox {
public:
    /// Empty.
    gsl_BBox() noexcept = default;

    /// From its corners as they stand (not sorted: a low corner above the high one gives an empty box).
    gsl_BBox(const gsl_Point& low, const gsl_Point& high) noexcept : _low(low), _high(high) {}

    gsl_BBox(const gsl_BBox&) noexcept = default;
    gsl_BBox& operator=(const gsl_BBox&) noexcept = default;
    virtual ~gsl_BBox() = default;

    // ---- Corners and sizes

    /// Opposite corners; low above high for an empty box.
    [[nodiscard]] const gsl_Point& Low() const noexcept { return _low; }
    [[nodiscard]] const gsl_Point& High() const noexcept { return _high; }

    /// Whether it holds nothing.
    [[nodiscard]] inline bool IsEmpty() const noexcept;

    /// High minus low on the axis: negative where an empty box is inverted.
    [[nodiscard]] double XLen() const noexcept { return _high.X() - _low.X(); }
    [[nodiscard]] double YLen() const noexcept { return _high.Y() - _low.Y(); }
    [[nodiscard]] double ZLen() const noexcept { return _high.Z() - _low.Z(); }

    /// High minus low, also of an empty box.
    [[nodiscard]] gsl_Vector Diag() const noexcept { return _high - _low; }

    /// Length of the diagonal; -1 for an empty box.
    [[nodiscard]] double Size() const noexcept { return IsEmpty() ? -1.0 : Diag().Length(); }

    /// Midpoint of the corners, also of an empty box, with a fresh identity.
    [[nodiscard]] gsl_Point Center() const { return {_low, _high}; }

    /// A sphere for single-precision viewing that contains the box (`SphereContainsBox` holds): around the centre as
    /// rounded to float, the radius rounded up. The default sphere for an empty box; infinite where float ends.
    [[nodiscard]] g3d_Sphere GetExtent() const;

    // ---- Containment and intersection

    /// low - 1e-10 <= p <= high + 1e-10 on every axis (inclusive).
    [[nodiscard]] bool ContainsPoint(const gsl_Point& point) const noexcept;

    /// Both corners of `other` by `ContainsPoint`; true when `other` is empty, else false when this is.
    [[nodiscard]] bool ContainsBox(const gsl_BBox& other) const noexcept;

    /// True when `sphere` contains *this box*: no corner is further than radius + LinTol from the centre in its
    /// Cartesian form (inclusive). True for an empty box.
    [[nodiscard]] bool SphereContainsBox(const g3d_Sphere& sphere) const noexcept;

    /// False when the box around both is longer on some axis than the two together (strict: touching boxes intersect;
    /// no tolerance, so boxes that touch by their numbers may miss by a rounding of the lengths) or when either is
    /// empty.
    [[nodiscard]] bool Intersect(const gsl_BBox& other) const noexcept;

    // ---- Change in place

    /// Makes the box empty, as by default.
    void Vacate() noexcept { *this = gsl_BBox(); }

    /// Widens the box to include the point or box; an empty box becomes the point or box. Coordinates only: the
    /// corners keep their identities.
    void Add(const gsl_Point& point) noexcept;
    void Add(const gsl_BBox& other) noexcept;

    /// Becomes the box around the eight corners, centre plus or minus half the diagonal, transformed each by the first
    /// three rows of `matrix`. An empty box is left as it is. Turned and turned back a box is larger than it was, as a
    /// rule.
    void Transform(const gsl_Matrix& matrix) noexcept;

    // ---- Comparison

    /// Both corners equal as points: within LinTol, inclusive. `!=` is its negation.
    [[nodiscard]] bool operator==(const gsl_BBox& other) const noexcept {
        return _low == other._low && _high == other._high;
    }

    // ---- Output

    /// The low and then the high corner by `gsl_Point::Print`, `indentation` blanks before each.
    void Print(aio_ostream& out, int indentation) const;

    // ---- Persistence

    /// A persistent class that derives from this one overrides `DynTypeId` and `DBWrite`, both.
    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return gsl_TypeId(7); }
    [[nodiscard]] virtual unsigned DynTypeId() const;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    virtual void DBWrite(const cls_WriteVisitor& visitor) const;
    explicit gsl_BBox(const cls_ReadVisitor& visitor);

private:
    void Widen(const gsl_Point& low, const gsl_Point& high) noexcept;

    gsl_Point _low;
    gsl_Point _high{-1.0, -1.0, -1.0};
};

/// Shortest distance of two boxes: root of the sum of squares, over the axes, of what the box around both is longer
/// than the two together; 0 when they overlap or touch. An empty box has no distance: the formula is evaluated with its
/// negative lengths and gives a positive number without meaning.
[[nodiscard]] ORV_EXPORT double BoxBoxDistance(const gsl_BBox& a, const gsl_BBox& b) noexcept;

/// By `ContainsBox`: 1 when `a` contains `b` (asked first, so also when they are equal), -1 when `b` contains `a`, 0
/// when neither does.
[[nodiscard]] ORV_EXPORT int BoxBoxContainment(const gsl_BBox& a, const gsl_BBox& b) noexcept;

inline bool gsl_BBox::IsEmpty() const noexcept {
    return _low.X() > _high.X() || _low.Y() > _high.Y() || _low.Z() > _high.Z();
}

inline bool gsl_BBox::ContainsPoint(const gsl_Point& point) const noexcept {
    constexpr double tolerance = 1e-10;
    for (unsigned axis = 0; axis < 3; ++axis) {
        if (!gsl_RealGreaterEqual(point[axis], _low[axis], tolerance)) return false;
        if (!gsl_RealLessEqual(point[axis], _high[axis], tolerance)) return false;
    }
    return true;
}

inline void gsl_BBox::Widen(const gsl_Point& low, const gsl_Point& high) noexcept {
    if (IsEmpty()) {
        _low.SetPos(low);
        _high.SetPos(high);
        return;
    }
    for (unsigned axis = 0; axis < 3; ++axis) {
        if (low[axis] < _low[axis]) _low[axis] = low[axis];
        if (high[axis] > _high[axis]) _high[axis] = high[axis];
    }
}

inline void gsl_BBox::Add(const gsl_Point& point) noexcept { Widen(point, point); }

inline void gsl_BBox::Add(const gsl_BBox& other) noexcept {
    if (!other.IsEmpty()) Widen(other._low, other._high);
}

#endif
