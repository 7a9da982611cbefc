#ifndef ORV_G3D_G3D_CONTRASTRATIO_H
#define ORV_G3D_G3D_CONTRASTRATIO_H

#include <base/orv_Export.h>

class g3d_Color;

/// Relative luminance by the Web Content Accessibility Guidelines 2: 0 black, 1 white. The components are taken as
/// sRGB, clamped to [0, 1] (NaN counts as 0); alpha does not count.
[[nodiscard]] ORV_EXPORT double g3d_RelativeLuminance(const g3d_Color& color) noexcept;

/// Contrast ratio of two colours by the same guidelines, in [1, 21], whichever is the background. They ask for 4.5
/// between text and background, for 3 when the text is large.
[[nodiscard]] ORV_EXPORT double g3d_ContrastRatio(const g3d_Color& a, const g3d_Color& b) noexcept;

#endif
