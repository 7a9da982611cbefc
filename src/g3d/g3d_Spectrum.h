#ifndef ORV_G3D_G3D_SPECTRUM_H
#define ORV_G3D_G3D_SPECTRUM_H

#include <base/orv_Export.h>

class g3d_Color;

/// The spectra of legends by name.
enum g3d_SpectrumEnum : int {
    g3d_RainbowSpectrum = 0,
    g3d_BlueToRedSpectrum = 1,
    g3d_BlackToWhiteSpectrum = 2,
    g3d_WrapAroundSpectrum = 3,  ///< has no reverse: `reverse` is ignored
    g3d_ColorBlindSafeSpectrum = 4,
    g3d_PerceptualSpectrum = 5
};

/// Dark blue by grey to light yellow: a straight line in the Oklab space (B. Ottosson, 2020) with hardly any red or
/// green in it, so that red-green deficiencies, and grey prints, keep its order. Steps look equal and lightness
/// ascends. As the spectra of g3d_Utils: n colours, `reverse`, `alpha` in each, nothing when n < 1. One colour is the
/// dark end, reversed the light one.
ORV_EXPORT void g3d_ColorBlindSafe(g3d_Color* colors, int n, bool reverse, float alpha) noexcept;

/// Dark violet by blue and green to light yellow: a helix in the Oklab space, lightness and hue in equal
/// steps at one chroma, so that steps look equal everywhere. Otherwise as `g3d_ColorBlindSafe`.
ORV_EXPORT void g3d_Perceptual(g3d_Color* colors, int n, bool reverse, float alpha) noexcept;

/// Fills n colours by the spectrum of that name; rainbow when `spectrum` is none of the enumerators.
ORV_EXPORT void g3d_Spectrum(g3d_SpectrumEnum spectrum, g3d_Color* colors, int n, bool reverse, float alpha) noexcept;

#endif
