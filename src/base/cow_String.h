#ifndef ORV_BASE_COW_STRING_H
#define ORV_BASE_COW_STRING_H

#include <base/orv_Export.h>

#include <compare>
#include <concepts>
#include <cstddef>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>

/// A string of bytes, shared by its copies.
///
/// The bytes are any bytes, NUL among them; nothing here knows an encoding. They never change once the string is made,
/// so there is nothing to detach: assigning gives an object other bytes and leaves those who share the old ones alone.
/// A copy adds one to an atomic count, an empty string allocates nothing. What `c_str`, `str` and `View` refer to
/// lives until the last string that shares it is gone or assigned.
///
/// Threads: distinct strings may be used on distinct threads, whether they share or not; one string is not to be
/// assigned while another thread uses it.
class ORV_EXPORT cow_String {
public:
    cow_String() noexcept = default;

    /// The bytes up to the first NUL; a null pointer gives the empty string.
    cow_String(const char* text);
    /// All bytes, NULs too.
    cow_String(std::string text);
    explicit cow_String(std::string_view text);

    /// The shortest of the "%.15g" forms, with a decimal point in every locale: 0.1, 1e+20, -0, inf, nan.
    explicit cow_String(double value);

    /// A character or a truth value would silently become a number.
    template <class C>
    requires std::same_as<C, char> || std::same_as<C, bool>
    explicit cow_String(C) = delete;

    /// Ends with a NUL. Never null.
    [[nodiscard]] const char* c_str() const noexcept { return _text ? _text->c_str() : ""; }
    [[nodiscard]] const std::string& str() const noexcept;
    [[nodiscard]] std::string_view View() const noexcept { return _text ? std::string_view(*_text) : ""; }

    /// Number of bytes, without the closing NUL; of a string of 2 GiB and more only `View` tells it.
    [[nodiscard]] int Length() const noexcept { return _text ? static_cast<int>(_text->size()) : 0; }

    /// The bytes of `a`, then those of `b`.
    friend cow_String operator+(const cow_String& a, const cow_String& b) { return Join(a, b); }

    /// By bytes, taken as unsigned: a shorter string sorts before its continuations.
    friend bool operator==(const cow_String& a, const cow_String& b) noexcept { return a.View() == b.View(); }
    friend std::strong_ordering operator<=>(const cow_String& a, const cow_String& b) noexcept {
        return a.View() <=> b.View();
    }
    /// The same without making a string of the text, which may be null for empty.
    friend bool operator==(const cow_String& a, const char* b) noexcept {
        return a.View() == std::string_view(b != nullptr ? b : "");
    }

private:
    [[nodiscard]] static cow_String Join(const cow_String& a, const cow_String& b);

    std::shared_ptr<const std::string> _text;  // null when empty
};

/// Writes the bytes as they are.
ORV_EXPORT std::ostream& operator<<(std::ostream& stream, const cow_String& text);

template <>
struct std::hash<cow_String> {
    std::size_t operator()(const cow_String& text) const noexcept { return std::hash<std::string_view>()(text.View()); }
};

#endif
