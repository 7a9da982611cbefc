#include <base/OrvBasProgramName.h>
#include <base/atr_String.h>
#include <base/rgx.h>
#include <omu/detail/omu_WriteError.h>
#include <omu/omu_SymbolicConstantTable.h>

#include <cstdlib>
#include <string>

#if defined(_WIN32)
#include <process.h>
#else
#include <unistd.h>
#endif

template class omi_Singleton<omu_SymbolicConstantTable>;

namespace {

const bool diagnostics = std::getenv("VLM_DBG_SYMCONST") != nullptr;

unsigned ProcessId() noexcept {
#if defined(_WIN32)
    return static_cast<unsigned>(_getpid());
#else
    return static_cast<unsigned>(getpid());
#endif
}

}  // namespace

omu_SymbolicConstantTable& omu_SymbolicConstantTable::Instance() {
    return omi_Singleton<omu_SymbolicConstantTable>::Instance();
}

bool omu_SymbolicConstantTable::Diagnostics() noexcept { return diagnostics; }

omu_SymbolicConstantTable::omu_SymbolicConstantTable() {
    // Not by the registering constructor, which would ask for the instance that is being made.
    AddString(unspecified);
    AddSCD(omu_SymbolicConstantData());
}

unsigned omu_SymbolicConstantTable::GetId(const cow_String& name) const {
    const auto found = _ids.find(name.View());
    return found != _ids.end() ? found->second : 0;
}

cow_String omu_SymbolicConstantTable::GetString(unsigned id) const {
    if (id >= Size())
        omu_WriteError("omu_SymbolicConstantTable::GetString(%u)  id>Size (%u)  %X\n", id, Size(), ProcessId());
    return _names.ConstGet(static_cast<int>(id));  // an identifier too large for an int is negative, out of range too
}

bool omu_SymbolicConstantTable::IsValidSymConstName(const cow_String& name) {
    return rgx_match("^[A-Z_][A-Z_0-9]*$", name);
}

cow_String omu_SymbolicConstantTable::AsString() const {
    std::string text = atr("CONTENTS of omu_SymbolicConstantTable  pid:Ox%X\n", ProcessId()).c_str();
    for (unsigned id = 0; const cow_String& name : _names)
        text.append(atr("%5u   ", id++).c_str()).append(name.View()).append("\n");
    return text;
}

unsigned omu_SymbolicConstantTable::AddString(const cow_String& key) {
    const unsigned id = Size();
    _names.Append(key);
    const cow_String& name = _names.ConstGet(static_cast<int>(id));  // `key` is gone if it was an element of the list
    const auto [entry, isNew] = _ids.try_emplace(name.View(), id);
    if (name.Length() == 0)
        omu_WriteError("omu_SymbolicConstantTable::AddString(key=%s) key is EMPTY  pid=%X\n", name.c_str(),
                       ProcessId());
    if (!isNew)
        omu_WriteError("omu_SymbolicConstantTable::AddString(%s) name already in table: %u/%u  pid=%X\n", name.c_str(),
                       entry->second, id, ProcessId());
    if (diagnostics)
        omu_WriteError("%s:omu_SCTable::AddStr('%s') id:%d\n", OrvBasProgramName().c_str(), name.c_str(),
                       static_cast<int>(id));
    return id;
}

unsigned omu_SymbolicConstantTable::AddSCD(const omu_SymbolicConstantData& data) {
    const int id = _constants.Length();
    _constants.Append(data);
    if (diagnostics) {
        // Not getText(): it throws for an identifier that the table does not have, and asks for the instance.
        const unsigned named = data.getId();
        const cow_String name = named < Size() ? _names.ConstGet(static_cast<int>(named)) : cow_String();
        omu_WriteError("%s:omu_SCTable::AddSCD(scd) '%s' id:%d  getId:%d\n", OrvBasProgramName().c_str(), name.c_str(),
                       id, static_cast<int>(named));
    }
    return static_cast<unsigned>(id);
}

void omu_SymbolicConstantTable::CreatePythonSymbolicConstant(const cow_String& name, unsigned id) const {
    if (_hook != nullptr)
        _hook(name, id);
    else if (diagnostics)
        omu_WriteError("omu_SymbolicConstantTable::CreatePythonSymbolicConstant('%s', %d) ignored\n", name.c_str(),
                       static_cast<int>(id));
}
