#ifndef ORV_GSL_GSL_PLANE_H
#define ORV_GSL_GSL_PLANE_H

#include <base/omu_xoObjVarray.h>
#include <base/orv_Export.h>
#include <gsl/gsl_TypeId.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// Plane through a point, with a normal. Attributes follow with the class's behaviour: so far only the class itself is
/// registered.
class ORV_EXPORT gsl_Plane {
public:
    gsl_Plane() noexcept = default;
    gsl_Plane(const gsl_Plane&) = default;
    gsl_Plane& operator=(const gsl_Plane&) = default;
    virtual ~gsl_Plane() = default;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return gsl_TypeId(4); }
    [[nodiscard]] virtual unsigned DynTypeId() const;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const;
    explicit gsl_Plane(const cls_ReadVisitor& visitor);
};

template <>
struct omu_xoObjVarrayTraits<gsl_Plane> {
    static constexpr const char* name = "gsl_PlaneArray";
    static constexpr unsigned typeId = gsl_TypeId(13);
};

#endif
