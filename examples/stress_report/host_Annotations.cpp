#include "host_Annotations.h"

#include "host_Canvas.h"
#include "host_ModelPainter.h"
#include "host_Page.h"

#include <annC/annC_Arrow.h>
#include <annC/annC_Draw.h>
#include <annC/annC_NamedAnchor.h>
#include <annC/annC_Point3DAnchor.h>
#include <annC/annC_Text.h>
#include <g3d/g3d_Viewport.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <memory>
#include <optional>

namespace {

using Place = annC_RelativePositionEnm;

constexpr const char* bigFont = "-*-helvetica-bold-r-normal-*-*-190-";
constexpr const char* boldFont = "-*-helvetica-bold-r-normal-*-*-120-";
constexpr const char* plainFont = "-*-helvetica-medium-r-normal-*-*-120-";

annC_AnchorHld At(Place place) { return annC_AnchorHld(std::make_shared<annC_NamedAnchor>(place)); }

/// A black text whose point `reference` lies (x, y) millimetres from the anchor.
annC_Text Text(const std::string& text, const char* font, const annC_AnchorHld& anchor, Place reference, double x,
               double y) {
    annC_Text result;
    result.SetText(text);
    result.SetFont(font);
    result.SetColor("Black");
    result.SetAnchor(anchor);
    result.SetReferencePoint(At(reference));
    result.SetOffsetX(x);
    result.SetOffsetY(y);
    return result;
}

/// A black arrow between two points millimetres from an anchor.
annC_Arrow Arrow(const annC_AnchorHld& anchor, const annC_DrawPoint& from, const annC_DrawPoint& to) {
    annC_Arrow arrow;
    arrow.SetColor("Black");
    arrow.SetStartAnchor(anchor);
    arrow.SetEndAnchor(anchor);
    arrow.SetStartPointX(from.x);
    arrow.SetStartPointY(from.y);
    arrow.SetEndPointX(to.x);
    arrow.SetEndPointY(to.y);
    return arrow;
}

void Insert(annC_AnnotationContainer& container, const std::string& name, const annC_Annotation& annotation) {
    container.Insert(name, annC_AnnotationHld(annotation.Copy()));
}

// ---- Legend

std::string Printed(const char* format, int decimals, double value) {
    std::array<char, 400> text{};  // the longest number has 309 digits before the point
    std::snprintf(text.data(), text.size(), format, decimals, value);
    return text.data();
}

/// Three digits of the step between limits show, in exponents where fixed point would be long, but no more than nine
/// of the limit.
void AddLegend(annC_AnnotationContainer& container, const host_Scene& scene, const host_Captions& captions) {
    const g3d_ContourScale scale = host_ContourScale(scene);
    const int bands = scale.BandCount();
    const double greatest = std::max(std::abs(scale.Low()), std::abs(scale.High()));
    const double step = scale.High() > scale.Low() ? scale.Limit(1) - scale.Low() : greatest / 10.0;
    const double digits = step > 0.0 ? 2.0 - std::floor(std::log10(step)) : 0.0;
    const bool isFixed = digits <= 6.0 && greatest < 1e6;
    const int decimals = isFixed ? std::max(0, static_cast<int>(digits))
                                 : static_cast<int>(std::clamp(digits + std::floor(std::log10(greatest)), 3.0, 8.0));

    const annC_AnchorHld corner = At(Place::TOP_LEFT);
    constexpr double left = host_LegendPlace::left, top = host_LegendPlace::top, margin = 1.0;
    const std::string title = captions.quantity + (captions.unit.empty() ? "" : " [" + captions.unit + "]");
    Insert(container, "legend title", Text(title, boldFont, corner, Place::BOTTOM_LEFT, left - margin, -(top - 4.0)));
    const host_LegendPlace place(bands);
    constexpr double leastPitch = 5.0;
    const int each = std::max(1, static_cast<int>(std::ceil(leastPitch / place.boxHeight)));
    for (int limit = 0; limit <= bands; ++limit) {
        const int boxesAbove = bands - limit;
        if (limit != 0 && (boxesAbove % each != 0 || limit < each)) continue;
        const std::string number = std::to_string(limit);
        Insert(
            container, "legend " + std::string(3 - number.size(), '0') + number,
            Text(Printed(isFixed ? "%.*f" : "%.*e", decimals, scale.Limit(limit)), plainFont, corner,
                 Place::CENTER_LEFT, left + host_LegendPlace::boxWidth + 0.5, -(top + boxesAbove * place.boxHeight)));
    }
}

// ---- Axes

void AddAxes(annC_AnnotationContainer& container, const g3d_Camera& camera) {
    constexpr double middle = 24.0, length = 13.0, letter = 17.0;
    const annC_AnchorHld corner = At(Place::BOTTOM_LEFT);
    for (int axis = 0; axis < 3; ++axis) {
        const annC_DrawPoint along{camera.GetVOM().M(0, axis), camera.GetVOM().M(1, axis)};
        if (!(std::hypot(along.x, along.y) > 0.1)) continue;  // seen from its end
        const std::string name(1, static_cast<char>('x' + axis));
        annC_Arrow arrow = Arrow(corner, {middle, middle}, {middle + length * along.x, middle + length * along.y});
        arrow.SetColor("#404040");
        Insert(container, "axis " + name, arrow);
        annC_Text text =
            Text(name, plainFont, corner, Place::CENTER, middle + letter * along.x, middle + letter * along.y);
        text.SetColor("#404040");
        Insert(container, "axis " + name + " letter", text);
    }
}

// ---- Label

/// A rectangle on the page, in millimetres to the right and down.
struct Box {
    annC_DrawPoint low, high;
};

/// Where the model covers the page: asked every millimetre, or more coarsely on a page of more than a metre.
class Coverage {
public:
    Coverage(const host_Scene& scene, const host_Page& page)
        : _cellsPerMillimeter(std::min(1.0, 1000.0 / std::max(page.width, page.height))),
          _raster(CellOf(page.width) + 1, 0, CellOf(page.height) + 1) {
        host_ModelPainter(scene, _raster.Width(), _raster.RowCount()).Paint(_raster);
    }

