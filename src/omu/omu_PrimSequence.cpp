#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <omu/omu_PrimSequence.h>

cow_String omu_PrimSequence::TypeString() const { return "PrimSequence"; }

// ---- Persistence

void omu_PrimSequence::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<omu_PrimSequence, omu_Primitive>("omu_PrimSequence", omu_MetadataNumber);
}

void omu_PrimSequence::DBWrite(const cls_WriteVisitor& visitor) const {
    omu_Primitive::DBWrite(visitor.Base(omu_Primitive::TypeId()));
}

omu_PrimSequence::omu_PrimSequence(const cls_ReadVisitor& visitor, char fallback)
    : omu_Primitive(visitor.Base(), fallback) {}
