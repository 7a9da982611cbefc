#ifndef ORV_UTF_UTF_QUAT3DBASE_H
#define ORV_UTF_UTF_QUAT3DBASE_H

#include <base/aio_ostream.h>
#include <base/orv_Export.h>

class gsl_Matrix;
class gsl_Vector;

/// A view of four numbers of the caller as a 3D quaternion (x, y, z, w), scalar part last: sin(a/2) times the axis,
/// then cos(a/2), for a turn by a.
///
/// Holds the pointer and nothing else, and converts from it and to it, so that every operation takes pointers and views
/// alike; const operations write through it. Nothing normalises or checks: the formulas are applied to the numbers as
/// they are. Arithmetic is in double for float too, and rounds once, into T. Results may go where inputs came from.
template <class T>
class utf_Quat3dBase {
public:
    /// A view of four components, x, y, z and w, which must outlive it; and back. Implicit on purpose, both ways.
    utf_Quat3dBase(T* components) noexcept : _q(components) {}
    operator T*() const noexcept { return _q; }

    /// The components.
    [[nodiscard]] T X() const noexcept { return _q[0]; }
    [[nodiscard]] T Y() const noexcept { return _q[1]; }
    [[nodiscard]] T Z() const noexcept { return _q[2]; }
    [[nodiscard]] T W() const noexcept { return _q[3]; }

    // ---- Direction cosines: row i is local axis i in global coordinates (the transpose of the matrix that turns
    // global vectors by the quaternion).

    /// By row and column.
    [[nodiscard]] T R11() const noexcept { return Narrow(Squares(0, 1, 2)); }
    [[nodiscard]] T R12() const noexcept { return Narrow(2.0 * (Product(0, 1) + Product(2, 3))); }
    [[nodiscard]] T R13() const noexcept { return Narrow(2.0 * (Product(0, 2) - Product(1, 3))); }
    [[nodiscard]] T R21() const noexcept { return Narrow(2.0 * (Product(0, 1) - Product(2, 3))); }
    [[nodiscard]] T R22() const noexcept { return Narrow(Squares(1, 0, 2)); }
    [[nodiscard]] T R23() const noexcept { return Narrow(2.0 * (Product(1, 2) + Product(0, 3))); }
    [[nodiscard]] T R31() const noexcept { return Narrow(2.0 * (Product(0, 2) + Product(1, 3))); }
    [[nodiscard]] T R32() const noexcept { return Narrow(2.0 * (Product(1, 2) - Product(0, 3))); }
    [[nodiscard]] T R33() const noexcept { return Narrow(Squares(2, 0, 1)); }

    /// All nine, rows first.
    void cosines(T (*c)[3]) const noexcept;

    // ---- Arithmetic

    /// out = this b, the Hamilton product: `b` turns first, then this.
    void mult(const T* b, T* out) const noexcept;

    /// The conjugate (-x, -y, -z, w); not the reciprocal when the quaternion is no unit.
    void inverse(T* out) const noexcept;

    /// Rotation vector (axis times angle in radians, 0 to 2 pi) into three numbers. Zero when 1 - w^2 <= 0, also for a
    /// scalar part beyond 1.
    void toVector(T* vector) const noexcept;

    // ---- Change

    /// (0, 0, 0, 1).
    void setIdentity() const noexcept;

    /// From three axes, as `utf_getquat` converts them: of a left-handed frame the second axis is turned round. Axes
    /// are divided by their lengths first; they are not made orthogonal, and a zero axis stays zero.
    void set(const gsl_Vector& x, const gsl_Vector& y, const gsl_Vector& z) const;

    /// The same from where the matrix sends the axes (its columns).
    void set(const gsl_Matrix& matrix) const;

    /// Turns the frame so that its *second* axis, whatever the number, is local axis `axis` (0 to 2) projected on the
    /// plane through the origin with that `normal`, its third axis the normal, its first (projected x normal). False,
    /// and nothing changes, when |unit axis . normal| > `tolerance` (strict; the normal as it stands), when the
    /// projection is shorter than LinTol, when the normal is zero or something is NaN, and for an axis above 2.
    bool projectOn(const gsl_Vector& normal, unsigned axis, double tolerance) const;

    // ---- Output

    /// `indent` blanks, "Quaternion: ", each number and a blank, a newline; then flushes.
    void Print(aio_ostream& out, int indent) const;

private:
    static T Narrow(double value) noexcept { return static_cast<T>(value); }
    [[nodiscard]] double Product(int i, int j) const noexcept { return double{_q[i]} * double{_q[j]}; }
    [[nodiscard]] double Squares(int plus, int minus, int minusToo) const noexcept {
        return Product(plus, plus) - Product(minus, minus) - Product(minusToo, minusToo) + Product(3, 3);
    }

    T* _q;
};

ORV_EXTERN_TEMPLATE(utf_Quat3dBase<float>);
ORV_EXTERN_TEMPLATE(utf_Quat3dBase<double>);

template <class T>
inline void utf_Quat3dBase<T>::cosines(T (*c)[3]) const noexcept {
    const double x = _q[0], y = _q[1], z = _q[2], w = _q[3];
    const double xx = x * x, yy = y * y, zz = z * z, ww = w * w;
    const double xy = x * y, xz = x * z, yz = y * z, xw = x * w, yw = y * w, zw = z * w;
    c[0][0] = Narrow(xx - yy - zz + ww);
    c[0][1] = Narrow(2.0 * (xy + zw));
    c[0][2] = Narrow(2.0 * (xz - yw));
    c[1][0] = Narrow(2.0 * (xy - zw));
    c[1][1] = Narrow(yy - xx - zz + ww);
    c[1][2] = Narrow(2.0 * (yz + xw));
    c[2][0] = Narrow(2.0 * (xz + yw));
    c[2][1] = Narrow(2.0 * (yz - xw));
    c[2][2] = Narrow(zz - xx - yy + ww);
}

template <class T>
inline void utf_Quat3dBase<T>::mult(const T* b, T* out) const noexcept {
    const double x = _q[0], y = _q[1], z = _q[2], w = _q[3];
    const double bx = b[0], by = b[1], bz = b[2], bw = b[3];
    // One shape for all four, so that compilers pair them up: the scalar part is w bw - x bx - y by - z bz.
    const double minusX = -x, minusY = -y;
    out[0] = Narrow((w * bx + x * bw) + (y * bz - z * by));
    out[1] = Narrow((w * by + y * bw) + (z * bx - x * bz));
    out[2] = Narrow((w * bz + z * bw) + (x * by - y * bx));
    out[3] = Narrow((w * bw + minusX * bx) + (minusY * by - z * bz));
}

template <class T>
inline void utf_Quat3dBase<T>::inverse(T* out) const noexcept {
    const T x = _q[0], y = _q[1], z = _q[2], w = _q[3];
    out[0] = -x;
    out[1] = -y;
    out[2] = -z;
    out[3] = w;
}

template <class T>
inline void utf_Quat3dBase<T>::setIdentity() const noexcept {
    _q[0] = _q[1] = _q[2] = T(0);
    _q[3] = T(1);
}

#endif
