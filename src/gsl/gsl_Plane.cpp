#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <gsl/gsl_Plane.h>

unsigned gsl_Plane::DynTypeId() const { return TypeId(); }

void gsl_Plane::InitializeMetadata(cls_ClassRegistrar& registrar) { registrar.Class<gsl_Plane>("gsl_Plane", 800); }

void gsl_Plane::DBWrite(const cls_WriteVisitor&) const {}

gsl_Plane::gsl_Plane(const cls_ReadVisitor&) {}
