#ifndef ORV_GSL_GSL_PLANE_H
#define ORV_GSL_GSL_PLANE_H

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

/// How a plane was defined. Scripts know the values by these names.
enum class gsl_DirMethod : int {
    FROM_POINT_VECTOR = 0,
    FROM_FACE = 1,
    FROM_DATUM_PLANE = 2,
    FROM_ELEM_FACE = 3,
    PLANE_INVALID = 4
};
template <>
ORV_EXPORT const omu_PrimEnum<gsl_DirMethod>::Row* omu_PrimEnum<gsl_DirMethod>::Table();

/// A plane through a point, with a normal of any length; also a datum plane of a model, which remembers how it was
/// defined, by which feature and from which objects. What points do with a plane is at `gsl_Point`.
///
/// The length of the normal is divided out wherever it matters, so any but 0 will do. Queries fill the normal's length
/// cache (see `gsl_Vector` about threads). Nothing but reading and `Copy` throws. Tolerances are those of `gsl_Util`
/// unless a number is given.
class ORV_EXPORT gsl_Plane {
public:
    /// Through the origin, with the normal (1, 0, 0).
    gsl_Plane() noexcept = default;

    /// `IsOk` becomes false for the method PLANE_INVALID.
    gsl_Plane(const gsl_Point& point, const gsl_Vector& normal,
              gsl_DirMethod method = gsl_DirMethod::FROM_POINT_VECTOR) noexcept;

    gsl_Plane(const gsl_Plane&) = default;
    gsl_Plane& operator=(const gsl_Plane&) = default;
    virtual ~gsl_Plane() = default;
    /// A copy of the object's own class.
    [[nodiscard]] virtual std::unique_ptr<gsl_Plane> Copy() const;

    // ---- Geometry

    /// The normal, as it is stored.
    [[nodiscard]] const gsl_PersistentVector& Direction() const noexcept { return _normal; }

    /// The point through which the plane was laid.
    [[nodiscard]] const gsl_Point& Centroid() const noexcept { return _point; }

    /// Normals parallel or opposite: a sine below `gsl_StLine::ParallelSine` (strict).
    [[nodiscard]] bool IsParallel(const gsl_Plane& other) const noexcept;

    /// Parallel (strict), and this plane's point within LinTol of the other plane (inclusive).
    [[nodiscard]] bool IsOn(const gsl_Plane& other) const noexcept;

    /// Of this plane's point to the other plane where they are parallel; 0 otherwise, as they meet.
    [[nodiscard]] double GetDistance(const gsl_Plane& other) const noexcept;

    // ---- Datum

    /// How it was defined, and whether that gave a plane.
    [[nodiscard]] gsl_DirMethod Method() const noexcept { return _method; }
    [[nodiscard]] bool IsOk() const noexcept { return _ok; }

    /// Negates the stored normal and toggles the flag that `IsFlipped` tells.
    void FlipDirection() noexcept;
    /// Whether the normal was flipped an odd number of times.
    [[nodiscard]] bool IsFlipped() const noexcept { return _flip; }

    /// The feature that owns the datum; 0 by default.
    [[nodiscard]] int OwnerFeatID() const noexcept { return _ownerFeatId; }
    void SetOwnerFeatID(int ownerFeatId) noexcept { _ownerFeatId = ownerFeatId; }

    /// Identifiers of the objects from which the datum was made; none by default.
    [[nodiscard]] const cow_List<unsigned>& ParentIds() const noexcept { return _parentIds; }
    void SetParentIds(const cow_List<unsigned>& parentIds) noexcept { _parentIds = parentIds; }

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return gsl_TypeId(4); }
    [[nodiscard]] virtual unsigned DynTypeId() const;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    virtual void DBWrite(const cls_WriteVisitor& visitor) const;
    /// A method that is not listed is kept as the number it is.
    explicit gsl_Plane(const cls_ReadVisitor& visitor);

private:
    bool _ok = true;
    gsl_Point _point;
    gsl_PersistentVector _normal{1.0, 0.0, 0.0};
    gsl_DirMethod _method = gsl_DirMethod::FROM_POINT_VECTOR;
    bool _flip = false;
    cow_List<unsigned> _parentIds;
    int _ownerFeatId = 0;
};

template <>
struct omu_xoObjVarrayTraits<gsl_Plane> {
    static constexpr const char* name = "gsl_PlaneArray";
    static constexpr unsigned typeId = gsl_TypeId(13);
};

#endif
