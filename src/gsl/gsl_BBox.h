#ifndef ORV_GSL_GSL_BBOX_H
#define ORV_GSL_GSL_BBOX_H

#include <base/orv_Export.h>
#include <gsl/gsl_TypeId.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// Axis-parallel box, held by its low and high corner. Attributes follow with the class's behaviour: so far only the
/// class itself is registered.
class ORV_EXPORT gsl_BBox {
public:
    gsl_BBox() noexcept = default;
    gsl_BBox(const gsl_BBox&) = default;
    gsl_BBox& operator=(const gsl_BBox&) = default;
    virtual ~gsl_BBox() = default;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return gsl_TypeId(7); }
    [[nodiscard]] virtual unsigned DynTypeId() const;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const;
    explicit gsl_BBox(const cls_ReadVisitor& visitor);
};

#endif
