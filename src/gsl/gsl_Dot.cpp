#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <gsl/gsl_Dot.h>

unsigned gsl_Dot::DynTypeId() const { return TypeId(); }

void gsl_Dot::InitializeMetadata(cls_ClassRegistrar& registrar) { registrar.Class<gsl_Dot>("gsl_Dot", 203); }

void gsl_Dot::DBWrite(const cls_WriteVisitor&) const {}

gsl_Dot::gsl_Dot(const cls_ReadVisitor&) {}
