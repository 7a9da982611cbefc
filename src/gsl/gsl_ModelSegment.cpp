#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <gsl/gsl_ModelSegment.h>

unsigned gsl_ModelSegment::DynTypeId() const { return TypeId(); }

void gsl_ModelSegment::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<gsl_ModelSegment>("gsl_ModelSegment", 332);
}

void gsl_ModelSegment::DBWrite(const cls_WriteVisitor&) const {}

gsl_ModelSegment::gsl_ModelSegment(const cls_ReadVisitor&) {}
