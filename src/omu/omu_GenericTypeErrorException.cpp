#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <omu/omu_GenericTypeErrorException.h>

omu_GenericTypeErrorException::omu_GenericTypeErrorException()
    : omu_TypeErrorException(cow_String("illegal argument type for built-in operation")) {}

omu_GenericTypeErrorException* omu_GenericTypeErrorException::Copy() const {
    return new omu_GenericTypeErrorException(*this);
}
void omu_GenericTypeErrorException::Propagate() const { throw *this; }
unsigned omu_GenericTypeErrorException::DynTypeId() const { return TypeId(); }

void omu_GenericTypeErrorException::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<omu_GenericTypeErrorException, omu_TypeErrorException>("omu_GenericTypeErrorException",
                                                                           omu_MetadataNumber);
}

void omu_GenericTypeErrorException::DBWrite(const cls_WriteVisitor& visitor) const {
    omu_TypeErrorException::DBWrite(visitor.Base(omu_TypeErrorException::TypeId()));
}

omu_GenericTypeErrorException::omu_GenericTypeErrorException(const cls_ReadVisitor&)
    : omu_GenericTypeErrorException() {}
