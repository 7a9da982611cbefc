#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <gsl/gsl_Segment.h>

void gsl_Segment::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<gsl_Segment>("gsl_Segment", 800);
}

void gsl_Segment::DBWrite(const cls_WriteVisitor&) const {}

gsl_Segment::gsl_Segment(const cls_ReadVisitor&) {}
