#ifndef ORV_GSL_GSL_SEGMENT_H
#define ORV_GSL_GSL_SEGMENT_H

#include <base/orv_Export.h>
#include <gsl/gsl_TypeId.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// Straight segment between two points. Attributes follow with the class's behaviour: so far only the class itself is
/// registered.
class ORV_EXPORT gsl_Segment {
public:
    gsl_Segment() noexcept = default;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return gsl_TypeId(8); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const;
    explicit gsl_Segment(const cls_ReadVisitor& visitor);
};

#endif
