#ifndef ORV_G3D_G3D_COLORARRAY_H
#define ORV_G3D_G3D_COLORARRAY_H

#include <base/mem_AllocationOperators.h>
#include <base/orv_Export.h>

#include <array>
#include <cstdint>

class g3d_Color;

/// A palette of at most 254 colours, four bytes each: red, green, blue, alpha. A copy has entries of its own.
///
/// Components become bytes by truncation of component * 255 in double precision, without clamping: what does not fit
/// keeps its low 8 bits.
class ORV_EXPORT g3d_ColorArray : public mem_AllocationOperators {
public:
    /// The most entries, and the index that says that there is no room.
    static constexpr unsigned Capacity = 254;

    g3d_ColorArray() noexcept = default;
    g3d_ColorArray(const g3d_ColorArray&) noexcept = default;
    g3d_ColorArray& operator=(const g3d_ColorArray&) noexcept = default;
    virtual ~g3d_ColorArray();

    /// Number of entries.
    [[nodiscard]] unsigned Count() const noexcept { return _count; }

    /// Index of the first entry with the four bytes of `color`, which is appended when there is none. 254 when it is
    /// new and the palette full; nothing is added then.
    unsigned CheckColor(const g3d_Color& color) noexcept;

    /// Byte * 0.00392156862745098, in double precision: may differ from `IntToFloatColor` in the last bit. *The guard
    /// is index <= Count()*: the index behind the last entry reads (0, 0, 0, 0). Above it the outputs of the
    /// three-float form stay as they were, and the other two give (1, 1, 1, 1).
    void GetColor(unsigned index, float& r, float& g, float& b) const noexcept;
    [[nodiscard]] g3d_Color GetColor(unsigned index) const noexcept;
    void GetColor(unsigned index, g3d_Color& color) const noexcept;

    /// Bytes of 1/255 each: *red in bits 7..0*, then green, blue, alpha in bits 31..24. The packed colours of g3d_Color
    /// run the other way.
    [[nodiscard]] static g3d_Color IntToFloatColor(unsigned abgr) noexcept;

    /// Of every entry.
    void SetAlpha(float alpha) noexcept;

    /// Each entry becomes its own `GetContrastingColor(background)`, with the alpha it had. Entries may become equal.
    void ContrastColors(const g3d_Color& background) noexcept;

    /// Leaves no entries.
    void Cleanup() noexcept;

private:
    using Entry = std::array<std::uint8_t, 4>;

    std::array<Entry, Capacity + 1> _entries{};  // zero from _count on, with one to spare behind a full palette
    unsigned _count = 0;
};

#endif
