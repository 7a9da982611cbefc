#ifndef ORV_GSL_GSL_STLINE_H
#define ORV_GSL_GSL_STLINE_H

#include <base/cls_Uid.h>
#include <base/cow_List.h>
#include <base/omu_xoObjVarray.h>
#include <base/orv_Export.h>
#include <gsl/gsl_PersistentVector.h>
#include <gsl/gsl_Point.h>
#include <gsl/gsl_TypeId.h>
#include <omu/omu_PrimEnum.h>

#include <memory>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;
class gsl_Plane;

/// How a line was defined. Scripts know the values by these names.
enum class gsl_LineMethod : int {
    FROM_PNT_VECTOR = 0,
    FROM_EDGE = 1,
    FROM_REVFACE = 2,
    FROM_DATUM_AXIS = 3,
    FROM_ELEM_EDGE = 4,
    FROM_PNT_PNT = 5,
    STLINE_INVALID = 6,
    FROM_DATUM_CSYS = 7
};
template <>
ORV_EXPORT const omu_PrimEnum<gsl_LineMethod>::Row* omu_PrimEnum<gsl_LineMethod>::Table();

/// An infinite straight line through a point, with a direction of any length; also a datum axis of a model, which
/// remembers how it was defined, by which feature and from which objects. What points do with a line is at `gsl_Point`.
///
/// The comparisons differ on purpose:
///
/// | question                          | answer is true when                                        |
/// |-----------------------------------|------------------------------------------------------------|
/// | point on line (`gsl_Point::IsOn`) | distance <= 1e-6 (inclusive)                               |
/// | `IsOn(line)`                      | sine < 1e-9 and distance of the point < 1e-6 (both strict) |
/// | `IsParallel(line)`                | sine < 1e-9 (strict)                                       |
/// | `IsParallel(plane)`               | sine < AngTol (strict)                                     |
/// | `Intersect(line)`                 | unit components differ by more than 1e-5 (a coarser eye)   |
///
/// The length of the direction is divided out, but for `GetDistance(line)`. Queries fill its cache (see `gsl_Vector`
/// about threads). Nothing but reading and `Copy` throws. Tolerances are those of `gsl_Util` unless a number is given.
class ORV_EXPORT gsl_StLine {
public:
    /// The sine from which on lines, and planes by their normals, are not parallel to each other.
    static constexpr double ParallelSine = 1e-9;

    /// Through the origin along (1, 0, 0).
    gsl_StLine() noexcept = default;

    /// `IsOk` becomes false for the method STLINE_INVALID.
    gsl_StLine(const gsl_Point& point, const gsl_Vector& direction,
               gsl_LineMethod method = gsl_LineMethod::FROM_PNT_VECTOR) noexcept;

    /// Through `from` along `to` - `from`, with the method FROM_PNT_PNT.
    gsl_StLine(const gsl_Point& from, const gsl_Point& to) noexcept;

    gsl_StLine(const gsl_StLine&) = default;
    gsl_StLine& operator=(const gsl_StLine&) = default;
    virtual ~gsl_StLine() = default;
    /// A copy of the object's own class.
    [[nodiscard]] virtual std::unique_ptr<gsl_StLine> Copy() const;

    // ---- Geometry

    /// The point through which the line was laid.
    [[nodiscard]] const gsl_Point& Point() const noexcept { return _point; }

    /// As it is stored: not normalised, flipped or not.
    [[nodiscard]] const gsl_PersistentVector& Direction() const noexcept { return _dir; }

    /// The line's point moved by `distance` along the unit of the direction, coordinates stored in `out`; the point
    /// itself for a line without direction.
    void PointAtDistance(double distance, gsl_Point& out) const noexcept;

    // ---- Against another line

    /// Directions parallel or opposite: a sine below ParallelSine (strict, so false for a direction of length 0).
    [[nodiscard]] bool IsParallel(const gsl_StLine& other) const noexcept;

    /// Parallel, and this line's point less than LinTol from the other line (strict, unlike a point on a line).
    [[nodiscard]] bool IsOn(const gsl_StLine& other) const noexcept;

