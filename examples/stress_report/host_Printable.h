#ifndef ORV_STRESS_REPORT_HOST_PRINTABLE_H
#define ORV_STRESS_REPORT_HOST_PRINTABLE_H

#include <string>
#include <string_view>

/// Whether a byte may stand in the texts of results and models: no control character but the tabulator.
[[nodiscard]] constexpr bool host_IsPrintable(char c) {
    return (static_cast<unsigned char>(c) >= ' ' && c != '\x7f') || c == '\t';
}

/// What a terminal and a picture can show of a name from outside: one line of UTF-8, with U+FFFD for every byte that is
/// none, and '?' for every control character.
[[nodiscard]] std::string host_Printable(std::string_view text);

/// The first `most` characters of a UTF-8 text, with "..." where some are left out.
[[nodiscard]] std::string host_Shortened(std::string_view text, std::size_t most);

#endif
