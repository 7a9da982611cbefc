#include <g3d/g3d_ContourScale.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

std::vector<g3d_Color> SpectrumOf(int bandCount, g3d_SpectrumEnum spectrum, bool reverse) {
    std::vector<g3d_Color> colors(static_cast<std::size_t>(std::clamp(bandCount, 1, g3d_ContourScale::MostBands)));
    g3d_Spectrum(spectrum, colors.data(), static_cast<int>(colors.size()), reverse, 1.0F);
    return colors;
}

}  // namespace

g3d_ContourScale::g3d_ContourScale(double low, double high, int bandCount, g3d_SpectrumEnum spectrum, bool reverse)
    : g3d_ContourScale(low, high, SpectrumOf(bandCount, spectrum, reverse)) {}

g3d_ContourScale::g3d_ContourScale(double low, double high, std::vector<g3d_Color> bandColors)
    : _bandColors(std::move(bandColors)) {
    if (_bandColors.empty()) _bandColors.emplace_back(g3d_White);
    if (_bandColors.size() > MostBands) _bandColors.resize(MostBands);

    if (!std::isfinite(low)) low = 0.0;
    if (!std::isfinite(high)) high = 0.0;
    if (low > high) std::swap(low, high);
    // lerp ascends, hits both ends exactly and does not overflow where high - low would.
    const int n = BandCount();
    for (int i = 0; i <= n; ++i) _limits.push_back(std::lerp(low, high, static_cast<double>(i) / n));
}

double g3d_ContourScale::Limit(int i) const noexcept {
    return _limits[static_cast<std::size_t>(std::clamp(i, 0, BandCount()))];
}

const g3d_Color& g3d_ContourScale::BandColor(int band) const noexcept {
    return _bandColors[static_cast<std::size_t>(std::clamp(band, 0, BandCount() - 1))];
}

int g3d_ContourScale::Band(double value) const noexcept {
    if (!(value >= Low())) return -1;
    if (value > High()) return BandCount();
    const auto above = std::upper_bound(_limits.begin(), _limits.end(), value);
    return std::min(static_cast<int>(above - _limits.begin()), BandCount()) - 1;
}

const g3d_Color& g3d_ContourScale::Color(double value) const noexcept {
    if (std::isnan(value)) return _nan;
    if (value < Low()) return _below;
    return value > High() ? _above : BandColor(Band(value));
}
