#include <base/cow_2DArray.h>
#include <gsl/gsl_Matrix.h>
#include <gsl/gsl_Util.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <numbers>
#include <utility>

namespace {

/// The rotation part as a quaternion (vector part first), each component rounded to a float as it is computed.
struct FloatQuaternion {
    float v[3];
    float w;
};

// A double beyond the range of float becomes infinite instead of undefined.
static_assert(std::numeric_limits<float>::is_iec559);

FloatQuaternion ToQuaternion(const double (&m)[4][4]) noexcept {
    FloatQuaternion q;
    const double trace = m[0][0] + m[1][1] + m[2][2];
    if (trace >= 0.0) {
        const double s = std::sqrt(trace + m[3][3]);
        const double t = 0.5 / s;
        q.w = static_cast<float>(s / 2.0);
        for (int i = 0; i < 3; ++i) {
            const int j = (i + 1) % 3, k = (i + 2) % 3;
            q.v[i] = static_cast<float>((m[k][j] - m[j][k]) * t);
        }
    } else {
        int i = m[1][1] > m[0][0] ? 1 : 0;
        if (m[2][2] > m[i][i]) i = 2;
        const int j = (i + 1) % 3, k = (i + 2) % 3;
        const double s = std::sqrt(m[i][i] - (m[k][k] + m[j][j]) + m[3][3]);
        const double t = 0.5 / s;
        q.v[i] = static_cast<float>(s / 2.0);
        q.v[j] = static_cast<float>((m[i][j] + m[j][i]) * t);
        q.v[k] = static_cast<float>((m[i][k] + m[k][i]) * t);
        q.w = static_cast<float>((m[k][j] - m[j][k]) * t);
    }
    if (m[3][3] != 1.0) {
        const double scale = 1.0 / std::sqrt(m[3][3]);
        for (float& component : q.v) component = static_cast<float>(component * scale);
        q.w = static_cast<float>(q.w * scale);
    }
    return q;
}

}  // namespace

gsl_Matrix::gsl_Matrix(const double (&elements)[4][4]) noexcept : _identityState(-1) {
    for (int i = 0; i < 4; ++i) std::copy(std::begin(elements[i]), std::end(elements[i]), _m[i]);
}

bool gsl_Matrix::IsIdentity() const noexcept {
    if (_identityState >= 0) return _identityState == 1;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 4; ++j) {
            const double low = i == j ? 0.99999999 : -1e-8;
            const double high = i == j ? 1.00000001 : 1e-8;
            if (!(_m[i][j] >= low && _m[i][j] <= high)) {
                _identityState = 0;
                return false;
            }
        }
    }
    gsl_Matrix().AsArray(_m);
    _identityState = 1;
    return true;
}

void gsl_Matrix::AsArray(double elements[][4]) const noexcept {
    for (int i = 0; i < 4; ++i) std::copy(std::begin(_m[i]), std::end(_m[i]), elements[i]);
}

void gsl_Matrix::GetRotationAngles(double& rxRadians, double& ryRadians, double& rzRadians) const noexcept {
    constexpr double leastCosine = 0x1p-19;
    const double cosine = std::sqrt(_m[0][0] * _m[0][0] + _m[1][0] * _m[1][0]);
    const bool regular = cosine > leastCosine;
    rxRadians = regular ? std::atan2(_m[2][1], _m[2][2]) : std::atan2(-_m[1][2], _m[1][1]);
    ryRadians = std::atan2(-_m[2][0], cosine);
    rzRadians = regular ? std::atan2(_m[1][0], _m[0][0]) : 0.0;
}

