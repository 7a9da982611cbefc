#include <annC/annC_Anchor.h>
#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>

#include <typeinfo>

bool operator==(const annC_Anchor& a, const annC_Anchor& b) { return typeid(a) == typeid(b) && a.IsEqual(b); }

// ---- Persistence

void annC_Anchor::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<annC_Anchor>("annC_Anchor", 203);
}

void annC_Anchor::DBWrite(const cls_WriteVisitor& /*visitor*/) const {}

annC_Anchor::annC_Anchor(const cls_ReadVisitor& /*visitor*/) noexcept : annC_Anchor() {}
