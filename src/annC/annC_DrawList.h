#ifndef ORV_ANNC_ANNC_DRAWLIST_H
#define ORV_ANNC_ANNC_DRAWLIST_H

#include <base/cow_String.h>
#include <base/orv_Export.h>
#include <g3d/g3d_Color.h>

#include <optional>
#include <utility>
#include <variant>
#include <vector>

/// In pixels as g3d_Viewport counts them: to the right and *down*.
struct annC_DrawPoint {
    /// The coordinates.
    double x = 0.0;
    double y = 0.0;
};

/// `min` is the upper left corner.
struct annC_DrawBounds {
    /// Opposite corners.
    annC_DrawPoint min;
    annC_DrawPoint max;
};

/// A straight line with round ends.
struct annC_DrawSegment {
    /// The ends, the width in pixels, the colour.
    annC_DrawPoint from;
    annC_DrawPoint to;
    double width = 0.0;
    g3d_Color color;
    /// By turns drawn and left out, in pixels from `from` on, over and over; empty for a solid line.
    std::vector<double> dashes;
};

/// Filled, or with an outline, or both, the outline over the filling with its middle on the border and round joins.
struct annC_DrawPolygon {
    std::vector<annC_DrawPoint> corners;  ///< the last one is joined to the first
    /// No colour: not filled, no outline. `width` is that of the outline, in pixels.
    std::optional<g3d_Color> fill;
    std::optional<g3d_Color> outline;
    double width = 0.0;
};

/// One line of text.
struct annC_DrawText {
    /// What is written, in which font (a name for the toolkit), in which colour.
    cow_String text;
    cow_String font;
    g3d_Color color;
    annC_DrawPoint baseline;    ///< its left end
    double angleDegrees = 0.0;  ///< counterclockwise on the screen, about `baseline`
    double width = 0.0;         ///< before the rotation, as the two below
    /// Above and below the baseline.
    double ascent = 0.0;
    double descent = 0.0;
};

/// What a toolkit has to draw, in this order, later items over earlier ones.
class ORV_EXPORT annC_DrawList {
public:
    /// One thing to draw.
    using Item = std::variant<annC_DrawSegment, annC_DrawPolygon, annC_DrawText>;

    /// Puts an item behind all others.
    void Add(Item item) { _items.push_back(std::move(item)); }
    /// Puts the items of `other` behind.
    void Add(const annC_DrawList& other) { _items.insert(_items.end(), other._items.begin(), other._items.end()); }

    /// In the order of drawing.
    [[nodiscard]] const std::vector<Item>& Items() const noexcept { return _items; }

    /// The least rectangle around all items, line widths included. Nothing for an empty list.
    [[nodiscard]] std::optional<annC_DrawBounds> Bounds() const;

    /// Whether a pixel is within `tolerance` pixels (inclusive; a negative one counts as 0) of an item. A polygon is
    /// hit in its inside (even-odd) though it may not be filled, a text in all of its rectangle, a dashed line between
    /// its dashes too. False for NaN.
    [[nodiscard]] bool IsHit(const annC_DrawPoint& pixel, double tolerance) const;

private:
    std::vector<Item> _items;
};

#endif
