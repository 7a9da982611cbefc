#ifndef ORV_OMU_OMU_SYMBOLICCONSTANTTABLE_H
#define ORV_OMU_OMU_SYMBOLICCONSTANTTABLE_H

#include <base/cow_List.h>
#include <base/cow_String.h>
#include <base/omi_Singleton.h>
#include <base/orv_Export.h>
#include <omu/omu_SymbolicConstantData.h>

#include <string_view>
#include <unordered_map>

class omu_SymbolicConstantTable;
extern template class ORV_EXPORT omi_Singleton<omu_SymbolicConstantTable>;

/// The symbolic constants of the process: each name once, its index being its identifier. It begins with "_UNSPECIFIED"
/// as identifier 0, so the first constant that a host registers has identifier 1. Constants are registered by
/// omu_SymbolicConstantData; what else writes here serves that.
///
/// Made on first use, gone at the last stop of the object-model module, the hook with it, and fresh when used after
/// that: never keep its address. Until then it only grows: no identifier changes its name.
///
/// Only `GetString` throws. What else is wrong is told on standard error, flushed at once, and the operation goes on.
/// With the environment variable VLM_DBG_SYMCONST set when the library is loaded (to anything, the empty text too) each
/// registration is told as well.
///
/// Threads: there is no lock. Constants are registered on the scripting thread, when the modules that have some start.
class ORV_EXPORT omu_SymbolicConstantTable {
public:
    /// Makes the scripting-side object of a new constant. It may register further constants.
    using Hook = void (*)(const cow_String& name, unsigned id);

    /// The name with the identifier 0.
    static constexpr const char* unspecified = "_UNSPECIFIED";

    /// The same as `omi_Singleton<omu_SymbolicConstantTable>::Instance()`.
    [[nodiscard]] static omu_SymbolicConstantTable& Instance();

    /// Null, as at first, for none. It is not called for the constants that are there already.
    void SetHook(Hook hook) noexcept { _hook = hook; }

    /// Number of names.
    [[nodiscard]] unsigned Size() const noexcept { return static_cast<unsigned>(_names.Length()); }
    /// In order of their identifiers.
    [[nodiscard]] const cow_List<cow_String>& Names() const noexcept { return _names; }

    /// The registered values; parallel to the names as long as only omu_SymbolicConstantData writes here.
    [[nodiscard]] const cow_List<omu_SymbolicConstantData>& Constants() const noexcept { return _constants; }

    /// The identifier of a name, the least one when `AddString` was given it twice; 0 when absent. In constant time.
    [[nodiscard]] unsigned GetId(const cow_String& name) const;

    /// Throws nex_RangeException, after telling it, when `id` is not below `Size()`.
    [[nodiscard]] cow_String GetString(unsigned id) const;

    /// Whether all of the name matches ^[A-Z_][A-Z_0-9]*$; a line end after it does not.
    [[nodiscard]] static bool IsValidSymConstName(const cow_String& name);

    /// A line with the process identifier, then a line "    1   ON" for each name. For people.
    [[nodiscard]] cow_String AsString() const;

    /// Appends in every case and gives the index; an empty name and one that is there already are told.
    unsigned AddString(const cow_String& key);

    /// Appends in every case and gives the index.
    unsigned AddSCD(const omu_SymbolicConstantData& data);

    /// Calls the hook, if there is one.
    void CreatePythonSymbolicConstant(const cow_String& name, unsigned id) const;

    /// Whether VLM_DBG_SYMCONST was set when the library was loaded.
    [[nodiscard]] static bool Diagnostics() noexcept;

private:
    friend class omi_Singleton<omu_SymbolicConstantTable>;
    omu_SymbolicConstantTable();

    cow_List<cow_String> _names;
    cow_List<omu_SymbolicConstantData> _constants;
    Hook _hook = nullptr;
    std::unordered_map<std::string_view, unsigned> _ids;  // the views are of _names, whose bytes never move
};

#endif
