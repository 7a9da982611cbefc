#ifndef ORV_G3D_G3D_CONTOURSCALE_H
#define ORV_G3D_G3D_CONTOURSCALE_H

#include <base/orv_Export.h>
#include <g3d/g3d_Color.h>
#include <g3d/g3d_Spectrum.h>

#include <vector>

/// The legend of a contour plot: a range of values cut into bands of equal width, a colour for each, and one for what
/// lies below, above, or is not a number.
///
/// Band i holds the values v with Limit(i) <= v < Limit(i + 1), the last band the upper end of the range as well; so
/// both ends of the range belong to it, and every value has the colour that the legend shows for it, to the last bit.
class ORV_EXPORT g3d_ContourScale {
public:
    /// More bands are not made.
    static constexpr int MostBands = 256;

    /// What can be repaired is: an end that is not finite counts as 0, ends in the wrong order are swapped, and the
    /// number of bands is brought into 1..256. A range without width belongs to the last band. The colours of the bands
    /// are opaque; beside them Grey20 below, Grey80 above, magenta for NaN until they are set.
    g3d_ContourScale(double low, double high, int bandCount, g3d_SpectrumEnum spectrum = g3d_RainbowSpectrum,
                     bool reverse = false);

    /// With bands of the caller's own colours, low to high; only the first 256 count. Without any, one white band.
    g3d_ContourScale(double low, double high, std::vector<g3d_Color> bandColors);

    /// The ends of the range, and the number of bands, 1 to 256.
    [[nodiscard]] double Low() const noexcept { return _limits.front(); }
    [[nodiscard]] double High() const noexcept { return _limits.back(); }
    [[nodiscard]] int BandCount() const noexcept { return static_cast<int>(_bandColors.size()); }

    /// Limit 0 is the low end, limit BandCount() the high end. An index outside counts as the nearest one.
    [[nodiscard]] double Limit(int i) const noexcept;

    /// An index outside 0..BandCount()-1 counts as the nearest one.
    [[nodiscard]] const g3d_Color& BandColor(int band) const noexcept;

    /// -1 below the range and for NaN, BandCount() above it.
    [[nodiscard]] int Band(double value) const noexcept;

    /// Lives as long as the scale, and is changed by the setters.
    [[nodiscard]] const g3d_Color& Color(double value) const noexcept;

    /// For values below the range, above it, and NaN.
    void SetBelowColor(const g3d_Color& color) noexcept { _below = color; }
    void SetAboveColor(const g3d_Color& color) noexcept { _above = color; }
    void SetNaNColor(const g3d_Color& color) noexcept { _nan = color; }

private:
    std::vector<g3d_Color> _bandColors;  // never empty
    std::vector<double> _limits;         // one more, ascending
    g3d_Color _below{g3d_Grey20};
    g3d_Color _above{g3d_Grey80};
    g3d_Color _nan{g3d_Magenta};
};

#endif
