#ifndef ORV_GSL_GSL_MODELSEGMENT_H
#define ORV_GSL_GSL_MODELSEGMENT_H

#include <base/orv_Export.h>
#include <gsl/gsl_TypeId.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// Segment between two reference points of a model. Attributes follow with the class's behaviour: so far only the class
/// itself is registered.
class ORV_EXPORT gsl_ModelSegment {
public:
    gsl_ModelSegment() noexcept = default;
    gsl_ModelSegment(const gsl_ModelSegment&) = default;
    gsl_ModelSegment& operator=(const gsl_ModelSegment&) = default;
    virtual ~gsl_ModelSegment() = default;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return gsl_TypeId(11); }
    [[nodiscard]] virtual unsigned DynTypeId() const;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const;
    explicit gsl_ModelSegment(const cls_ReadVisitor& visitor);
};

#endif
