#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <omu/omu_PrimExpr.h>
#include <omu/omu_PrimVisitor.h>

cow_String omu_PrimExpr::TypeString() const { return "expression"; }
cow_String omu_PrimExpr::AsString(int) const { return _expr; }

bool omu_PrimExpr::IsEqual(const omu_Primitive& other) const {
    const auto* const expr = SameKind<omu_PrimExpr>(other);
    return expr != nullptr && _expr == expr->_expr;
}

void omu_PrimExpr::Accept(omu_PrimVisitor* visitor) const { visitor->VisitExpr(*this); }
std::unique_ptr<omu_Primitive> omu_PrimExpr::Copy() const { return std::make_unique<omu_PrimExpr>(*this); }
unsigned omu_PrimExpr::DynTypeId() const { return TypeId(); }

// ---- Persistence

void omu_PrimExpr::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<omu_PrimExpr, omu_Primitive>("omu_PrimExpr", omu_MetadataNumber).Add<cow_String>("expr");
}

void omu_PrimExpr::DBWrite(const cls_WriteVisitor& visitor) const {
    omu_Primitive::DBWrite(visitor.Base(omu_Primitive::TypeId()));
    visitor.Write("expr", _expr);
}

omu_PrimExpr::omu_PrimExpr(const cls_ReadVisitor& visitor)
    : omu_Primitive(visitor.Base(), 'e'), _expr(visitor.Read("expr", cow_String())) {}
