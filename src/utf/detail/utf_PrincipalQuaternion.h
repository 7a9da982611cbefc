#ifndef ORV_UTF_DETAIL_UTF_PRINCIPALQUATERNION_H
#define ORV_UTF_DETAIL_UTF_PRINCIPALQUATERNION_H

#include <utf/detail/utf_TensorKernels.h>
#include <utf/utf_flat.h>

#include <algorithm>

/// Principal values (three) and quaternion of their directions (four) of one tensor; an unknown kind as kind 9.
template <class T>
inline void utf_PrincipalQuaternion(res_DataTypeEnm kind, const T* components, bool engineeringShear, T* principal,
                                    T* quaternion) {
    const bool known = utf_LayoutOf(kind) != utf_TensorLayout::Unknown;
    const utf_TensorLayout layout = known ? utf_LayoutOf(kind) : utf_TensorLayout::Full;
    const int code = known ? kind - 2 : 7;
    const int shearFlag = engineeringShear ? 21 : 1;
    const int direct = utf_DirectCount(layout), shear = utf_ShearCount(layout);
    double stored[6] = {}, out[7] = {};
    std::copy_n(components, direct + shear, stored);
    utf_calprinquat(stored, out, &shearFlag, &code, &direct, &shear);
    if (layout == utf_TensorLayout::Surface) out[2] = 0.0;
    for (int i = 0; i < 3; ++i) principal[i] = static_cast<T>(out[i]);
    for (int i = 0; i < 4; ++i) quaternion[i] = static_cast<T>(out[3 + i]);
}

#endif
