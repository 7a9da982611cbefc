#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <omu/detail/omu_FlagOf.h>
#include <omu/omu_PrimBoolean.h>
#include <omu/omu_PrimVisitor.h>

cow_String omu_PrimBoolean::TypeString() const { return "Boolean"; }
cow_String omu_PrimBoolean::AsString(int) const { return _value ? "True" : "False"; }

bool omu_PrimBoolean::IsEqual(const omu_Primitive& other) const { return omu_FlagOf(other) == _value; }

void omu_PrimBoolean::Accept(omu_PrimVisitor* visitor) const { visitor->VisitBoolean(*this); }
std::unique_ptr<omu_Primitive> omu_PrimBoolean::Copy() const { return std::make_unique<omu_PrimBoolean>(*this); }
unsigned omu_PrimBoolean::DynTypeId() const { return TypeId(); }

// ---- Persistence

void omu_PrimBoolean::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<omu_PrimBoolean, omu_Primitive>("omu_PrimBoolean", omu_MetadataNumber).Add<bool>("m_value");
}

void omu_PrimBoolean::DBWrite(const cls_WriteVisitor& visitor) const {
    omu_Primitive::DBWrite(visitor.Base(omu_Primitive::TypeId()));
    visitor.Write("m_value", _value);
}

omu_PrimBoolean::omu_PrimBoolean(const cls_ReadVisitor& visitor)
    : omu_Primitive(visitor.Base(), 'b'), _value(visitor.Read("m_value", false)) {}
