#include <frame/OrvLumGeom_Version.h>

#include <array>

namespace {

struct Text {
    std::array<char, 12> chars{};  // up to "255.255.255"
    int length = 0;

    constexpr Text(int major, int minor, int patch) {
        Put(major);
        chars[length++] = '.';
        Put(minor);
        chars[length++] = '.';
        Put(patch);
    }
    constexpr void Put(int number) {
        if (number >= 10) Put(number / 10);
        chars[length++] = static_cast<char>('0' + number % 10);
    }
};

constexpr Text text(OrvLumGeom_versionMajor, OrvLumGeom_versionMinor, OrvLumGeom_versionPatch);

}  // namespace

const char* OrvLumGeom_version() noexcept { return text.chars.data(); }
