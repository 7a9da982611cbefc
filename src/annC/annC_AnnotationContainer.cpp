#include <annC/annC_AnnotationContainer.h>
#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <base/nex_PrimException.h>
#include <base/nex_Throw.h>

#include <algorithm>

void annC_AnnotationContainer::Insert(const cow_String& name, const annC_AnnotationHld& annotation) {
    if (annotation.IsNull()) nex_Throw(nex_PrimException("annotation is not null"));
    _annotations.Insert(name, annotation);
}

bool annC_AnnotationContainer::Rename(const cow_String& from, const cow_String& to) {
    if (!IsMember(from)) return false;
    if (from == to) return true;
    if (IsMember(to)) return false;
    _annotations.Insert(to, ConstGet(from));
    return _annotations.Remove(from);
}

bool operator==(const annC_AnnotationContainer& a, const annC_AnnotationContainer& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& left, const auto& right) {
        return left.first == right.first && *left.second == *right.second;
    });
}

// ---- Persistence

void annC_AnnotationContainer::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<annC_AnnotationContainer>("annC_AnnotationContainer", 203)
        .Add<annC_MapString2AnnotationCow>("annotations");
}

void annC_AnnotationContainer::DBWrite(const cls_WriteVisitor& visitor) const {
    visitor.Write("annotations", _annotations);
}

annC_AnnotationContainer::annC_AnnotationContainer(const cls_ReadVisitor& visitor)
    : _annotations(visitor.Read("annotations", annC_MapString2AnnotationCow())) {
    const annC_MapString2AnnotationCow stored = _annotations;
    for (const auto& [name, annotation] : stored)
        if (annotation.IsNull()) _annotations.Remove(name);
}
