#ifndef ORV_BASE_RES_DATATYPEENM_H
#define ORV_BASE_RES_DATATYPEENM_H

/// The kind of an engineering value, stored with it: it fixes the number and order of the components. "3D" and "2D" say
/// which quaternion turns the tensor. Other numbers belong to the applications.
enum res_DataTypeEnm : int {
    res_QUATERNION_2D = 6,
    res_QUATERNION_3D = 7,
    res_TENSOR_3D_FULL = 9,      ///< 11, 22, 33, 12, 13, 23
    res_TENSOR_3D_PLANAR = 10,   ///< 11, 22, 33, 12
    res_TENSOR_3D_SURFACE = 11,  ///< 11, 22, 12
    res_TENSOR_2D_PLANAR = 12,   ///< 11, 22, 33, 12
    res_TENSOR_2D_SURFACE = 13,  ///< 11, 22, 12
};

#endif
