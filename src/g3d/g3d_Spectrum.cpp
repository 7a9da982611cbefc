#include <g3d/g3d_Color.h>
#include <g3d/g3d_Spectrum.h>
#include <g3d/g3d_Utils.h>

#include <cmath>

namespace {

/// A colour of the Oklab space: lightness, green to red, blue to yellow.
struct Oklab {
    double lightness, a, b;
};

float Encoded(double linear) noexcept {
    return static_cast<float>(linear <= 0.0031308 ? 12.92 * linear : 1.055 * std::pow(linear, 1.0 / 2.4) - 0.055);
}

g3d_Color FromOklab(const Oklab& lab, float alpha) noexcept {
    const auto cube = [](double x) { return x * x * x; };
    const double l = cube(lab.lightness + 0.3963377774 * lab.a + 0.2158037573 * lab.b);
    const double m = cube(lab.lightness - 0.1055613458 * lab.a - 0.0638541728 * lab.b);
    const double s = cube(lab.lightness - 0.0894841775 * lab.a - 1.2914855480 * lab.b);
    return {Encoded(4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s),
            Encoded(-1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s),
            Encoded(-0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s), alpha};
}

/// Along a path of the Oklab space, u from 0 to 1.
template <class Path>
void Fill(g3d_Color* colors, int n, bool reverse, float alpha, Path path) noexcept {
    for (int i = 0; i < n; ++i) {
        const double u = n == 1 ? 0.0 : i / (n - 1.0);
        colors[i] = FromOklab(path(reverse ? 1.0 - u : u), alpha);
    }
}

}  // namespace

void g3d_ColorBlindSafe(g3d_Color* colors, int n, bool reverse, float alpha) noexcept {
    Fill(colors, n, reverse, alpha, [](double u) { return Oklab{0.30 + 0.62 * u, -0.02 * u, -0.16 + 0.29 * u}; });
}

void g3d_Perceptual(g3d_Color* colors, int n, bool reverse, float alpha) noexcept {
    Fill(colors, n, reverse, alpha, [](double u) {
        const double angle = 5.6 - 3.8 * u, chroma = 0.1;
        return Oklab{0.35 + 0.55 * u, chroma * std::cos(angle), chroma * std::sin(angle)};
    });
}

void g3d_Spectrum(g3d_SpectrumEnum spectrum, g3d_Color* colors, int n, bool reverse, float alpha) noexcept {
    switch (spectrum) {
        case g3d_BlueToRedSpectrum:
            return g3d_Utils::BlueToRed(colors, n, reverse, alpha);
        case g3d_BlackToWhiteSpectrum:
            return g3d_Utils::BlackToWhite(colors, n, reverse, alpha);
        case g3d_WrapAroundSpectrum:
            return g3d_Utils::WrapAround(colors, n, alpha);
        case g3d_ColorBlindSafeSpectrum:
            return g3d_ColorBlindSafe(colors, n, reverse, alpha);
        case g3d_PerceptualSpectrum:
            return g3d_Perceptual(colors, n, reverse, alpha);
        case g3d_RainbowSpectrum:
            break;
    }
    g3d_Utils::Rainbow(colors, n, reverse, alpha);
}
