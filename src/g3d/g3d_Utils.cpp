#include <g3d/detail/g3d_ToInteger.h>
#include <g3d/g3d_Color.h>
#include <g3d/g3d_ColorMap.h>
#include <g3d/g3d_Point.h>
#include <g3d/g3d_Utils.h>
#include <g3d/g3d_Vector.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

namespace {

constexpr int mostColors = 256;

g3d_Color FromHue(double hue, float alpha) noexcept {
    _HSV hsv = PctToHSV(static_cast<float>(hue), 1.0F, 1.0F);
    const _RGB rgb = HSVToRGB(hsv);
    const auto component = [](uint16_t channel) { return static_cast<float>(channel) / 65535.0F; };
    return {component(rgb.r), component(rgb.g), component(rgb.b), alpha};
}

/// colors[i] = colorOf(i), or from the end when reversed.
template <class ColorOf>
void Fill(g3d_Color* colors, int n, bool reverse, ColorOf colorOf) noexcept {
    for (int i = 0; i < n; ++i) colors[reverse ? n - 1 - i : i] = colorOf(i);
}

/// The place among n of name j of m: an exact half goes down. Ascends with j.
int PlaceOf(int j, int m, int n) noexcept {
    const double ratio = static_cast<double>(m - 1) / static_cast<double>(n - 1);
    const float x = static_cast<float>(j) / static_cast<float>(ratio);
    const float above = std::ceil(x);
    return static_cast<int>(above - x < 0.5F ? above : std::floor(x));
}

/// The colours between places a and b, in hue, saturation and value.
void InterpolateHues(g3d_Color* colors, int a, int b) noexcept {
    _HSV from = colors[a].GetHSV();
    _HSV to = colors[b].GetHSV();
    if (from.h - to.h > 0.5F)
        to.h += 1.0F;
    else if (to.h - from.h > 0.5F)
        from.h += 1.0F;
    for (int s = a + 1; s < b; ++s) {
        const float t = static_cast<float>(s - a) / static_cast<float>(b - a);
        const auto mixed = [t](float x, float y) { return x * (1.0F - t) + y * t; };
        const float h = mixed(from.h, to.h);
        colors[s].SetHSV({h > 1.0F ? h - 1.0F : h, mixed(from.s, to.s), mixed(from.v, to.v)});
    }
}

}  // namespace

int g3d_Utils::Round(float x) noexcept {
    using Int = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<std::int64_t>(g3d_ToInteger<std::int64_t>(x + 0.5F), Int::min(), Int::max()));
}

float g3d_Utils::ConvertLineThickness(g3d_LineThicknessEnum thickness) noexcept {
    static constexpr float widths[] = {0.2F, 0.5F, 0.8F, 1.2F};
    return widths[thickness < g3d_VeryThinLine || thickness > g3d_ThickLine ? g3d_VeryThinLine : thickness];
}

float g3d_Utils::ConvertMarkerSize(g3d_MarkerSizeEnum size) noexcept {
    static constexpr float sizes[] = {2.0F, 3.0F, 4.0F};
    return sizes[size < g3d_SmallMarker || size > g3d_LargeMarker ? g3d_SmallMarker : size];
}

void g3d_Utils::Rainbow(g3d_Color* colors, int n, bool reverse, float alpha) noexcept {
    if (n == 1) {
        colors[0].Set(g3d_Color(reverse ? g3d_Red : g3d_Blue, alpha));
        return;
    }
    Fill(colors, n, !reverse, [=](int i) { return FromHue(i * (2.0 / 3.0) / (n - 1), alpha); });
}

void g3d_Utils::BlueToRed(g3d_Color* colors, int n, bool reverse, float alpha) noexcept {
    if (n == 1) {
        colors[0] = {reverse ? 1.0F : 0.0F, colors[0].G(), reverse ? 0.0F : 1.0F, alpha};
        return;
    }
    Fill(colors, n, reverse, [=](int i) {
        const double u = i / (n - 1.0), w = (n - 1 - i) / (n - 1.0);
        return g3d_Color(static_cast<float>(u * u), 0.09F, static_cast<float>(w * w), alpha);
    });
}

void g3d_Utils::BlackToWhite(g3d_Color* colors, int n, bool reverse, float alpha) noexcept {
    if (n == 1) {
        colors[0] = g3d_Color(reverse ? g3d_White : g3d_Black, alpha);
        return;
    }
    Fill(colors, n, reverse, [=](int i) {
        const auto grey = static_cast<float>(i / (n - 1.0) * 0.7 + 0.15);
        return g3d_Color(grey, grey, grey, alpha);
    });
}

void g3d_Utils::WrapAround(g3d_Color* colors, int n, float alpha) noexcept {
    if (n == 1) {
        colors[0] = {0.0F, 1.0F, colors[0].B(), alpha};
        return;
    }
    Fill(colors, n, false, [=](int i) {
        const double hue = i / (n - 1.0) + 0.3;
        return FromHue(hue > 1.0 ? hue - 1.0 : hue, alpha);
    });
}

void g3d_Utils::FillInColorsAndInterpolate(const cow_List<cow_String>& names, int n, g3d_Color* colors) {
    const int m = names.Length();
    if (m < 1 || n < 1 || n > mostColors) return;
    std::vector<g3d_Color> named;
    named.reserve(static_cast<std::size_t>(m));
    for (const cow_String& name : names) named.push_back(g3d_ColorMap::Instance().ConstGet(name));

    if (m == 1 || m > n) {
        const std::int64_t last = std::max(n - 1, 1);
        for (int i = 0; i < n; ++i) colors[i] = named[static_cast<std::size_t>(std::int64_t{i} * (m - 1) / last)];
        return;
    }
    // The first name takes the first place and the last name the last one; places ascend.
    int filled = -1;
    for (int j = 0; j < m; ++j) {
        const int place = PlaceOf(j, m, n);
        if (place == filled && j != m - 1) continue;
        colors[place] = named[static_cast<std::size_t>(j)];
        if (filled >= 0) InterpolateHues(colors, filled, place);
        filled = place;
    }
}

g3d_Point g3d_Utils::Interpolate(float t, const g3d_Point& a, const g3d_Point& b) noexcept {
    return {a.X() + t * (b.X() - a.X()), a.Y() + t * (b.Y() - a.Y()), a.Z() + t * (b.Z() - a.Z()),
            a.W() + t * (b.W() - a.W())};
}

g3d_Vector g3d_Utils::Interpolate(float t, const g3d_Vector& a, const g3d_Vector& b) noexcept {
    return a + t * (b - a);
}
