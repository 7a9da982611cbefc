#include <gsl/gsl_Dot.h>
#include <gsl/gsl_Pairs.h>
#include <gsl/gsl_Plane.h>
#include <gsl/gsl_StLine.h>

bool gsl_PointsAreCoincident(const gsl_Dot* a, const gsl_Dot* b) noexcept {
    return a != nullptr && b != nullptr && a->Point() == b->Point();
}

bool gsl_ThreePointsColinear(const gsl_Dot* a, const gsl_Dot* b, const gsl_Dot* c) noexcept {
    return a != nullptr && b != nullptr && c != nullptr &&
           gsl_Vector(a->Point(), b->Point(), c->Point()).Length() == 0.0;
}

bool gsl_LinesAreParallel(const gsl_StLine* a, const gsl_StLine* b) noexcept {
    return a != nullptr && b != nullptr && a->IsParallel(*b);
}

bool gsl_LinesAreSkew(const gsl_StLine* a, const gsl_StLine* b) noexcept {
    return a != nullptr && b != nullptr && a->IsSkewed(*b);
}

bool gsl_PlanesAreParallel(const gsl_Plane* a, const gsl_Plane* b) noexcept {
    return a != nullptr && b != nullptr && a->IsParallel(*b);
}
