#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <gsl/gsl_StLine.h>

unsigned gsl_StLine::DynTypeId() const { return TypeId(); }

void gsl_StLine::InitializeMetadata(cls_ClassRegistrar& registrar) { registrar.Class<gsl_StLine>("gsl_StLine", 800); }

void gsl_StLine::DBWrite(const cls_WriteVisitor&) const {}

gsl_StLine::gsl_StLine(const cls_ReadVisitor&) {}
