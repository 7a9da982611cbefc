#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <base/cow_2DArray.h>
#include <base/nex_StreamException.h>
#include <base/nex_Throw.h>
#include <gsl/gsl_PersistentMatrix.h>

void gsl_PersistentMatrix::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<gsl_PersistentMatrix>("gsl_Matrix", 203)
        .Add<int>("_is_identity")
        .Add<cow_2DArray<double>>("DDBmatrix");
}

void gsl_PersistentMatrix::DBWrite(const cls_WriteVisitor& visitor) const {
    visitor.Write("_is_identity", IsIdentity() ? 1 : 0);
    cow_2DArray<double> elements;
    To2DArray(&elements);
    visitor.Write("DDBmatrix", elements);
}

gsl_PersistentMatrix::gsl_PersistentMatrix(const cls_ReadVisitor& visitor) : _uid(cls_Uid::AllocateUid()) {
    const int identityState = visitor.Read("_is_identity", -1);
    cow_2DArray<double> identity;
    To2DArray(&identity);
    const cow_2DArray<double> elements = visitor.Read("DDBmatrix", identity);
    if (elements.Rows() != 4 || elements.Cols() != 4) nex_Throw(nex_StreamException("bad count in stream"));
    From2DArray(elements, identityState);
}
