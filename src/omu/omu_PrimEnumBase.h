#ifndef ORV_OMU_OMU_PRIMENUMBASE_H
#define ORV_OMU_OMU_PRIMENUMBASE_H

#include <base/atr_String.h>
#include <base/cow_Map.h>
#include <base/orv_Export.h>
#include <omu/omu_Primitive.h>

/// A value of an enumeration by its name. By itself it has a name without a list of permissible ones: so an enumeration
/// reads back where nothing says which it is, inside of tuples and dictionaries. `omu_PrimEnum` adds the list.
class ORV_EXPORT omu_PrimEnumBase : public omu_Primitive {
public:
    /// By name alone.
    explicit omu_PrimEnumBase(const cow_String& name);

    /// The name.
    [[nodiscard]] const cow_String& StringValue() const noexcept { return _stringValue; }

    /// The permissible names in ascending order: "OFF or ON", "DOUBLE, FLOAT, INT, SCHAR, SHORT or UINT"; the value's
    /// own name where there is no list.
    [[nodiscard]] cow_String TypeString() const override;

    /// The name, without quotes.
    [[nodiscard]] cow_String AsString(int mode = 0) const override;

    void Accept(omu_PrimVisitor* visitor) const override;
    [[nodiscard]] std::unique_ptr<omu_Primitive> Copy() const override;
    [[nodiscard]] unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& visitor) const override;

    // ---- The list

    /// Takes the first permissible value of exactly this name (case counts). False, and nothing changed, when there is
    /// none: always for a null text, and without a list.
    virtual bool SetValue(const char* name);

    /// From name to value; empty without a list. Negative values wrap.
    [[nodiscard]] virtual cow_Map<cow_String, unsigned> PermissibleValues() const;

    /// The same for any bytes: a NUL belongs to no permissible name.
    bool SetValue(const cow_String& name);

    /// "{OFF: 0, ON: 1}".
    [[nodiscard]] cow_String PermissibleValuesAsString() const;

    // ---- Persistence: the name only

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x1B); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    explicit omu_PrimEnumBase(const cls_ReadVisitor& visitor);

protected:
    /// Equal names of any two enumerations; the values are not compared.
    [[nodiscard]] bool IsEqual(const omu_Primitive& other) const override;

    /// `fallback` is the name where the stream carries none.
    omu_PrimEnumBase(const cls_ReadVisitor& visitor, const char* fallback);

    void SetName(const char* name) { _stringValue = name; }

    [[noreturn]] static void ThrowCommand(const atr_String& message);

private:
    cow_String _stringValue;
};

#endif
