#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <gsl/gsl_Matrix.h>
#include <gsl/gsl_Plane.h>
#include <gsl/gsl_Point.h>
#include <gsl/gsl_PrintIndented.h>
#include <gsl/gsl_Segment.h>
#include <gsl/gsl_StLine.h>

#include <algorithm>
#include <ostream>

namespace {

/// The point of the straight piece from a to b that is nearest to p, however short the piece is.
gsl_Point NearestBetween(const gsl_Point& p, const gsl_Point& a, const gsl_Point& b) noexcept {
    const gsl_Vector span(a, b);
    const double along = span.DotProduct(p - a);
    const double lengthSq = span.LengthSq();
    if (along <= 0.0) return a;
    if (along >= lengthSq) return b;
    return a + span * (along / lengthSq);
}

}  // namespace

gsl_Point::gsl_Point(const gsl_Point& a, const gsl_Point& b)
    : _xyz{(a.X() + b.X()) * 0.5, (a.Y() + b.Y()) * 0.5, (a.Z() + b.Z()) * 0.5}, _uid(cls_Uid::AllocateUid()) {}

gsl_Point::gsl_Point(const gsl_Point& a, double weightA, const gsl_Point& b, double weightB)
    : _xyz{weightA * a.X() + weightB * b.X(), weightA * a.Y() + weightB * b.Y(), weightA * a.Z() + weightB * b.Z()},
      _uid(cls_Uid::AllocateUid()) {}

void gsl_Point::Transform(const gsl_Matrix& matrix) noexcept { matrix.Transform(*this); }

gsl_Point gsl_Point::PointAtDistInDirection(double distance, const gsl_Vector& direction) const noexcept {
    if (direction.Length() < gsl_Util::LinTol()) return *this;
    return *this + direction.Unit() * distance;
}

bool gsl_Point::Bary(const gsl_Point& p1, const gsl_Point& p2, double* weights) const noexcept {
    const double linTol = gsl_Util::LinTol();
    const gsl_Vector span = p1 - p2;
    const double lengthSq = span.LengthSq();
    const double length = span.Length();
    if (length <= linTol) {
        if (!(GetDistance(p1) <= linTol)) return false;
        weights[0] = 0.0;
        weights[1] = 1.0;
        return true;
    }
    weights[0] = (p1 - *this).DotProduct(span) / lengthSq;
    weights[1] = (p2 - *this).DotProduct(p2 - p1) / lengthSq;
    return !(length * weights[0] < -linTol) && !(length * weights[1] < -linTol);
}

bool gsl_Point::Bary(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3, double* weights) const noexcept {
    const gsl_Point* corners[] = {&p1, &p2, &p3};
    const gsl_Vector normal = (p2 - p1).CrossProduct(p1 - p3);
    const double normalSq = normal.DotProduct(normal);
    bool inside = true;
    for (unsigned k = 0; k < 3; ++k) {
        const gsl_Vector toNext = *corners[(k + 1) % 3] - *this;
        const gsl_Vector fromLast = *this - *corners[(k + 2) % 3];
        weights[k] = toNext.TripleProduct(fromLast, normal) / normalSq;
        if (weights[k] * normalSq < -gsl_Util::LinTolSq()) inside = false;
    }
    return inside;
}

// ---- Lines, planes and segments

double gsl_Point::GetDistance(const gsl_StLine& line) const noexcept {
    return (*this - line.Point()).CrossProduct(line.Direction()).Length() / line.Direction().Length();
}

double gsl_Point::GetSignedDistance(const gsl_Plane& plane) const noexcept {
    return (*this - plane.Centroid()).DotProduct(plane.Direction()) / plane.Direction().Length();
}

double gsl_Point::GetDistance(const gsl_Plane& plane) const noexcept { return std::abs(GetSignedDistance(plane)); }

double gsl_Point::GetDistance(const gsl_Plane& plane, const gsl_Vector& direction) const noexcept {
    gsl_Point met;
    return RayIntersect(direction, plane, met) ? GetDistance(met) : GetDistance(plane);
}