void gsl_Matrix::GetEulerianAnglesZYX(double& aDegrees, double& bDegrees, double& cDegrees) const noexcept {
    constexpr double degreesPerRadian = 57.29577951308232;
    aDegrees = bDegrees = cDegrees = 0.0;
    if (_identityState == 1) return;
    if (_m[0][0] == 0.0 && _m[1][0] == 0.0) {
        bDegrees = -std::asin(_m[2][0]) * degreesPerRadian;
        cDegrees = std::atan2(_m[0][1], _m[1][1]) * degreesPerRadian;
        return;
    }
    const double cosine = std::sqrt(_m[1][0] * _m[1][0] + _m[0][0] * _m[0][0]);
    aDegrees = std::atan2(_m[1][0], _m[0][0]) * degreesPerRadian;
    bDegrees = std::atan2(-_m[2][0], cosine) * degreesPerRadian;
    cDegrees = std::atan2(_m[2][1], _m[2][2]) * degreesPerRadian;
}

void gsl_Matrix::GetAxisRotation(gsl_Point& point, gsl_Vector& axis, double& angleRadians) const noexcept {
    const FloatQuaternion q = ToQuaternion(_m);
    const double x = q.v[0], y = q.v[1], z = q.v[2];
    const auto r = static_cast<float>(std::sqrt(x * x + y * y + z * z));
    angleRadians = 2.0 * std::atan2(static_cast<double>(r), static_cast<double>(q.w));
    const bool turns = angleRadians > gsl_Util::AngTol();
    axis = turns ? gsl_Vector(x / r, y / r, z / r) : gsl_Vector(0.0, 0.0, 0.0);
    point.SetPos(NewOrigin());
}

void gsl_Matrix::SetRow(unsigned i, const gsl_Vector& row) noexcept {
    if (i > 3) return;
    for (unsigned j = 0; j < 3; ++j) _m[i][j] = row[j];
    _identityState = -1;
}

void gsl_Matrix::SetColumn(unsigned i, const gsl_Vector& column) noexcept {
    if (i > 3) return;
    for (unsigned j = 0; j < 3; ++j) _m[j][i] = column[j];
    _identityState = -1;
}

void gsl_Matrix::SetRotationVectors(const gsl_Vector& x, const gsl_Vector& y, const gsl_Vector& z) noexcept {
    const gsl_Vector* columns[] = {&x, &y, &z};
    for (unsigned i = 0; i < 3; ++i) {
        const gsl_Vector& v = *columns[i];
        const double length = v.Length();
        SetColumn(i, {v.X() / length, v.Y() / length, v.Z() / length});
    }
}

void gsl_Matrix::AxisRotation(const gsl_Vector& axis, double angleRadians) noexcept {
    FillIdentity();
    if (axis.Length() >= gsl_Util::LinTol()) axRot(axis, axis.Length(), angleRadians, _m);
}

void gsl_Matrix::AxisRotation(const gsl_Point& point, const gsl_Vector& axis, double angleRadians) noexcept {
    FillIdentity();
    if (axis.Length() < gsl_Util::LinTol()) return;
    gsl_Vector toPoint = point - gsl_Point();
    gsl_Matrix rotation;
    axRot(axis, axis.Length(), angleRadians, rotation._m);
    gsl_Matrix back;
    back.SetTranslation(toPoint);
    toPoint.Negate();
    SetTranslation(toPoint);
    Concatenate(rotation);
    Concatenate(back);
}

void gsl_Matrix::Mirror(const gsl_Point& point, const gsl_Vector& normal) noexcept {
    FillIdentity();
    if (normal.Length() < gsl_Util::LinTol()) return;
    const gsl_Vector unit(normal.UnitX(), normal.UnitY(), normal.UnitZ());
    for (unsigned i = 0; i < 3; ++i) {
        for (unsigned j = 0; j < 3; ++j) _m[i][j] -= 2.0 * unit[i] * unit[j];
    }
    SetTranslation(unit * (2.0 * unit.DotProduct(point - gsl_Point())));
}

