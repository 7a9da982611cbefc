#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <gsl/gsl_PersistentVector.h>

void gsl_PersistentVector::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<gsl_PersistentVector>("gsl_Vector", 203)
        .Add<double>("_x")
        .Add<double>("_y")
        .Add<double>("_z")
        .Add<double>("_magnitude");
}

void gsl_PersistentVector::DBWrite(const cls_WriteVisitor& visitor) const {
    double x = 0.0, y = 0.0, z = 0.0, magnitude = 0.0;
    ToCoordinates(x, y, z, magnitude);
    visitor.Write("_x", x);
    visitor.Write("_y", y);
    visitor.Write("_z", z);
    visitor.Write("_magnitude", magnitude);
}

gsl_PersistentVector::gsl_PersistentVector(const cls_ReadVisitor& visitor) : _uid(cls_Uid::AllocateUid()) {
    const double x = visitor.Read("_x", 0.0);
    const double y = visitor.Read("_y", 0.0);
    const double z = visitor.Read("_z", 1.0);
    FromCoordinates(x, y, z, visitor.Read("_magnitude", -1.0));
}
