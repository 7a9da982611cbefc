#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <g3d/g3d_Sphere.h>
#include <gsl/gsl_BBox.h>
#include <gsl/gsl_Matrix.h>
#include <gsl/gsl_Util.h>

#include <cmath>
#include <limits>

namespace {

/// How much longer the box around both is than the two together, by axis: their gap where it is positive.
gsl_Vector Gaps(const gsl_BBox& a, const gsl_BBox& b) noexcept {
    gsl_BBox both = a;
    both.Add(b);
    return both.Diag() - (a.Diag() + b.Diag());
}

/// Distance from `center` to the farthest corner of the box; NaN when a coordinate is.
double FarthestCorner(const gsl_BBox& box, const g3d_Point& center) noexcept {
    const double from[] = {center.X(), center.Y(), center.Z()};
    double sum = 0.0;
    for (unsigned axis = 0; axis < 3; ++axis) {
        const double toLow = std::abs(box.Low()[axis] - from[axis]), toHigh = std::abs(box.High()[axis] - from[axis]);
        const double reach = toLow < toHigh || std::isnan(toHigh) ? toHigh : toLow;
        sum += reach * reach;
    }
    return std::sqrt(sum);
}

float RoundedUp(double value) noexcept {
    const auto nearest = static_cast<float>(value);
    return nearest < value ? std::nextafter(nearest, std::numeric_limits<float>::infinity()) : nearest;
}

}  // namespace

g3d_Sphere gsl_BBox::GetExtent() const {
    if (IsEmpty()) return {};
    const gsl_Point middle = Center();
    const g3d_Point center(middle.X(), middle.Y(), middle.Z());
    return {center, RoundedUp(FarthestCorner(*this, center))};
}

bool gsl_BBox::ContainsBox(const gsl_BBox& other) const noexcept {
    if (other.IsEmpty()) return true;
    return !IsEmpty() && ContainsPoint(other._low) && ContainsPoint(other._high);
}

bool gsl_BBox::SphereContainsBox(const g3d_Sphere& sphere) const noexcept {
    return IsEmpty() ||
           gsl_RealLessEqual(FarthestCorner(*this, sphere.Center().Cartesian()), sphere.Radius(), gsl_Util::LinTol());
}

bool gsl_BBox::Intersect(const gsl_BBox& other) const noexcept {
    if (IsEmpty() || other.IsEmpty()) return false;
    const gsl_Vector gaps = Gaps(*this, other);
    return !(gaps.X() > 0.0 || gaps.Y() > 0.0 || gaps.Z() > 0.0);
}

void gsl_BBox::Transform(const gsl_Matrix& matrix) noexcept {
    if (IsEmpty()) return;
    const gsl_Point center = Center();
    const gsl_Vector half = Diag() * 0.5;
    gsl_BBox result;
    for (const double x : {-half.X(), half.X()})
        for (const double y : {-half.Y(), half.Y()})
            for (const double z : {-half.Z(), half.Z()}) {
                gsl_Point corner = center + gsl_Vector(x, y, z);
                corner.Transform(matrix);
                result.Add(corner);
            }
    *this = result;
}

void gsl_BBox::Print(aio_ostream& out, int indentation) const {
    _low.Print(out, indentation);
    _high.Print(out, indentation);
}

double BoxBoxDistance(const gsl_BBox& a, const gsl_BBox& b) noexcept {
    const gsl_Vector gaps = Gaps(a, b);
    double sum = 0.0;
    for (const double gap : gaps.AsArray())
        if (gap > 0.0) sum += gap * gap;
    return std::sqrt(sum);
}

int BoxBoxContainment(const gsl_BBox& a, const gsl_BBox& b) noexcept {
    if (a.ContainsBox(b)) return 1;
    return b.ContainsBox(a) ? -1 : 0;
}

// ---- Persistence

unsigned gsl_BBox::DynTypeId() const { return TypeId(); }

void gsl_BBox::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<gsl_BBox>("gsl_BBox", 800).Add<gsl_Point>("_low").Add<gsl_Point>("_high");
}

void gsl_BBox::DBWrite(const cls_WriteVisitor& visitor) const {
    visitor.Write("_low", _low);
    visitor.Write("_high", _high);
}

gsl_BBox::gsl_BBox(const cls_ReadVisitor& visitor)
    : _low(visitor.Read("_low", gsl_BBox().Low())), _high(visitor.Read("_high", gsl_BBox().High())) {}
