#ifndef ORV_GSL_GSL_MODELSEGMENT_H
#define ORV_GSL_GSL_MODELSEGMENT_H

#include <base/cls_Uid.h>
#include <base/cow_CountedHld.h>
#include <base/orv_Export.h>
#include <gsl/gsl_Dot.h>
#include <gsl/gsl_TypeId.h>
#include <gsl/gsl_Vector.h>

#include <memory>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;
class ftr_FeatureList;

/// A segment between two reference points of a model, either of which may be missing.
///
/// Copies share the dots until one of them regenerates. The dots keep their dynamic class: they are copied by
/// `gsl_Dot::Copy`.
class ORV_EXPORT gsl_ModelSegment {
public:
    /// Without points.
    gsl_ModelSegment() noexcept = default;
    /// From the first point to the second.
    gsl_ModelSegment(const gsl_Dot& point1, const gsl_Dot& point2);
    gsl_ModelSegment(const gsl_ModelSegment&) = default;
    gsl_ModelSegment& operator=(const gsl_ModelSegment&) = default;
    virtual ~gsl_ModelSegment() = default;

    /// Null when missing. Good until the segment is regenerated, assigned or destroyed.
    [[nodiscard]] const gsl_Dot* Point1() const noexcept { return _point1.Get(); }
    [[nodiscard]] const gsl_Dot* Point2() const noexcept { return _point2.Get(); }

    /// The second point minus the first, its length not yet known; (0, 0, 1), and *not* a zero vector, when a point is
    /// missing.
    [[nodiscard]] gsl_Vector Direction() const noexcept;

    /// 0 when a point is missing.
    [[nodiscard]] double Length() const noexcept;

    /// Replaces each dot that is there by a copy of its own, regenerated from `features`. What shared the dots keeps
    /// the old ones.
    void Regenerate(const ftr_FeatureList* features);

    /// Fresh for each segment that is made or read; copies have the original's.
    [[nodiscard]] cls_Uid Uid() const noexcept { return _uid; }

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return gsl_TypeId(11); }
    [[nodiscard]] virtual unsigned DynTypeId() const;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    virtual void DBWrite(const cls_WriteVisitor& visitor) const;
    explicit gsl_ModelSegment(const cls_ReadVisitor& visitor);

private:
    using Holder = cow_CountedHld<gsl_Dot>;

    Holder _point1;
    Holder _point2;
    cls_Uid _uid = cls_Uid::AllocateUid();
};

/// ((x1, y1, z1), (x2, y2, z2)) for scripts, with None for a missing point.
[[nodiscard]] ORV_EXPORT std::unique_ptr<omu_Primitive> omu_ReturnPrim(const gsl_ModelSegment& segment);

#endif
