#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <omu/omu_PrimTranslatedString.h>
#include <omu/omu_PrimVisitor.h>

cow_String omu_PrimTranslatedString::TypeString() const { return "tran_string"; }

void omu_PrimTranslatedString::Accept(omu_PrimVisitor* visitor) const { visitor->VisitTranslatedString(*this); }
std::unique_ptr<omu_Primitive> omu_PrimTranslatedString::Copy() const {
    return std::make_unique<omu_PrimTranslatedString>(*this);
}
unsigned omu_PrimTranslatedString::DynTypeId() const { return TypeId(); }

// ---- Persistence

void omu_PrimTranslatedString::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<omu_PrimTranslatedString, omu_PrimString>("omu_PrimTranslatedString", omu_MetadataNumber)
        .Add<cow_String>("string");
}

void omu_PrimTranslatedString::DBWrite(const cls_WriteVisitor& visitor) const {
    omu_PrimString::DBWrite(visitor.Base(omu_PrimString::TypeId()));
    visitor.Write("string", Text());
}

omu_PrimTranslatedString::omu_PrimTranslatedString(const cls_ReadVisitor& visitor)
    : omu_PrimString(visitor.Base(), 'l') {
    SetText(visitor.Read("string", Text()));
}
