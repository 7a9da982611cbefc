#include <base/nex_PrimException.h>
#include <base/nex_SourceLocation.h>
#include <base/nex_Throw.h>
#include <gsl/gsl_Matrix.h>
#include <gsl/gsl_Vector.h>
#include <utf/utf_Quaternion.h>

#include <cmath>
#include <utility>
#include <vector>

namespace {

void Require(bool holds, const char* condition, nex_SourceLocation where = nex_SourceLocation::Current()) {
    if (!holds) nex_Throw(nex_PrimException(condition), where);
}

/// Column `j` of an array of `rows` rows as a vector; the third component is 0 when there are but two.
template <class T>
gsl_Vector Column(const cow_2DArray<T>& c, int j, int rows) {
    return {c.ConstGet(0, j), c.ConstGet(1, j), rows > 2 ? c.ConstGet(2, j) : T(0)};
}

}  // namespace

template <class T>
utf_Quaternion<T>::utf_Quaternion(res_DataTypeEnm kind) : utf_EngineeringData<T>(kind, numComponents(kind)) {}

template <class T>
utf_Quaternion<T>::utf_Quaternion(res_DataTypeEnm kind, const cow_List<T>& components)
    : utf_EngineeringData<T>(kind, components, numComponents(kind), false) {}

template <class T>
utf_Quaternion<T>::utf_Quaternion(res_DataTypeEnm kind, const T* components)
    : utf_EngineeringData<T>(kind, components, numComponents(kind)) {}

template <class T>
utf_Quaternion<T>::utf_Quaternion(res_DataTypeEnm kind, T* components)
    : utf_EngineeringData<T>(kind, components, numComponents(kind)) {}

template <class T>
utf_Quaternion<T>::utf_Quaternion(T xRadians, T yRadians, T zRadians) : utf_Quaternion(res_QUATERNION_3D) {
    const double half[] = {0.5 * double{xRadians}, 0.5 * double{yRadians}, 0.5 * double{zRadians}};
    double product[4] = {std::sin(half[0]), 0.0, 0.0, std::cos(half[0])};
    const double aboutY[] = {0.0, std::sin(half[1]), 0.0, std::cos(half[1])};
    const double aboutZ[] = {0.0, 0.0, std::sin(half[2]), std::cos(half[2])};
    const utf_Quat3dBase<double> view(product);
    view.mult(aboutY, product);
    view.mult(aboutZ, product);
    std::transform(product, product + 4, this->Components(), [](double value) { return static_cast<T>(value); });
}

template <class T>
utf_Quaternion<T>::utf_Quaternion(const gsl_Vector& x, const gsl_Vector& y, const gsl_Vector& z)
    : utf_Quaternion(res_QUATERNION_3D) {
    utf_Quat3dBase<T>(this->Components()).set(x, y, z);
}

template <class T>
utf_Quaternion<T>::utf_Quaternion(const gsl_Vector& x, const gsl_Vector& y) : utf_Quaternion(res_QUATERNION_2D) {
    utf_Quat2dBase<T>(this->Components()).set(x, y);
}

template <class T>
utf_Quaternion<T>::utf_Quaternion(res_DataTypeEnm kind, const gsl_Matrix& matrix) : utf_Quaternion(kind) {
    OnView(kind, this->Components(), [&](const auto& view) { view.set(matrix); });
}

template <class T>
utf_Quaternion<T>::utf_Quaternion(res_DataTypeEnm kind, const cow_2DArray<T>& c) : utf_Quaternion(kind) {
    if (kind == res_QUATERNION_3D) {
        Require(c.Rows() == 3 && c.Cols() == 3, "c.Rows() == 3 && c.Cols() == 3");
        gsl_Matrix frame;
        frame.SetRotationVectors(Column(c, 0, 3), Column(c, 1, 3), Column(c, 2, 3));
        utf_Quat3dBase<T>(this->Components()).set(frame);
    } else if (kind == res_QUATERNION_2D) {
        Require(c.Rows() == 2 || c.Rows() == 3, "c.Rows()==2 || c.Rows()==3");
        Require(c.Cols() == c.Rows(), c.Rows() == 2 ? "c.Cols() == 2" : "c.Cols() == 3");
        utf_Quat2dBase<T>(this->Components()).set(Column(c, 0, 2), Column(c, 1, 2));
    } else {
        Require(false, "!\"Unknown quaternion type\"");
    }
}

template <class T>
utf_Quaternion<T>* utf_Quaternion<T>::Copy() const {
    return new utf_Quaternion(*this);
}

template <class T>
utf_Quaternion<T> utf_Quaternion<T>::mult(const utf_Quaternion& other) const {
    utf_Quaternion product(this->type());
    std::array<T, 4> left = As(this->type());
    const std::array<T, 4> right = other.As(this->type());
    OnView(this->type(), left.data(), [&](const auto& view) { view.mult(right.data(), product.Components()); });
    return product;
}

template <class T>
utf_Quaternion<T> utf_Quaternion<T>::inverse() const {
    utf_Quaternion conjugate(this->type());
    std::array<T, 4> own = As(this->type());
    OnView(this->type(), own.data(), [&](const auto& view) { view.inverse(conjugate.Components()); });
    return conjugate;
}

template <class T>
utf_Vector<T> utf_Quaternion<T>::toVector() const {
    std::array<T, 4> own = As(this->type());
    std::array<T, 3> vector{};
    OnView(this->type(), own.data(), [&](const auto& view) { view.toVector(vector.data()); });
    return utf_Vector<T>(res_DataTypeEnm{}, static_cast<const T*>(vector.data()));
}

template <class T>
cow_2DArray<T> utf_Quaternion<T>::cosines() const {
    if (numComponents(this->type()) == 0) return {};
    T c[3][3];
    cosines(c);
    std::vector<T> elements;
    elements.reserve(9);
    for (const auto& row : c) elements.insert(elements.end(), row, row + 3);
    return cow_2DArray<T>(3, 3, std::move(elements));
}

template <class T>
bool utf_Quaternion<T>::projectOn(const utf_Quaternion& other, unsigned axis, double tolerance) {
    T c[3][3];
    other.cosines(c);
    const gsl_Vector third(c[0][2], c[1][2], c[2][2]);
    const gsl_Vector normal(third.UnitX(), third.UnitY(), third.UnitZ());
    bool projected = true;
    OnView(this->type(), this->Components(),
           [&](const auto& view) { projected = view.projectOn(normal, axis, tolerance); });
    return projected;
}

template class utf_Quaternion<float>;
template class utf_Quaternion<double>;
