#include <gsl/gsl_Matrix.h>
#include <gsl/gsl_Vector.h>
#include <utf/detail/utf_PrintComponents.h>
#include <utf/utf_Quat3dBase.h>
#include <utf/utf_flat.h>

#include <algorithm>
#include <cmath>
#include <limits>

// A double beyond the range of float becomes infinite instead of undefined.
static_assert(std::numeric_limits<float>::is_iec559);

template <class T>
void utf_Quat3dBase<T>::toVector(T* vector) const noexcept {
    const double w = _q[3];
    const double sineSquared = (1.0 - w) * (1.0 + w);  // 1 - w^2 without its cancellation near 1
    const double factor = sineSquared <= 0.0 ? 0.0 : 2.0 * std::acos(w) / std::sqrt(sineSquared);
    for (int i = 0; i < 3; ++i) vector[i] = Narrow(factor * double{_q[i]});
}

template <class T>
void utf_Quat3dBase<T>::set(const gsl_Vector& x, const gsl_Vector& y, const gsl_Vector& z) const {
    double axes[9] = {x.UnitX(), x.UnitY(), x.UnitZ(), y.UnitX(), y.UnitY(),
                      y.UnitZ(), z.UnitX(), z.UnitY(), z.UnitZ()};
    double q[4];
    utf_getquat(q, axes);
    std::transform(q, q + 4, _q, Narrow);
}

template <class T>
void utf_Quat3dBase<T>::set(const gsl_Matrix& matrix) const {
    set(matrix.NewXAxis(), matrix.NewYAxis(), matrix.NewZAxis());
}

template <class T>
bool utf_Quat3dBase<T>::projectOn(const gsl_Vector& normal, unsigned axis, double tolerance) const {
    if (axis > 2) return false;
    double q[4] = {double{_q[0]}, double{_q[1]}, double{_q[2]}, double{_q[3]}};
    double c[3][3];
    utf_Quat3dBase<double>(q).cosines(c);
    gsl_Vector projected(c[axis][0], c[axis][1], c[axis][2]);
    projected = projected * (1.0 / projected.Length());
    // Negated comparisons: a NaN of a zero axis or of the input fails them too.
    if (!(std::abs(projected.DotProduct(normal)) <= tolerance)) return false;
    const gsl_Vector unitNormal(normal.UnitX(), normal.UnitY(), normal.UnitZ());
    projected = projected - unitNormal * projected.DotProduct(unitNormal);
    const gsl_Vector first = projected.CrossProduct(unitNormal);
    if (!projected.Normalize() || !(first.Length() > 0.0)) return false;
    set(first, projected, normal);
    return true;
}

template <class T>
void utf_Quat3dBase<T>::Print(aio_ostream& out, int indent) const {
    utf_PrintComponents(out, indent, "Quaternion", std::span<const T>(_q, 4));
}

template class utf_Quat3dBase<float>;
template class utf_Quat3dBase<double>;
