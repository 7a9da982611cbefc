#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <omu/omu_PrimList.h>
#include <omu/omu_PrimVisitor.h>

cow_String omu_PrimList::TypeString() const { return "list"; }
std::unique_ptr<omu_Primitive> omu_PrimList::Copy() const { return std::make_unique<omu_PrimList>(*this); }
void omu_PrimList::Accept(omu_PrimVisitor* visitor) const { visitor->VisitList(*this); }

std::unique_ptr<omu_PrimTuple> omu_PrimList::MakeResult(int size) const {
    return std::make_unique<omu_PrimList>(Type(), size);
}

const char* omu_PrimList::NullMessage() const { return "List Index returned NULL"; }

// ---- Persistence

unsigned omu_PrimList::DynTypeId() const { return TypeId(); }

void omu_PrimList::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<omu_PrimList, omu_PrimTuple>("omu_PrimList", omu_MetadataNumber).Add<int>("maxSize");
}

void omu_PrimList::DBWrite(const cls_WriteVisitor& visitor) const {
    omu_PrimTuple::DBWrite(visitor.Base(omu_PrimTuple::TypeId()));
    visitor.Write("maxSize", _maxSize);
}

omu_PrimList::omu_PrimList(const cls_ReadVisitor& visitor)
    : omu_PrimTuple(visitor.Base(), '['), _maxSize(visitor.Read("maxSize", 0)) {}
