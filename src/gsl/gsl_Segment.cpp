#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <gsl/gsl_Segment.h>
#include <gsl/gsl_StLine.h>

namespace {

/// Distances from here on do not count.
constexpr double farthest = 1e10;

/// Whether the projection of `point` lies within `segment`.
bool IsWithin(const gsl_Segment& segment, const gsl_Point& point) noexcept {
    double weights[2];
    return point.Bary(segment.Point1(), segment.Point2(), weights);
}

}  // namespace

gsl_StLine gsl_Segment::Line() const noexcept { return {_point1, _point2}; }

bool gsl_Segment::Intersect(const gsl_StLine& line, gsl_Point& point) const noexcept {
    gsl_Point met;
    double gap = 0.0;
    if (!Line().Intersect(line, met, gap) || !(gap <= gsl_Util::LinTol()) || !IsWithin(*this, met)) return false;
    point.SetPos(met);
    return true;
}

bool gsl_Segment::Intersect(const gsl_Segment& other, gsl_Point& point) const noexcept {
    gsl_Point met;
    if (!Intersect(other.Line(), met) || !IsWithin(other, met)) return false;
    point.SetPos(met);
    return true;
}

double gsl_Segment::GetDistance(const gsl_Segment& other, gsl_Segment& result) const noexcept {
    result = Connection(other);
    return result.Length();
}

gsl_Segment gsl_Segment::Connection(const gsl_Segment& other) const noexcept {
    gsl_Point met;
    if (Intersect(other, met)) return {met, met};

    if (Line().IsSkewed(other.Line())) {
        gsl_Vector normal = Direction().CrossProduct(other.Direction());
        normal.Normalize();
        const gsl_Vector offset = normal * (other._point1 - _point1).DotProduct(normal);
        const gsl_Segment moved(_point1 + offset, _point2 + offset);
        if (moved.Length() >= gsl_Util::LinTol() && moved.Intersect(other, met)) return {met - offset, met};
    }

    gsl_Segment shortest(_point1, other._point1);
    double distance = farthest;
    const auto offer = [&](const gsl_Point& end, const gsl_Segment& segment, bool endIsOurs) {
        gsl_Point nearest;
        const double offered = end.GetDistance(segment, nearest);
        if (!(offered < distance)) return;
        distance = offered;
        shortest = endIsOurs ? gsl_Segment(end, nearest) : gsl_Segment(nearest, end);
    };
    offer(_point1, other, true);
    offer(_point2, other, true);
    offer(other._point1, *this, false);
    offer(other._point2, *this, false);
    return shortest;
}

// ---- Persistence

void gsl_Segment::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<gsl_Segment>("gsl_Segment", 800).Add<gsl_Point>("_point1").Add<gsl_Point>("_point2");
}

void gsl_Segment::DBWrite(const cls_WriteVisitor& visitor) const {
    visitor.Write("_point1", _point1);
    visitor.Write("_point2", _point2);
}

gsl_Segment::gsl_Segment(const cls_ReadVisitor& visitor)
    : _point1(visitor.Read("_point1", gsl_Point())), _point2(visitor.Read("_point2", gsl_Point())) {}
