#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <omu/omu_PrimDictionaryBase.h>

cow_String omu_PrimDictionaryBase::TypeString() const { return "dictionary"; }

// ---- Persistence

void omu_PrimDictionaryBase::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<omu_PrimDictionaryBase, omu_Primitive>("omu_PrimDictionaryBase", omu_MetadataNumber)
        .Add<char>("m_Represents");
}

void omu_PrimDictionaryBase::DBWrite(const cls_WriteVisitor& visitor) const {
    omu_Primitive::DBWrite(visitor.Base(omu_Primitive::TypeId()));
    visitor.Write("m_Represents", _represents);
}

omu_PrimDictionaryBase::omu_PrimDictionaryBase(const cls_ReadVisitor& visitor)
    : omu_Primitive(visitor.Base(), '{'), _represents(visitor.Read("m_Represents", 'O')) {}
