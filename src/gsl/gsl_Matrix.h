#ifndef ORV_GSL_GSL_MATRIX_H
#define ORV_GSL_GSL_MATRIX_H

#include <base/orv_Export.h>
#include <gsl/gsl_Point.h>
#include <gsl/gsl_Vector.h>

#include <optional>

template <class T>
class cow_2DArray;

/// A 4x4 homogeneous transformation, row-major, acting on column vectors: p' = M (p, 1).
///
///     | m00 m01 m02 | m03 |    upper left 3x3: rotation and scale; its columns are the images of the axes
///     | m10 m11 m12 | m13 |    fourth column: translation
///     | m20 m21 m22 | m23 |
///     |-------------+-----|
///     | m30 m31 m32 | m33 |    (0, 0, 0, 1) unless given otherwise; ignored by `Transform`
///
/// A matrix carries an identity state: 1 known to be the identity, 0 known not to be, -1 not known. Default
/// construction and `FillIdentity` set 1, the setters, `Concatenate`, the inverses and `Mirror` set -1, and only
/// `IsIdentity` turns -1 into 1 or 0. *`AxisRotation(axis, angle)` leaves 1 although it writes a rotation*: callers
/// rely on it. `InverseRigidTransform` and `GetEulerianAnglesZYX` believe the state; everything else, `Transform`,
/// `Concatenate`, `Inverse` and `==` among it, looks at the elements only.
///
/// `IsIdentity` is logically const but may write state and elements, so one matrix must not be asked by two threads
/// while its state is -1. Nothing throws.
class ORV_EXPORT gsl_Matrix {
public:
    /// The identity, state 1.
    gsl_Matrix() noexcept = default;

    /// From rows, state -1.
    explicit gsl_Matrix(const double (&elements)[4][4]) noexcept;

    // ---- Queries

    /// By the state when it is 1 or 0. When it is -1 the first three rows are examined, the fourth is not: a diagonal
    /// element must lie in [0.99999999, 1.00000001], any other, the translation too, in [-1e-8, 1e-8]. If all do, the
    /// matrix is *overwritten* with the exact identity. NaN is not the identity.
    [[nodiscard]] bool IsIdentity() const noexcept;

    /// Columns of the 3x3: where the axes go. `NewAxis` takes 0 to 2, also 3 for the translation; (0, 0, 0) above.
    [[nodiscard]] gsl_Vector NewXAxis() const noexcept { return NewAxis(0); }
    [[nodiscard]] gsl_Vector NewYAxis() const noexcept { return NewAxis(1); }
    [[nodiscard]] gsl_Vector NewZAxis() const noexcept { return NewAxis(2); }
    [[nodiscard]] inline gsl_Vector NewAxis(unsigned i) const noexcept;

    /// The translation.
    [[nodiscard]] gsl_Point NewOrigin() const noexcept { return {_m[0][3], _m[1][3], _m[2][3]}; }
    void GetTranslation(gsl_Vector& translation) const noexcept { translation = NewAxis(3); }

    /// Writes the sixteen elements, row by row, into four rows of four.
    void AsArray(double elements[][4]) const noexcept;

    // ---- Decomposition (of a rotation; garbage for a matrix with scale or shear)

    /// Rz Ry Rx in radians: s = sqrt(m00^2 + m10^2); if s > 2^-19 (strict): rx = atan2(m21, m22), ry = atan2(-m20, s),
    /// rz = atan2(m10, m00); else rx = atan2(-m12, m11), ry as before, rz = 0.
    void GetRotationAngles(double& rxRadians, double& ryRadians, double& rzRadians) const noexcept;

    /// The same rotation Rz(a) Ry(b) Rx(c), *in degrees*. All 0 when the state is 1. The pole needs m00 and m10 exactly
    /// 0: then a = 0, b = -asin(m20), c = atan2(m01, m11). So at b = -90 *c has the opposite sign*, and b is NaN when
    /// rounding has left m20 beyond 1 or -1.
    void GetEulerianAnglesZYX(double& aDegrees, double& bDegrees, double& cDegrees) const noexcept;

    /// Axis and angle by way of a quaternion whose components are held in single precision: expect some seven digits.
    /// The angle lies in [0, 2 pi]; when it is at most AngTol the axis is (0, 0, 0), else a unit with its cache
    /// unknown. `point` gets the coordinates of the translation, *not* of a point on the axis. Divides by the root of
    /// m33 when that is not 1. Quaternion by the largest diagonal element (Shoemake, "Animating rotation with
    /// quaternion curves", 1985).
    void GetAxisRotation(gsl_Point& point, gsl_Vector& axis, double& angleRadians) const noexcept;

    // ---- Application

    /// p = R p + t by the first three rows; the identity of the point stays.
    void Transform(gsl_Point& point) const noexcept;

    /// v = R v, without translation; cache unknown.
    void Transform(gsl_Vector& vector) const noexcept;

    // ---- Change in place

