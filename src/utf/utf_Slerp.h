#ifndef ORV_UTF_UTF_SLERP_H
#define ORV_UTF_UTF_SLERP_H

#include <base/orv_Export.h>
#include <utf/utf_Quaternion.h>

/// Between two orientations at constant angular speed, the shorter way round: `from` at fraction 0, `to` at 1 (or its
/// negative, the same orientation), beyond them further on the same arc. Both are taken as units; the result is one. 2D
/// when both are, else 3D. A zero quaternion among the two gives a finite result without meaning. K. Shoemake,
/// Animating rotation with quaternion curves, SIGGRAPH 1985.
template <class T>
[[nodiscard]] ORV_EXPORT utf_Quaternion<T> utf_Slerp(const utf_Quaternion<T>& from, const utf_Quaternion<T>& to,
                                                     double fraction);

/// The angle of the turn that takes one orientation into the other, in radians, 0 to pi; accurate for small angles too.
/// Lengths of the quaternions do not matter.
template <class T>
[[nodiscard]] ORV_EXPORT double utf_AngleBetween(const utf_Quaternion<T>& a, const utf_Quaternion<T>& b);

#endif
