#include <base/cow_String.h>
#include <base/detail/orv_Immortal.h>

#include <array>
#include <charconv>
#include <ostream>
#include <utility>

namespace {

std::string ToText(double value) {
    std::array<char, 32> digits;  // sign, 15 digits, point, exponent of at most 5: 22
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::general, 15);
    return {digits.data(), end.ptr};
}

}  // namespace

cow_String::cow_String(const char* text) : cow_String(std::string_view(text != nullptr ? text : "")) {}
cow_String::cow_String(std::string_view text) : cow_String(std::string(text)) {}
cow_String::cow_String(double value) : cow_String(ToText(value)) {}

cow_String::cow_String(std::string text) {
    if (!text.empty()) _text = std::make_shared<const std::string>(std::move(text));
}

const std::string& cow_String::str() const noexcept {
    static orv_Immortal<std::string> empty;
    return _text ? *_text : empty.Value();
}

cow_String cow_String::Join(const cow_String& a, const cow_String& b) {
    if (a._text == nullptr) return b;
    if (b._text == nullptr) return a;
    return *a._text + *b._text;
}

std::ostream& operator<<(std::ostream& stream, const cow_String& text) { return stream << text.View(); }
