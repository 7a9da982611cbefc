#include <base/atr_String.h>
#include <base/detail/atr_TakeCharacter.h>
#include <base/detail/orv_PlainNumbers.h>
#include <base/nex_PrimException.h>
#include <base/nex_Throw.h>

#include <array>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cwchar>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

namespace {

std::string ToLocale(std::string_view text) {
    std::string result;
    std::mbstate_t state{};
    std::array<char, MB_LEN_MAX> bytes{};
    const auto put = [&](char32_t character) {
        if (character > static_cast<unsigned long>(std::numeric_limits<wchar_t>::max())) return false;
        const std::mbstate_t before = state;
        const std::size_t length = std::wcrtomb(bytes.data(), static_cast<wchar_t>(character), &state);
        if (length == static_cast<std::size_t>(-1)) {
            state = before;
            return false;
        }
        result.append(bytes.data(), length);
        return true;
    };
    while (!text.empty())
        if (!put(atr_TakeCharacter(text))) put(U'?');
    if (put(U'\0')) result.pop_back();  // leaves a stateful encoding in its first state
    return result;
}

}  // namespace

atr_String::atr_String(const char* text) : _text(text) {}
atr_String::atr_String(cow_String text) noexcept : _text(std::move(text)) {}

atr_String atr_String::Convert(OrvBasStringMode mode) const {
    return mode == OrvBasStringMode(1) ? atr_String(cow_String(ToLocale(_text.View()))) : *this;
}

atr_String atr_Format(const char* format, ...) {
    if (format == nullptr) return {};
    const orv_PlainNumbers plainNumbers;
    std::va_list arguments;
    std::va_list again;
    va_start(arguments, format);
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    std::string text(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    const int filled = length > 0 ? std::vsnprintf(text.data(), text.size() + 1, format, again) : length;
    va_end(again);
    va_end(arguments);
    if (filled < 0 || filled != length) nex_Throw(nex_PrimException("atr: the message cannot be formatted"));
    return atr_String(cow_String(std::move(text)));
}
