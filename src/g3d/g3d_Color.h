#ifndef ORV_G3D_G3D_COLOR_H
#define ORV_G3D_G3D_COLOR_H

#include <base/aio_ostream.h>
#include <base/cow_String.h>
#include <base/orv_Export.h>
#include <g3d/g3d_RGB.h>

/// The preset colours; the greys bear their intensity in percent.
enum g3d_PresetColorEnum : int {
    g3d_Black = 0,
    g3d_Red = 1,
    g3d_Green = 2,
    g3d_Blue = 3,
    g3d_Cyan = 4,
    g3d_Magenta = 5,
    g3d_Yellow = 6,
    g3d_White = 7,
    g3d_Grey10 = 8,
    g3d_Grey20 = 9,
    g3d_Grey30 = 10,
    g3d_Grey40 = 11,
    g3d_Grey50 = 12,
    g3d_Grey60 = 13,
    g3d_Grey70 = 14,
    g3d_Grey80 = 15,
    g3d_Grey90 = 16
};

/// A colour in single precision: red, green, blue and alpha (1 is opaque), each nominally in [0, 1]. Nothing but
/// `Clamp` keeps them there, so components may be anything, NaN and infinities among it: what is computed from those is
/// defined but has no meaning. Setters return the colour itself.
class ORV_EXPORT g3d_Color {
public:
    /// Opaque black.
    constexpr g3d_Color() noexcept = default;
    /// Of these components, as they are.
    constexpr g3d_Color(float r, float g, float b, float a) noexcept : _r(r), _g(g), _b(b), _a(a) {}

    /// (0, 0, 0, 1) when `preset` is none of the enumerators.
    explicit g3d_Color(g3d_PresetColorEnum preset, float alpha = 1.0F) noexcept { Set(preset, alpha); }

    // ---- Components

    /// As stored: nominally in [0, 1], not clamped.
    [[nodiscard]] constexpr float R() const noexcept { return _r; }
    [[nodiscard]] constexpr float G() const noexcept { return _g; }
    [[nodiscard]] constexpr float B() const noexcept { return _b; }
    [[nodiscard]] constexpr float A() const noexcept { return _a; }

    // ---- Setting

    /// Changes nothing, not even alpha, when `preset` is none of the enumerators.
    g3d_Color& Set(g3d_PresetColorEnum preset, float alpha = 1.0F) noexcept;

    /// All four components of `color`, then `alpha` in place of its own *unless `alpha` is exactly 1*, which means "as
    /// it is": a transparent colour cannot be made opaque this way.
    g3d_Color& Set(const g3d_Color& color, float alpha = 1.0F) noexcept;

    /// Bytes of 1/255 each: *red in bits 31..24*, then green, blue, alpha in bits 7..0. The palette's packed colours
    /// run the other way (g3d_ColorArray::IntToFloatColor).
    g3d_Color& Set(unsigned rgba) noexcept;

    /// "#RRGGBB" in hexadecimal, 1/255 each. Text that does not begin with '#' changes nothing, not even alpha. The
    /// rest is read as the C library scans "#%02X%02X%02X": blanks before a field, a sign and "0x" are taken, reading
    /// ends at the first field that is none, fields not read count as 0, what follows is ignored, and a negative field
    /// wraps around to a huge component.
    g3d_Color& Set(const cow_String& text, float alpha = 1.0F);

    /// The predefined colours with the alpha given.
    g3d_Color& SetBlack(float alpha = 1.0F) noexcept { return Set(g3d_Black, alpha); }
    g3d_Color& SetRed(float alpha = 1.0F) noexcept { return Set(g3d_Red, alpha); }
    g3d_Color& SetGreen(float alpha = 1.0F) noexcept { return Set(g3d_Green, alpha); }
    g3d_Color& SetBlue(float alpha = 1.0F) noexcept { return Set(g3d_Blue, alpha); }
    g3d_Color& SetCyan(float alpha = 1.0F) noexcept { return Set(g3d_Cyan, alpha); }
    g3d_Color& SetMagenta(float alpha = 1.0F) noexcept { return Set(g3d_Magenta, alpha); }
    g3d_Color& SetYellow(float alpha = 1.0F) noexcept { return Set(g3d_Yellow, alpha); }
    g3d_Color& SetWhite(float alpha = 1.0F) noexcept { return Set(g3d_White, alpha); }
    g3d_Color& SetGrey10(float alpha = 1.0F) noexcept { return Set(g3d_Grey10, alpha); }
    g3d_Color& SetGrey20(float alpha = 1.0F) noexcept { return Set(g3d_Grey20, alpha); }
    g3d_Color& SetGrey30(float alpha = 1.0F) noexcept { return Set(g3d_Grey30, alpha); }
    g3d_Color& SetGrey40(float alpha = 1.0F) noexcept { return Set(g3d_Grey40, alpha); }
    g3d_Color& SetGrey50(float alpha = 1.0F) noexcept { return Set(g3d_Grey50, alpha); }
    g3d_Color& SetGrey60(float alpha = 1.0F) noexcept { return Set(g3d_Grey60, alpha); }
    g3d_Color& SetGrey70(float alpha = 1.0F) noexcept { return Set(g3d_Grey70, alpha); }
    g3d_Color& SetGrey80(float alpha = 1.0F) noexcept { return Set(g3d_Grey80, alpha); }
    g3d_Color& SetGrey90(float alpha = 1.0F) noexcept { return Set(g3d_Grey90, alpha); }

