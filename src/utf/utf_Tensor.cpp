#include <base/nex_PrimException.h>
#include <base/nex_Throw.h>
#include <utf/detail/utf_PrincipalQuaternion.h>
#include <utf/detail/utf_QuaternionCosines.h>
#include <utf/detail/utf_TensorKernels.h>
#include <utf/utf_Tensor.h>

#include <algorithm>
#include <cstddef>

template <class T>
utf_Tensor<T>::utf_Tensor(res_DataTypeEnm kind, const cow_List<T>& components, bool engineeringShear)
    : utf_EngineeringData<T>(kind, components, numComponents(kind), engineeringShear) {}

template <class T>
utf_Tensor<T>::utf_Tensor(res_DataTypeEnm kind, const T* components, bool engineeringShear)
    : utf_EngineeringData<T>(kind, components, numComponents(kind), engineeringShear) {}

template <class T>
utf_Tensor<T>::utf_Tensor(res_DataTypeEnm kind, T* components, bool engineeringShear)
    : utf_EngineeringData<T>(kind, components, numComponents(kind), engineeringShear) {}

template <class T>
utf_Tensor<T>::utf_Tensor(res_DataTypeEnm kind, bool engineeringShear)
    : utf_EngineeringData<T>(kind, numComponents(kind), engineeringShear) {}

template <class T>
utf_Tensor<T>* utf_Tensor<T>::Copy() const {
    return new utf_Tensor(*this);
}

template <class T>
int utf_Tensor<T>::numComponents(res_DataTypeEnm kind) noexcept {
    return utf_DirectCount(utf_LayoutOf(kind)) + utf_ShearCount(utf_LayoutOf(kind));
}

template <class T>
bool utf_Tensor<T>::Is3DTensor() const noexcept {
    return utf_LayoutOf(this->type()) != utf_TensorLayout::Surface;
}

template <class T>
bool utf_Tensor<T>::Is3DQuaternion() const noexcept {
    return QuaternionType() == res_QUATERNION_3D;
}

template <class T>
res_DataTypeEnm utf_Tensor<T>::QuaternionType() const noexcept {
    return utf_QuaternionKindOf(this->type());
}

template <class T>
void utf_Tensor<T>::principleValues(T* p) const noexcept {
    const auto values = utf_PrincipalValuesOf(utf_LayoutOf(this->type()), this->Components(), this->engineeringShear());
    std::transform(values.begin(), values.end(), p, [](double value) { return static_cast<T>(value); });
}

/// Of the components of a known kind; else 0.
template <class T>
template <class Measure>
T utf_Tensor<T>::OfComponents(const Measure& measure) const noexcept {
    const utf_TensorLayout layout = utf_LayoutOf(this->type());
    if (layout == utf_TensorLayout::Unknown) return T(0);
    return static_cast<T>(measure(utf_LoadTensor(layout, this->Components(), this->engineeringShear())));
}

/// Of the principal values and the layout of a known kind; else `unknown`.
template <class T>
template <class Measure>
T utf_Tensor<T>::OfPrincipal(T unknown, const Measure& measure) const noexcept {
    const utf_TensorLayout layout = utf_LayoutOf(this->type());
    if (layout == utf_TensorLayout::Unknown) return unknown;
    return static_cast<T>(measure(utf_PrincipalValuesOf(layout, this->Components(), this->engineeringShear()), layout));
}

using ThreeValues = std::array<double, 3>;

template <class T>
T utf_Tensor<T>::maxPrincipal() const noexcept {
    return OfPrincipal(NoMaximum, [](const ThreeValues& p, utf_TensorLayout layout) {
        return layout == utf_TensorLayout::Surface ? p[0] : utf_MaxPrincipal(p);
    });
}

template <class T>
T utf_Tensor<T>::midPrincipal() const noexcept {
    return OfPrincipal(NoMinimum, [](const ThreeValues& p, utf_TensorLayout layout) {
        return layout == utf_TensorLayout::Surface ? 0.0 : utf_MidPrincipal(p);
    });
}

template <class T>
T utf_Tensor<T>::minPrincipal() const noexcept {
    return OfPrincipal(NoMinimum, [](const ThreeValues& p, utf_TensorLayout layout) {
        return layout == utf_TensorLayout::Surface ? p[1] : utf_MinPrincipal(p);
    });
}

