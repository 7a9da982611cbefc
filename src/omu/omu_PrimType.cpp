#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <omu/omu_PrimType.h>
#include <omu/omu_PrimVisitor.h>

cow_String omu_PrimType::TypeString() const { return _typeString == "" ? "type" : AsString(0); }
cow_String omu_PrimType::AsString(int) const { return _typeString + "Type"; }

bool omu_PrimType::IsEqual(const omu_Primitive& other) const {
    const auto* const type = SameKind<omu_PrimType>(other);
    return type != nullptr && _typeString == type->_typeString;
}

void omu_PrimType::Accept(omu_PrimVisitor* visitor) const { visitor->VisitType(*this); }
std::unique_ptr<omu_Primitive> omu_PrimType::Copy() const { return std::make_unique<omu_PrimType>(*this); }
unsigned omu_PrimType::DynTypeId() const { return TypeId(); }

// ---- Persistence

void omu_PrimType::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<omu_PrimType, omu_Primitive>("omu_PrimType", omu_MetadataNumber).Add<cow_String>("typeString");
}

void omu_PrimType::DBWrite(const cls_WriteVisitor& visitor) const {
    omu_Primitive::DBWrite(visitor.Base(omu_Primitive::TypeId()));
    visitor.Write("typeString", _typeString);
}

omu_PrimType::omu_PrimType(const cls_ReadVisitor& visitor)
    : omu_Primitive(visitor.Base(), 't'), _typeString(visitor.Read("typeString", cow_String())) {}
