#ifndef ORV_OMU_OMU_SYMBOLICCONSTANTDATA_H
#define ORV_OMU_OMU_SYMBOLICCONSTANTDATA_H

#include <base/cow_String.h>
#include <base/orv_Export.h>

/// A symbolic constant: the identifier of an upper-case word (ON, OFF, the names of enumerations) in the process's
/// omu_SymbolicConstantTable. Identifier 0 is "_UNSPECIFIED".
///
/// Only `getText` throws. What else is wrong is told on standard error, and the object is made all the same. An
/// identifier is good until the table is finalised.
class ORV_EXPORT omu_SymbolicConstantData {
public:
    omu_SymbolicConstantData() noexcept = default;

    /// Takes the identifier as it is; one that the table does not have is told.
    explicit omu_SymbolicConstantData(unsigned id);

    /// The constant of this name, registered in the table when it is new. A new constant's identifier is the number of
    /// names so far, and the table's hook is called with it unless `suppressScriptingObject`. Names are matched whole:
    /// a new name that does not match ^[A-Z_][A-Z_0-9]*$ ("on", "2D", "ON\n") is not registered and gives identifier 0.
    ///
    /// `id` is to be 0. Any other is told and kept, and then nothing is looked up or registered.
    ///
    /// What the hook throws comes through; the constant stays registered.
    omu_SymbolicConstantData(const cow_String& name, unsigned id, bool suppressScriptingObject);

    /// The number that the table knows it by.
    [[nodiscard]] unsigned getId() const noexcept { return _id; }

    /// The name in the table; an empty one is told. Throws nex_RangeException, as the table's `GetString`.
    [[nodiscard]] cow_String getText() const;

    /// By identifier.
    friend bool operator==(const omu_SymbolicConstantData&, const omu_SymbolicConstantData&) noexcept = default;

private:
    void Register(const cow_String& name, bool suppressScriptingObject);

    unsigned _id = 0;
};

#endif
