#ifndef ORV_ANNC_DETAIL_ANNC_ATTRIBUTE_H
#define ORV_ANNC_DETAIL_ANNC_ATTRIBUTE_H

#include <annC/detail/annC_Argument.h>
#include <omu/omu_Arguments.h>

#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <span>

/// An attribute of annotations of the class A as scripts see it.
template <class A>
struct annC_Attribute {
    const char* keyword;

    /// Reads the next argument into `draft` if it is there. What comes back, unless it is empty, checks the value and
    /// is to be called after `End`.
    std::function<std::function<void()>(omu_Arguments& arguments, A& draft)> read;

    std::function<std::unique_ptr<omu_Primitive>(const A& annotation)> value;
};

/// The table of the attributes; defined for each A beside its scripting object.
template <class A>
[[nodiscard]] std::span<const annC_Attribute<A>> annC_Attributes();

// The kinds of attributes. Each has an argument to read into, with its `Value` in it, the reverse, and a check.

struct annC_StringKind {
    cow_String argument;
    [[nodiscard]] const cow_String& Value() const { return argument; }
    static auto Make(const cow_String& value) { return omu_MakePrimitive(value); }
    static void Check(const char*, const cow_String&) {}
};

struct annC_ColorKind : annC_StringKind {
    static void Check(const char*, const cow_String& color) { annC_CheckColor(color); }
};

struct annC_BoolKind {
    bool argument = false;
    [[nodiscard]] bool Value() const { return argument; }
    static auto Make(bool value) { return omu_MakePrimitive(value); }
    static void Check(const char*, bool) {}
};

template <class E>
struct annC_EnumKind {
    omu_PrimEnum<E> argument{omu_PrimEnum<E>::Value(0)};
    [[nodiscard]] E Value() const { return argument.Value(); }
    static auto Make(E value) { return annC_MakeEnum(value); }
    static void Check(const char*, E) {}
};

struct annC_NumberKind {
    annC_NumberArgument argument;
    [[nodiscard]] double Value() const { return argument.value; }
    static auto Make(double value) { return omu_MakePrimitive(value); }
};

/// Not negative, finite.
struct annC_GapKind : annC_NumberKind {
    static void Check(const char* keyword, double value) {
        annC_CheckNumber(keyword, value, 0.0, std::numeric_limits<double>::max());
    }
};

/// In degrees, a turn at most either way.
struct annC_AngleKind : annC_NumberKind {
    static void Check(const char* keyword, double degrees) { annC_CheckNumber(keyword, degrees, -360.0, 360.0); }
};

struct annC_PointKind {
    annC_PointArgument argument;
    [[nodiscard]] const std::array<double, 2>& Value() const { return argument.value; }
    static auto Make(const std::array<double, 2>& value) { return annC_MakePoint(value); }
    static void Check(const char* keyword, const std::array<double, 2>& value) { annC_CheckFinite(keyword, value); }
};

struct annC_AnchorKind {
    annC_AnchorArgument argument;
    [[nodiscard]] const annC_AnchorHld& Value() const { return argument.value; }
    static auto Make(const annC_AnchorHld& value) { return annC_MakeAnchor(value); }
    static void Check(const char* keyword, const annC_AnchorHld& value) { annC_CheckAnchor(keyword, value); }
};

/// `get` and `set` are called with an annotation, or are its members.
template <class A, class Kind, class Get, class Set>
annC_Attribute<A> annC_MakeAttribute(const char* keyword, Get get, Set set) {
    return {keyword,
            [=](omu_Arguments& arguments, A& draft) -> std::function<void()> {
                Kind kind;
                arguments.Get(kind.argument, keyword);
                if (arguments.ErrorOnPrevious()) return {};
                std::invoke(set, draft, kind.Value());
                return [=] { Kind::Check(keyword, kind.Value()); };
            },
            [=](const A& annotation) -> std::unique_ptr<omu_Primitive> {
                return Kind::Make(std::invoke(get, annotation));
            }};
}

/// A point kept as two numbers.
template <class A>
annC_Attribute<A> annC_MakePointAttribute(const char* keyword, double (A::*x)() const noexcept,
                                          double (A::*y)() const noexcept, void (A::*setX)(double) noexcept,
                                          void (A::*setY)(double) noexcept) {
    return annC_MakeAttribute<A, annC_PointKind>(
        keyword,
        [=](const A& annotation) {
            return std::array{(annotation.*x)(), (annotation.*y)()};
        },
        [=](A& annotation, const std::array<double, 2>& point) {
            (annotation.*setX)(point[0]);
            (annotation.*setY)(point[1]);
        });
}

#endif