gsl_Matrix gsl_Matrix::GetConcatenated(const gsl_Matrix& next) const noexcept {
    gsl_Matrix result;
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            double sum = 0.0;
            for (int k = 0; k < 4; ++k) sum += next._m[i][k] * _m[k][j];
            result._m[i][j] = sum;
        }
    }
    result._identityState = -1;
    return result;
}

gsl_Matrix gsl_Matrix::InverseRigidTransform() const noexcept {
    gsl_Matrix result;
    if (_identityState == 1) return result;
    for (unsigned i = 0; i < 3; ++i) result.SetRow(i, NewAxis(i));
    gsl_Vector translation = NewAxis(3);
    result.Transform(translation);
    translation.Negate();
    result.SetTranslation(translation);
    return result;
}

std::optional<gsl_Matrix> gsl_Matrix::Inverse() const noexcept {
    constexpr double leastPivot = 1e-14;
    constexpr int size = 4;
    gsl_Matrix left = *this;
    gsl_Matrix right;
    for (int k = 0; k < size; ++k) {
        double greatest = 0.0;  // of the column as it was given
        int pivot = k;
        for (int i = 0; i < size; ++i) {
            greatest = std::max(greatest, std::abs(_m[i][k]));
            if (i > k && std::abs(left._m[i][k]) > std::abs(left._m[pivot][k])) pivot = i;
        }
        if (!(std::abs(left._m[pivot][k]) > leastPivot * greatest)) return std::nullopt;
        std::swap(left._m[k], left._m[pivot]);
        std::swap(right._m[k], right._m[pivot]);
        const double divisor = left._m[k][k];
        for (int j = 0; j < size; ++j) {
            left._m[k][j] /= divisor;
            right._m[k][j] /= divisor;
        }
        for (int i = 0; i < size; ++i) {
            const double factor = left._m[i][k];
            if (i == k) continue;
            for (int j = 0; j < size; ++j) {
                left._m[i][j] -= factor * left._m[k][j];
                right._m[i][j] -= factor * right._m[k][j];
            }
        }
    }
    for (const auto& row : right._m) {
        if (!std::all_of(std::begin(row), std::end(row), [](double element) { return std::isfinite(element); }))
            return std::nullopt;
    }
    right._identityState = -1;
    return right;
}

bool gsl_Matrix::operator==(const gsl_Matrix& other) const noexcept {
    constexpr double tolerance = 0.001;
    if (this == &other) return true;
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            if (!(std::abs(_m[i][j] - other._m[i][j]) <= tolerance)) return false;
        }
    }
    return true;
}

void gsl_Matrix::From2DArray(const cow_2DArray<double>& elements, int identityState) {
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) _m[i][j] = elements.ConstGet(i, j);
    }
    _identityState = identityState == 1 || identityState == 0 ? identityState : -1;
}

void gsl_Matrix::To2DArray(cow_2DArray<double>* elements) const {
    cow_2DArray<double> result(4, 4);
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) result.Get(i, j) = _m[i][j];
    }
    *elements = result;
}

void axRot(const gsl_Vector& axis, double length, double angleRadians, double matrix[][4]) noexcept {
    const double ux = axis.X() / length, uy = axis.Y() / length, uz = axis.Z() / length;
    const double c = std::cos(angleRadians), s = std::sin(angleRadians), oneMinusC = 1.0 - c;
    matrix[0][0] = (1.0 - ux * ux) * c + ux * ux;
    matrix[0][1] = ux * uy * oneMinusC - uz * s;
    matrix[0][2] = ux * uz * oneMinusC + uy * s;
    matrix[1][0] = ux * uy * oneMinusC + uz * s;
    matrix[1][1] = (1.0 - uy * uy) * c + uy * uy;
    matrix[1][2] = uy * uz * oneMinusC - ux * s;
    matrix[2][0] = ux * uz * oneMinusC - uy * s;
    matrix[2][1] = uy * uz * oneMinusC + ux * s;
    matrix[2][2] = (1.0 - uz * uz) * c + uz * uz;
}
