#ifndef ORV_UTF_UTF_AXISANGLE_H
#define ORV_UTF_UTF_AXISANGLE_H

#include <base/orv_Export.h>
#include <gsl/gsl_Vector.h>
#include <utf/utf_Quaternion.h>

/// A turn by an angle about an axis through the origin, right-handed.
struct utf_AxisAngle {
    /// Axis (a unit where it is a result) and angle.
    gsl_Vector axis;
    double angleRadians = 0.0;
};

/// The turn of a quaternion of either kind and of any length: a unit axis and an angle in [0, pi]. No turn has the axis
/// (0, 0, 0) and the angle 0.
template <class T>
[[nodiscard]] ORV_EXPORT utf_AxisAngle utf_ToAxisAngle(const utf_Quaternion<T>& q);

/// The 3D quaternion of the turn; the axis may have any length, and a zero axis gives the identity whatever the angle.
/// The axes of the frame turn with it: row i of the cosines is global axis i turned.
template <class T>
[[nodiscard]] ORV_EXPORT utf_Quaternion<T> utf_FromAxisAngle(const utf_AxisAngle& turn);

#endif
