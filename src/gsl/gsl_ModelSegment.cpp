#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <gsl/gsl_ModelSegment.h>
#include <omu/omu_PrimNone.h>
#include <omu/omu_PrimTuple.h>

gsl_ModelSegment::gsl_ModelSegment(const gsl_Dot& point1, const gsl_Dot& point2)
    : _point1(point1.Copy()), _point2(point2.Copy()) {}

gsl_Vector gsl_ModelSegment::Direction() const noexcept {
    if (_point1.IsNull() || _point2.IsNull()) return {};
    return Point2()->Point() - Point1()->Point();
}

double gsl_ModelSegment::Length() const noexcept {
    if (_point1.IsNull() || _point2.IsNull()) return 0.0;
    return Point1()->Point().GetDistance(Point2()->Point());
}

void gsl_ModelSegment::Regenerate(const ftr_FeatureList* features) {
    for (Holder* const point : {&_point1, &_point2}) {
        if (point->IsNull()) continue;
        *point = Holder(point->Get()->Copy());
        point->Get()->Regenerate(features);
    }
}

std::unique_ptr<omu_Primitive> omu_ReturnPrim(const gsl_ModelSegment& segment) {
    auto points = std::make_unique<omu_PrimTuple>('(', 2);
    for (const gsl_Dot* const dot : {segment.Point1(), segment.Point2()}) {
        if (dot == nullptr) {
            points->Put(omu_PrimNone());
            continue;
        }
        omu_PrimTuple coordinates('(', 3);
        for (const double coordinate : dot->Point().AsArray()) coordinates.Put(coordinate);
        points->Put(coordinates);
    }
    return points;
}

// ---- Persistence

unsigned gsl_ModelSegment::DynTypeId() const { return TypeId(); }

void gsl_ModelSegment::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<gsl_ModelSegment>("gsl_ModelSegment", 332).Add<Holder>("point1").Add<Holder>("point2");
}

void gsl_ModelSegment::DBWrite(const cls_WriteVisitor& visitor) const {
    visitor.Write("point1", _point1);
    visitor.Write("point2", _point2);
}

gsl_ModelSegment::gsl_ModelSegment(const cls_ReadVisitor& visitor)
    : _point1(visitor.Read("point1", Holder())), _point2(visitor.Read("point2", Holder())) {}
