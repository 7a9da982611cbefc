#ifndef ORV_UTF_UTF_QUAT2DBASE_H
#define ORV_UTF_UTF_QUAT2DBASE_H

#include <base/aio_ostream.h>
#include <base/orv_Export.h>

class gsl_Matrix;
class gsl_Vector;

/// A view of two numbers of the caller as a 2D quaternion (z, w) = (sin(a/2), cos(a/2)): a turn by a about the 3-axis,
/// the 3D quaternion (0, 0, z, w). In all else as `utf_Quat3dBase`.
template <class T>
class utf_Quat2dBase {
public:
    /// A view of two components, z and w, which must outlive it; and back.
    utf_Quat2dBase(T* components) noexcept : _q(components) {}
    operator T*() const noexcept { return _q; }

    /// The components.
    [[nodiscard]] T Z() const noexcept { return _q[0]; }
    [[nodiscard]] T W() const noexcept { return _q[1]; }

    // ---- Direction cosines, rows are the local axes; R22 is R11.

    /// By z alone: 1 - 2 z^2, which is w^2 - z^2 only of a unit.
    [[nodiscard]] T R11_2d() const noexcept { return static_cast<T>(1.0 - 2.0 * double{_q[0]} * double{_q[0]}); }
    [[nodiscard]] T R12_2d() const noexcept { return static_cast<T>(2.0 * double{_q[0]} * double{_q[1]}); }
    [[nodiscard]] T R21_2d() const noexcept { return -R12_2d(); }
    [[nodiscard]] T R33_2d() const noexcept { return T(1); }

    /// 3x3, rows first, with the third axis as it is.
    void cosines(T (*c)[3]) const noexcept;

    // ---- Arithmetic

    /// out = this b
    void mult(const T* b, T* out) const noexcept;

    /// (-z, w), the conjugate.
    void inverse(T* out) const noexcept;

    /// (0, 0, 2 asin(z)), in radians, into three numbers; NaN when |z| > 1.
    void toVector(T* vector) const noexcept;

    // ---- Change

    /// (0, 1).
    void setIdentity() const noexcept;

    /// From the angle about the 3-axis that `gsl_Matrix::GetRotationAngles` finds in the matrix of x, y and the 3-axis
    /// (`gsl_Matrix::SetRotationVectors`): the direction of x decides, seen along the 3-axis. The identity when x runs
    /// along the 3-axis or is zero.
    void set(const gsl_Vector& x, const gsl_Vector& y) const;

    /// The same from where the matrix sends the first two axes (its columns).
    void set(const gsl_Matrix& matrix) const;

    /// As in 3D for (0, 0, z, w), of the result the turn in the plane only: the second axis points where the projected
    /// axis does, seen along the 3-axis. False, too, when the projected axis runs along the 3-axis.
    bool projectOn(const gsl_Vector& normal, unsigned axis, double tolerance) const;

    // ---- Output

    /// `indent` blanks, "Quaternion: ", each number and a blank, a newline; then flushes.
    void Print(aio_ostream& out, int indent) const;

private:
    T* _q;
};

ORV_EXTERN_TEMPLATE(utf_Quat2dBase<float>);
ORV_EXTERN_TEMPLATE(utf_Quat2dBase<double>);

template <class T>
inline void utf_Quat2dBase<T>::cosines(T (*c)[3]) const noexcept {
    c[0][0] = c[1][1] = R11_2d();
    c[0][1] = R12_2d();
    c[1][0] = R21_2d();
    c[0][2] = c[1][2] = c[2][0] = c[2][1] = T(0);
    c[2][2] = R33_2d();
}

template <class T>
inline void utf_Quat2dBase<T>::mult(const T* b, T* out) const noexcept {
    const double z = _q[0], w = _q[1], bz = b[0], bw = b[1];
    out[0] = static_cast<T>(z * bw + bz * w);
    out[1] = static_cast<T>(w * bw - z * bz);
}

template <class T>
inline void utf_Quat2dBase<T>::inverse(T* out) const noexcept {
    const T z = _q[0], w = _q[1];
    out[0] = -z;
    out[1] = w;
}

template <class T>
inline void utf_Quat2dBase<T>::setIdentity() const noexcept {
    _q[0] = T(0);
    _q[1] = T(1);
}

#endif
