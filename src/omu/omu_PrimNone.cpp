#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <omu/detail/omu_FlagOf.h>
#include <omu/omu_PrimNone.h>
#include <omu/omu_PrimVisitor.h>

cow_String omu_PrimNone::TypeString() const { return AsString(0); }
cow_String omu_PrimNone::AsString(int) const { return "None"; }

bool omu_PrimNone::IsEqual(const omu_Primitive& other) const { return omu_FlagOf(other) == _isSet; }

void omu_PrimNone::Accept(omu_PrimVisitor* visitor) const { visitor->VisitNone(*this); }
std::unique_ptr<omu_Primitive> omu_PrimNone::Copy() const { return std::make_unique<omu_PrimNone>(*this); }
unsigned omu_PrimNone::DynTypeId() const { return TypeId(); }

// ---- Persistence

void omu_PrimNone::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<omu_PrimNone, omu_Primitive>("omu_PrimNone", omu_MetadataNumber).Add<bool>("isSet");
}

void omu_PrimNone::DBWrite(const cls_WriteVisitor& visitor) const {
    omu_Primitive::DBWrite(visitor.Base(omu_Primitive::TypeId()));
    visitor.Write("isSet", _isSet);
}

omu_PrimNone::omu_PrimNone(const cls_ReadVisitor& visitor)
    : omu_Primitive(visitor.Base(), 'n'), _isSet(visitor.Read("isSet", false)) {}