    /// Each component into [0, 1]; a NaN stays.
    g3d_Color& Clamp() noexcept;

    // ---- Other forms

    /// Hexcone model, in single precision throughout: may differ from RGBToHSV in the last bit.
    [[nodiscard]] _HSV GetHSV() const noexcept;

    /// The reverse, alpha untouched. Saturation and value are *not clamped*, and a saturation of exactly 0 gives grey.
    /// A hue of 1 or more is taken as 0; negative hues are *not folded*: from -1/6 downwards nothing changes, between
    /// -1/6 and 0 red's sector goes on.
    g3d_Color& SetHSV(_HSV hsv) noexcept;

    /// Packed as by the packed `Set`; each component * 255 in single precision, truncated. *Not clamped*: each keeps
    /// the low 8 bits.
    [[nodiscard]] unsigned GetRGBA() const noexcept;

    /// The octant of r, g, b, each against 0.5 (inclusive): *1 for blue, 2 for red, 4 for green*, summed.
    [[nodiscard]] static int ColorOctal(float r, float g, float b) noexcept;

    // ---- Legible on a background

    /// Changes this colour so that it stands out against `background`. Alpha stays and *the number is ignored*.
    /// With lumas 0.299 r + 0.587 g + 0.114 b: if they differ by less than 1e-4 (strict), each component becomes
    /// 1 - itself. Else, if they differ by less (strict) than the table of the two octants asks for - an *asymmetric*
    /// table -, a component of 0.5 or more goes down (1 - x above 0.75, else x - 0.5) and a lesser one up (1 - x below
    /// 0.25, else x + 0.5), with exceptions for red and between octants 3 and 4. Results may leave [0, 1].
    g3d_Color& Invert(const g3d_Color& background, float ignored) noexcept;

    /// This colour with its hue, saturation and alpha, its value moved as far as it takes to stand out; the same colour
    /// when it does already, and opaque black for white on certain bright backgrounds. Distances are taken in a solid
    /// with the hue as the angle, and must reach 0.35. In single precision, the cosine and sine in double. The value
    /// found last is not checked: it may leave [0, 1].
    [[nodiscard]] g3d_Color GetContrastingColor(const g3d_Color& background) const noexcept;

    // ---- Arithmetic

    /// Component by component on red, green and blue; *the alpha of the result is 1*. Nothing is clamped.
    [[nodiscard]] constexpr g3d_Color operator+(const g3d_Color& other) const noexcept {
        return {_r + other._r, _g + other._g, _b + other._b, 1.0F};
    }
    [[nodiscard]] constexpr g3d_Color operator-(const g3d_Color& other) const noexcept {
        return {_r - other._r, _g - other._g, _b - other._b, 1.0F};
    }
    [[nodiscard]] constexpr g3d_Color operator*(const g3d_Color& other) const noexcept {
        return {_r * other._r, _g * other._g, _b * other._b, 1.0F};
    }

    // ---- Comparison

    /// Exact, on all four components.
    [[nodiscard]] bool operator==(const g3d_Color& other) const noexcept = default;

private:
    float _r = 0.0F;
    float _g = 0.0F;
    float _b = 0.0F;
    float _a = 1.0F;
};

/// "(r, g, b, a)" with the stream's own precision and flags.
ORV_EXPORT aio_ostream& operator<<(aio_ostream& out, const g3d_Color& color);

#endif
