#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <omu/omu_TypeErrorException.h>

#include <utility>

omu_TypeErrorException::omu_TypeErrorException() : omu_TypeErrorException(cow_String()) {}
omu_TypeErrorException::omu_TypeErrorException(cow_String message) noexcept
    : nex_CommandException(std::move(message)) {}

omu_TypeErrorException* omu_TypeErrorException::Copy() const { return new omu_TypeErrorException(*this); }
void omu_TypeErrorException::Propagate() const { throw *this; }
const char* omu_TypeErrorException::PythonType() const { return "TypeError"; }
unsigned omu_TypeErrorException::DynTypeId() const { return TypeId(); }

void omu_TypeErrorException::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<omu_TypeErrorException, nex_CommandException>("omu_TypeErrorException", omu_MetadataNumber);
}

void omu_TypeErrorException::DBWrite(const cls_WriteVisitor& visitor) const {
    nex_CommandException::DBWrite(visitor.Base(nex_CommandException::TypeId()));
}

omu_TypeErrorException::omu_TypeErrorException(const cls_ReadVisitor&) : omu_TypeErrorException() {}
