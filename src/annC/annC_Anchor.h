#ifndef ORV_ANNC_ANNC_ANCHOR_H
#define ORV_ANNC_ANNC_ANCHOR_H

#include <annC/annC_TypeId.h>
#include <base/cls_Uid.h>
#include <base/cow_CountedHld.h>
#include <base/orv_Export.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// A point that annotations hang on: a named place of the viewport, a fraction of it, or a point of the model.
///
/// Annotations share anchors through `annC_AnchorHld`, so an anchor that is in a handle is not changed any more: to
/// move an annotation give it another anchor. A copy of an anchor keeps its identity.
///
/// A host may derive its own anchors: they override `DynTypeId`, `DBWrite` and `IsEqual`, and are registered with this
/// class as their base.
class ORV_EXPORT annC_Anchor {
public:
    virtual ~annC_Anchor() = default;

    [[nodiscard]] cls_Uid Uid() const noexcept { return _uid; }

    /// Of the same dynamic class and in the same place; identities are not compared.
    friend ORV_EXPORT bool operator==(const annC_Anchor& a, const annC_Anchor& b);

    // ---- Persistence: no attributes of its own. An anchor that is read has a fresh identity.

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return annC_TypeId(1); }
    [[nodiscard]] virtual unsigned DynTypeId() const = 0;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    virtual void DBWrite(const cls_WriteVisitor& visitor) const;

protected:
    annC_Anchor() noexcept : _uid(cls_Uid::AllocateUid()) {}
    explicit annC_Anchor(const cls_ReadVisitor& visitor) noexcept;
    annC_Anchor(const annC_Anchor&) = default;
    annC_Anchor& operator=(const annC_Anchor&) = default;

private:
    /// `other` is of the same dynamic class.
    [[nodiscard]] virtual bool IsEqual(const annC_Anchor& other) const = 0;

    cls_Uid _uid;
};

/// The shared handle of an anchor, through which nobody changes it.
using annC_AnchorHld = cow_CountedHld<const annC_Anchor>;

#endif
