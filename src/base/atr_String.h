#ifndef ORV_BASE_ATR_STRING_H
#define ORV_BASE_ATR_STRING_H

#include <base/OrvBasStringMode.h>
#include <base/cow_String.h>
#include <base/orv_Export.h>

#include <type_traits>

/// A message for people: UTF-8 text, shared by its copies as cow_String is. It is usually made by `atr`.
class ORV_EXPORT atr_String {
public:
    atr_String() noexcept = default;

    /// The bytes up to the first NUL; a null pointer gives the empty text.
    atr_String(const char* text);
    /// The text, shared.
    explicit atr_String(cow_String text) noexcept;

    /// The text, not converted.
    [[nodiscard]] const char* c_str() const noexcept { return _text.c_str(); }
    [[nodiscard]] const cow_String& Text() const noexcept { return _text; }

    /// Number of bytes.
    [[nodiscard]] int Length() const noexcept { return _text.Length(); }

    /// The text in the encoding of the C locale as it is set now (LC_CTYPE) for mode 1, else this text unchanged. For
    /// mode 1 the text is decoded strictly (no overlong forms, no surrogates, nothing above U+10FFFF): each longest
    /// beginning of a character that breaks off, each byte that begins none, and each character that the locale does
    /// not have becomes one '?'.
    [[nodiscard]] atr_String Convert(OrvBasStringMode mode) const;

    friend bool operator==(const atr_String&, const atr_String&) noexcept = default;

private:
    cow_String _text;
};

/// What a conversion of `atr` can take: numbers, `const char*` and other pointers to data.
template <class A>
concept atr_Printable = std::is_arithmetic_v<A> ||(std::is_pointer_v<A>&& std::is_object_v<std::remove_pointer_t<A>>) ||
                        std::is_same_v<A, void*> || std::is_same_v<A, const void*>;

/// The one body of `atr`, measured first and filled then, so any length fits. Throws nex_PrimException when the
/// conversion fails (an invalid wide character, more than 2^31 - 1 bytes).
[[nodiscard]] ORV_EXPORT atr_String atr_Format(const char* format, ...);

/// An argument as printf takes it, which knows no null text.
template <class A>
[[nodiscard]] constexpr A atr_Argument(A argument) noexcept {
    return argument;
}
[[nodiscard]] constexpr const char* atr_Argument(const char* text) noexcept {
    return text != nullptr ? text : "(null)";
}
[[nodiscard]] constexpr const char* atr_Argument(char* text) noexcept { return text != nullptr ? text : "(null)"; }

/// A message from a printf format and its arguments; numbers take the decimal point of the C locale. The format is one
/// of the program's own literals, never text that came from outside, and its conversions must fit the arguments, as for
/// printf. A null `const char*` argument prints as "(null)", a null format is empty.
template <class... A>
[[nodiscard]] atr_String atr(const char* format, A... arguments) {
    static_assert((atr_Printable<A> && ...), "a string object is not printable: hand over its c_str()");
    return atr_Format(format, atr_Argument(arguments)...);
}

#endif
