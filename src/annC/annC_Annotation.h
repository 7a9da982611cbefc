#ifndef ORV_ANNC_ANNC_ANNOTATION_H
#define ORV_ANNC_ANNC_ANNOTATION_H

#include <annC/annC_Anchor.h>
#include <annC/annC_TypeId.h>
#include <base/cls_Uid.h>
#include <base/cow_CountedHld.h>
#include <base/cow_String.h>
#include <base/orv_Export.h>

#include <memory>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// Something flat drawn over a viewport, placed by anchors.
///
/// An annotation shares its anchors with its copies until one side is given another. Every one made by a default
/// constructor has anchors of its own. A handle without an anchor is taken as it is: copying, comparing and writing
/// bear it, and what is read back has a new default anchor there, the bottom left corner of the viewport.
///
/// Besides the identity that every annotation has, `Uid`, each concrete class has one of its own, `OwnUid`. Copies,
/// assigned ones too, have the original's until `NewUid`; an annotation that is read has fresh ones.
///
/// Lengths lie in the plane of the viewport, x to the right and y up. No number, colour or enumerator is checked here.
class ORV_EXPORT annC_Annotation {
public:
    virtual ~annC_Annotation() = default;

    /// A copy of the dynamic class; shares the anchors, keeps the identities.
    [[nodiscard]] virtual std::unique_ptr<annC_Annotation> Copy() const = 0;

    [[nodiscard]] cls_Uid Uid() const noexcept { return _uid; }
    /// Gives fresh identities: this one and that of the concrete class.
    virtual void NewUid() noexcept;

    /// Moves it by (dx, dy) against its anchors.
    virtual void Translate(double dx, double dy) noexcept = 0;

    /// Of the same dynamic class with the same attributes, anchors compared by value; identities are not compared.
    friend ORV_EXPORT bool operator==(const annC_Annotation& a, const annC_Annotation& b);

    // ---- Persistence: no attributes of its own

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return annC_TypeId(5); }
    [[nodiscard]] virtual unsigned DynTypeId() const = 0;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    virtual void DBWrite(const cls_WriteVisitor& visitor) const;

protected:
    annC_Annotation() noexcept : _uid(cls_Uid::AllocateUid()) {}
    explicit annC_Annotation(const cls_ReadVisitor& visitor) noexcept;
    annC_Annotation(const annC_Annotation&) = default;
    annC_Annotation& operator=(const annC_Annotation&) = default;

    /// A new named anchor, BOTTOM_LEFT.
    [[nodiscard]] static annC_AnchorHld NewAnchor();
    /// What the stream carries, a new default anchor for none. Throws nex_StreamException for what is no anchor.
    [[nodiscard]] static annC_AnchorHld ReadAnchor(const cls_ReadVisitor& visitor, const char* field);
    /// "White".
    [[nodiscard]] static const cow_String& DefaultColor();
    /// By value; two handles without an anchor are the same.
    [[nodiscard]] static bool IsSameAnchor(const annC_AnchorHld& a, const annC_AnchorHld& b);

private:
    /// `other` is of the same dynamic class.
    [[nodiscard]] virtual bool IsEqual(const annC_Annotation& other) const = 0;

    cls_Uid _uid;
};

/// The shared handle of an annotation; what is changed through one handle all the others see.
using annC_AnnotationHld = cow_CountedHld<annC_Annotation>;

#endif
