#include <g3d/detail/g3d_Hexcone.h>
#include <g3d/detail/g3d_ToInteger.h>
#include <g3d/g3d_RGB.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <type_traits>

static_assert(sizeof(_RGB) == 6 && std::is_trivially_copyable_v<_RGB>);
static_assert(sizeof(_HSV) == 12 && std::is_trivially_copyable_v<_HSV>);

const _RGB RGBBlack = {0, 0, 0};
const _RGB RGBWhite = {65535, 65535, 65535};

namespace {

/// channel / 65535 in single precision: for all 65536 channels the product rounds to the very quotient.
float Fraction(uint16_t channel) noexcept { return static_cast<float>(channel * (1.0 / 65535.0)); }

/// A NaN stays.
float AtMostOne(float x) noexcept { return std::min(x, 1.0F); }

uint16_t Channel(float fraction) noexcept { return g3d_ToInteger<uint16_t>(AtMostOne(fraction) * 65535.0 + 0.5); }

/// Put together in a register: channels stored one by one and read back as a whole, which is what compilers make of
/// {r, g, b}, keep the processor waiting for longer than the rest of a conversion takes.
_RGB Assembled(uint16_t r, uint16_t g, uint16_t b) noexcept {
    constexpr bool isLittleEndian = std::endian::native == std::endian::little;
    const uint32_t pair = isLittleEndian ? r | static_cast<uint32_t>(g) << 16 : g | static_cast<uint32_t>(r) << 16;
    _RGB rgb = {0, 0, b};
    std::memcpy(&rgb, &pair, sizeof pair);
    return rgb;
}

uint16_t MixedChannel(uint16_t a, float wa, uint16_t b, float wb) noexcept {
    const float mixed = static_cast<float>(a) * wa + static_cast<float>(b) * wb;
    return g3d_ToInteger<uint16_t>(std::clamp(mixed, 0.0F, 65535.0F));
}

uint16_t Complement(uint16_t channel) noexcept { return static_cast<uint16_t>(65535 - channel); }

}  // namespace

_HSV RGBToHSV(_RGB rgb) {
    const float r = Fraction(rgb.r), g = Fraction(rgb.g), b = Fraction(rgb.b);
    const float v = std::max(std::max(r, g), b);
    const float d = v - std::min(std::min(r, g), b);
    if (d == 0.0F) return {0.0F, 0.0F, v};
    const unsigned top = g3d_TopComponent(rgb.r, rgb.g, std::max(rgb.r, std::max(rgb.g, rgb.b)));
    const float plus[4] = {b, r, g}, minus[4] = {g, b, r};
    static constexpr double start[3] = {0.0, 2.0, 4.0};
    const auto sixths = static_cast<float>(start[top] + (v - plus[top]) / d - (v - minus[top]) / d);
    return {g3d_HueOfSixths(sixths), d / v, v};
}

_RGB HSVToRGB(_HSV& hsv) {
    if (hsv.s == 0.0F) return PctToRGB(hsv.v, hsv.v, hsv.v);
    hsv.s = AtMostOne(std::max(hsv.s, 0.0F));
    hsv.v = AtMostOne(std::max(hsv.v, 0.0F));
    hsv.h = static_cast<float>((hsv.h >= 1.0F ? 0.0F : hsv.h) * 6.0);
    float rgb[3];
    return g3d_RGBOfSixths(hsv.h, hsv.s, hsv.v, rgb) ? PctToRGB(rgb[0], rgb[1], rgb[2]) : RGBBlack;
}

_RGB MixRGB(_RGB a, float wa, _RGB b, float wb) {
    return {MixedChannel(a.r, wa, b.r, wb), MixedChannel(a.g, wa, b.g, wb), MixedChannel(a.b, wa, b.b, wb)};
}

_RGB MixHSV(_RGB a, float wa, _RGB b, float wb) {
    const _HSV left = RGBToHSV(a);
    const _HSV right = RGBToHSV(b);
    _HSV mixed = {left.h * wa + right.h * wb, left.s * wa + right.s * wb, left.v * wa + right.v * wb};
    if (std::abs(left.h - right.h) > 0.5F) {
        mixed.h += 0.5F;
        if (mixed.h >= 1.0F) mixed.h -= 1.0F;
    }
    return HSVToRGB(mixed);
}

_RGB PctToRGB(float r, float g, float b) { return Assembled(Channel(r), Channel(g), Channel(b)); }

_HSV PctToHSV(float h, float s, float v) { return {AtMostOne(h), AtMostOne(s), AtMostOne(v)}; }

float RGBDist(_RGB a, _RGB b) {
    return static_cast<float>(std::abs(a.r - b.r) + std::abs(a.g - b.g) + std::abs(a.b - b.b)) / 65535.0F;
}

_RGB CMYToRGB(_RGB cmy) { return {Complement(cmy.r), Complement(cmy.g), Complement(cmy.b)}; }
_RGB RGBToCMY(_RGB rgb) { return CMYToRGB(rgb); }
