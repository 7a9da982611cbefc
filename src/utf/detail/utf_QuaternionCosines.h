#ifndef ORV_UTF_DETAIL_UTF_QUATERNIONCOSINES_H
#define ORV_UTF_DETAIL_UTF_QUATERNIONCOSINES_H

#include <base/nex_PrimException.h>
#include <base/nex_Throw.h>
#include <base/res_DataTypeEnm.h>
#include <utf/detail/utf_TensorKernels.h>

#include <utility>

/// The direction cosines R of a quaternion, 2D or 3D, or of a view: row i is local axis i.
template <class T, template <class> class Quaternion>
[[nodiscard]] inline utf_NineCosines utf_CosinesOf(const Quaternion<T>& q) noexcept {
    T c[3][3];
    q.cosines(c);
    return {c[0][0], c[0][1], c[0][2], c[1][0], c[1][1], c[1][2], c[2][0], c[2][1], c[2][2]};
}

/// The kind of quaternion that turns a tensor of the kind.
[[nodiscard]] constexpr res_DataTypeEnm utf_QuaternionKindOf(res_DataTypeEnm tensor) noexcept {
    return tensor == res_TENSOR_2D_PLANAR || tensor == res_TENSOR_2D_SURFACE ? res_QUATERNION_2D : res_QUATERNION_3D;
}

/// What utf_Rotate takes to form R^T T R. Throws when `q` is of the wrong kind for a tensor of `kind`.
template <class T, template <class> class Quaternion>
[[nodiscard]] inline utf_NineCosines utf_TensorTurn(res_DataTypeEnm kind, const Quaternion<T>& q) {
    if (q.type() != utf_QuaternionKindOf(kind)) nex_Throw(nex_PrimException("q.type() == QuaternionType()"));
    utf_NineCosines r = utf_CosinesOf(q);
    std::swap(r[1], r[3]);
    std::swap(r[2], r[6]);
    std::swap(r[5], r[7]);
    return r;
}

#endif
