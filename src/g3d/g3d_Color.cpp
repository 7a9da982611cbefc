#include <g3d/detail/g3d_Hexcone.h>
#include <g3d/detail/g3d_ToInteger.h>
#include <g3d/g3d_Color.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <ostream>
#include <type_traits>

static_assert(sizeof(g3d_Color) == 16 && std::is_trivially_copyable_v<g3d_Color>);

namespace {

constexpr float byteStep = 1.0F / 255.0F;

constexpr float presets[][3] = {
    {0.0F, 0.0F, 0.0F}, {1.0F, 0.0F, 0.0F}, {0.0F, 1.0F, 0.0F}, {0.0F, 0.0F, 1.0F}, {0.0F, 1.0F, 1.0F},
    {1.0F, 0.0F, 1.0F}, {1.0F, 1.0F, 0.0F}, {1.0F, 1.0F, 1.0F}, {0.1F, 0.1F, 0.1F}, {0.2F, 0.2F, 0.2F},
    {0.3F, 0.3F, 0.3F}, {0.4F, 0.4F, 0.4F}, {0.5F, 0.5F, 0.5F}, {0.6F, 0.6F, 0.6F}, {0.7F, 0.7F, 0.7F},
    {0.8F, 0.8F, 0.8F}, {0.9F, 0.9F, 0.9F},
};

/// Difference in luma that is enough between a colour (row) and its background (column), by octant. Not symmetric.
constexpr float enoughContrast[8][8] = {
    {0.40F, 0.38F, 0.19F, 0.15F, 0.10F, 0.07F, 0.05F, 0.05F},  //
    {0.38F, 0.40F, 0.19F, 0.19F, 0.15F, 0.10F, 0.07F, 0.05F},  //
    {0.19F, 0.22F, 0.40F, 0.38F, 0.19F, 0.07F, 0.10F, 0.07F},  //
    {0.10F, 0.19F, 0.38F, 0.42F, 0.42F, 0.10F, 0.15F, 0.10F},  //
    {0.10F, 0.15F, 0.19F, 0.42F, 0.42F, 0.38F, 0.30F, 0.15F},  //
    {0.07F, 0.10F, 0.15F, 0.19F, 0.38F, 0.40F, 0.38F, 0.19F},  //
    {0.05F, 0.07F, 0.10F, 0.15F, 0.19F, 0.38F, 0.40F, 0.38F},  //
    {0.05F, 0.05F, 0.07F, 0.10F, 0.15F, 0.19F, 0.38F, 0.40F},  //
};

float Luma(const g3d_Color& c) noexcept { return 0.299F * c.R() + 0.587F * c.G() + 0.114F * c.B(); }

/// To the other half of the range.
float Moved(float x) noexcept {
    if (x >= 0.5F) return x > 0.75F ? 1.0F - x : x - 0.5F;
    return x < 0.25F ? 1.0F - x : x + 0.5F;
}

struct Solid {
    float x, y, z;
};
float Dot(const Solid& a, const Solid& b) noexcept { return a.x * b.x + a.y * b.y + a.z * b.z; }

/// A place in the solid of colours: the hue is the angle about the axis of values, `radius` the distance from it.
Solid PlaceOf(const _HSV& color, float radius) noexcept {
    const double angle = 2.0 * std::numbers::pi * color.h;
    return {static_cast<float>(std::cos(angle)) * radius, color.v, static_cast<float>(std::sin(angle)) * radius};
}

/// The radius in a solid that is round at its dark end.
float RoundRadius(const _HSV& color, float k) noexcept {
    return std::sqrt(1.0F - (1.0F - color.v) * (1.0F - color.v)) * k * color.s;
}

/// Yellow, cyan, or close to white.
bool IsLightHued(const _HSV& c) noexcept {
    return (c.h > 0.15F && c.h < 0.24F) || (c.h > 0.42F && c.h < 0.52F) || (c.v > 0.9F && c.s < 0.16F);
}

bool IsWhiteOnBright(const _HSV& color, const _HSV& background) noexcept {
    if (!(color.s < 0.01F && color.v > 0.99F && background.v > 0.85F)) return false;
    return (background.h > 0.04F && background.h < 0.63F && background.s < 0.1F) ||
           (background.h > 0.15F && background.h < 0.2F) || (background.h > 0.45F && background.h < 0.52F);
}

}  // namespace

g3d_Color& g3d_Color::Set(g3d_PresetColorEnum preset, float alpha) noexcept {
    if (preset < g3d_Black || preset > g3d_Grey90) return *this;
    const float(&rgb)[3] = presets[preset];
    return *this = {rgb[0], rgb[1], rgb[2], alpha};
}

g3d_Color& g3d_Color::Set(const g3d_Color& color, float alpha) noexcept {
    *this = color;
    if (alpha != 1.0F) _a = alpha;
    return *this;
}

g3d_Color& g3d_Color::Set(unsigned rgba) noexcept {
    const auto component = [rgba](int shift) { return static_cast<float>((rgba >> shift) & 0xFFU) * byteStep; };
    return *this = {component(24), component(16), component(8), component(0)};
}

g3d_Color& g3d_Color::Set(const cow_String& text, float alpha) {
    if (*text.c_str() != '#') return *this;
    unsigned r = 0, g = 0, b = 0;
    // What is not read is to stay 0, so the count of fields does not matter. Two digits cannot overflow.
    static_cast<void>(std::sscanf(text.c_str(), "#%02X%02X%02X", &r, &g, &b));  // NOLINT(cert-err34-c)
    const auto component = [](unsigned field) { return static_cast<float>(field) * byteStep; };
    return *this = {component(r), component(g), component(b), alpha};
}

