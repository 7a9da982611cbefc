#ifndef ORV_BASE_DETAIL_BIO_ENCODING_H
#define ORV_BASE_DETAIL_BIO_ENCODING_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

/// Why a writing filter stopped that could not grow.
inline constexpr const char* bio_outOfMemory = "stream is out of memory";

/// Scalars on a stream are little-endian, fixed width, unaligned. A machine that is so itself moves
/// them as they are, others byte by byte.
template <std::size_t size>
struct bio_Bits;
template <>
struct bio_Bits<1> {
    using Type = std::uint8_t;
};
template <>
struct bio_Bits<2> {
    using Type = std::uint16_t;
};
template <>
struct bio_Bits<4> {
    using Type = std::uint32_t;
};
template <>
struct bio_Bits<8> {
    using Type = std::uint64_t;
};

template <class T>
inline void bio_Store(char* to, T value) noexcept {
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(to, &value, sizeof(T));
    } else {
        const auto bits = std::bit_cast<typename bio_Bits<sizeof(T)>::Type>(value);
        for (std::size_t i = 0; i < sizeof(T); ++i)
            to[i] = static_cast<char>(static_cast<unsigned char>(bits >> (8 * i)));
    }
}

template <class T>
[[nodiscard]] inline T bio_Load(const char* from) noexcept {
    using Bits = typename bio_Bits<sizeof(T)>::Type;
    Bits bits = 0;
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(&bits, from, sizeof(T));
    } else {
        for (std::size_t i = sizeof(T); i > 0; --i)
            bits = static_cast<Bits>((static_cast<std::uint64_t>(bits) << 8) | static_cast<unsigned char>(from[i - 1]));
    }
    return std::bit_cast<T>(bits);
}

/// `n` values that stand one after the other.
template <class T>
inline void bio_LoadBlock(T* to, const char* from, std::size_t n) noexcept {
    if constexpr (std::endian::native == std::endian::little)
        std::memcpy(to, from, n * sizeof(T));
    else
        for (std::size_t i = 0; i < n; ++i) to[i] = bio_Load<T>(from + i * sizeof(T));
}

#endif
