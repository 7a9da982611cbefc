#include <gsl/gsl_Matrix.h>
#include <gsl/gsl_Util.h>
#include <gsl/gsl_Vector.h>
#include <utf/detail/utf_PrintComponents.h>
#include <utf/utf_Quat2dBase.h>
#include <utf/utf_Quat3dBase.h>

#include <cmath>

template <class T>
void utf_Quat2dBase<T>::toVector(T* vector) const noexcept {
    const double z = _q[0];
    vector[0] = vector[1] = T(0);
    vector[2] = static_cast<T>(2.0 * std::asin(z));
}

template <class T>
void utf_Quat2dBase<T>::set(const gsl_Vector& x, const gsl_Vector& y) const {
    gsl_Matrix frame;
    frame.SetRotationVectors(x, y, gsl_Vector(0.0, 0.0, 1.0));
    double aboutX = 0.0, aboutY = 0.0, aboutZ = 0.0;
    frame.GetRotationAngles(aboutX, aboutY, aboutZ);
    _q[0] = static_cast<T>(std::sin(0.5 * aboutZ));
    _q[1] = static_cast<T>(std::cos(0.5 * aboutZ));
}

template <class T>
void utf_Quat2dBase<T>::set(const gsl_Matrix& matrix) const {
    set(matrix.NewXAxis(), matrix.NewYAxis());
}

template <class T>
bool utf_Quat2dBase<T>::projectOn(const gsl_Vector& normal, unsigned axis, double tolerance) const {
    double q[4] = {0.0, 0.0, double{_q[0]}, double{_q[1]}};
    const utf_Quat3dBase<double> turned(q);
    if (!turned.projectOn(normal, axis, tolerance)) return false;
    // Row 2 of the turned frame is the projected axis.
    const gsl_Vector second(turned.R21(), turned.R22(), 0.0);
    if (!(second.Length() >= gsl_Util::LinTol())) return false;
    set(gsl_Vector(second.Y(), -second.X(), 0.0), second);
    return true;
}

template <class T>
void utf_Quat2dBase<T>::Print(aio_ostream& out, int indent) const {
    utf_PrintComponents(out, indent, "Quaternion", std::span<const T>(_q, 2));
}

template class utf_Quat2dBase<float>;
template class utf_Quat2dBase<double>;
