#ifndef ORV_OMU_OMU_PRIMENUM_H
#define ORV_OMU_OMU_PRIMENUM_H

#include <base/detail/cow_Range.h>
#include <omu/omu_EnumErrorException.h>
#include <omu/omu_PrimEnumBase.h>

#include <cstddef>
#include <string_view>

/// A value of the C++ enumeration E with the names that scripts know. N tells lists for one E apart.
///
/// Each instantiation has one table of rows, closed by a row without a name. The header that owns E declares it, one
/// source defines it, so that library and host see the same:
///
///     template <>
///     ORV_EXPORT const omu_PrimEnum<gsl_DotMethod>::Row* omu_PrimEnum<gsl_DotMethod>::Table();
///
/// All instantiations share the class identifier of omu_PrimEnumBase, and only the name is stored. A field of a known
/// instantiation is read back by its own reading constructor; elsewhere a plain omu_PrimEnumBase comes back.
///
/// Constructors that find no row throw omu_EnumErrorException; the message tells what was asked for and, but for the
/// one from another enumeration, what is permissible.
template <class E, int N = 1>
class __attribute__((visibility("default"))) omu_PrimEnum : public omu_PrimEnumBase {
public:
    /// A name of the table and its value.
    struct Row {
        /// A null name ends the table.
        const char* name = nullptr;
        E value = E();
    };

    /// Throws omu_EnumErrorException for a value that the table lacks.
    explicit omu_PrimEnum(E value) : omu_PrimEnumBase(cow_String()) {
        if (!SetValue(value))
            ThrowCommand(atr("omu_PrimEnum(Enum) - Enum value not allowed: %d  Permissible: %s",
                             static_cast<int>(value), PermissibleValuesAsString().c_str()));
    }
    /// Throws omu_EnumErrorException for a name that the table lacks.
    explicit omu_PrimEnum(const cow_String& name) : omu_PrimEnumBase(cow_String()) {
        if (!SetValue(name))
            ThrowCommand(atr("omu_PrimEnum(const cow_String&) - str not allowed: %s  Permissible: %s", name.c_str(),
                             PermissibleValuesAsString().c_str()));
    }
    /// Null counts as the empty name. Without this one a text would become a true `omu_PrimEnum<bool, 2>`.
    explicit omu_PrimEnum(const char* name) : omu_PrimEnum(cow_String(name)) {}
    /// By the other's name. Throws omu_EnumErrorException when the table lacks it.
    explicit omu_PrimEnum(const omu_PrimEnumBase& other) : omu_PrimEnumBase(cow_String()) {
        if (!SetValue(other.StringValue()))
            ThrowCommand(
                atr("omu_PrimEnum(const omu_PrimEnumBase&) - str not allowed: %s", other.StringValue().c_str()));
    }

    /// The value that the name stands for.
    [[nodiscard]] E Value() const noexcept { return _value; }

    /// The first row with this value. False, and nothing changed, when there is none.
    bool SetValue(E value) {
        return Take([value](const Row& row) { return row.value == value; });
    }
    using omu_PrimEnumBase::SetValue;
    /// By name. False, and nothing changed, when the table lacks it.
    bool SetValue(const char* name) override {
        return name != nullptr && Take([name](const Row& row) { return std::string_view(row.name) == name; });
    }

    [[nodiscard]] std::unique_ptr<omu_Primitive> Copy() const override { return std::make_unique<omu_PrimEnum>(*this); }

    // ---- The table

    /// The rows up to one without a name.
    [[nodiscard]] static const Row* Table();

    /// Of the row i. Both throw nex_RangeException outside the table.
    [[nodiscard]] static const char* Name(int i) { return At(i).name; }
    /// See `Name`.
    [[nodiscard]] static E Value(int i) { return At(i).value; }

    [[nodiscard]] cow_Map<cow_String, unsigned> PermissibleValues() const override {
        cow_Map<cow_String, unsigned> values;
        for (const Row* row = Table(); row->name != nullptr; ++row)
            values.Insert(row->name, static_cast<unsigned>(row->value));
        return values;
    }

    // ---- Persistence: as omu_PrimEnumBase

    /// The first row where the stream carries no name; throws omu_EnumErrorException for a name without a row.
    explicit omu_PrimEnum(const cls_ReadVisitor& visitor) : omu_PrimEnumBase(visitor, Name(0)) {
        if (!SetValue(StringValue()))
            ThrowCommand(atr("omu_PrimEnum(const cls_ReadVisitor&) - str not allowed: %s  Permissible: %s",
                             StringValue().c_str(), PermissibleValuesAsString().c_str()));
    }

private:
    template <class Condition>
    bool Take(const Condition& holds) {
        for (const Row* row = Table(); row->name != nullptr; ++row) {
            if (!holds(*row)) continue;
            SetName(row->name);
            _value = row->value;
            return true;
        }
        return false;
    }

    [[nodiscard]] static const Row& At(int i) {
        std::size_t length = 0;
        while (Table()[length].name != nullptr) ++length;
        return Table()[cow_Position("omu_PrimEnum", i, length)];
    }

    E _value = E();
};

#endif
