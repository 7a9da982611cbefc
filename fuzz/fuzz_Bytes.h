#ifndef ORV_FUZZ_FUZZ_BYTES_H
#define ORV_FUZZ_FUZZ_BYTES_H

#include <frame/OrvLumGeom.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <limits>
#include <string>
#include <string_view>

/// Called by libFuzzer and by the replay for each input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// A law that a target states. A breach ends the process, which is how libFuzzer notices.
inline void fuzz_Require(bool holds, const char* law) {
    if (holds) return;
    std::fprintf(stderr, "broken: %s\n", law);
    std::abort();
}

/// The library for the rest of the process, and the standard streams dumb: what it says of bad input would drown
/// everything.
inline void fuzz_StartLibrary() {
    static const bool isStarted = [] {
        int count = 0;
        OrvLumGeom_initialize(count);
        std::cerr.setstate(std::ios::failbit);
        std::cout.setstate(std::ios::failbit);
        return true;
    }();
    static_cast<void>(isStarted);
}

/// The input taken piece by piece; behind its end there are zeros.
class fuzz_Bytes {
public:
    fuzz_Bytes(const std::uint8_t* data, std::size_t size)
        : _rest(size == 0 ? "" : reinterpret_cast<const char*>(data), size) {}

    [[nodiscard]] bool IsEmpty() const { return _rest.empty(); }

    /// The next bytes as a number.
    template <class T>
    T Take() {
        T value{};
        const std::size_t size = std::min(sizeof value, _rest.size());
        if (size > 0) std::memcpy(&value, _rest.data(), size);
        _rest.remove_prefix(size);
        return value;
    }
    unsigned Byte() { return Take<std::uint8_t>(); }
    /// 0..n-1, n at most 256.
    unsigned Below(unsigned n) { return Byte() % n; }
    bool Flag() { return Below(2) != 0; }

    /// One of the numbers at which things break, or any.
    double Double() {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        constexpr double special[] = {0.0,
                                      -0.0,
                                      1.0,
                                      -1.0,
                                      0.5,
                                      0.1,
                                      1e-6,
                                      2147483648.0,
                                      5e-324,
                                      1e300,
                                      1e15,
                                      1e16,
                                      1e-5,
                                      infinity,
                                      -infinity,
                                      2.2250738585072014e-308,
                                      std::numeric_limits<double>::quiet_NaN()};
        const unsigned kind = Byte();
        if (kind < std::size(special)) return special[kind];
        return kind < 128 ? static_cast<double>(Take<std::int8_t>()) / 4.0 : Take<double>();
    }

    /// A length byte, then so many bytes.
    std::string Text() {
        const std::size_t length = Byte();
        const std::size_t size = std::min(length, _rest.size());
        std::string text(_rest.substr(0, size));
        _rest.remove_prefix(size);
        return text;
    }
    /// All that is left.
    std::string Rest() {
        std::string text(_rest);
        _rest = {};
        return text;
    }

private:
    std::string_view _rest;
};

#endif
