#include "host_Printable.h"

#include <algorithm>

namespace {

constexpr bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

/// The bytes of the character at the start of `text`, 0 when there is none: overlong forms, surrogates and what lies
/// above U+10FFFF are none (RFC 3629).
std::size_t CharacterLength(std::string_view text) {
    const auto first = static_cast<unsigned char>(text[0]);
    const std::size_t length = first < 0x80 ? 1 : first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (length == 0 || first > 0xF4 || length > text.size()) return 0;
    if (!std::ranges::all_of(text.substr(1, length - 1), IsContinuation)) return 0;
    if (length < 3) return length;
    const auto second = static_cast<unsigned char>(text[1]);
    const bool isOverlong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
    const bool isNone = (first == 0xED && second > 0x9F) || (first == 0xF4 && second > 0x8F);
    return isOverlong || isNone ? 0 : length;
}

}  // namespace

std::string host_Printable(std::string_view text) {
    std::string shown;
    while (!text.empty()) {
        const std::size_t length = CharacterLength(text);
        if (length == 0)
            shown += "\xEF\xBF\xBD";
        else if (length == 1 && (!host_IsPrintable(text[0]) || text[0] == '\t'))
            shown += '?';
        else
            shown += text.substr(0, length);
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return shown;
}

std::string host_Shortened(std::string_view text, std::size_t most) {
    std::size_t end = 0;
    for (std::size_t count = 0; end < text.size(); ++end)
        if (!IsContinuation(text[end]) && count++ == most) return std::string(text.substr(0, end)) + "...";
    return std::string(text);
}
