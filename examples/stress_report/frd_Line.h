#ifndef ORV_STRESS_REPORT_FRD_LINE_H
#define ORV_STRESS_REPORT_FRD_LINE_H

#include <cstddef>
#include <string>
#include <string_view>

/// One line of a result file, asked by columns. Columns count from 1; every failure is a frd_Error that tells the
/// line.
class frd_Line {
public:
    frd_Line() = default;
    /// Drops blanks and the carriage return at the end.
    frd_Line(std::string_view text, std::size_t number);

    [[nodiscard]] std::size_t Length() const noexcept { return _text.size(); }
    [[nodiscard]] bool StartsWith(std::string_view start) const noexcept { return _text.starts_with(start); }

    /// Without blanks around; empty beyond the end of the line.
    [[nodiscard]] std::string_view Text(std::size_t firstColumn, std::size_t width) const noexcept;
    [[nodiscard]] bool HasInteger(std::size_t firstColumn, std::size_t width) const noexcept;
    /// Refuses a blank field, and a line that ends within it.
    [[nodiscard]] int Integer(std::size_t firstColumn, std::size_t width) const;
    /// Takes what Fortran and C programs print: "-1.50000E-01", "1.0-100" (an exponent of three digits pushes its
    /// letter out), "1.5D+03", "NaN", "Infinity", asterisks (NaN). Beyond the range of a double: 0 or infinite.
    [[nodiscard]] double Real(std::size_t firstColumn, std::size_t width) const;

    [[noreturn]] void Refuse(const std::string& why) const;

private:
    [[nodiscard]] std::string_view Field(std::size_t firstColumn, std::size_t width) const;

    std::string_view _text;
    std::size_t _number = 0;
};

#endif
