#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <gsl/gsl_Plane.h>
#include <gsl/gsl_StLine.h>

template <>
const omu_PrimEnum<gsl_DirMethod>::Row* omu_PrimEnum<gsl_DirMethod>::Table() {
    static constexpr Row rows[] = {
        {"FROM_POINT_VECTOR", gsl_DirMethod::FROM_POINT_VECTOR}, {"FROM_FACE", gsl_DirMethod::FROM_FACE},
        {"FROM_DATUM_PLANE", gsl_DirMethod::FROM_DATUM_PLANE},   {"FROM_ELEM_FACE", gsl_DirMethod::FROM_ELEM_FACE},
        {"PLANE_INVALID", gsl_DirMethod::PLANE_INVALID},         {},
    };
    return rows;
}

gsl_Plane::gsl_Plane(const gsl_Point& point, const gsl_Vector& normal, gsl_DirMethod method) noexcept
    : _ok(method != gsl_DirMethod::PLANE_INVALID), _point(point), _normal(normal), _method(method) {}

std::unique_ptr<gsl_Plane> gsl_Plane::Copy() const { return std::make_unique<gsl_Plane>(*this); }

bool gsl_Plane::IsParallel(const gsl_Plane& other) const noexcept {
    return _normal.IsOn(other._normal, gsl_StLine::ParallelSine);
}

bool gsl_Plane::IsOn(const gsl_Plane& other) const noexcept { return IsParallel(other) && _point.IsOn(other); }

double gsl_Plane::GetDistance(const gsl_Plane& other) const noexcept {
    return IsParallel(other) ? _point.GetDistance(other) : 0.0;
}

void gsl_Plane::FlipDirection() noexcept {
    _normal.Negate();
    _flip = !_flip;
}

// ---- Persistence

unsigned gsl_Plane::DynTypeId() const { return TypeId(); }

void gsl_Plane::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<gsl_Plane>("gsl_Plane", 800)
        .Add<bool>("_ok")
        .Add<gsl_Point>("_point")
        .Add<gsl_PersistentVector>("_normal")
        .Add<gsl_DirMethod>("_method")
        .Add<bool>("_flip")
        .Add<cow_List<unsigned>>("parent_ids")
        .Add<int>("owner_feat_id");
}

void gsl_Plane::DBWrite(const cls_WriteVisitor& visitor) const {
    visitor.Write("_ok", _ok);
    visitor.Write("_point", _point);
    visitor.Write("_normal", _normal);
    visitor.Write("_method", _method);
    visitor.Write("_flip", _flip);
    visitor.Write("parent_ids", _parentIds);
    visitor.Write("owner_feat_id", _ownerFeatId);
}

gsl_Plane::gsl_Plane(const cls_ReadVisitor& visitor)
    : _ok(visitor.Read("_ok", true)),
      _point(visitor.Read("_point", gsl_Point())),
      _normal(visitor.Read("_normal", gsl_PersistentVector(1.0, 0.0, 0.0))),
      _method(visitor.Read("_method", gsl_DirMethod::FROM_POINT_VECTOR)),
      _flip(visitor.Read("_flip", false)),
      _parentIds(visitor.Read("parent_ids", cow_List<unsigned>())),
      _ownerFeatId(visitor.Read("owner_feat_id", 0)) {}
