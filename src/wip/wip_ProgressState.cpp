#include <wip/wip_ProgressState.h>

#include <algorithm>
#include <cmath>
#include <limits>

float wip_ProgressState::Fraction() const noexcept {
    const float width = end - start;
    return width > 0.0F ? (current - start) / width : 0.0F;
}

int wip_ProgressState::Percent() const noexcept {
    using Int = std::numeric_limits<int>;
    const float product = current * 100.0F;
    if (std::isnan(product)) return 0;
    const double percent = std::floor(static_cast<double>(product) + 0.01);
    return static_cast<int>(std::clamp<double>(percent, Int::min(), Int::max()));
}
