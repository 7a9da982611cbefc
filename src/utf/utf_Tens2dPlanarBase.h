#ifndef ORV_UTF_UTF_TENS2DPLANARBASE_H
#define ORV_UTF_UTF_TENS2DPLANARBASE_H

#include <base/res_DataTypeEnm.h>
#include <utf/detail/utf_QuaternionCosines.h>
#include <utf/detail/utf_TensorKernels.h>
#include <utf/utf_Quat2dBase.h>

/// A view of a planar tensor of a planar model (kind 12) in a caller's array of four: 11, 22, 33, 12. The array must
/// outlive the view.
template <class T>
class utf_Tens2dPlanarBase {
public:
    /// Only keeps the pointer.
    explicit utf_Tens2dPlanarBase(T* components) noexcept : _components(components) {}

    /// T' = R T R^T in the caller's array, with R the direction cosines of `q`: T'11 = c^2 T11 + 2 c s T12 + s^2 T22.
    /// Turns in the plane, 33 as it was. Deliberately the opposite sense to utf_Tensor::transform, which forms R^T T R.
    /// With `engineeringShear` the shears are halved before and doubled after.
    void transform(const utf_Quat2dBase<T>& q, bool engineeringShear) const noexcept {
        utf_Rotate(res_TENSOR_2D_PLANAR, _components, utf_CosinesOf(q), engineeringShear, _components);
    }

private:
    T* _components;
};

#endif
