#ifndef ORV_STRESS_REPORT_HOST_RASTER_H
#define ORV_STRESS_REPORT_HOST_RASTER_H

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

/// A point on the screen.
struct host_RasterPoint {
    double x = 0.0;  ///< pixels to the right and down
    double y = 0.0;
    double depth = 0.0;    ///< 0 near to 1 far, as g3d_Viewport has it: linear on the screen
    double inverse = 1.0;  ///< 1 / distance from the eye: linear on the screen too; 1 everywhere in parallel views
    double value = 0.0;    ///< linear in space
};

/// Rows of a picture with a depth for each pixel: of all that is drawn the nearest shows. Colours are 0xFFrrggbb, and
/// `nothing` where nothing was drawn. What is asked is asked at the middle of a pixel; triangles that share a side
/// share no pixel, and leave none out between them.
class host_Raster {
public:
    static constexpr std::uint32_t nothing = 0x00FFFFFFU;

    /// A picture's rows from `firstRow` on.
    host_Raster(int width, int firstRow, int rowCount)
        : _width(width),
          _firstRow(firstRow),
          _rowCount(rowCount),
          _depths(static_cast<std::size_t>(width) * static_cast<std::size_t>(rowCount), 1.0),
          _colors(_depths.size(), nothing) {}

    [[nodiscard]] int Width() const noexcept { return _width; }
    [[nodiscard]] int FirstRow() const noexcept { return _firstRow; }
    [[nodiscard]] int RowCount() const noexcept { return _rowCount; }
    /// Columns of the picture, and its rows among those that are here.
    [[nodiscard]] const std::uint32_t* Colors(int row) const { return _colors.data() + Index(0, row); }
    [[nodiscard]] double Depth(int column, int row) const { return _depths[Index(column, row)]; }

    /// Draws a triangle, each pixel by what `colorOf` has for the value there. Depths and values stay within those of
    /// the corners. Not drawn: what is nearer than 0 or farther than 1, slivers without area, corners that are not
    /// finite or more than 1e8 pixels away.
    template <class ColorOf>
    void Fill(const std::array<host_RasterPoint, 3>& corners, ColorOf&& colorOf);

    /// Draws a straight line of that width with square ends.
    template <class ColorOf>
    void Stroke(const host_RasterPoint& from, const host_RasterPoint& to, double width, ColorOf&& colorOf);

private:
    /// A quantity that is linear on the screen.
    struct Plane {
        double atOrigin, perX, perY;
        [[nodiscard]] double At(double x, double y) const { return atOrigin + perX * x + perY * y; }
    };

    [[nodiscard]] std::size_t Index(int column, int row) const {
        return static_cast<std::size_t>(row - _firstRow) * static_cast<std::size_t>(_width) +
               static_cast<std::size_t>(column);
    }

    /// The first pixel of `low` to `high` whose middle is at `place` or behind.
    [[nodiscard]] static int FirstFrom(double place, int low, int high) {
        return static_cast<int>(
            std::clamp(std::ceil(place - 0.5), static_cast<double>(low), static_cast<double>(high)));
    }

    int _width;
    int _firstRow;
    int _rowCount;
    std::vector<double> _depths;
    std::vector<std::uint32_t> _colors;
};

template <class ColorOf>
void host_Raster::Fill(const std::array<host_RasterPoint, 3>& corners, ColorOf&& colorOf) {
    const host_RasterPoint &a = corners[0], &b = corners[1], &c = corners[2];  // no captured bindings for clang 14
    constexpr double farthest = 1e8;
    for (const host_RasterPoint& p : corners)
        if (!(std::abs(p.x) <= farthest && std::abs(p.y) <= farthest)) return;
    const double area = (b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y);
    if (area == 0.0) return;
    const auto planeOf = [&](double atA, double atB, double atC) {
        const double perX = ((atB - atA) * (c.y - a.y) - (atC - atA) * (b.y - a.y)) / area;
        const double perY = ((atC - atA) * (b.x - a.x) - (atB - atA) * (c.x - a.x)) / area;
        return Plane{atA - perX * a.x - perY * a.y, perX, perY};
    };
    const Plane depths = planeOf(a.depth, b.depth, c.depth);
    const Plane inverses = planeOf(a.inverse, b.inverse, c.inverse);
    const Plane values = planeOf(a.value * a.inverse, b.value * b.inverse, c.value * c.inverse);
    const auto [nearest, deepest] = std::minmax({a.depth, b.depth, c.depth});
    const auto [least, greatest] = std::minmax({a.value, b.value, c.value});
    const auto [top, bottom] = std::minmax({a.y, b.y, c.y});

    const int lastRow = FirstFrom(bottom, _firstRow, _firstRow + _rowCount);
    for (int row = FirstFrom(top, _firstRow, _firstRow + _rowCount); row < lastRow; ++row) {
        const double y = row + 0.5;
        double left = farthest, right = -farthest;
        for (std::size_t i = 0; i < 3; ++i) {  // each side from its upper end: the same for both triangles at it
            const host_RasterPoint* upper = &corners[i];
            const host_RasterPoint* lower = &corners[(i + 1) % 3];
            if (upper->y > lower->y) std::swap(upper, lower);
            if (!(upper->y <= y && y < lower->y)) continue;
            const double x = upper->x + (y - upper->y) * ((lower->x - upper->x) / (lower->y - upper->y));
            left = std::min(left, x);
            right = std::max(right, x);
        }
        const int lastColumn = FirstFrom(right, 0, _width);
        for (int column = FirstFrom(left, 0, _width); column < lastColumn; ++column) {
            const double x = column + 0.5;
            const double depth = std::clamp(depths.At(x, y), nearest, deepest);
            double& shown = _depths[Index(column, row)];
            if (!(depth >= 0.0 && depth < shown)) continue;
            shown = depth;
            const double value = values.At(x, y) / inverses.At(x, y);
            // Not std::clamp: whatever a NaN among the values does here, it stays one.
            _colors[Index(column, row)] = colorOf(value < least ? least : value > greatest ? greatest : value);
        }
    }
}

template <class ColorOf>
void host_Raster::Stroke(const host_RasterPoint& from, const host_RasterPoint& to, double width, ColorOf&& colorOf) {
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    if (!(length > 0.0)) return;
    const double alongX = (to.x - from.x) / length * width / 2.0, alongY = (to.y - from.y) / length * width / 2.0;
    const auto beside = [](host_RasterPoint p, double dx, double dy) {
        p.x += dx;
        p.y += dy;
        return p;
    };
    const host_RasterPoint corners[] = {
        beside(from, -alongX - alongY, -alongY + alongX), beside(from, -alongX + alongY, -alongY - alongX),
        beside(to, alongX + alongY, alongY - alongX), beside(to, alongX - alongY, alongY + alongX)};
    Fill({corners[0], corners[1], corners[2]}, colorOf);
    Fill({corners[0], corners[2], corners[3]}, colorOf);
}

#endif