double gsl_Point::GetDistance(const gsl_Segment& segment, gsl_Point& nearest) const noexcept {
    const bool isPoint = segment.Length() <= gsl_Util::LinTol();
    const gsl_Point found = isPoint ? segment.Point1() : NearestBetween(*this, segment.Point1(), segment.Point2());
    const double distance = GetDistance(found);  // before storing: `nearest` may be this point
    nearest.SetPos(found);
    return distance;
}

double gsl_Point::GetDistance(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3) const noexcept {
    const gsl_Vector normal(p1, p2, p3);
    if (normal.Length() > 0.0) {
        double weights[3];
        static_cast<void>(Bary(p1, p2, p3, weights));  // its tolerance would let in what an edge is nearer to
        if (std::all_of(weights, weights + 3, [](double weight) { return weight >= 0.0; }))
            return std::abs(normal.DotProduct(*this - p1));
    }
    const auto toEdge = [this](const gsl_Point& a, const gsl_Point& b) {
        return GetDistance(NearestBetween(*this, a, b));
    };
    return std::fmin(toEdge(p1, p2), std::fmin(toEdge(p2, p3), toEdge(p3, p1)));
}

bool gsl_Point::IsOn(const gsl_StLine& line) const noexcept { return GetDistance(line) <= gsl_Util::LinTol(); }

bool gsl_Point::IsOn(const gsl_Plane& plane) const noexcept { return GetDistance(plane) <= gsl_Util::LinTol(); }

gsl_Point gsl_Point::ProjectOn(const gsl_StLine& line, double& distance) const noexcept {
    const gsl_Vector unit = line.Direction().Unit();
    distance = (*this - line.Point()).DotProduct(unit);
    return line.Point() + unit * distance;
}

gsl_Point gsl_Point::ProjectOn(const gsl_Plane& plane) const noexcept {
    const gsl_Vector unit = plane.Direction().Unit();
    return *this - unit * (*this - plane.Centroid()).DotProduct(unit);
}

bool gsl_Point::ProjectOn(const gsl_Segment& segment, gsl_Point& foot, double& distance) const noexcept {
    double weights[2];
    const bool isWithin = Bary(segment.Point1(), segment.Point2(), weights);
    distance = 0.0;
    gsl_Point found = segment.Point1();
    if (!(segment.Length() <= gsl_Util::LinTol())) found = ProjectOn(segment.Line(), distance);
    foot.SetPos(found);
    return isWithin;
}

bool gsl_Point::RayIntersect(const gsl_Vector& direction, const gsl_Plane& plane, gsl_Point& out) const noexcept {
    const gsl_Vector& normal = plane.Direction();
    out.SetPos(*this);
    if (direction.Length() < gsl_Util::LinTol()) return false;
    if (IsOn(plane)) return true;
    if (direction.IsOrthogonal(normal)) return false;
    out.SetPos(*this + direction * ((plane.Centroid() - *this).DotProduct(normal) / direction.DotProduct(normal)));
    return true;
}

void gsl_Point::Print(aio_ostream& out, int indentation) const {
    gsl_PrintIndented(out, indentation, {{"x:\t", X()}, {"\ty:\t", Y()}, {"\tz:\t", Z()}});
    out.flush();
}

aio_ostream& operator<<(aio_ostream& out, const gsl_Point& point) {
    return out << '(' << point.X() << ", " << point.Y() << ", " << point.Z() << ')';
}

// ---- Persistence

unsigned gsl_Point::DynTypeId() const { return TypeId(); }

void gsl_Point::CowDtor(void* point) { delete static_cast<gsl_Point*>(point); }

void gsl_Point::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<gsl_Point>("gsl_Point", 203).Add<double>("_x").Add<double>("_y").Add<double>("_z").cowDtor =
        CowDtor;
}

void gsl_Point::DBWrite(const cls_WriteVisitor& visitor) const {
    visitor.Write("_x", X());
    visitor.Write("_y", Y());
    visitor.Write("_z", Z());
}

gsl_Point::gsl_Point(const cls_ReadVisitor& visitor)
    : _xyz{visitor.Read("_x", 0.0), visitor.Read("_y", 0.0), visitor.Read("_z", 0.0)}, _uid(cls_Uid::AllocateUid()) {}