template <class T>
T utf_Tensor<T>::maxInplanePrincipal() const noexcept {
    return OfPrincipal(T(0), [](const ThreeValues& p, utf_TensorLayout layout) {
        return layout == utf_TensorLayout::Full ? 0.0 : p[0];
    });
}

template <class T>
T utf_Tensor<T>::minInplanePrincipal() const noexcept {
    return OfPrincipal(T(0), [](const ThreeValues& p, utf_TensorLayout layout) {
        return layout == utf_TensorLayout::Full ? 0.0 : p[1];
    });
}

template <class T>
T utf_Tensor<T>::outOfPlanePrincipal() const noexcept {
    return OfPrincipal(T(0), [](const ThreeValues& p, utf_TensorLayout layout) {
        return layout == utf_TensorLayout::Full ? 0.0 : p[2];
    });
}

template <class T>
void utf_Tensor<T>::tensorAsPrincipalAndQuaternions(T* principal, T* quaternion) const {
    utf_PrincipalQuaternion(this->type(), this->Components(), this->engineeringShear(), principal, quaternion);
}

template <class T>
void utf_Tensor<T>::tensorAsPrincipalAndQuaternions(const cow_2DArray<T>& cosines, T* principal, T* quaternion) const {
    utf_Tensor turned(*this);
    const utf_TensorLayout layout = utf_LayoutOf(this->type());
    if (this->engineeringShear() && layout != utf_TensorLayout::Unknown) {
        // Only tensor shears turn as a tensor.
        turned = utf_Tensor(this->type());
        utf_StoreTensor(layout, utf_LoadTensor(layout, this->Components(), true), turned.Components());
    }
    turned.transformControl(cosines);
    turned.tensorAsPrincipalAndQuaternions(principal, quaternion);
}

template <class T>
T utf_Tensor<T>::pressure() const noexcept {
    return OfComponents(utf_Pressure);
}

template <class T>
T utf_Tensor<T>::mises() const noexcept {
    return OfComponents(utf_Mises);
}

template <class T>
T utf_Tensor<T>::tresca() const noexcept {
    return OfPrincipal(T(0), [](const ThreeValues& p, utf_TensorLayout) { return utf_Tresca(p); });
}

template <class T>
T utf_Tensor<T>::inv3() const noexcept {
    return OfComponents(utf_Inv3);
}

template <class T>
utf_Tensor<T> utf_Tensor<T>::As3DFullTensor() const {
    return AsTensorType(res_TENSOR_3D_FULL);
}

template <class T>
utf_Tensor<T> utf_Tensor<T>::AsTensorType(res_DataTypeEnm kind) const {
    utf_Tensor result(kind);
    const utf_TensorLayout from = utf_LayoutOf(this->type());
    if (from != utf_TensorLayout::Unknown)
        utf_StoreTensor(utf_LayoutOf(kind), utf_LoadTensor(from, this->Components(), false), result.Components());
    return result;
}

template <class T>
void utf_Tensor<T>::transform(const utf_Quaternion<T>& q, bool engineeringShear) {
    const utf_NineCosines turn = utf_TensorTurn(this->type(), q);
    utf_Rotate(this->type(), this->Components(), turn, engineeringShear, this->Components());
}

template <class T>
void utf_Tensor<T>::transformControl(const cow_2DArray<T>& coss) {
    const utf_TensorLayout layout = utf_LayoutOf(this->type());
    if (layout == utf_TensorLayout::Unknown) return;
    if (layout != utf_TensorLayout::Full && !(coss.ConstGet(2, 2) > 0.9))
        nex_Throw(nex_PrimException("coss.ConstGet(2,2) > 0.9 && \"Transformation not normal\""));
    utf_NineCosines transposed{};
    for (int k = 0; k < 9; ++k) transposed[static_cast<std::size_t>(k)] = coss.ConstGet(k % 3, k / 3);
    const utf_SixComponents six = utf_LoadTensor(layout, this->Components(), false);
    utf_StoreTensor(layout, utf_RotatedFull(six, transposed), this->Components());
}

template <class T>
void utf_Tensor<T>::transformControl(const utf_Quaternion<T>& q, bool /*engineeringShear*/) {
    transformControl(q.cosines());
}

template class utf_Tensor<float>;
template class utf_Tensor<double>;
