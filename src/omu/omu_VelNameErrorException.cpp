#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <omu/omu_VelNameErrorException.h>

namespace {

const char* Message(omu_VelNameErrorEnm kind) {
    switch (kind) {
        case omu_VelNameInvalid:
            return "invalid name";
        case omu_VelNameEmpty:
            return "name is empty";
        case omu_VelNameInvalidJob:
            return "invalid job name";
        case omu_VelNameInvalidModel:
            return "invalid model name";
    }
    return "";
}

}  // namespace

omu_VelNameErrorException::omu_VelNameErrorException(omu_VelNameErrorEnm kind)
    : nex_CommandException(Message(kind)), _kind(kind) {}

omu_VelNameErrorException* omu_VelNameErrorException::Copy() const { return new omu_VelNameErrorException(*this); }
void omu_VelNameErrorException::Propagate() const { throw *this; }
const char* omu_VelNameErrorException::PythonType() const { return "VelmorNameError"; }
unsigned omu_VelNameErrorException::DynTypeId() const { return TypeId(); }

void omu_VelNameErrorException::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<omu_VelNameErrorException, nex_CommandException>("omu_VelNameErrorException", omu_MetadataNumber)
        .Add<omu_VelNameErrorEnm>("m_Kind");
}

void omu_VelNameErrorException::DBWrite(const cls_WriteVisitor& visitor) const {
    nex_CommandException::DBWrite(visitor.Base(nex_CommandException::TypeId()));
    visitor.Write("m_Kind", _kind);
}

omu_VelNameErrorException::omu_VelNameErrorException(const cls_ReadVisitor& visitor)
    : omu_VelNameErrorException(visitor.Read("m_Kind", omu_VelNameInvalid)) {}
