#include <utf/utf_AxisAngle.h>

#include <cmath>

template <class T>
utf_AxisAngle utf_ToAxisAngle(const utf_Quaternion<T>& q) {
    const double x = q.X(), y = q.Y(), z = q.Z(), w = q.W();
    const double sine = std::hypot(x, y, z);
    if (sine == 0.0) return {gsl_Vector(0.0, 0.0, 0.0), 0.0};
    const double scale = std::copysign(sine, w);
    return {gsl_Vector(x / scale, y / scale, z / scale), 2.0 * std::atan2(sine, std::abs(w))};
}

template <class T>
utf_Quaternion<T> utf_FromAxisAngle(const utf_AxisAngle& turn) {
    const bool turns = turn.axis.Length() != 0.0;
    const double sine = std::sin(0.5 * turn.angleRadians);
    const T q[4] = {static_cast<T>(sine * turn.axis.UnitX()), static_cast<T>(sine * turn.axis.UnitY()),
                    static_cast<T>(sine * turn.axis.UnitZ()),
                    static_cast<T>(turns ? std::cos(0.5 * turn.angleRadians) : 1.0)};
    return utf_Quaternion<T>(res_QUATERNION_3D, q);
}

template utf_AxisAngle utf_ToAxisAngle(const utf_Quaternion<float>&);
template utf_AxisAngle utf_ToAxisAngle(const utf_Quaternion<double>&);
template utf_Quaternion<float> utf_FromAxisAngle(const utf_AxisAngle&);
template utf_Quaternion<double> utf_FromAxisAngle(const utf_AxisAngle&);
