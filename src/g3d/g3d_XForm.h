#ifndef ORV_G3D_G3D_XFORM_H
#define ORV_G3D_G3D_XFORM_H

#include <base/aio_ostream.h>
#include <base/orv_Export.h>
#include <g3d/g3d_Point.h>
#include <g3d/g3d_Vector.h>

#include <array>

/// A 4x4 matrix of floats, row-major, acting on column vectors: p' = M p.
///
///     | 0  1  2  3 |    element (row i, column j) is at index 4 i + j
///     | 4  5  6  7 |    columns 0, 1, 2 are the images of the axes
///     | 8  9 10 11 |    column 3 (indices 3, 7, 11) is the translation
///     |12 13 14 15 |    row 3 is (0, 0, 0, 1) for all but projections
///
/// `A *= B` is A = A B: B is applied to a point first. `Translate`, `Scale` and `Rotate` multiply from the right in the
/// same sense; operations whose names begin with Set overwrite the whole matrix. Each of them returns the matrix.
///
/// Single precision, each operation rounded on its own; sums run over the columns from left to right, x, y, z, w. What
/// is computed in double is said, and is rounded to float once. Outputs may be inputs: `a *= a` works. Nothing throws;
/// NaN and infinities run through.
class ORV_EXPORT g3d_XForm {
public:
    /// The identity.
    g3d_XForm() noexcept = default;

    /// Sixteen elements in storage order, row by row.
    explicit g3d_XForm(const float (&elements)[16]) noexcept;
    explicit g3d_XForm(const double (&elements)[16]) noexcept;

    // ---- Elements

    /// Row i, column j, each 0 to 3. Other indices select some element: the index 4 i + j is taken modulo 16.
    [[nodiscard]] float& M(int i, int j) noexcept { return _m[Index(i, j)]; }
    [[nodiscard]] const float& M(int i, int j) const noexcept { return _m[Index(i, j)]; }

    /// Writes rows of four.
    void GetM(float (&elements)[4][4]) const noexcept;
    void GetM(double (&elements)[4][4]) const noexcept;

    /// Writes the transpose row by row, that is this matrix column by column.
    void GetTranspose(double (&elements)[16]) const noexcept;

    // ---- Setting

    /// Columns 0, 1, 2 become a, b, c; column 3 and row 3 (0, 0, 0, 1).
    g3d_XForm& Set(const g3d_Vector& a, const g3d_Vector& b, const g3d_Vector& c) noexcept;

    /// The translation by the vector, or by x, y, z of the point, divided by its w unless that is 0 or 1.
    g3d_XForm& SetTranslate(const g3d_Vector& by) noexcept;
    g3d_XForm& SetTranslate(const g3d_Point& by) noexcept;

    /// A diagonal matrix, replacing all elements.
    g3d_XForm& SetScale(float sx, float sy, float sz) noexcept;

    /// The rotation about `axis` through the origin, counter-clockwise seen from its tip. The identity when the angle
    /// is exactly 0 or the axis normalises to zero (a length below 1.1754944e-38). The angle is turned into radians in
    /// double and rounded; its sine and cosine are taken in double and rounded.
    g3d_XForm& SetRotate(float angleDegrees, const g3d_Vector& axis) noexcept;

    /// The rotation of the quaternion (x, y, z, w), scalar *last*, taken to be unit: another scales and shears.
    g3d_XForm& SetRotate3d(const float (&quaternion)[4]) noexcept;

    /// About z: the quaternion (0, 0, q0, q1), that is sine and cosine of *half* the angle.
    g3d_XForm& SetRotate2d(const float (&sineCosine)[2]) noexcept;

    /// The perspective projection from eye coordinates (looking along -z) to the cube [-1, 1]^3. *Top comes before
    /// bottom.* The identity unless left != right, bottom != top and far > near > 0.
    g3d_XForm& SetPerspectiveProjection(float left, float right, float top, float bottom, float nearPlane,
                                        float farPlane) noexcept;

    /// The parallel projection, arguments in the same order. The identity unless left != right, bottom != top and
    /// far > near; near may be zero or negative.
    g3d_XForm& SetOrthographicProjection(float left, float right, float top, float bottom, float nearPlane,
                                         float farPlane) noexcept;

    // ---- Change in place

    /// This matrix times a translation: column 3 += x column 0 + y column 1 + z column 2, row 3 included.
    g3d_XForm& Translate(float x, float y, float z) noexcept;

    /// By a point, which is *divided by its w in place* (w becomes 1) unless w is 0 or 1.
    g3d_XForm& Translate(g3d_Point& by) noexcept;

    /// Columns 0, 1, 2, all four rows, times sx, sy, sz.
    g3d_XForm& Scale(float sx, float sy, float sz) noexcept;

    /// This matrix times that of `SetRotate`; unchanged where that is the identity for want of angle or axis.
    g3d_XForm& Rotate(float angleDegrees, const g3d_Vector& axis) noexcept;

    /// In place.
    g3d_XForm& Transpose() noexcept;

    /// The adjugate, from 2x2 minors, times 1/determinant (in double, rounded to float). *A matrix whose determinant is
    /// exactly 0 stays as it is, and nothing tells*; ask `Determinant` first. No pivoting: a determinant that
    /// underflows to 0 counts as singular, one close to 0 gives large or infinite elements, a NaN one NaN.
    g3d_XForm& Invert() noexcept;

    /// this = this * other.
    inline g3d_XForm& operator*=(const g3d_XForm& other) noexcept;

    // ---- Queries and transforming

    /// Cofactor expansion along row 0, all four rows and columns.
    [[nodiscard]] float Determinant() const noexcept;

    /// p = M p, all four components, *not divided by w* afterwards.
    void XForm(g3d_Point& point) const noexcept;

    /// Each of the `count` points, bit for bit as one by one; none when `count` is not positive.
    void XForm(g3d_Point* points, int count) const noexcept;

    /// Each of the `count` vectors by the upper left 3x3 alone: never translated. Normals need the inverse transpose.
    void XForm(g3d_Vector* vectors, int count) const noexcept;

    // ---- Comparison

    /// The same object, or all sixteen elements equal: -0 equals 0. A matrix with a NaN equals itself and no copy.
    [[nodiscard]] bool operator==(const g3d_XForm& other) const noexcept { return this == &other || _m == other._m; }

private:
    [[nodiscard]] static unsigned Index(int i, int j) noexcept {
        return (4U * static_cast<unsigned>(i) + static_cast<unsigned>(j)) % 16U;
    }

    std::array<float, 16> _m{1.0F, 0.0F, 0.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F,
                             0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 0.0F, 0.0F, 1.0F};
};

/// The matrix product a b.
[[nodiscard]] inline g3d_XForm operator*(g3d_XForm a, const g3d_XForm& b) noexcept { return a *= b; }

inline g3d_XForm& g3d_XForm::operator*=(const g3d_XForm& other) noexcept {
    std::array<float, 16> product;
    for (unsigned i = 0; i < 16; i += 4)
        for (unsigned j = 0; j < 4; ++j)
            product[i + j] = _m[i] * other._m[j] + _m[i + 1] * other._m[j + 4] + _m[i + 2] * other._m[j + 8] +
                             _m[i + 3] * other._m[j + 12];
    _m = product;
    return *this;
}

/// Four rows "(m0, m1, m2, m3)", a line each, each element printed as a double.
ORV_EXPORT aio_ostream& operator<<(aio_ostream& out, const g3d_XForm& xform);

#endif
