#ifndef ORV_G3D_G3D_RGB_H
#define ORV_G3D_G3D_RGB_H

/* Colour arithmetic on plain values, callable from C and C++ under these very names. */

#include <base/orv_Export.h>

#include <stdint.h>  // NOLINT(modernize-deprecated-headers): C reads this header too

/* NOLINTBEGIN(modernize-use-using): C, and the names that callers know */

/// Red, green, blue: 0 is no intensity, 65535 full intensity.
typedef struct _RGB {
    /// The channels.
    uint16_t r, g, b;
} _RGB;

/// Hue, saturation, value, each nominally in [0, 1]. Hue is a fraction of a full turn: 0 red, 1/3 green, 2/3 blue.
typedef struct _HSV {
    /// The components.
    float h, s, v;
} _HSV;

/* NOLINTEND(modernize-use-using) */

#ifdef __cplusplus
extern "C" {
#endif

ORV_EXPORT extern const _RGB RGBBlack;  ///< (0, 0, 0)
ORV_EXPORT extern const _RGB RGBWhite;  ///< (65535, 65535, 65535)

/// Hexcone model (A. R. Smith, 1978), in single precision. A grey has hue and saturation 0, black (0, 0, 0). The hue is
/// in [0, 1).
ORV_EXPORT _HSV RGBToHSV(_RGB rgb);

/// The reverse. *Changes its argument*, whatever the caller wants it for: unless the saturation is exactly 0,
/// saturation and value come back clamped to [0, 1] and *the hue multiplied by 6* (that of a hue of 1 or more, taken as
/// 0, is 0). A negative hue is *not folded*: from -1/6 downwards the result is (0, 0, 0); between -1/6 and 0 it is
/// computed as if red's sector went on there. NaN counts as 0 wherever it reaches a channel.
#ifdef __cplusplus
ORV_EXPORT _RGB HSVToRGB(_HSV& hsv);
#else
ORV_EXPORT _RGB HSVToRGB(_HSV* hsv);
#endif

/// Channel by channel a wa + b wb in single precision, truncated, then clamped to [0, 65535] (NaN gives 0). The weights
/// need not sum up to 1.
ORV_EXPORT _RGB MixRGB(_RGB a, float wa, _RGB b, float wb);

/// Hue, saturation and value mixed as by MixRGB. *When the hues differ by more than 0.5 (strict), half a turn is added
/// to the mixed hue whatever the weights are*: right for equal weights, and kept for all. A mixed hue that is negative
/// gives what HSVToRGB makes of it.
ORV_EXPORT _RGB MixHSV(_RGB a, float wa, _RGB b, float wb);

/// Fractions of full intensity, rounded half up in double precision. *Clamped above at 1 and not below*: a negative
/// fraction keeps the low 16 bits, -0.5 gives 32769.
ORV_EXPORT _RGB PctToRGB(float r, float g, float b);

/// Each clamped above at 1 and *not below*. NaN stays.
ORV_EXPORT _HSV PctToHSV(float h, float s, float v);

/// Sum of the absolute differences of the channels over 65535: in [0, 3].
ORV_EXPORT float RGBDist(_RGB a, _RGB b);

/// 65535 minus each channel. The two are one function under two names.
ORV_EXPORT _RGB CMYToRGB(_RGB cmy);
ORV_EXPORT _RGB RGBToCMY(_RGB rgb);

#ifdef __cplusplus
}
#endif

#endif
