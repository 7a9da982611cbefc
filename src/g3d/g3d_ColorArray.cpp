#include <g3d/detail/g3d_ToInteger.h>
#include <g3d/g3d_Color.h>
#include <g3d/g3d_ColorArray.h>

#include <algorithm>

namespace {

std::uint8_t Byte(float component) noexcept { return g3d_ToInteger<std::uint8_t>(component * 255.0); }
float Component(std::uint8_t byte) noexcept { return static_cast<float>(byte * 0.00392156862745098); }

}  // namespace

g3d_ColorArray::~g3d_ColorArray() = default;

unsigned g3d_ColorArray::CheckColor(const g3d_Color& color) noexcept {
    const Entry entry = {Byte(color.R()), Byte(color.G()), Byte(color.B()), Byte(color.A())};
    const auto end = _entries.begin() + _count;
    const auto found = std::find(_entries.begin(), end, entry);
    const auto index = static_cast<unsigned>(found - _entries.begin());
    if (found == end && index < Capacity) _entries[_count++] = entry;
    return index;
}

void g3d_ColorArray::GetColor(unsigned index, float& r, float& g, float& b) const noexcept {
    if (index > _count) return;
    const Entry& entry = _entries[index];
    r = Component(entry[0]);
    g = Component(entry[1]);
    b = Component(entry[2]);
}

g3d_Color g3d_ColorArray::GetColor(unsigned index) const noexcept {
    if (index > _count) return g3d_Color(g3d_White);
    const Entry& entry = _entries[index];
    return {Component(entry[0]), Component(entry[1]), Component(entry[2]), Component(entry[3])};
}

void g3d_ColorArray::GetColor(unsigned index, g3d_Color& color) const noexcept { color = GetColor(index); }

g3d_Color g3d_ColorArray::IntToFloatColor(unsigned abgr) noexcept {
    const unsigned rgba = abgr << 24 | (abgr & 0xFF00U) << 8 | (abgr >> 8 & 0xFF00U) | abgr >> 24;
    return g3d_Color().Set(rgba);
}

void g3d_ColorArray::SetAlpha(float alpha) noexcept {
    for (unsigned i = 0; i < _count; ++i) _entries[i][3] = Byte(alpha);
}

void g3d_ColorArray::ContrastColors(const g3d_Color& background) noexcept {
    for (unsigned i = 0; i < _count; ++i) {
        const g3d_Color color = GetColor(i).GetContrastingColor(background);
        _entries[i] = {Byte(color.R()), Byte(color.G()), Byte(color.B()), _entries[i][3]};
    }
}

void g3d_ColorArray::Cleanup() noexcept {
    _entries = {};
    _count = 0;
}
