#ifndef ORV_ANNC_DETAIL_ANNC_INTOBJIMPL_H
#define ORV_ANNC_DETAIL_ANNC_INTOBJIMPL_H

#include <annC/annC_IntObj.h>
#include <annC/detail/annC_Attribute.h>
#include <base/atr_String.h>
#include <base/nex_PrimException.h>
#include <base/nex_Throw.h>
#include <omu/omu_Arguments.h>
#include <omu/omu_AttributeErrorException.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

// For the sources that instantiate annC_IntObj.

template <class A>
annC_IntObj<A>::annC_IntObj(std::shared_ptr<A> annotation) : _annotation(std::move(annotation)) {
    if (_annotation == nullptr) nex_Throw(nex_PrimException("annC_IntObj: annotation != NULL"));
}

template <class A>
annC_IntObj<A>::annC_IntObj(omu_Arguments& arguments) : _annotation(std::make_shared<A>()) {
    Read(arguments, A::constructorCmd());
}

template <class A>
void annC_IntObj<A>::SetValues(omu_Arguments& arguments) {
    Read(arguments, "setValues");
}

template <class A>
void annC_IntObj<A>::Read(omu_Arguments& arguments, const char* command) {
    A draft = *_annotation;
    std::vector<std::function<void()>> checks;
    arguments.Begin();
    arguments.Optional();
    for (const annC_Attribute<A>& attribute : annC_Attributes<A>()) checks.push_back(attribute.read(arguments, draft));
    arguments.End(command);
    for (const auto& check : checks) {
        if (check) check();
    }
    *_annotation = draft;
}

template <class A>
auto annC_IntObj<A>::Translated(omu_Arguments& arguments, const char* command, const char* keyword, const Point& from)
    -> Point {
    annC_NumberArgument dx;
    annC_NumberArgument dy;
    arguments.Begin();
    arguments.Get(dx, "dx");
    arguments.Get(dy, "dy");
    arguments.End(command);
    const Point to = {from[0] + dx.value, from[1] + dy.value};
    annC_CheckFinite(keyword, to);
    return to;
}

template <class A>
cow_List<cow_String> annC_IntObj<A>::Members() {
    cow_List<cow_String> members;
    for (const annC_Attribute<A>& attribute : annC_Attributes<A>()) members.Append(attribute.keyword);
    return members;
}

template <class A>
std::unique_ptr<omu_Primitive> annC_IntObj<A>::Member(const cow_String& name) const {
    for (const annC_Attribute<A>& attribute : annC_Attributes<A>()) {
        if (name == attribute.keyword) return attribute.value(*_annotation);
    }
    nex_Throw(omu_AttributeErrorException(omu_AttribText,
                                          atr("%s has no attribute %s", A::constructorCmd(), name.c_str()).Text()));
}

template <class A>
cow_String annC_IntObj<A>::AsString() const {
    std::string text = A::constructorCmd();
    const char* before = "(";
    for (const annC_Attribute<A>& attribute : annC_Attributes<A>()) {
        text.append(before).append(attribute.keyword).append("=");
        attribute.value(*_annotation)->AppendString(text);
        before = ", ";
    }
    return cow_String(text + ")");
}

#endif
