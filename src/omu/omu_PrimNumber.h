#ifndef ORV_OMU_OMU_PRIMNUMBER_H
#define ORV_OMU_OMU_PRIMNUMBER_H

#include <base/orv_Export.h>
#include <omu/omu_PrimEnum.h>
#include <omu/omu_Primitive.h>

/// A real number of one of six kinds.
///
/// All kinds but the unsigned one keep their value in a double; the unsigned one keeps it in a field of its own and the
/// double at 0. So an unsigned number reads as 0 but through `AsUint`, the others read as 0 through `AsUint`, and 2u
/// equals neither 2 nor 2.0.
class ORV_EXPORT omu_PrimNumber : public omu_Primitive {
public:
    /// Stored by value; arrays use -1 for "no kind yet".
    enum DataTypeEnm : int { SCHAR = 0, SHORT = 1, INT = 2, FLOAT = 3, DOUBLE = 4, UINT = 5 };

    /// The number and its kind.
    explicit omu_PrimNumber(signed char value) noexcept : omu_PrimNumber(value, SCHAR) {}
    explicit omu_PrimNumber(short value) noexcept : omu_PrimNumber(value, SHORT) {}
    explicit omu_PrimNumber(int value) noexcept : omu_PrimNumber(value, INT) {}
    /// 0 or 1, of kind INT.
    explicit omu_PrimNumber(bool value) noexcept : omu_PrimNumber(value ? 1 : 0, INT) {}
    /// The number and its kind.
    explicit omu_PrimNumber(float value) noexcept : omu_PrimNumber(static_cast<double>(value), FLOAT) {}
    explicit omu_PrimNumber(double value) noexcept : omu_PrimNumber(value, DOUBLE) {}
    explicit omu_PrimNumber(unsigned value) noexcept : omu_Primitive('i'), _uvalue(value), _dataType(UINT) {}
    /// A text would silently become true.
    template <class T>
    explicit omu_PrimNumber(T*) = delete;

    // ---- Queries

    /// 0 for the unsigned kind.
    [[nodiscard]] double AsDouble() const noexcept { return _value; }
    /// The double rounded to float: infinite beyond its range.
    [[nodiscard]] float AsFloat() const noexcept { return static_cast<float>(_value); }
    /// The double truncated toward zero to a 64-bit integer, of which the low bits are taken. NaN and what has no place
    /// in 64 bits become the least 64-bit integer, hence 0 here.
    [[nodiscard]] int AsInt() const noexcept { return static_cast<int>(Truncated()); }
    [[nodiscard]] short AsShort() const noexcept { return static_cast<short>(Truncated()); }
    [[nodiscard]] signed char AsSchar() const noexcept { return static_cast<signed char>(Truncated()); }
    /// The unsigned field: 0 for all other kinds.
    [[nodiscard]] unsigned AsUint() const noexcept { return _uvalue; }

    /// The type that the number was made from.
    [[nodiscard]] DataTypeEnm DataType() const noexcept { return _dataType; }

    /// "int" or "float".
    [[nodiscard]] cow_String TypeString() const override;

    /// Integral kinds in decimal, truncated as for `AsInt` but with all 64 bits. FLOAT and DOUBLE with up to 15
    /// significant digits and at least ".0" or an exponent: 3.0, 0.1, 1e+20, -0.0; "inf.0", "-inf.0", and "nan.0" for a
    /// NaN of either sign. Whatever the locale.
    [[nodiscard]] cow_String AsString(int mode = 0) const override;
    void AppendString(std::string& text) const override;

    void Accept(omu_PrimVisitor* visitor) const override;
    [[nodiscard]] std::unique_ptr<omu_Primitive> Copy() const override;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x16); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit omu_PrimNumber(const cls_ReadVisitor& visitor);

protected:
    /// Equal doubles and equal unsigned fields, of any two kinds: 2 equals 2.0, a NaN equals nothing. False for what is
    /// no number.
    [[nodiscard]] bool IsEqual(const omu_Primitive& other) const override;

private:
    omu_PrimNumber(double value, DataTypeEnm dataType) noexcept
        : omu_Primitive(dataType == FLOAT || dataType == DOUBLE ? 'f' : 'i'), _value(value), _dataType(dataType) {}

    [[nodiscard]] long long Truncated() const noexcept;

    double _value = 0.0;
    unsigned _uvalue = 0;
    DataTypeEnm _dataType;
};

/// "SCHAR", "SHORT", "INT", "FLOAT", "DOUBLE", "UINT".
template <>
ORV_EXPORT const omu_PrimEnum<omu_PrimNumber::DataTypeEnm>::Row* omu_PrimEnum<omu_PrimNumber::DataTypeEnm>::Table();

#endif