g3d_Color& g3d_Color::Clamp() noexcept {
    for (float* const component : {&_r, &_g, &_b, &_a}) *component = std::clamp(*component, 0.0F, 1.0F);
    return *this;
}

_HSV g3d_Color::GetHSV() const noexcept {
    const float v = std::max(std::max(_r, _g), _b);
    const float d = v - std::min(std::min(_r, _g), _b);
    if (v == 0.0F) return {0.0F, 0.0F, v};
    const float s = d / v;
    if (s == 0.0F) return {0.0F, s, v};
    const unsigned top = g3d_TopComponent(_r, _g, v);
    const float rise[4] = {_g - _b, _b - _r, _r - _g};
    static constexpr float start[3] = {0.0F, 2.0F, 4.0F};
    const float sixths = rise[top] / d + start[top];
    return {g3d_HueOfSixths(sixths), s, v};
}

g3d_Color& g3d_Color::SetHSV(_HSV hsv) noexcept {
    float rgb[3] = {hsv.v, hsv.v, hsv.v};
    const float hue = hsv.h >= 1.0F ? 0.0F : hsv.h;
    if (hsv.s != 0.0F && !g3d_RGBOfSixths(static_cast<float>(hue * 6.0), hsv.s, hsv.v, rgb)) return *this;
    return *this = {rgb[0], rgb[1], rgb[2], _a};
}

unsigned g3d_Color::GetRGBA() const noexcept {
    const auto byte = [](float component) -> unsigned { return g3d_ToInteger<unsigned char>(component * 255.0F); };
    return byte(_r) << 24 | byte(_g) << 16 | byte(_b) << 8 | byte(_a);
}

int g3d_Color::ColorOctal(float r, float g, float b) noexcept {
    return (b >= 0.5F ? 1 : 0) + (r >= 0.5F ? 2 : 0) + (g >= 0.5F ? 4 : 0);
}

g3d_Color& g3d_Color::Invert(const g3d_Color& background, float /*ignored*/) noexcept {
    const int own = ColorOctal(_r, _g, _b);
    const int other = ColorOctal(background._r, background._g, background._b);
    const float contrast = std::abs(Luma(*this) - Luma(background));
    if (contrast < 0.0001F) return *this = {1.0F - _r, 1.0F - _g, 1.0F - _b, _a};
    if (!(enoughContrast[own][other] > contrast)) return *this;

    float r = Moved(_r), g = Moved(_g), b = Moved(_b);
    if (own == 2) r = other == 5 || (other == 1 && _r > 0.75F) ? 1.0F - _r : _r - 0.5F;
    if ((own == 3 && other == 4) || (own == 4 && other == 3)) {
        g = _g;
        b = own == 3 ? 1.0F : 0.0F;
    }
    return *this = {r, g, b, _a};
}

g3d_Color g3d_Color::GetContrastingColor(const g3d_Color& background) const noexcept {
    g3d_Color result = *this;
    _HSV own = GetHSV();
    const _HSV other = background.GetHSV();

    if (own.s < 0.05F && other.s < 0.05F) {  // two greys
        const float difference = other.v - own.v;
        if (difference > -0.35F && difference < 0.35F) own.v = other.v < 0.5F ? 1.0F : 0.0F;
        return result.SetHSV(own);
    }
    if (IsWhiteOnBright(own, other)) return g3d_Color(g3d_Black);

    const float k = IsLightHued(own) && IsLightHued(other) ? 0.31F : 0.36F;
    const Solid p = PlaceOf(own, RoundRadius(own, k));
    const Solid q = PlaceOf(other, RoundRadius(other, k));
    const Solid gap = {q.x - p.x, q.y - p.y, q.z - p.z};
    if (std::sqrt(Dot(gap, gap)) >= 0.35F) return result;

    // In a cone, where this hue and saturation is a line from the apex: where does it leave the ball of that radius
    // around the background?
    const Solid line = own.v == 0.0F ? Solid{0.0F, 1.0F, 0.0F} : PlaceOf(own, k * own.v * own.s);
    const Solid centre = PlaceOf(other, k * other.v * other.s);
    const Solid offset = {-centre.x, -centre.y, -centre.z};
    constexpr float squaredDistance = 0.122499995F;  // 0.35 * 0.35 in single precision
    const float a = Dot(line, line);
    const float b = 2.0F * Dot(line, offset);
    const float c = Dot(offset, offset) - squaredDistance;
    const float discriminant = b * b - 4.0F * a * c;
    if (discriminant > 0.0F) {
        const float root = other.v > 0.5F ? -std::sqrt(discriminant) : std::sqrt(discriminant);
        own.v = (root - b) / (2.0F * a) * line.y;
        if (own.v < 0.0F || own.v > 1.0F) own.v = (-b - root) / (2.0F * a) * line.y;
    } else {
        own.v = -b / (2.0F * a) * line.y;
    }
    return result.SetHSV(own);
}

aio_ostream& operator<<(aio_ostream& out, const g3d_Color& color) {
    return out << "(" << static_cast<double>(color.R()) << ", " << static_cast<double>(color.G()) << ", "
               << static_cast<double>(color.B()) << ", " << static_cast<double>(color.A()) << ")";
}
