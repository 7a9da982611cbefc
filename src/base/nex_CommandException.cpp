#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <base/nex_CommandException.h>

nex_CommandException* nex_CommandException::Copy() const { return new nex_CommandException(*this); }
void nex_CommandException::Propagate() const { throw *this; }
const char* nex_CommandException::PythonType() const { return "RuntimeError"; }
atr_String nex_CommandException::JournalMessage(OrvBasStringMode mode) const {
    return atr_String(WholeMessage()).Convert(mode);
}

// ---- Persistence

unsigned nex_CommandException::DynTypeId() const { return TypeId(); }

void nex_CommandException::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<nex_CommandException>("nex_CommandException", 0).Add<cow_String>("m_Message");
}

void nex_CommandException::DBWrite(const cls_WriteVisitor& visitor) const {
    visitor.Write("m_Message", WholeMessage());
}

nex_CommandException::nex_CommandException(const cls_ReadVisitor& visitor)
    : nex_CommandException(visitor.Read("m_Message", cow_String())) {}