    [[nodiscard]] bool IsModel(double x, double y) const {
        const int column = CellOf(x), row = CellOf(y);
        return column >= 0 && row >= 0 && column < _raster.Width() && row < _raster.RowCount() &&
               _raster.Colors(row)[column] != host_Raster::nothing;
    }

    /// Square millimetres, about.
    [[nodiscard]] int CountIn(const Box& box) const {
        int count = 0;
        for (double y = box.low.y; y <= box.high.y; y += 1.0)
            for (double x = box.low.x; x <= box.high.x; x += 1.0) count += IsModel(x, y) ? 1 : 0;
        return count;
    }

    /// Millimetres, about.
    [[nodiscard]] double LengthOver(const annC_DrawPoint& from, const annC_DrawPoint& to) const {
        constexpr int steps = 64;
        int count = 0;
        for (int i = 0; i < steps; ++i)
            if (IsModel(from.x + (to.x - from.x) * i / steps, from.y + (to.y - from.y) * i / steps)) ++count;
        return std::hypot(to.x - from.x, to.y - from.y) * count / steps;
    }

    /// Whether the model is before a point by more than the slope of its faces within a cell explains.
    [[nodiscard]] bool Hides(const g3d_Viewport::Triple& point) const {
        constexpr double slack = 0.01;
        return IsModel(point[0], point[1]) && _raster.Depth(CellOf(point[0]), CellOf(point[1])) < point[2] - slack;
    }

private:
    [[nodiscard]] int CellOf(double place) const {
        return static_cast<int>(std::clamp(std::floor(place * _cellsPerMillimeter), -1.0, 1e6));
    }

