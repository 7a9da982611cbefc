#ifndef ORV_OMU_OMU_RANGEERROREXCEPTION_H
#define ORV_OMU_OMU_RANGEERROREXCEPTION_H

#include <base/cow_String.h>
#include <base/nex_CommandException.h>
#include <base/orv_Export.h>
#include <omu/omu_TypeId.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// Whether a side of a range has a limit, and whether the limit itself is in the range.
enum omu_RangeQualifierEnm : int { omu_NoLimit = 0, omu_InclusiveLimit = 1, omu_ExclusiveLimit = 2 };

/// The values that a range is of.
enum omu_RangeKindEnm : int { omu_IntegerRange = 1, omu_FloatRange = 2 };

/// A number outside its range; "RangeError" in scripting. The message tells the range, not the number:
///
///     x must be an Integer >= 1
///     x must be a Float in the range: 0 <= x < 1
///
/// It ends behind the kind when there is no limit, or when a qualifier is none of the three; a kind that is none of the
/// two (it can only come from a stream) is left out.
///
/// A limit is kept as text, integers in decimal and floats with up to 15 significant digits and a decimal point in
/// every locale ("%.15g"), and that text is what is printed, stored and converted back.
class ORV_EXPORT omu_RangeErrorException : public nex_CommandException {
public:
    /// The name of what is out of range, and the range. A limit without a qualifier counts as none.
    omu_RangeErrorException(const cow_String& name, int lower, omu_RangeQualifierEnm lowerQualifier, int higher,
                            omu_RangeQualifierEnm higherQualifier);
    omu_RangeErrorException(const cow_String& name, double lower, omu_RangeQualifierEnm lowerQualifier, double higher,
                            omu_RangeQualifierEnm higherQualifier);

    /// What the constructor was given.
    [[nodiscard]] const cow_String& Name() const noexcept { return _name; }
    [[nodiscard]] omu_RangeKindEnm Kind() const noexcept { return _kind; }
    [[nodiscard]] omu_RangeQualifierEnm LowerQualifier() const noexcept { return _lowerQualifier; }
    [[nodiscard]] omu_RangeQualifierEnm HigherQualifier() const noexcept { return _higherQualifier; }

    /// The number that the limit's text begins with, 0 when there is none; the largest double for one just above it,
    /// which is how that one prints. As an int it is truncated toward zero; NaN gives 0, and what no int holds gives
    /// the nearest one.
    [[nodiscard]] int LowerLimitAsInt() const;
    [[nodiscard]] double LowerLimitAsDouble() const;
    [[nodiscard]] int HigherLimitAsInt() const;
    [[nodiscard]] double HigherLimitAsDouble() const;

    /// Replace the limit's text and with it the message; kind and qualifiers stay.
    void SetLowerLimitAsInt(int limit);
    void SetLowerLimitAsDouble(double limit);
    void SetHigherLimitAsInt(int limit);
    void SetHigherLimitAsDouble(double limit);

    [[nodiscard]] omu_RangeErrorException* Copy() const override;
    [[noreturn]] void Propagate() const override;
    [[nodiscard]] const char* PythonType() const override;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x09); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit omu_RangeErrorException(const cls_ReadVisitor& visitor);

private:
    omu_RangeErrorException(const cow_String& name, omu_RangeKindEnm kind, const cow_String& lower,
                            omu_RangeQualifierEnm lowerQualifier, const cow_String& higher,
                            omu_RangeQualifierEnm higherQualifier);
    void Replace(cow_String& limit, const cow_String& text);

    cow_String _name;
    omu_RangeKindEnm _kind;
    cow_String _lower;
    omu_RangeQualifierEnm _lowerQualifier;
    cow_String _higher;
    omu_RangeQualifierEnm _higherQualifier;
};

#endif
