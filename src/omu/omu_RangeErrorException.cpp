#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <omu/omu_RangeErrorException.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>

namespace {

const char* Opening(omu_RangeKindEnm kind) {
    switch (kind) {
        case omu_IntegerRange:
            return "%s must be an Integer ";
        case omu_FloatRange:
            return "%s must be a Float ";
    }
    return "%s must be ";
}

bool IsQualifier(omu_RangeQualifierEnm qualifier) {
    return qualifier >= omu_NoLimit && qualifier <= omu_ExclusiveLimit;
}

cow_String Message(const cow_String& name, omu_RangeKindEnm kind, const cow_String& lower,
                   omu_RangeQualifierEnm lowerQualifier, const cow_String& higher,
                   omu_RangeQualifierEnm higherQualifier) {
    cow_String opening = atr(Opening(kind), name.c_str()).Text();
    const bool hasLower = lowerQualifier != omu_NoLimit;
    const bool hasHigher = higherQualifier != omu_NoLimit;
    if (!IsQualifier(lowerQualifier) || !IsQualifier(higherQualifier) || !(hasLower || hasHigher)) return opening;

    const char* const less = higherQualifier == omu_InclusiveLimit ? "<=" : "<";
    if (!hasLower) return opening + atr("%s %s", less, higher.c_str()).Text();
    if (!hasHigher)
        return opening + atr("%s %s", lowerQualifier == omu_InclusiveLimit ? ">=" : ">", lower.c_str()).Text();
    return opening + atr("in the range: %s %s %s %s %s", lower.c_str(),
                         lowerQualifier == omu_InclusiveLimit ? "<=" : "<", name.c_str(), less, higher.c_str())
                         .Text();
}

cow_String TextOf(int limit) { return std::to_string(limit); }
cow_String TextOf(double limit) { return cow_String(limit); }

double NumberOf(const cow_String& limit) {
    const std::string_view text = limit.View();
    double number = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc::result_out_of_range || std::string_view(text.data(), end).find("e-") != text.npos)
        return number;
    // The largest doubles are rounded up past themselves by 15 digits; infinity is told by its name.
    constexpr double largest = std::numeric_limits<double>::max();
    return text.front() == '-' ? -largest : largest;
}

int IntOf(const cow_String& limit) {
    using Limits = std::numeric_limits<int>;
    const double number = NumberOf(limit);
    return std::isnan(number) ? 0 : static_cast<int>(std::clamp<double>(number, Limits::min(), Limits::max()));
}

}  // namespace

omu_RangeErrorException::omu_RangeErrorException(const cow_String& name, omu_RangeKindEnm kind, const cow_String& lower,
                                                 omu_RangeQualifierEnm lowerQualifier, const cow_String& higher,
                                                 omu_RangeQualifierEnm higherQualifier)
    : nex_CommandException(Message(name, kind, lower, lowerQualifier, higher, higherQualifier)),
      _name(name),
      _kind(kind),
      _lower(lower),
      _lowerQualifier(lowerQualifier),
      _higher(higher),
      _higherQualifier(higherQualifier) {}

omu_RangeErrorException::omu_RangeErrorException(const cow_String& name, int lower,
                                                 omu_RangeQualifierEnm lowerQualifier, int higher,
                                                 omu_RangeQualifierEnm higherQualifier)
    : omu_RangeErrorException(name, omu_IntegerRange, TextOf(lower), lowerQualifier, TextOf(higher), higherQualifier) {}

omu_RangeErrorException::omu_RangeErrorException(const cow_String& name, double lower,
                                                 omu_RangeQualifierEnm lowerQualifier, double higher,
                                                 omu_RangeQualifierEnm higherQualifier)
    : omu_RangeErrorException(name, omu_FloatRange, TextOf(lower), lowerQualifier, TextOf(higher), higherQualifier) {}

int omu_RangeErrorException::LowerLimitAsInt() const { return IntOf(_lower); }
double omu_RangeErrorException::LowerLimitAsDouble() const { return NumberOf(_lower); }
int omu_RangeErrorException::HigherLimitAsInt() const { return IntOf(_higher); }
double omu_RangeErrorException::HigherLimitAsDouble() const { return NumberOf(_higher); }

void omu_RangeErrorException::SetLowerLimitAsInt(int limit) { Replace(_lower, TextOf(limit)); }
void omu_RangeErrorException::SetLowerLimitAsDouble(double limit) { Replace(_lower, TextOf(limit)); }
void omu_RangeErrorException::SetHigherLimitAsInt(int limit) { Replace(_higher, TextOf(limit)); }
void omu_RangeErrorException::SetHigherLimitAsDouble(double limit) { Replace(_higher, TextOf(limit)); }

void omu_RangeErrorException::Replace(cow_String& limit, const cow_String& text) {
    limit = text;
    nex_CommandException changed(Message(_name, _kind, _lower, _lowerQualifier, _higher, _higherQualifier));
    changed.SetWhere(Where());
    nex_CommandException::operator=(changed);
}

omu_RangeErrorException* omu_RangeErrorException::Copy() const { return new omu_RangeErrorException(*this); }
void omu_RangeErrorException::Propagate() const { throw *this; }
const char* omu_RangeErrorException::PythonType() const { return "RangeError"; }
unsigned omu_RangeErrorException::DynTypeId() const { return TypeId(); }

void omu_RangeErrorException::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<omu_RangeErrorException, nex_CommandException>("omu_RangeErrorException", omu_MetadataNumber)
        .Add<cow_String>("m_Name")
        .Add<omu_RangeKindEnm>("m_Kind")
        .Add<cow_String>("m_Lower")
        .Add<omu_RangeQualifierEnm>("m_LowerQualifier")
        .Add<cow_String>("m_Higher")
        .Add<omu_RangeQualifierEnm>("m_HigherQualifier");
}

void omu_RangeErrorException::DBWrite(const cls_WriteVisitor& visitor) const {
    nex_CommandException::DBWrite(visitor.Base(nex_CommandException::TypeId()));
    visitor.Write("m_Name", _name);
    visitor.Write("m_Kind", _kind);
    visitor.Write("m_Lower", _lower);
    visitor.Write("m_LowerQualifier", _lowerQualifier);
    visitor.Write("m_Higher", _higher);
    visitor.Write("m_HigherQualifier", _higherQualifier);
}

omu_RangeErrorException::omu_RangeErrorException(const cls_ReadVisitor& visitor)
    : omu_RangeErrorException(visitor.Read("m_Name", cow_String()), visitor.Read("m_Kind", omu_IntegerRange),
                              visitor.Read("m_Lower", cow_String()), visitor.Read("m_LowerQualifier", omu_NoLimit),
                              visitor.Read("m_Higher", cow_String()), visitor.Read("m_HigherQualifier", omu_NoLimit)) {}
