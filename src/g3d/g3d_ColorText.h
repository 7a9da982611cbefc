#ifndef ORV_G3D_G3D_COLORTEXT_H
#define ORV_G3D_G3D_COLORTEXT_H

#include <base/cow_String.h>
#include <base/orv_Export.h>

class g3d_Color;

/// "#RRGGBB" in upper-case hexadecimal, the reverse of the text form of `g3d_Color::Set`; alpha has no part in it. Each
/// component is clamped to [0, 1] (NaN gives 0) and *rounded* to the nearest byte, halves up, where GetRGBA truncates.
[[nodiscard]] ORV_EXPORT cow_String g3d_ColorText(const g3d_Color& color);

#endif
