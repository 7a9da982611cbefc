#ifndef ORV_G3D_G3D_UTILS_H
#define ORV_G3D_G3D_UTILS_H

#include <base/cow_List.h>
#include <base/cow_String.h>
#include <base/orv_Export.h>

class g3d_Color;
class g3d_Point;
class g3d_Vector;

/// Line widths as users choose them.
enum g3d_LineThicknessEnum : int { g3d_VeryThinLine = 0, g3d_ThinLine = 1, g3d_MediumLine = 2, g3d_ThickLine = 3 };

/// Sizes of point markers as users choose them.
enum g3d_MarkerSizeEnum : int { g3d_SmallMarker = 0, g3d_MediumMarker = 1, g3d_LargeMarker = 2 };

/// Spectra for legends, and small conversions.
///
/// A spectrum fills n colours that the caller provides, from one end to the other, `reverse` from the other end.
/// Nothing is written when n < 1. Every colour written gets `alpha`, also where components are left as they were. Hues
/// go through PctToHSV and HSVToRGB, so they have 16 bits a channel.
class ORV_EXPORT g3d_Utils {
public:
    g3d_Utils() = delete;

    /// x + 0.5 in single precision, truncated towards zero: *negative halves and more go up*, -2.7 gives -2. Saturates
    /// at the limits of int; NaN gives 0.
    [[nodiscard]] static int Round(float x) noexcept;

    /// 0.2, 0.5, 0.8, 1.2 in the order of the enumerators; 0.2 for any other value.
    [[nodiscard]] static float ConvertLineThickness(g3d_LineThicknessEnum thickness) noexcept;

    /// 2, 3, 4 in the order of the enumerators; 2 for any other value.
    [[nodiscard]] static float ConvertMarkerSize(g3d_MarkerSizeEnum size) noexcept;

    /// Blue by green to red, in equal steps of hue at full saturation and value. One colour is blue, reversed red.
    static void Rainbow(g3d_Color* colors, int n, bool reverse, float alpha) noexcept;

    /// (u^2, 0.09, (1 - u)^2) for u from 0 to 1. One colour is blue, reversed red, *with the green it had*.
    static void BlueToRed(g3d_Color* colors, int n, bool reverse, float alpha) noexcept;

    /// Greys from 0.15 to 0.85. *One colour is full black, reversed full white*.
    static void BlackToWhite(g3d_Color* colors, int n, bool reverse, float alpha) noexcept;

    /// Once around the hues from 0.3 on: the first and the last colour are the same. One colour is green *with the blue
    /// it had*.
    static void WrapAround(g3d_Color* colors, int n, float alpha) noexcept;

    /// A spectrum through named colours (g3d_ColorMap::ConstGet: "#RRGGBB" too), spread evenly over n places; an exact
    /// half goes to the lower one. Between them hue, saturation and value run linearly, the hue the short way round
    /// when it is further than half a turn (strict); there *alpha stays as it was*. More names than places: some are
    /// left out. One name fills all.
    ///
    /// Nothing is written without names or when n is not in 1..256. Throws g3d_ColorErrorException for a name that is
    /// no colour, also one that would be left out, before anything is written.
    static void FillInColorsAndInterpolate(const cow_List<cow_String>& names, int n, g3d_Color* colors);

    /// a + t (b - a), component by component; of points all four, w too. t is not clamped, and 1 need not give b
    /// exactly.
    [[nodiscard]] static g3d_Point Interpolate(float t, const g3d_Point& a, const g3d_Point& b) noexcept;
    [[nodiscard]] static g3d_Vector Interpolate(float t, const g3d_Vector& a, const g3d_Vector& b) noexcept;
};

#endif
