#include <g3d/g3d_Color.h>
#include <g3d/g3d_ContrastRatio.h>

#include <algorithm>
#include <cmath>

namespace {

double Linear(float component) noexcept {
    if (!(component > 0.0F)) return 0.0;
    const double x = std::min(component, 1.0F);
    return x <= 0.04045 ? x / 12.92 : std::pow((x + 0.055) / 1.055, 2.4);
}

}  // namespace

double g3d_RelativeLuminance(const g3d_Color& color) noexcept {
    return 0.2126 * Linear(color.R()) + 0.7152 * Linear(color.G()) + 0.0722 * Linear(color.B());
}

double g3d_ContrastRatio(const g3d_Color& a, const g3d_Color& b) noexcept {
    const auto [darker, lighter] = std::minmax({g3d_RelativeLuminance(a), g3d_RelativeLuminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}
