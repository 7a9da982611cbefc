#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <gsl/gsl_Plane.h>
#include <gsl/gsl_StLine.h>

#include <cmath>

namespace {

/// A component of a unit vector.
constexpr double intersectTolerance = 1e-5;

}  // namespace

template <>
const omu_PrimEnum<gsl_LineMethod>::Row* omu_PrimEnum<gsl_LineMethod>::Table() {
    static constexpr Row rows[] = {
        {"FROM_PNT_VECTOR", gsl_LineMethod::FROM_PNT_VECTOR},
        {"FROM_EDGE", gsl_LineMethod::FROM_EDGE},
        {"FROM_REVFACE", gsl_LineMethod::FROM_REVFACE},
        {"FROM_DATUM_AXIS", gsl_LineMethod::FROM_DATUM_AXIS},
        {"FROM_ELEM_EDGE", gsl_LineMethod::FROM_ELEM_EDGE},
        {"FROM_PNT_PNT", gsl_LineMethod::FROM_PNT_PNT},
        {"STLINE_INVALID", gsl_LineMethod::STLINE_INVALID},
        {"FROM_DATUM_CSYS", gsl_LineMethod::FROM_DATUM_CSYS},
        {},
    };
    return rows;
}

gsl_StLine::gsl_StLine(const gsl_Point& point, const gsl_Vector& direction, gsl_LineMethod method) noexcept
    : _point(point), _dir(direction), _method(method), _ok(method != gsl_LineMethod::STLINE_INVALID) {}

gsl_StLine::gsl_StLine(const gsl_Point& from, const gsl_Point& to) noexcept
    : gsl_StLine(from, to - from, gsl_LineMethod::FROM_PNT_PNT) {}

std::unique_ptr<gsl_StLine> gsl_StLine::Copy() const { return std::make_unique<gsl_StLine>(*this); }

void gsl_StLine::PointAtDistance(double distance, gsl_Point& out) const noexcept {
    out.SetPos(_point + _dir.Unit() * distance);
}

// ---- Against another line

bool gsl_StLine::IsParallel(const gsl_StLine& other) const noexcept { return _dir.IsOn(other._dir, ParallelSine); }

bool gsl_StLine::IsOn(const gsl_StLine& other) const noexcept {
    return IsParallel(other) && _point.GetDistance(other) < gsl_Util::LinTol();
}

double gsl_StLine::GetDistance(const gsl_StLine& other) const noexcept {
    gsl_Vector common = _dir.CrossProduct(other._dir);
    return common.Normalize() ? std::abs((other._point - _point).DotProduct(common)) : 0.0;
}

bool gsl_StLine::IsSkewed(const gsl_StLine& other) const noexcept { return GetDistance(other) > gsl_Util::LinTol(); }

bool gsl_StLine::Intersect(const gsl_StLine& other, gsl_Point& point, double& dist) const noexcept {
    if (!(GetDistance(other) <= gsl_Util::LinTol())) return false;
    if (_dir.IsParallel(other._dir, intersectTolerance)) {
        dist = _point.GetDistance(other);
        return false;
    }
    const gsl_Vector unit = _dir.Unit();
    const gsl_Vector otherUnit = other._dir.Unit();
    const gsl_Vector between = other._point - _point;
    const double along = between.DotProduct(unit);
    const double otherAlong = between.DotProduct(otherUnit);
    const double cosine = unit.DotProduct(otherUnit);
    const double divisor = cosine * cosine - 1.0;
    const gsl_Point closest = _point + unit * ((cosine * otherAlong - along) / divisor);
    const gsl_Point otherClosest = other._point + otherUnit * ((otherAlong - cosine * along) / divisor);
    point.SetPos(closest);
    dist = closest.GetDistance(otherClosest);
    return true;
}

// ---- Against a plane

bool gsl_StLine::IsParallel(const gsl_Plane& plane) const noexcept { return plane.Direction().IsOrthogonal(_dir); }

bool gsl_StLine::IsOn(const gsl_Plane& plane) const noexcept { return IsParallel(plane) && _point.IsOn(plane); }

double gsl_StLine::GetSignedDistance(const gsl_Plane& plane) const noexcept {
    return IsParallel(plane) ? _point.GetSignedDistance(plane) : 0.0;
}

double gsl_StLine::GetDistance(const gsl_Plane& plane) const noexcept { return std::abs(GetSignedDistance(plane)); }

bool gsl_StLine::Intersect(const gsl_Plane& plane, gsl_Point& point) const noexcept {
    return _point.RayIntersect(_dir, plane, point);
}

// ---- Datum

void gsl_StLine::FlipDirection() noexcept {
    _dir.Negate();
    _flip = !_flip;
}

gsl_Vector gsl_StLine::DirectionForDatum() const noexcept { return _dir * (_flip ? -1.0 : 1.0); }

// ---- Persistence

unsigned gsl_StLine::DynTypeId() const { return TypeId(); }

void gsl_StLine::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<gsl_StLine>("gsl_StLine", 800)
        .Add<gsl_Point>("_point")
        .Add<gsl_PersistentVector>("_dir")
        .Add<gsl_LineMethod>("_method")
        .Add<bool>("_flip")
        .Add<bool>("_ok")
        .Add<cow_List<unsigned>>("parent_ids")
        .Add<int>("owner_feat_id");
}

void gsl_StLine::DBWrite(const cls_WriteVisitor& visitor) const {
    visitor.Write("_point", _point);
    visitor.Write("_dir", _dir);
    visitor.Write("_method", _method);
    visitor.Write("_flip", _flip);
    visitor.Write("_ok", _ok);
    visitor.Write("parent_ids", _parentIds);
    visitor.Write("owner_feat_id", _ownerFeatId);
}

gsl_StLine::gsl_StLine(const cls_ReadVisitor& visitor)
    : _point(visitor.Read("_point", gsl_Point())),
      _dir(visitor.Read("_dir", gsl_PersistentVector(1.0, 0.0, 0.0))),
      _method(visitor.Read("_method", gsl_LineMethod::FROM_PNT_VECTOR)),
      _flip(visitor.Read("_flip", false)),
      _ok(visitor.Read("_ok", true)),
      _parentIds(visitor.Read("parent_ids", cow_List<unsigned>())),
      _ownerFeatId(visitor.Read("owner_feat_id", 0)),
      _uid(cls_Uid::AllocateUid()) {}
