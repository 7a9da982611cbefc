#include <annC/annC_DrawList.h>
#include <annC/detail/annC_Turn.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace {

/// All that lies within `reach` of a closed outline or of its inside, or of the line between two corners.
struct Shape {
    std::vector<annC_DrawPoint> corners;
    double reach;
};

Shape ShapeOf(const annC_DrawSegment& segment) { return {{segment.from, segment.to}, segment.width / 2.0}; }

Shape ShapeOf(const annC_DrawPolygon& polygon) {
    return {polygon.corners, polygon.outline.has_value() ? polygon.width / 2.0 : 0.0};
}

Shape ShapeOf(const annC_DrawText& text) {
    const annC_Turn turn(text.baseline, text.angleDegrees);
    return {{turn.ToPixel(0.0, -text.descent), turn.ToPixel(text.width, -text.descent),
             turn.ToPixel(text.width, text.ascent), turn.ToPixel(0.0, text.ascent)},
            0.0};
}

Shape ShapeOfItem(const annC_DrawList::Item& item) {
    return std::visit([](const auto& each) { return ShapeOf(each); }, item);
}

double Distance(const annC_DrawPoint& p, const annC_DrawPoint& a, const annC_DrawPoint& b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double square = dx * dx + dy * dy;
    const double along = square > 0.0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / square : 0.0;
    const double t = std::clamp(along, 0.0, 1.0);
    return std::hypot(a.x + t * dx - p.x, a.y + t * dy - p.y);
}

/// Whether the ray from p to the right crosses the edge; of its ends it has the upper one.
bool IsCrossed(const annC_DrawPoint& p, const annC_DrawPoint& a, const annC_DrawPoint& b) {
    return (a.y > p.y) != (b.y > p.y) && p.x < a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x);
}

bool IsWithin(const Shape& shape, const annC_DrawPoint& p, double tolerance) {
    bool isInside = false;
    const std::size_t count = shape.corners.size();
    for (std::size_t i = 0; i < count; ++i) {
        const annC_DrawPoint& a = shape.corners[i];
        const annC_DrawPoint& b = shape.corners[(i + 1) % count];
        if (Distance(p, a, b) <= shape.reach + tolerance) return true;
        isInside ^= IsCrossed(p, a, b);
    }
    return isInside;
}

}  // namespace

std::optional<annC_DrawBounds> annC_DrawList::Bounds() const {
    std::optional<annC_DrawBounds> bounds;
    for (const Item& item : _items) {
        const Shape shape = ShapeOfItem(item);
        for (const annC_DrawPoint& corner : shape.corners) {
            if (!bounds) bounds = {corner, corner};
            bounds->min = {std::min(bounds->min.x, corner.x - shape.reach),
                           std::min(bounds->min.y, corner.y - shape.reach)};
            bounds->max = {std::max(bounds->max.x, corner.x + shape.reach),
                           std::max(bounds->max.y, corner.y + shape.reach)};
        }
    }
    return bounds;
}

bool annC_DrawList::IsHit(const annC_DrawPoint& pixel, double tolerance) const {
    return std::any_of(_items.begin(), _items.end(),
                       [&](const Item& item) { return IsWithin(ShapeOfItem(item), pixel, std::max(0.0, tolerance)); });
}
