#include <g3d/g3d_XForm.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <ostream>
#include <utility>

namespace {

/// The transposed cofactors of a matrix, but for the sign of their row: `adjugate[i][r]` is (-1)^i times the minor that
/// leaves out row r and column i, for the rows below `Rows`; and the determinant, expanded along row 0.
///
/// Lane r belongs to row r. Its minors are made of the 2x2 minors of the two rows p, q of the other half of the matrix
/// and of the row beside it. All lanes are computed alike, which the compiler turns into operations on four floats.
template <unsigned Rows>
struct Cofactors {
    using Lanes = std::array<float, Rows>;

    explicit Cofactors(const float* m) noexcept {
        Lanes p[4], q[4], beside[4];
        for (unsigned j = 0; j < 4; ++j) {
            for (unsigned r = 0; r < Rows; ++r) {
                const unsigned half = r < 2 ? 8 : 0;
                p[j][r] = m[half + j];
                q[j][r] = m[half + 4 + j];
                beside[j][r] = m[4 * (r ^ 1U) + j];
            }
        }
        const auto minorOf = [&](unsigned j, unsigned k) {
            Lanes result;
            for (unsigned r = 0; r < Rows; ++r) result[r] = p[j][r] * q[k][r] - p[k][r] * q[j][r];
            return result;
        };
        const Lanes s01 = minorOf(0, 1), s02 = minorOf(0, 2), s03 = minorOf(0, 3);
        const Lanes s12 = minorOf(1, 2), s13 = minorOf(1, 3), s23 = minorOf(2, 3);
        for (unsigned r = 0; r < Rows; ++r) {
            adjugate[0][r] = beside[1][r] * s23[r] - beside[2][r] * s13[r] + beside[3][r] * s12[r];
            adjugate[1][r] = beside[2][r] * s03[r] - beside[0][r] * s23[r] - beside[3][r] * s02[r];
            adjugate[2][r] = beside[0][r] * s13[r] - beside[1][r] * s03[r] + beside[3][r] * s01[r];
            adjugate[3][r] = beside[1][r] * s02[r] - beside[0][r] * s12[r] - beside[2][r] * s01[r];
        }
        determinant = m[0] * adjugate[0][0] + m[1] * adjugate[1][0] + m[2] * adjugate[2][0] + m[3] * adjugate[3][0];
    }

    Lanes adjugate[4];
    float determinant;
};

/// None for an angle of 0 or an axis that normalises to zero.
std::optional<g3d_XForm> Rotation(float angleDegrees, g3d_Vector axis) noexcept {
    if (angleDegrees == 0.0F || axis.Normalize() == g3d_Vector()) return std::nullopt;
    const double angle = static_cast<float>(angleDegrees * 0.017453292519943295);
    const float c = static_cast<float>(std::cos(angle)), s = static_cast<float>(std::sin(angle)), rest = 1.0F - c;
    const float x = axis.X(), y = axis.Y(), z = axis.Z();
    return g3d_XForm({(1.0F - x * x) * c + x * x, x * y * rest - z * s, x * z * rest + y * s, 0.0F,  //
                      x * y * rest + z * s, (1.0F - y * y) * c + y * y, y * z * rest - x * s, 0.0F,  //
                      x * z * rest - y * s, y * z * rest + x * s, (1.0F - z * z) * c + z * z, 0.0F,  //
                      0.0F, 0.0F, 0.0F, 1.0F});
}

}  // namespace

g3d_XForm::g3d_XForm(const float (&elements)[16]) noexcept { std::copy_n(elements, 16, _m.begin()); }

g3d_XForm::g3d_XForm(const double (&elements)[16]) noexcept {
    std::transform(elements, elements + 16, _m.begin(), [](double element) { return static_cast<float>(element); });
}

void g3d_XForm::GetM(float (&elements)[4][4]) const noexcept {
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) elements[i][j] = M(i, j);
}

void g3d_XForm::GetM(double (&elements)[4][4]) const noexcept {
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) elements[i][j] = M(i, j);
}

void g3d_XForm::GetTranspose(double (&elements)[16]) const noexcept {
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) elements[4 * i + j] = M(j, i);
}

g3d_XForm& g3d_XForm::Set(const g3d_Vector& a, const g3d_Vector& b, const g3d_Vector& c) noexcept {
    return *this = g3d_XForm({a.X(), b.X(), c.X(), 0.0F,  //
                              a.Y(), b.Y(), c.Y(), 0.0F,  //
                              a.Z(), b.Z(), c.Z(), 0.0F,  //
                              0.0F, 0.0F, 0.0F, 1.0F});
}

g3d_XForm& g3d_XForm::SetTranslate(const g3d_Vector& by) noexcept {
    *this = g3d_XForm();
    M(0, 3) = by.X();
    M(1, 3) = by.Y();
    M(2, 3) = by.Z();
    return *this;
}

g3d_XForm& g3d_XForm::SetTranslate(const g3d_Point& by) noexcept {
    const g3d_Point to = by.Cartesian();
    return SetTranslate(g3d_Vector(to.X(), to.Y(), to.Z()));
}

g3d_XForm& g3d_XForm::SetScale(float sx, float sy, float sz) noexcept {
    *this = g3d_XForm();
    M(0, 0) = sx;
    M(1, 1) = sy;
    M(2, 2) = sz;
    return *this;
}

g3d_XForm& g3d_XForm::SetRotate(float angleDegrees, const g3d_Vector& axis) noexcept {
    return *this = Rotation(angleDegrees, axis).value_or(g3d_XForm());
}