    /// Shortest distance of lines that are not parallel; *0 for parallel ones, however far apart*. Parallel means here
    /// that |d1 x d2| < LinTol (strict) as the directions stand, so lines with very short directions are at distance 0
    /// too.
    [[nodiscard]] double GetDistance(const gsl_StLine& other) const noexcept;

    /// `GetDistance` greater than LinTol (strict).
    [[nodiscard]] bool IsSkewed(const gsl_StLine& other) const noexcept;

    /// Where the lines come closest. In this order:
    /// - `GetDistance` greater than LinTol, or NaN: false, nothing written;
    /// - directions that `gsl_Vector::IsParallel` takes for parallel at 1e-5, which is coarse: false, only `dist` is
    ///   written, the distance of this line's point from the other line;
    /// - otherwise true: the closest point of *this* line is stored in `point`, the closest distance in `dist`.
    /// Since lines with very short directions pass the first test however far apart they are, look at `dist`.
    [[nodiscard]] bool Intersect(const gsl_StLine& other, gsl_Point& point, double& dist) const noexcept;

    // ---- Against a plane

    /// |n . d| < |n| AngTol |d| (strict).
    [[nodiscard]] bool IsParallel(const gsl_Plane& plane) const noexcept;

    /// Parallel to the plane (strict), and the line's point within LinTol of it (inclusive).
    [[nodiscard]] bool IsOn(const gsl_Plane& plane) const noexcept;

    /// Of the line's point when the line is parallel to the plane; 0 otherwise, as they meet.
    [[nodiscard]] double GetSignedDistance(const gsl_Plane& plane) const noexcept;
    /// Its absolute value.
    [[nodiscard]] double GetDistance(const gsl_Plane& plane) const noexcept;

    /// `gsl_Point::RayIntersect` from the line's point along its direction: true with that point when it is on the
    /// plane, even for a line within the plane; false for a direction shorter than LinTol.
    [[nodiscard]] bool Intersect(const gsl_Plane& plane, gsl_Point& point) const noexcept;

    // ---- Datum

    /// How it was defined, and whether that gave a line.
    [[nodiscard]] gsl_LineMethod Method() const noexcept { return _method; }
    [[nodiscard]] bool IsOk() const noexcept { return _ok; }

    /// Negates the stored direction and toggles the flag that `IsFlipped` tells.
    void FlipDirection() noexcept;
    /// Whether the direction was flipped an odd number of times.
    [[nodiscard]] bool IsFlipped() const noexcept { return _flip; }

    /// The direction as it was before it was flipped.
    [[nodiscard]] gsl_Vector DirectionForDatum() const noexcept;

    /// The feature that owns the datum; 0 by default.
    [[nodiscard]] int OwnerFeatID() const noexcept { return _ownerFeatId; }
    void SetOwnerFeatID(int ownerFeatId) noexcept { _ownerFeatId = ownerFeatId; }

    /// Identifiers of the objects from which the datum was made; none by default.
    [[nodiscard]] const cow_List<unsigned>& ParentIds() const noexcept { return _parentIds; }
    void SetParentIds(const cow_List<unsigned>& parentIds) noexcept { _parentIds = parentIds; }

    /// The default identity, or a fresh one for a line that was read; copies have the original's.
    [[nodiscard]] cls_Uid Uid() const noexcept { return _uid; }

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return gsl_TypeId(6); }
    [[nodiscard]] virtual unsigned DynTypeId() const;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    virtual void DBWrite(const cls_WriteVisitor& visitor) const;
    /// A method that is not listed is kept as the number it is.
    explicit gsl_StLine(const cls_ReadVisitor& visitor);

private:
    gsl_Point _point;
    gsl_PersistentVector _dir{1.0, 0.0, 0.0};
    gsl_LineMethod _method = gsl_LineMethod::FROM_PNT_VECTOR;
    bool _flip = false;
    bool _ok = true;
    cow_List<unsigned> _parentIds;
    int _ownerFeatId = 0;
    cls_Uid _uid;
};

template <>
struct omu_xoObjVarrayTraits<gsl_StLine> {
    static constexpr const char* name = "gsl_LineArray";
    static constexpr unsigned typeId = gsl_TypeId(10);
};

#endif
