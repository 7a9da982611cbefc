#include <annC/annC_Annotation.h>
#include <annC/annC_NamedAnchor.h>
#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>

#include <typeinfo>

void annC_Annotation::NewUid() noexcept { _uid = cls_Uid::AllocateUid(); }

bool operator==(const annC_Annotation& a, const annC_Annotation& b) { return typeid(a) == typeid(b) && a.IsEqual(b); }

annC_AnchorHld annC_Annotation::NewAnchor() { return annC_AnchorHld(std::make_shared<annC_NamedAnchor>()); }

const cow_String& annC_Annotation::DefaultColor() {
    static const cow_String white("White");
    return white;
}

bool annC_Annotation::IsSameAnchor(const annC_AnchorHld& a, const annC_AnchorHld& b) {
    return a.IsNull() || b.IsNull() ? a.IsNull() == b.IsNull() : *a == *b;
}

// ---- Persistence

void annC_Annotation::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<annC_Annotation>("annC_Annotation", 203);
}

void annC_Annotation::DBWrite(const cls_WriteVisitor& /*visitor*/) const {}

annC_Annotation::annC_Annotation(const cls_ReadVisitor& /*visitor*/) noexcept : annC_Annotation() {}

annC_AnchorHld annC_Annotation::ReadAnchor(const cls_ReadVisitor& visitor, const char* field) {
    const annC_AnchorHld anchor = visitor.Read(field, annC_AnchorHld());
    return anchor.IsNull() ? NewAnchor() : anchor;
}
