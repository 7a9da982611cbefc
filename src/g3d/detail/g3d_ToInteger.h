#ifndef ORV_G3D_DETAIL_G3D_TOINTEGER_H
#define ORV_G3D_DETAIL_G3D_TOINTEGER_H

#include <cmath>
#include <concepts>
#include <cstdint>
#include <limits>

/// The whole part of `value`, towards zero, for any value: it goes through 64 signed bits, where it saturates (NaN
/// gives 0), and T keeps the low bits of that. So -32767.0 gives 32769 in 16 bits, and infinity gives 0xFFFF there.
template <std::integral T>
[[nodiscard]] T g3d_ToInteger(double value) noexcept {
    constexpr double limit = 0x1p63;
    using Wide = std::numeric_limits<std::int64_t>;
    if (std::abs(value) < limit) return static_cast<T>(static_cast<std::int64_t>(value));
    if (value >= limit) return static_cast<T>(Wide::max());
    return value <= -limit ? static_cast<T>(Wide::min()) : T(0);
}

#endif
