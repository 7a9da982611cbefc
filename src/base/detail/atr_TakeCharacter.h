#ifndef ORV_BASE_DETAIL_ATR_TAKECHARACTER_H
#define ORV_BASE_DETAIL_ATR_TAKECHARACTER_H

#include <string_view>

/// What a malformed character is taken for.
inline constexpr char32_t atr_invalidCharacter = 0xFFFFFFFF;

/// Takes one character off the front of UTF-8 `text`, which is not empty; of a malformed one the longest beginning of a
/// well-formed character, but at least a byte, and gives `atr_invalidCharacter` for it.
inline char32_t atr_TakeCharacter(std::string_view& text) {
    const auto lead = static_cast<unsigned char>(text.front());
    text.remove_prefix(1);
    if (lead < 0x80) return lead;
    if (lead < 0xC2 || lead > 0xF4) return atr_invalidCharacter;

    const int following = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    char32_t character = lead & (0x3Fu >> following);
    // The first byte that follows has the narrower bounds that keep out overlong forms, surrogates and what lies above
    // U+10FFFF.
    unsigned low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    unsigned high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    for (int i = 0; i < following; ++i) {
        if (text.empty()) return atr_invalidCharacter;
        const auto byte = static_cast<unsigned char>(text.front());
        if (byte < low || byte > high) return atr_invalidCharacter;
        text.remove_prefix(1);
        character = character << 6 | (byte & 0x3Fu);
        low = 0x80;
        high = 0xBF;
    }
    return character;
}

#endif
