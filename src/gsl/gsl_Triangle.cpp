#include <gsl/gsl_Plane.h>
#include <gsl/gsl_Triangle.h>

#include <algorithm>
#include <utility>

void gsl_Triangle::GetExtent(double* low, double* high) const noexcept {
    for (unsigned axis = 0; axis < 3; ++axis) {
        const auto [least, greatest] = std::minmax({_points[0][axis], _points[1][axis], _points[2][axis]});
        low[axis] = least;
        high[axis] = greatest;
    }
}

gsl_BBox gsl_Triangle::GetBBox() const {
    double low[3], high[3];
    GetExtent(low, high);
    return {gsl_Point(low), gsl_Point(high)};
}

void gsl_Triangle::SetPoints(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3,
                             bool computeNormal) noexcept {
    _points = {p1, p2, p3};
    if (computeNormal) _normal = gsl_Vector(_points[0], _points[1], _points[2]);
}

void gsl_Triangle::Reverse() noexcept {
    std::swap(_points[1], _points[2]);
    _normal.Negate();
}

bool gsl_Triangle::Project(const gsl_Plane& plane, const gsl_Vector& direction, gsl_Triangle& projected) const {
    gsl_Point moved[3];
    for (unsigned i = 0; i < 3; ++i)
        if (!_points[i].RayIntersect(direction, plane, moved[i])) return false;
    projected.SetPoints(moved[0], moved[1], moved[2], true);
    return true;
}

bool gsl_Triangle::ProjectPoint(const gsl_Point& point, gsl_Point& foot) const noexcept {
    if (_normal.LengthSq() == 0.0) return false;
    foot.SetPos(point - _normal * (point - _points[0]).DotProduct(_normal));
    return true;
}

bool gsl_Triangle::ComputeClosestPointOnSide(int side, const gsl_Point& point, gsl_Point& closest) const noexcept {
    const gsl_Point& from = _points[Number(side)];
    const gsl_Vector along = _points[(Number(side) + 1) % 3] - from;
    const double lengthSq = along.LengthSq();
    const double part = lengthSq > 0.0 ? (point - from).DotProduct(along) / lengthSq : -1.0;
    closest.SetPos(part >= 1.0 ? from + along : part > 0.0 ? from + along * part : from);
    return part >= 0.0 && part <= 1.0;
}

bool gsl_Triangle::TestProjectedPointAgainstSide(int side, const gsl_Point& point, double& distance) const noexcept {
    const gsl_Point& from = _points[Number(side)];
    gsl_Vector inward = _normal.CrossProduct(_points[(Number(side) + 1) % 3] - from);
    distance = 0.0;
    const double length = inward.Length();
    if (!(length > 0.0)) return false;
    distance = (point - from).DotProduct(inward) / length;
    return distance >= -gsl_Util::LinTol();
}

bool gsl_Triangle::ContainsProjectedPoint(const gsl_Point& point) const noexcept {
    double distance = 0.0;
    return TestProjectedPointAgainstSide(0, point, distance) && TestProjectedPointAgainstSide(1, point, distance) &&
           TestProjectedPointAgainstSide(2, point, distance);
}

bool gsl_Triangle::Contains(const gsl_Point& point) const noexcept {
    gsl_Point nearest;
    bool inside = ProjectPoint(point, nearest);
    double nearestSq = inside ? gsl_GetDistSqr(point, nearest) : 0.0;
    for (int side = 0; inside && side < 3; ++side) {
        double distance = 0.0;
        inside = TestProjectedPointAgainstSide(side, point, distance) && distance >= 0.0;
    }
    if (inside) return nearestSq <= gsl_Util::LinTolSq();
    for (int side = 0; side < 3; ++side) {
        ComputeClosestPointOnSide(side, point, nearest);
        nearestSq = gsl_GetDistSqr(point, nearest);
        if (nearestSq <= gsl_Util::LinTolSq()) return true;
    }
    return false;
}
