#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <omu/omu_AttributeErrorException.h>

namespace {

cow_String Message(omu_AttribErrorEnm kind, const cow_String& text) {
    switch (kind) {
        case omu_AttribReadOnlyAll:
            return "read-only attributes";
        case omu_AttribReadOnly:
            return atr("%s is read-only", text.c_str()).Text();
        case omu_AttribText:
            return atr("%s", text.c_str()).Text();
    }
    return "Error message not implemented yet";
}

}  // namespace

omu_AttributeErrorException::omu_AttributeErrorException(omu_AttribErrorEnm kind, const cow_String& text)
    : nex_CommandException(Message(kind, text)), _kind(kind), _text(text) {}

omu_AttributeErrorException* omu_AttributeErrorException::Copy() const {
    return new omu_AttributeErrorException(*this);
}
void omu_AttributeErrorException::Propagate() const { throw *this; }
const char* omu_AttributeErrorException::PythonType() const { return "AttributeError"; }
unsigned omu_AttributeErrorException::DynTypeId() const { return TypeId(); }

void omu_AttributeErrorException::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar
        .Class<omu_AttributeErrorException, nex_CommandException>("omu_AttributeErrorException", omu_MetadataNumber)
        .Add<omu_AttribErrorEnm>("m_Kind")
        .Add<cow_String>("m_Text");
}

void omu_AttributeErrorException::DBWrite(const cls_WriteVisitor& visitor) const {
    nex_CommandException::DBWrite(visitor.Base(nex_CommandException::TypeId()));
    visitor.Write("m_Kind", _kind);
    visitor.Write("m_Text", _text);
}

omu_AttributeErrorException::omu_AttributeErrorException(const cls_ReadVisitor& visitor)
    : omu_AttributeErrorException(visitor.Read("m_Kind", omu_AttribReadOnlyAll), visitor.Read("m_Text", cow_String())) {
}
