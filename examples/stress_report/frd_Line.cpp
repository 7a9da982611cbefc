#include "frd_Line.h"

#include "frd_Reader.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace {

constexpr std::string_view blanks = " \t\r";

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// With an 'e' before the exponent, in lower case and without a leading plus: as std::from_chars wants it.
std::string Normalised(std::string_view field) {
    std::string number;
    if (field.front() == '+') field.remove_prefix(1);
    for (const char c : field) {
        const char lower = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        const bool sign = c == '+' || c == '-';
        if (sign && !number.empty() && std::isdigit(static_cast<unsigned char>(number.back()))) number += 'e';
        number += lower == 'd' ? 'e' : lower;
    }
    return number;
}

bool ReadInteger(std::string_view field, int& value) noexcept {
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), value);
    return error == std::errc() && end == field.data() + field.size();
}

bool HasNegativeExponent(const std::string& number) { return number.find("e-") != std::string::npos; }

}  // namespace

frd_Line::frd_Line(std::string_view text, std::size_t number)
    : _text(text.substr(0, text.find_last_not_of(blanks) + 1)), _number(number) {}

std::string_view frd_Line::Text(std::size_t firstColumn, std::size_t width) const noexcept {
    return firstColumn > _text.size() ? std::string_view() : Trimmed(_text.substr(firstColumn - 1, width));
}

std::string_view frd_Line::Field(std::size_t firstColumn, std::size_t width) const {
    const std::string_view field = Text(firstColumn, width);
    if (field.empty() || _text.size() < firstColumn - 1 + width)
        Refuse("no number in columns " + std::to_string(firstColumn) + " to " +
               std::to_string(firstColumn + width - 1));
    return field;
}

bool frd_Line::HasInteger(std::size_t firstColumn, std::size_t width) const noexcept {
    int value = 0;
    return ReadInteger(Text(firstColumn, width), value);
}

int frd_Line::Integer(std::size_t firstColumn, std::size_t width) const {
    const std::string_view field = Field(firstColumn, width);
    int value = 0;
    if (!ReadInteger(field, value)) Refuse("\"" + std::string(field) + "\" is not a whole number");
    return value;
}

double frd_Line::Real(std::size_t firstColumn, std::size_t width) const {
    const std::string_view field = Field(firstColumn, width);
    if (std::ranges::all_of(field, [](char c) { return c == '*'; })) return std::numeric_limits<double>::quiet_NaN();
    const std::string number = Normalised(field);
    double value = 0.0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (error == std::errc::invalid_argument || end != number.data() + number.size())
        Refuse("\"" + std::string(field) + "\" is not a number");
    if (error == std::errc::result_out_of_range)
        return std::copysign(HasNegativeExponent(number) ? 0.0 : std::numeric_limits<double>::infinity(),
                             number.front() == '-' ? -1.0 : 1.0);
    return value;
}

void frd_Line::Refuse(const std::string& why) const { throw frd_Error("line " + std::to_string(_number) + ": " + why); }
