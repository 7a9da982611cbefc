#include <omu/omu_QuoteText.h>

#include <algorithm>

cow_String omu_QuoteText(const cow_String& text) {
    std::string quoted;
    omu_AppendQuoted(quoted, text.View());
    return quoted;
}

void omu_AppendQuoted(std::string& text, std::string_view bytes) {
    const bool inDoubleQuotes = bytes.find('\'') != std::string_view::npos && bytes.find('"') == std::string_view::npos;
    const char quote = inDoubleQuotes ? '"' : '\'';
    const auto isEscaped = [inDoubleQuotes](char c) {
        return c == '\\' || c == '\n' || (c == '\'' && !inDoubleQuotes);
    };

    text += quote;
    for (auto at = bytes.begin();;) {
        const auto next = std::find_if(at, bytes.end(), isEscaped);
        text.append(at, next);
        if (next == bytes.end()) break;
        text += '\\';
        text += *next == '\n' ? 'n' : *next;
        at = next + 1;
    }
    text += quote;
}
