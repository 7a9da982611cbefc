#include <gsl/gsl_Matrix.h>
#include <gsl/gsl_Plane.h>
#include <gsl/gsl_Point.h>
#include <gsl/gsl_PrintIndented.h>
#include <gsl/gsl_Real.h>
#include <gsl/gsl_Vector.h>

#include <cmath>
#include <numbers>
#include <ostream>

namespace {

/// The part of `vector` across `unit`.
gsl_Vector Across(const gsl_Vector& vector, const gsl_Vector& unit) noexcept {
    return vector - unit * unit.DotProduct(vector);
}

}  // namespace

gsl_Vector::gsl_Vector(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3) noexcept
    : _xyz{0.0, 0.0, 0.0}, _magnitude(0.0) {
    const gsl_Vector a(p1, p2);
    const gsl_Vector b(p2, p3);
    const gsl_Vector normal = a.CrossProduct(b);
    const double length = normal.Length();
    if (a.Length() * gsl_Util::AngTol() * b.Length() >= length) return;
    *this = gsl_Vector(normal.X() / length, normal.Y() / length, normal.Z() / length);
    (void)Length();  // the cache is part of the result
}

void gsl_Vector::RotateAndTransform(const gsl_Matrix& matrix) noexcept { matrix.Transform(*this); }

gsl_Vector gsl_Vector::ProjectOn(const gsl_Plane& plane) const noexcept {
    return Across(*this, plane.Direction().Unit());
}

gsl_Vector gsl_Vector::AnyOrthogonalUnit() const noexcept {
    gsl_Vector result(Y() - Z(), Z() - X(), X() - Y());
    if (result.Length() < gsl_Util::LinTol()) result = gsl_Vector(1.0, -1.0, 0.0);
    result.Normalize();
    return result;
}

gsl_Vector gsl_Vector::BestAlignedOrthogonalUnit() const noexcept {
    const gsl_Vector unit = NormalizedCopy();
    gsl_Vector best(0.0, 0.0, 0.0);
    for (unsigned k = 0; k < 3; ++k) {
        gsl_Vector axis(0.0, 0.0, 0.0);
        axis[k] = 1.0;
        const gsl_Vector projection = Across(axis, unit);
        if (projection.Length() - best.Length() > gsl_Util::LinTol()) best = projection;
    }
    return CrossProduct(best).CrossProduct(*this);
}

double gsl_Vector::AngleWith(const gsl_Vector& other, bool areUnit) const noexcept {
    double cosine = DotProduct(other);
    if (!areUnit) {
        cosine = Length() > gsl_Util::LinTol() ? cosine / Length() : 0.0;
        if (other.Length() <= gsl_Util::LinTol()) return std::numbers::pi / 2.0;
        cosine /= other.Length();
    }
    if (cosine >= 1.0) return 0.0;
    if (cosine <= -1.0) return std::numbers::pi;
    return std::acos(cosine);
}

double gsl_Vector::AngleWith(const gsl_Vector& other, bool areUnit, const gsl_Vector& reference) const noexcept {
    const double angle = AngleWith(other, areUnit);
    return TripleProduct(other, reference) < 0.0 ? 2.0 * std::numbers::pi - angle : angle;
}

bool gsl_Vector::AngleBetween(gsl_Vector a, gsl_Vector b, double& angleRadians) const noexcept {
    if (!a.Normalize() || !b.Normalize()) return false;
    gsl_Vector axis = *this;
    axis.Normalize();
    const double slopeOfA = axis.DotProduct(a);
    const double slopeOfB = axis.DotProduct(b);
    if (std::abs(slopeOfA - slopeOfB) > gsl_Util::LinTol()) return false;

    gsl_Vector acrossA = a - axis * slopeOfA;
    gsl_Vector acrossB = b - axis * slopeOfB;
    acrossA.Normalize();
    acrossB.Normalize();
    gsl_Vector side = acrossB.CrossProduct(axis);
    side.Normalize();
    angleRadians = std::atan2(side.DotProduct(acrossA), acrossA.DotProduct(acrossB));
    return true;
}

bool gsl_Vector::IsOn(const gsl_Vector& other, double tolerance) const noexcept {
    return CrossProduct(other).Length() < Length() * tolerance * other.Length();
}

bool gsl_Vector::IsOrthogonal(const gsl_Vector& other) const noexcept {
    return std::abs(DotProduct(other)) < Length() * gsl_Util::AngTol() * other.Length();
}

bool gsl_Vector::SameDirection(const gsl_Vector& other, double tolerance) const noexcept {
    return gsl_RealEqual(UnitX(), other.UnitX(), tolerance) && gsl_RealEqual(UnitY(), other.UnitY(), tolerance) &&
           gsl_RealEqual(UnitZ(), other.UnitZ(), tolerance);
}

bool gsl_Vector::IsParallel(const gsl_Vector& other, double tolerance) const noexcept {
    gsl_Vector opposite = other;
    opposite.Negate();
    return SameDirection(other, tolerance) || SameDirection(opposite, tolerance);
}

void gsl_Vector::Print(aio_ostream& out, int indentation) const {
    gsl_PrintIndented(out, indentation, {{"magnitude:\t", Length()}});
    gsl_Point(X(), Y(), Z()).Print(out, indentation);
}

void gsl_Vector::FromCoordinates(double x, double y, double z, double magnitude) noexcept {
    _xyz = {x, y, z};
    _magnitude = magnitude >= 0.0 ? magnitude : Unknown;
}

void gsl_Vector::ToCoordinates(double& x, double& y, double& z, double& magnitude) const noexcept {
    magnitude = Length();
    x = X();
    y = Y();
    z = Z();
}

aio_ostream& operator<<(aio_ostream& out, const gsl_Vector& vector) {
    return out << '(' << vector.X() << ", " << vector.Y() << ", " << vector.Z() << ')';
}

bool gsl_NormalToThreePoints(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3,
                             gsl_Vector& normal) noexcept {
    normal = gsl_Vector(p1, p2, p3);
    return normal.Length() > gsl_Util::LinTol();
}

bool Intersection(const gsl_Vector& d1, const gsl_Point& p1, const gsl_Vector& d2, const gsl_Point& p2,
                  gsl_Point& out) noexcept {
    const gsl_Vector common = d1.CrossProduct(d2);
    if (!(common.Length() > d1.Length() * gsl_Util::AngTol() * d2.Length())) return false;
    const gsl_Vector between(p1, p2);
    if (!(std::abs(between.DotProduct(common)) / common.Length() <= gsl_Util::LinTol())) return false;
    out.SetPos(p1 + d1 * (between.TripleProduct(d2, common) / common.LengthSq()));
    return true;
}
