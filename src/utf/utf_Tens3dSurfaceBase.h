#ifndef ORV_UTF_UTF_TENS3DSURFACEBASE_H
#define ORV_UTF_UTF_TENS3DSURFACEBASE_H

#include <base/res_DataTypeEnm.h>
#include <utf/detail/utf_QuaternionCosines.h>
#include <utf/detail/utf_TensorKernels.h>
#include <utf/utf_Quat3dBase.h>

/// A view of a surface tensor (kind 11) in a caller's array of three: 11, 22, 12. The array must outlive the view.
template <class T>
class utf_Tens3dSurfaceBase {
public:
    /// Only keeps the pointer.
    explicit utf_Tens3dSurfaceBase(T* components) noexcept : _components(components) {}

    /// T' = R T R^T in the caller's array, with R the direction cosines of `q`. Turns by the upper left 2x2 block of R.
    /// Deliberately the opposite sense to utf_Tensor::transform, which forms R^T T R. With `engineeringShear` the
    /// shears are halved before and doubled after.
    void transform(const utf_Quat3dBase<T>& q, bool engineeringShear) const noexcept {
        utf_Rotate(res_TENSOR_3D_SURFACE, _components, utf_CosinesOf(q), engineeringShear, _components);
    }

private:
    T* _components;
};

#endif