    double _cellsPerMillimeter;
    host_Raster _raster;
};

/// The middle of a label of that size: free of the model if possible, as close to the point as an arrow needs, with
/// little of the arrow over the model.
annC_DrawPoint LabelPlace(const Coverage& coverage, const host_Page& page, const annC_DrawPoint& point,
                          const annC_DrawPoint& size) {
    constexpr double pitch = 3.0, around = 3.0, leastArrow = 14.0, mostArrow = 150.0;
    const double left = host_Page::leftMargin + size.x / 2.0;
    const double right = std::max(left, page.width - 5.0 - size.x / 2.0);
    const double top = host_Page::topMargin - 8.0 + size.y / 2.0;
    const double bottom = std::max(top, page.height - 5.0 - size.y / 2.0);
    const annC_DrawPoint nearest{std::clamp(point.x, left, right), std::clamp(point.y, top, bottom)};
    annC_DrawPoint best = nearest;
    double leastCost = std::numeric_limits<double>::infinity();
    const double lastX = std::min(right, nearest.x + mostArrow), lastY = std::min(bottom, nearest.y + mostArrow);
    for (double y = std::max(top, nearest.y - mostArrow); y <= lastY; y += pitch) {
        for (double x = std::max(left, nearest.x - mostArrow); x <= lastX; x += pitch) {
            const double clearX = std::abs(x - point.x) - size.x / 2.0, clearY = std::abs(y - point.y) - size.y / 2.0;
            const double arrow = std::hypot(std::max(0.0, clearX), std::max(0.0, clearY));
            if (arrow < leastArrow) continue;
            const Box box{{x - size.x / 2.0 - around, y - size.y / 2.0 - around},
                          {x + size.x / 2.0 + around, y + size.y / 2.0 + around}};
            double cost = arrow + 2.0 * coverage.LengthOver(point, {x, y});
            if (cost < leastCost) cost += 5.0 * coverage.CountIn(box);
            if (cost >= leastCost) continue;
            leastCost = cost;
            best = {x, y};
        }
    }
    return best;
}

void AddGreatest(annC_AnnotationContainer& container, const host_Scene& scene, std::size_t node,
                 const std::string& label) {
    if (node >= scene.positions.size()) return;
    float windowWidth = 0.0F, windowHeight = 0.0F;
    scene.camera.GetWindow(windowWidth, windowHeight);
    const host_Page page(windowWidth, windowHeight);
    const g3d_Viewport inMillimeters(0.0, 0.0, page.width, page.height);
    const auto seen = inMillimeters.ToPixel(scene.camera, scene.positions[node]);
    if (!seen) return;
    const annC_DrawPoint point{(*seen)[0], (*seen)[1]};
    if (!page.IsForModel(point.x, point.y)) return;
    const Coverage coverage(scene, page);

    const auto& [x, y, z] = scene.positions[node];
    const annC_AnchorHld anchor(std::make_shared<annC_Point3DAnchor>(x, y, z));
    annC_Text text = Text(label, boldFont, anchor, Place::CENTER, 0.0, 0.0);
    text.SetBackgroundStyle(annC_BackgroundStyleEnm::MATCH);
    text.SetBox(true);
    const host_Canvas measure(1200, 900, host_PictureFormat::Png);
    const auto bounds = annC_Draw(text, scene.camera, inMillimeters, measure).Bounds();
    if (!bounds) return;
    const double scale = measure.GetPixelsPerMillimeter();
    const annC_DrawPoint size{(bounds->max.x - bounds->min.x) / scale, (bounds->max.y - bounds->min.y) / scale};
    const annC_DrawPoint middle = LabelPlace(coverage, page, point, size);
    text.SetOffsetX(middle.x - point.x);
    text.SetOffsetY(point.y - middle.y);
    annC_Arrow arrow = Arrow(anchor, {text.OffsetX(), text.OffsetY()}, {0.0, 0.0});
    arrow.SetLineThickness(annC_LineThicknessEnm::THIN);
    if (coverage.Hides(*seen)) arrow.SetLineStyle(annC_LineStyleEnm::DASHED);
    Insert(container, "greatest", arrow);
    Insert(container, "greatest label", text);  // over the arrow, which begins in its middle
}

}  // namespace

bool host_HasLegend(const host_Scene& scene) {
    return std::ranges::any_of(scene.values, [](double value) { return std::isfinite(value); });
}

annC_AnnotationContainer host_Annotations(const host_Scene& scene, const host_Captions& captions,
                                          std::size_t greatestNode, const std::string& greatestLabel) {
    annC_AnnotationContainer annotations;
    const annC_AnchorHld corner = At(Place::TOP_LEFT);
    constexpr double left = host_LegendPlace::left - 1.0;
    Insert(annotations, "title", Text(captions.title, bigFont, corner, Place::TOP_LEFT, left, -7.0));
    annC_Text subtitle = Text(captions.subtitle, plainFont, corner, Place::TOP_LEFT, left, -17.0);
    subtitle.SetColor("#505050");
    Insert(annotations, "title below", subtitle);
    if (host_HasLegend(scene)) AddLegend(annotations, scene, captions);
    if (scene.faces.empty()) return annotations;
    AddAxes(annotations, scene.camera);
    AddGreatest(annotations, scene, greatestNode, greatestLabel);
    return annotations;
}
