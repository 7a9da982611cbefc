#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <g3d/g3d_Vector.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <ostream>

namespace {

double LengthOf(const g3d_Vector& v) noexcept {
    const double x = v.X(), y = v.Y(), z = v.Z();
    return std::sqrt(x * x + y * y + z * z);
}

/// 0 when there is no length to divide by.
float DividedBy(float length, float cosine) noexcept { return length > 0.0F ? cosine / length : 0.0F; }

}  // namespace

float g3d_Vector::Length() const noexcept { return static_cast<float>(LengthOf(*this)); }

g3d_Vector& g3d_Vector::Normalize() noexcept {
    const double length = LengthOf(*this);
    if (length < std::numeric_limits<float>::min()) return *this = g3d_Vector();
    const double reciprocal = 1.0 / length;
    return *this = g3d_Vector(_x * reciprocal, _y * reciprocal, _z * reciprocal);
}

float g3d_Vector::AngleWith(const g3d_Vector& other, bool alreadyUnit) const noexcept {
    float cosine = g3d_Dot(*this, other);
    if (!alreadyUnit) cosine = DividedBy(other.Length(), DividedBy(Length(), cosine));
    if (cosine >= 0.99999F) return 0.0F;
    if (cosine <= -0.99999F) return std::numbers::pi_v<float>;
    return static_cast<float>(std::acos(static_cast<double>(cosine)));
}

float g3d_Vector::AngleWith(const g3d_Vector& other, bool alreadyUnit, const g3d_Vector& reference) const noexcept {
    const float angle = AngleWith(other, alreadyUnit);
    if (!(g3d_TripleProduct(*this, other, reference) < 0.0F)) return angle;
    return static_cast<float>(2.0 * std::numbers::pi - angle);
}

void g3d_Vector::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<g3d_Vector>("g3d_Vector", 203).Add<float>("x").Add<float>("y").Add<float>("z");
}

void g3d_Vector::DBWrite(const cls_WriteVisitor& visitor) const {
    visitor.Write("x", _x);
    visitor.Write("y", _y);
    visitor.Write("z", _z);
}

g3d_Vector::g3d_Vector(const cls_ReadVisitor& visitor)
    : _x(visitor.Read("x", 0.0F)), _y(visitor.Read("y", 0.0F)), _z(visitor.Read("z", 0.0F)) {}

aio_ostream& operator<<(aio_ostream& out, const g3d_Vector& vector) {
    const double x = vector.X(), y = vector.Y(), z = vector.Z();
    return out << '(' << x << ", " << y << ", " << z << ')';
}
