#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <gsl/gsl_Matrix.h>
#include <gsl/gsl_Point.h>
#include <gsl/gsl_PrintIndented.h>

#include <ostream>

gsl_Point::gsl_Point(const gsl_Point& a, const gsl_Point& b)
    : _xyz{(a.X() + b.X()) * 0.5, (a.Y() + b.Y()) * 0.5, (a.Z() + b.Z()) * 0.5}, _uid(cls_Uid::AllocateUid()) {}

gsl_Point::gsl_Point(const gsl_Point& a, double weightA, const gsl_Point& b, double weightB)
    : _xyz{weightA * a.X() + weightB * b.X(), weightA * a.Y() + weightB * b.Y(), weightA * a.Z() + weightB * b.Z()},
      _uid(cls_Uid::AllocateUid()) {}

void gsl_Point::Transform(const gsl_Matrix& matrix) noexcept { matrix.Transform(*this); }

gsl_Point gsl_Point::PointAtDistInDirection(double distance, const gsl_Vector& direction) const noexcept {
    if (direction.Length() < gsl_Util::LinTol()) return *this;
    return *this + gsl_Vector(direction.UnitX(), direction.UnitY(), direction.UnitZ()) * distance;
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
    registrar.Class<gsl_Point>("gsl_Point", 203).Add<double>("_x").Add<double>("_y").Add<double>("_z");
}

void gsl_Point::DBWrite(const cls_WriteVisitor& visitor) const {
    visitor.Write("_x", X());
    visitor.Write("_y", Y());
    visitor.Write("_z", Z());
}

gsl_Point::gsl_Point(const cls_ReadVisitor& visitor)
    : _xyz{visitor.Read("_x", 0.0), visitor.Read("_y", 0.0), visitor.Read("_z", 0.0)}, _uid(cls_Uid::AllocateUid()) {}