    /// All elements and the state, as of a new matrix.
    void FillIdentity() noexcept { *this = gsl_Matrix(); }

    /// The first three elements of the fourth column.
    void SetTranslation(const gsl_Vector& translation) noexcept { SetColumn(3, translation); }

    /// The first three elements of row or column `i`, 0 to 3; above 3 nothing happens.
    void SetRow(unsigned i, const gsl_Vector& row) noexcept;
    void SetColumn(unsigned i, const gsl_Vector& column) noexcept;

    /// The three vectors, each divided by its length, as columns of the 3x3. No check for zero length (NaN) or for
    /// orthogonality.
    void SetRotationVectors(const gsl_Vector& x, const gsl_Vector& y, const gsl_Vector& z) noexcept;

    /// Right-handed rotation about an axis through the origin, replacing all elements; the identity when
    /// |axis| < LinTol (strict). *The state is left at 1*, so that `IsIdentity` answers true, `InverseRigidTransform`
    /// gives the identity and `GetEulerianAnglesZYX` zeros, until a setter or `Concatenate` sets it to -1. Callers that
    /// need a right state concatenate the result into another matrix.
    void AxisRotation(const gsl_Vector& axis, double angleRadians) noexcept;

    /// T(point) R T(-point), a rotation about the line through `point`, replacing all elements, state -1; the identity
    /// with state 1 when |axis| < LinTol (strict).
    void AxisRotation(const gsl_Point& point, const gsl_Vector& axis, double angleRadians) noexcept;

    /// Reflection in the plane through `point` with normal `normal` (any length), replacing all elements, state -1; the
    /// identity with state 1 when |normal| < LinTol (strict).
    void Mirror(const gsl_Point& point, const gsl_Vector& normal) noexcept;

    /// this = next * this, all four rows: this is applied first, then `next` (which may be this).
    void Concatenate(const gsl_Matrix& next) noexcept { *this = GetConcatenated(next); }

    // ---- Derived matrices

    /// next * this; the result has the state -1.
    [[nodiscard]] gsl_Matrix GetConcatenated(const gsl_Matrix& next) const noexcept;

    /// Transpose of the 3x3, -R^T t, fourth row (0, 0, 0, 1), state -1; the identity, state 1, when the state is 1.
    /// Right for rotation plus translation only.
    [[nodiscard]] gsl_Matrix InverseRigidTransform() const noexcept;

    /// Inverse of all 4x4 elements by Gauss-Jordan elimination with partial pivoting, state -1. Nothing when the matrix
    /// is singular: when the greatest pivot left in a column is at most 1e-14 times the greatest element that column
    /// had at first (so uniform scale does not matter, but a translation beyond 1e14 counts as singular), or when an
    /// element or a result is not finite.
    [[nodiscard]] std::optional<gsl_Matrix> Inverse() const noexcept;

    // ---- Comparison

    /// The same object, or all sixteen elements within 0.001 (inclusive): coarse and absolute on purpose, no kin of
    /// LinTol. False with NaN. `!=` is its negation. The state plays no part.
    [[nodiscard]] bool operator==(const gsl_Matrix& other) const noexcept;

protected:
    /// From a 4x4 array (its range error otherwise); a state other than 1 and 0 becomes -1.
    void From2DArray(const cow_2DArray<double>& elements, int identityState);

    /// Replaces the array by a 4x4 one.
    void To2DArray(cow_2DArray<double>* elements) const;

private:
    mutable double _m[4][4] = {{1.0, 0.0, 0.0, 0.0}, {0.0, 1.0, 0.0, 0.0}, {0.0, 0.0, 1.0, 0.0}, {0.0, 0.0, 0.0, 1.0}};
    mutable int _identityState = 1;
};

/// Writes the upper left 3x3 of `matrix` (four rows of four), and nothing else: the right-handed rotation about
/// axis / length. `length` is the length of the axis; 0 gives NaN.
ORV_EXPORT void axRot(const gsl_Vector& axis, double length, double angleRadians, double matrix[][4]) noexcept;

inline gsl_Vector gsl_Matrix::NewAxis(unsigned i) const noexcept {
    if (i > 3) return {0.0, 0.0, 0.0};
    return {_m[0][i], _m[1][i], _m[2][i]};
}

inline void gsl_Matrix::Transform(gsl_Vector& vector) const noexcept {
    const double x = vector.X(), y = vector.Y(), z = vector.Z();
    vector = gsl_Vector(_m[0][0] * x + _m[0][1] * y + _m[0][2] * z, _m[1][0] * x + _m[1][1] * y + _m[1][2] * z,
                        _m[2][0] * x + _m[2][1] * y + _m[2][2] * z);
}

inline void gsl_Matrix::Transform(gsl_Point& point) const noexcept {
    gsl_Vector turned(point.X(), point.Y(), point.Z());
    Transform(turned);
    point.SetPos(NewOrigin() + turned);
}

#endif
