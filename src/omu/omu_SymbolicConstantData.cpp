#include <base/OrvBasProgramName.h>
#include <omu/detail/omu_WriteError.h>
#include <omu/omu_SymbolicConstantData.h>
#include <omu/omu_SymbolicConstantTable.h>

omu_SymbolicConstantData::omu_SymbolicConstantData(unsigned id) : _id(id) {
    const unsigned size = omu_SymbolicConstantTable::Instance().Size();
    if (id >= size) omu_WriteError("omu_SymbolicConstantData(%u) id > Size (%u)\n", id, size);
}

omu_SymbolicConstantData::omu_SymbolicConstantData(const cow_String& name, unsigned id, bool suppressScriptingObject)
    : _id(id) {
    const bool diagnostics = omu_SymbolicConstantTable::Diagnostics();
    if (diagnostics)
        omu_WriteError("%s:omu_SymbolicConstantData(%s, %u, %s)\n", OrvBasProgramName().c_str(), name.c_str(), id,
                       suppressScriptingObject ? "true" : "false");
    if (id != 0)
        omu_WriteError("omu_SymbolicConstantData(%s, %u) _id is not 0\n", name.c_str(), id);
    else
        Register(name, suppressScriptingObject);
    if (diagnostics)
        omu_WriteError("%s:omu_SymbolicConstantData(%s, %u) -> id %u\n", OrvBasProgramName().c_str(), name.c_str(), id,
                       _id);
}

void omu_SymbolicConstantData::Register(const cow_String& name, bool suppressScriptingObject) {
    omu_SymbolicConstantTable& table = omu_SymbolicConstantTable::Instance();
    const unsigned passed = _id;
    _id = table.GetId(name);
    if (_id != 0 || name == omu_SymbolicConstantTable::unspecified) return;
    if (!omu_SymbolicConstantTable::IsValidSymConstName(name)) {
        if (omu_SymbolicConstantTable::Diagnostics())
            omu_WriteError("omu_SymbolicConstantData(%s, %u) Name is invalid\n", name.c_str(), passed);
        return;
    }
    _id = table.AddString(name);
    const unsigned idSCD = table.AddSCD(*this);
    if (_id != idSCD)
        omu_WriteError("omu_SymbolicConstantData(%s, %u) id (%u) != idSCD (%u)\n", name.c_str(), passed, _id, idSCD);
    if (!suppressScriptingObject) table.CreatePythonSymbolicConstant(name, _id);
}

cow_String omu_SymbolicConstantData::getText() const {
    cow_String text = omu_SymbolicConstantTable::Instance().GetString(_id);
    if (text.Length() == 0) omu_WriteError("omu_SymbolicConstantData::getText() text is EMPTY\n");
    return text;
}
