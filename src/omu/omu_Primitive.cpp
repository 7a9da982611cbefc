#include <base/cls_MetadataRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <omu/omu_Primitive.h>

omu_Primitive::~omu_Primitive() = default;

cow_String omu_Primitive::AsRepr() const { return AsString(0); }
void omu_Primitive::AppendString(std::string& text) const { text += AsString(0).View(); }

bool omu_Primitive::IsA(unsigned typeId) const {
    return DynTypeId() == typeId || cls_MetadataRegistrar::Instance().Registrar().Inherits(DynTypeId(), typeId);
}

// ---- Persistence

void omu_Primitive::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<omu_Primitive>("omu_Primitive", omu_MetadataNumber).Add<char>("type");
}

void omu_Primitive::DBWrite(const cls_WriteVisitor& visitor) const { visitor.Write("type", _type); }

omu_Primitive::omu_Primitive(const cls_ReadVisitor& visitor, char fallback)
    : _type(visitor.Read("type", fallback)), _uid(cls_Uid::AllocateUid()) {}
