#ifndef ORV_GSL_GSL_DOT_H
#define ORV_GSL_GSL_DOT_H

#include <base/omu_xoObjVarray.h>
#include <base/orv_Export.h>
#include <gsl/gsl_TypeId.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// Reference point of a model. Attributes follow with the class's behaviour: so far only the class itself is
/// registered.
class ORV_EXPORT gsl_Dot {
public:
    gsl_Dot() noexcept = default;
    gsl_Dot(const gsl_Dot&) = default;
    gsl_Dot& operator=(const gsl_Dot&) = default;
    virtual ~gsl_Dot() = default;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return gsl_TypeId(5); }
    [[nodiscard]] virtual unsigned DynTypeId() const;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const;
    explicit gsl_Dot(const cls_ReadVisitor& visitor);
};

template <>
struct omu_xoObjVarrayTraits<gsl_Dot> {
    static constexpr const char* name = "gsl_DotArray";
    static constexpr unsigned typeId = gsl_TypeId(14);
};

#endif