g3d_XForm& g3d_XForm::SetRotate3d(const float (&quaternion)[4]) noexcept {
    const auto& q = quaternion;
    const float w = q[3];
    g3d_XForm result;
    for (int i = 0; i < 3; ++i) {
        const int j = (i + 1) % 3, k = (i + 2) % 3;
        const double product = 2.0 * q[i] * q[j], turn = 2.0 * q[k] * w;
        result.M(i, i) = w * w + q[i] * q[i] - q[j] * q[j] - q[k] * q[k];
        result.M(i, j) = static_cast<float>(product - turn);
        result.M(j, i) = static_cast<float>(product + turn);
    }
    return *this = result;
}

g3d_XForm& g3d_XForm::SetRotate2d(const float (&sineCosine)[2]) noexcept {
    return SetRotate3d({0.0F, 0.0F, sineCosine[0], sineCosine[1]});
}

g3d_XForm& g3d_XForm::SetPerspectiveProjection(float left, float right, float top, float bottom, float nearPlane,
                                               float farPlane) noexcept {
    *this = g3d_XForm();
    if (left == right || bottom == top || !(farPlane > nearPlane && nearPlane > 0.0F)) return *this;
    const double twiceNear = 2.0 * nearPlane;
    const float depth = farPlane - nearPlane;
    M(0, 0) = static_cast<float>(twiceNear / (right - left));
    M(0, 2) = (right + left) / (right - left);
    M(1, 1) = static_cast<float>(twiceNear / (top - bottom));
    M(1, 2) = (top + bottom) / (top - bottom);
    M(2, 2) = -(farPlane + nearPlane) / depth;
    M(2, 3) = static_cast<float>(-twiceNear * farPlane / depth);
    M(3, 2) = -1.0F;
    M(3, 3) = 0.0F;
    return *this;
}

g3d_XForm& g3d_XForm::SetOrthographicProjection(float left, float right, float top, float bottom, float nearPlane,
                                                float farPlane) noexcept {
    *this = g3d_XForm();
    if (left == right || bottom == top || !(farPlane > nearPlane)) return *this;
    M(0, 0) = 2.0F / (right - left);
    M(1, 1) = 2.0F / (top - bottom);
    M(2, 2) = -2.0F / (farPlane - nearPlane);
    M(0, 3) = -(right + left) / (right - left);
    M(1, 3) = -(top + bottom) / (top - bottom);
    M(2, 3) = -(farPlane + nearPlane) / (farPlane - nearPlane);
    return *this;
}

g3d_XForm& g3d_XForm::Translate(float x, float y, float z) noexcept {
    for (int i = 0; i < 4; ++i) M(i, 3) += x * M(i, 0) + y * M(i, 1) + z * M(i, 2);
    return *this;
}

g3d_XForm& g3d_XForm::Translate(g3d_Point& by) noexcept {
    by = by.Cartesian();
    return Translate(by.X(), by.Y(), by.Z());
}

g3d_XForm& g3d_XForm::Scale(float sx, float sy, float sz) noexcept {
    for (int i = 0; i < 4; ++i) {
        M(i, 0) *= sx;
        M(i, 1) *= sy;
        M(i, 2) *= sz;
    }
    return *this;
}

g3d_XForm& g3d_XForm::Rotate(float angleDegrees, const g3d_Vector& axis) noexcept {
    const std::optional<g3d_XForm> rotation = Rotation(angleDegrees, axis);
    return rotation ? *this *= *rotation : *this;
}

g3d_XForm& g3d_XForm::Transpose() noexcept {
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < i; ++j) std::swap(M(i, j), M(j, i));
    return *this;
}

g3d_XForm& g3d_XForm::Invert() noexcept {
    const Cofactors<4> cofactors(_m.data());
    if (cofactors.determinant == 0.0F) return *this;
    const float plus = static_cast<float>(1.0 / cofactors.determinant), minus = -plus;
    const float factors[] = {plus, minus, plus, minus};
    for (unsigned i = 0; i < 4; ++i)
        for (unsigned r = 0; r < 4; ++r) _m[4 * i + r] = cofactors.adjugate[i][r] * factors[r];
    return *this;
}

float g3d_XForm::Determinant() const noexcept { return Cofactors<1>(_m.data()).determinant; }

void g3d_XForm::XForm(g3d_Point& point) const noexcept {
    const float x = point.X(), y = point.Y(), z = point.Z(), w = point.W();
    const auto component = [&](unsigned i) { return _m[i] * x + _m[i + 1] * y + _m[i + 2] * z + _m[i + 3] * w; };
    point = g3d_Point(component(0), component(4), component(8), component(12));
}

void g3d_XForm::XForm(g3d_Point* points, int count) const noexcept {
    const g3d_XForm m = *this;  // out of reach of the points that are written: stays in registers
    for (int n = 0; n < count; ++n) m.XForm(points[n]);
}

void g3d_XForm::XForm(g3d_Vector* vectors, int count) const noexcept {
    const auto m = _m;
    for (int n = 0; n < count; ++n) {
        const float x = vectors[n].X(), y = vectors[n].Y(), z = vectors[n].Z();
        vectors[n] =
            g3d_Vector(m[0] * x + m[1] * y + m[2] * z, m[4] * x + m[5] * y + m[6] * z, m[8] * x + m[9] * y + m[10] * z);
    }
}

aio_ostream& operator<<(aio_ostream& out, const g3d_XForm& xform) {
    for (int i = 0; i < 4; ++i) {
        out << '(';
        for (int j = 0; j < 4; ++j) out << (j == 0 ? "" : ", ") << static_cast<double>(xform.M(i, j));
        out << ")\n";
    }
    return out;
}
