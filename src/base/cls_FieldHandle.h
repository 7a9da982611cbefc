#ifndef ORV_BASE_CLS_FIELDHANDLE_H
#define ORV_BASE_CLS_FIELDHANDLE_H

#include <base/cow_String.h>

#include <string_view>

/// The name of a field as mementos take it. It views the text it was made from and must not outlive it; it is meant
/// for the length of one call.
class cls_FieldHandle {
public:
    /// Refers to the caller's text, which must outlive it; null is the empty name.
    cls_FieldHandle(const char* name) noexcept : _name(name != nullptr ? name : "") {}
    cls_FieldHandle(const cow_String& name) noexcept : _name(name.View()) {}

    /// The name.
    [[nodiscard]] std::string_view Name() const noexcept { return _name; }

private:
    std::string_view _name;
};

#endif
