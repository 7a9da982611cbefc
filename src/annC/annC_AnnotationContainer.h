#ifndef ORV_ANNC_ANNC_ANNOTATIONCONTAINER_H
#define ORV_ANNC_ANNC_ANNOTATIONCONTAINER_H

#include <annC/annC_Annotation.h>
#include <annC/annC_TypeId.h>
#include <base/cow_List.h>
#include <base/cow_Map.h>
#include <base/cow_String.h>
#include <base/orv_Export.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// Annotations by name, in the order of the names.
using annC_MapString2AnnotationCow = cow_Map<cow_String, annC_AnnotationHld>;

/// The annotations of a viewport or a model, by name and in the order of the names (by bytes); any name will do. There
/// is always an annotation behind a name.
///
/// The container shares its annotations with whoever has a handle of them, and so do copies of it: inserting, removing
/// and renaming in one container leave the others alone, changing an annotation does not. To part two containers give
/// one of them copies of the annotations.
class ORV_EXPORT annC_AnnotationContainer {
public:
    using const_iterator = annC_MapString2AnnotationCow::const_iterator;

    annC_AnnotationContainer() noexcept = default;

    // ---- Queries

    /// Number of annotations, and whether one has that name.
    [[nodiscard]] int Length() const noexcept { return _annotations.Length(); }
    [[nodiscard]] bool IsMember(const cow_String& name) const { return _annotations.IsMember(name); }
    /// Throws nex_RangeException when the name is absent.
    [[nodiscard]] const annC_AnnotationHld& ConstGet(const cow_String& name) const {
        return _annotations.ConstGet(name);
    }
    /// All names in order.
    [[nodiscard]] cow_List<cow_String> Keys() const { return _annotations.Keys(); }

    /// Pairs of name and handle in the order of the names. Whatever changes the container ends an iteration.
    [[nodiscard]] const_iterator begin() const noexcept { return _annotations.begin(); }
    [[nodiscard]] const_iterator end() const noexcept { return _annotations.end(); }

    // ---- Operations

    /// Replaces what has the name already. Throws nex_PrimException, and changes nothing, for a handle without an
    /// annotation.
    void Insert(const cow_String& name, const annC_AnnotationHld& annotation);

    /// Whether the name was there.
    bool Remove(const cow_String& name) { return _annotations.Remove(name); }

    /// False, and nothing changed, when `from` is absent or `to` is the name of another annotation. A name may be
    /// renamed to itself.
    bool Rename(const cow_String& from, const cow_String& to);

    /// The same names, with annotations that are equal by value.
    friend ORV_EXPORT bool operator==(const annC_AnnotationContainer& a, const annC_AnnotationContainer& b);

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return annC_TypeId(8); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    /// Throws nex_StreamException for an annotation of a class that is not registered.
    void DBWrite(const cls_WriteVisitor& visitor) const;
    /// An entry of the stream without an annotation is left out.
    explicit annC_AnnotationContainer(const cls_ReadVisitor& visitor);

private:
    annC_MapString2AnnotationCow _annotations;
};

#endif
