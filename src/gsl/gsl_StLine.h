#ifndef ORV_GSL_GSL_STLINE_H
#define ORV_GSL_GSL_STLINE_H

#include <base/omu_xoObjVarray.h>
#include <base/orv_Export.h>
#include <gsl/gsl_TypeId.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// Straight line through a point, with a direction. Attributes follow with the class's behaviour: so far only the class
/// itself is registered.
class ORV_EXPORT gsl_StLine {
public:
    gsl_StLine() noexcept = default;
    gsl_StLine(const gsl_StLine&) = default;
    gsl_StLine& operator=(const gsl_StLine&) = default;
    virtual ~gsl_StLine() = default;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return gsl_TypeId(6); }
    [[nodiscard]] virtual unsigned DynTypeId() const;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const;
    explicit gsl_StLine(const cls_ReadVisitor& visitor);
};

template <>
struct omu_xoObjVarrayTraits<gsl_StLine> {
    static constexpr const char* name = "gsl_LineArray";
    static constexpr unsigned typeId = gsl_TypeId(10);
};

#endif
