#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <gsl/gsl_BBox.h>

unsigned gsl_BBox::DynTypeId() const { return TypeId(); }

void gsl_BBox::InitializeMetadata(cls_ClassRegistrar& registrar) { registrar.Class<gsl_BBox>("gsl_BBox", 800); }

void gsl_BBox::DBWrite(const cls_WriteVisitor&) const {}

gsl_BBox::gsl_BBox(const cls_ReadVisitor&) {}
