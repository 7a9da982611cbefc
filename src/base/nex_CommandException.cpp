#include <base/nex_CommandException.h>

nex_CommandException* nex_CommandException::Copy() const { return new nex_CommandException(*this); }
void nex_CommandException::Propagate() const { throw *this; }
const char* nex_CommandException::PythonType() const { return "RuntimeError"; }
atr_String nex_CommandException::JournalMessage(OrvBasStringMode mode) const {
    return atr_String(what()).Convert(mode);
}
