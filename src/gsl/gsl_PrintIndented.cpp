#include <gsl/gsl_PrintIndented.h>

#include <array>
#include <charconv>
#include <cstring>
#include <ostream>

void gsl_PrintIndented(aio_ostream& out, int indentation, std::initializer_list<gsl_LabelledNumber> line) {
    constexpr int significantDigits = 15;
    for (int i = 0; i < indentation; ++i) out.put(' ');
    for (const gsl_LabelledNumber& entry : line) {
        std::array<char, 32> digits;
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), entry.value,
                                       std::chars_format::general, significantDigits)
                             .ptr;
        out.write(entry.label, static_cast<std::streamsize>(std::strlen(entry.label)));
        out.write(digits.data(), end - digits.data());
    }
    out.put('\n');
}
