#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <omu/omu_PrimBool.h>
#include <omu/omu_PrimVisitor.h>

template <>
const omu_PrimEnum<bool, 2>::Row* omu_PrimEnum<bool, 2>::Table() {
    static constexpr Row rows[] = {{"ON", true}, {"OFF", false}, {}};
    return rows;
}

void omu_PrimBool<2>::Accept(omu_PrimVisitor* visitor) const { visitor->VisitBool(*this); }
std::unique_ptr<omu_Primitive> omu_PrimBool<2>::Copy() const { return std::make_unique<omu_PrimBool>(*this); }
unsigned omu_PrimBool<2>::DynTypeId() const { return TypeId(); }

// ---- Persistence

void omu_PrimBool<2>::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<omu_PrimBool, omu_PrimEnumBase>("omu_PrimBool<2>", omu_MetadataNumber);
}

void omu_PrimBool<2>::DBWrite(const cls_WriteVisitor& visitor) const {
    omu_PrimEnumBase::DBWrite(visitor.Base(omu_PrimEnumBase::TypeId()));
}

omu_PrimBool<2>::omu_PrimBool(const cls_ReadVisitor& visitor) : omu_PrimEnum<bool, 2>(visitor.Base()) {}
