#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <omu/omu_PrimNumber.h>
#include <omu/omu_PrimVisitor.h>

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>

namespace {

/// Any number in any format used here: sign, 19 digits, point, exponent of at most 5.
using Digits = std::array<char, 32>;

template <class... Number>
std::string_view ToText(Digits& digits, Number... numberAndFormat) {
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), numberAndFormat...);
    return {digits.data(), static_cast<std::size_t>(end.ptr - digits.data())};
}

/// Exponents come with two digits where three are not needed, on every platform, so there is no zero to take out.
void AppendReal(std::string& text, double value) {
    if (std::isnan(value)) value = std::fabs(value);
    Digits digits;
    const std::string_view real = ToText(digits, value, std::chars_format::general, 15);
    text += real;
    if (real.find_first_of(".e") == std::string_view::npos) text += ".0";
}

}  // namespace

long long omu_PrimNumber::Truncated() const noexcept {
    const bool fits = _value >= -0x1p63 && _value < 0x1p63;
    return fits ? static_cast<long long>(_value) : std::numeric_limits<long long>::min();
}

cow_String omu_PrimNumber::TypeString() const { return IsType('f') ? "float" : "int"; }

cow_String omu_PrimNumber::AsString(int) const {
    std::string text;
    AppendString(text);
    return text;
}

void omu_PrimNumber::AppendString(std::string& text) const {
    if (IsType('f'))
        AppendReal(text, _value);
    else if (Digits digits; _dataType == UINT)
        text += ToText(digits, _uvalue);
    else
        text += ToText(digits, Truncated());
}

bool omu_PrimNumber::IsEqual(const omu_Primitive& other) const {
    const auto* const number = dynamic_cast<const omu_PrimNumber*>(&other);
    return number != nullptr && _value == number->_value && _uvalue == number->_uvalue;
}

void omu_PrimNumber::Accept(omu_PrimVisitor* visitor) const { visitor->VisitNumber(*this); }
std::unique_ptr<omu_Primitive> omu_PrimNumber::Copy() const { return std::make_unique<omu_PrimNumber>(*this); }
unsigned omu_PrimNumber::DynTypeId() const { return TypeId(); }

template <>
const omu_PrimEnum<omu_PrimNumber::DataTypeEnm>::Row* omu_PrimEnum<omu_PrimNumber::DataTypeEnm>::Table() {
    static constexpr Row rows[] = {
        {"SCHAR", omu_PrimNumber::SCHAR},
        {"SHORT", omu_PrimNumber::SHORT},
        {"INT", omu_PrimNumber::INT},
        {"FLOAT", omu_PrimNumber::FLOAT},
        {"DOUBLE", omu_PrimNumber::DOUBLE},
        {"UINT", omu_PrimNumber::UINT},
        {},
    };
    return rows;
}

// ---- Persistence

void omu_PrimNumber::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<omu_PrimNumber, omu_Primitive>("omu_PrimNumber", omu_MetadataNumber)
        .Add<double>("value")
        .Add<unsigned>("uvalue")
        .Add<DataTypeEnm>("dataType");
}

void omu_PrimNumber::DBWrite(const cls_WriteVisitor& visitor) const {
    omu_Primitive::DBWrite(visitor.Base(omu_Primitive::TypeId()));
    visitor.Write("value", _value);
    visitor.Write("uvalue", _uvalue);
    visitor.Write("dataType", _dataType);
}

omu_PrimNumber::omu_PrimNumber(const cls_ReadVisitor& visitor)
    : omu_Primitive(visitor.Base(), 'i'),
      _value(visitor.Read("value", 0.0)),
      _uvalue(visitor.Read("uvalue", 0U)),
      _dataType(visitor.Read("dataType", INT)) {}
