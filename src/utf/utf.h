#ifndef ORV_UTF_UTF_H
#define ORV_UTF_UTF_H

#include <utf/utf_AxisAngle.h>
#include <utf/utf_ComponentOrder.h>
#include <utf/utf_EngineeringData.h>
#include <utf/utf_Quat2dBase.h>
#include <utf/utf_Quat3dBase.h>
#include <utf/utf_Quaternion.h>
#include <utf/utf_QuaternionDoubleAdapter.h>
#include <utf/utf_QuaternionFloatAdapter.h>
#include <utf/utf_Scalar.h>
#include <utf/utf_Slerp.h>
#include <utf/utf_Tens2dPlanarBase.h>
#include <utf/utf_Tens2dSurfaceBase.h>
#include <utf/utf_Tens3dFullBase.h>
#include <utf/utf_Tens3dPlanarBase.h>
#include <utf/utf_Tens3dSurfaceBase.h>
#include <utf/utf_Tensor.h>
#include <utf/utf_TensorBatch.h>
#include <utf/utf_Vector.h>
#include <utf/utf_flat.h>

#endif
