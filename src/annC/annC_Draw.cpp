#include <annC/annC_AnnotationClient.h>
#include <annC/annC_Arrow.h>
#include <annC/annC_Draw.h>
#include <annC/annC_ResolveAnchor.h>
#include <annC/annC_Text.h>
#include <annC/detail/annC_Argument.h>
#include <annC/detail/annC_Turn.h>
#include <g3d/g3d_ColorMap.h>
#include <g3d/g3d_Utils.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <string_view>
#include <utility>

namespace {

constexpr double farthest = 1e9;    // pixels
constexpr double textMargin = 1.0;  // millimetres

bool IsPlaceable(const annC_DrawPoint& p) { return std::abs(p.x) <= farthest && std::abs(p.y) <= farthest; }

/// Not NaN, not negative, not beyond what can be placed.
double Extent(double pixels) { return std::min(std::max(0.0, pixels), farthest); }

g3d_Color Sound(g3d_Color color, g3d_PresetColorEnum fallback) {
    color.Clamp();
    return std::isnan(color.R() + color.G() + color.B() + color.A()) ? g3d_Color(fallback) : color;
}

g3d_Color ColorOf(const cow_String& name, g3d_PresetColorEnum fallback) {
    return annC_IsColor(name) ? Sound(g3d_ColorMap::Instance().ConstGet(name), fallback) : g3d_Color(fallback);
}

/// What annotations are drawn on.
struct Stage {
    const g3d_Camera& camera;
    const g3d_Viewport& viewport;
    const annC_AnnotationClient& client;
    double pixelsPerMillimeter = annC_AnnotationClient::defaultPixelsPerMillimeter;

    Stage(const g3d_Camera& seenBy, const g3d_Viewport& shownIn, const annC_AnnotationClient& drawnBy)
        : camera(seenBy), viewport(shownIn), client(drawnBy) {
        const double scale = client.GetPixelsPerMillimeter();
        if (scale > 0.0 && scale <= 1000.0) pixelsPerMillimeter = scale;
    }

    /// The pixel at an offset from an anchor.
    [[nodiscard]] std::optional<annC_DrawPoint> Place(const annC_AnchorHld& anchor, double offsetX,
                                                      double offsetY) const {
        const auto pixel = annC_ResolveAnchor(anchor, camera, viewport);
        if (!pixel) return std::nullopt;
        const annC_DrawPoint placed{pixel->x + offsetX * pixelsPerMillimeter, pixel->y - offsetY * pixelsPerMillimeter};
        return IsPlaceable(placed) ? std::optional(placed) : std::nullopt;
    }

    [[nodiscard]] double WidthOf(annC_LineThicknessEnm thickness) const {
        const auto chosen = static_cast<g3d_LineThicknessEnum>(thickness);
        return static_cast<double>(g3d_Utils::ConvertLineThickness(chosen)) * pixelsPerMillimeter;
    }
};

// ---- Arrows

enum class Filling { Open, Hollow, Filled };

/// A head whose tip is the origin and which points along +x, its length and that of the arrowheads being 1 and less.
struct Head {
    std::vector<annC_DrawPoint> corners;
    Filling filling = Filling::Open;

    /// What it takes of the line's length, and what of it the line does not run through.
    [[nodiscard]] double Depth() const {
        double depth = 0.0;
        for (const annC_DrawPoint& corner : corners) depth = std::max(depth, -corner.x);
        return depth;
    }
    [[nodiscard]] double Covered() const { return filling == Filling::Open ? 0.0 : Depth(); }
};

std::vector<annC_DrawPoint> Circle(double radius) {
    constexpr int count = 32;
    std::vector<annC_DrawPoint> corners;
    corners.reserve(count);
    for (int i = 0; i < count; ++i) {
        const double angle = 2.0 * std::numbers::pi * i / count;
        corners.push_back({radius * (std::cos(angle) - 1.0), radius * std::sin(angle)});
    }
    return corners;
}

const Head& HeadOf(annC_ArrowHeadStyleEnm style) {
    static const std::vector<annC_DrawPoint> arrow = {{-1.0, 0.35}, {0.0, 0.0}, {-1.0, -0.35}};
    static const std::vector<annC_DrawPoint> circle = Circle(0.3);
    static const std::vector<annC_DrawPoint> diamond = {{0.0, 0.0}, {-0.4, 0.4}, {-0.8, 0.0}, {-0.4, -0.4}};
    static const std::vector<annC_DrawPoint> square = {{0.0, 0.3}, {-0.6, 0.3}, {-0.6, -0.3}, {0.0, -0.3}};
    static const std::array<Head, 9> heads = {{{arrow, Filling::Open},
                                               {arrow, Filling::Filled},
                                               {circle, Filling::Hollow},
                                               {circle, Filling::Filled},
                                               {diamond, Filling::Hollow},
                                               {diamond, Filling::Filled},
                                               {square, Filling::Hollow},
                                               {square, Filling::Filled},
                                               {}}};
    const auto index = static_cast<std::size_t>(style);
    return index < heads.size() ? heads[index] : heads.back();
}

/// In widths of the line, those under a pixel taken as one.
std::vector<double> DashesOf(annC_LineStyleEnm style, double width) {
    static const std::vector<double> patterns[] = {{}, {1.0, 2.0}, {6.0, 3.0}, {6.0, 2.0, 1.0, 2.0}};
    const auto index = static_cast<std::size_t>(style);
    std::vector<double> dashes = index < std::size(patterns) ? patterns[index] : patterns[0];
    for (double& dash : dashes) dash *= std::max(1.0, width);
    return dashes;
}

/// A head with its tip at a point, pointing along a unit direction.
void AddHead(annC_DrawList& list, const Head& head, double size, const annC_DrawPoint& tip,
             const annC_DrawPoint& direction, double width, const g3d_Color& color) {
    std::vector<annC_DrawPoint> corners;
    corners.reserve(head.corners.size());
    for (const annC_DrawPoint& corner : head.corners)
        corners.push_back({tip.x + size * (corner.x * direction.x - corner.y * direction.y),
                           tip.y + size * (corner.x * direction.y + corner.y * direction.x)});
    if (head.filling != Filling::Open) {
        annC_DrawPolygon polygon{std::move(corners), {}, {}, width};
        (head.filling == Filling::Filled ? polygon.fill : polygon.outline) = color;
        list.Add(std::move(polygon));
        return;
    }
    for (std::size_t i = 1; i < corners.size(); ++i)
        list.Add(annC_DrawSegment{corners[i - 1], corners[i], width, color, {}});
}

annC_DrawList DrawArrow(const annC_Arrow& arrow, const Stage& stage) {
    const auto start = stage.Place(arrow.StartAnchor(), arrow.StartPointX(), arrow.StartPointY());
    const auto end = stage.Place(arrow.EndAnchor(), arrow.EndPointX(), arrow.EndPointY());
    if (!start || !end) return {};
    const double startGap = std::max(0.0, arrow.StartGap() * stage.pixelsPerMillimeter);
    const double endGap = std::max(0.0, arrow.EndGap() * stage.pixelsPerMillimeter);
    const double length = std::hypot(end->x - start->x, end->y - start->y);
    const double visible = length - startGap - endGap;
    if (!(visible > 0.0)) return {};

    const annC_DrawPoint direction{(end->x - start->x) / length, (end->y - start->y) / length};
    const annC_DrawPoint back{-direction.x, -direction.y};
    const auto along = [&](double distance) {
        return annC_DrawPoint{start->x + distance * direction.x, start->y + distance * direction.y};
    };
    const double width = stage.WidthOf(arrow.LineThickness());
    const g3d_Color color = ColorOf(arrow.Color(), g3d_White);
    const Head& startHead = HeadOf(arrow.StartHeadStyle());
    const Head& endHead = HeadOf(arrow.EndHeadStyle());
    const double depth = startHead.Depth() + endHead.Depth();
    const double wanted = 2.5 * stage.pixelsPerMillimeter + 4.0 * width;
    const double size = depth * wanted > visible ? visible / depth : wanted;

    annC_DrawList list;
    const double shaftStart = startGap + size * startHead.Covered();
    const double shaftEnd = length - endGap - size * endHead.Covered();
    if (arrow.LineStyle() != annC_LineStyleEnm::NONE && shaftStart < shaftEnd)
        list.Add(
            annC_DrawSegment{along(shaftStart), along(shaftEnd), width, color, DashesOf(arrow.LineStyle(), width)});
    AddHead(list, startHead, size, along(startGap), back, width, color);
    AddHead(list, endHead, size, along(length - endGap), direction, width, color);
    return list;
}

// ---- Texts

std::vector<annC_DrawText> LinesOf(const annC_Text& text, const annC_AnnotationClient& client) {
    annC_DrawText line;
    line.font = text.Font();
    line.color = ColorOf(text.Color(), g3d_White);
    line.ascent = Extent(client.GetAscent(line.font));
    line.descent = Extent(client.GetDescent(line.font));
    line.angleDegrees = std::isfinite(text.RotationAngle()) ? std::remainder(text.RotationAngle(), 360.0) : 0.0;

    std::vector<annC_DrawText> lines;
    std::string_view rest = text.Text().View();
    for (bool isLast = false; !isLast;) {
        const std::size_t length = rest.find('\n');
        isLast = length == std::string_view::npos;
        line.text = cow_String(rest.substr(0, length));
        line.width = line.text == "" ? 0.0 : Extent(client.GetWidth(line.text, line.font));
        lines.push_back(line);
        if (!isLast) rest.remove_prefix(length + 1);
    }
    return lines;
}

std::optional<g3d_Color> BackgroundOf(const annC_Text& text, const annC_AnnotationClient& client) {
    if (text.BackgroundStyle() == annC_BackgroundStyleEnm::MATCH) return Sound(client.GetBackgroundColor(), g3d_Black);
    if (text.BackgroundStyle() == annC_BackgroundStyleEnm::OTHER) return ColorOf(text.BackgroundColor(), g3d_Black);
    return std::nullopt;
}

/// The part of the room beside a line that is to its left.
double LeftShareOf(annC_JustificationEnm justification) {
    if (justification == annC_JustificationEnm::CENTER) return 0.5;
    return justification == annC_JustificationEnm::RIGHT ? 1.0 : 0.0;
}

annC_DrawList DrawText(const annC_Text& text, const Stage& stage) {
    const auto place = stage.Place(text.Anchor(), text.OffsetX(), text.OffsetY());
    if (!place || text.Text() == "") return {};
    std::vector<annC_DrawText> lines = LinesOf(text, stage.client);
    double widest = 0.0;
    for (const annC_DrawText& line : lines) widest = std::max(widest, line.width);
    const double ascent = lines.front().ascent;
    const double pitch = ascent + lines.front().descent;

    const double margin = textMargin * stage.pixelsPerMillimeter;
    const double width = widest + 2.0 * margin;
    const double height = static_cast<double>(lines.size()) * pitch + 2.0 * margin;
    const auto fractions = annC_AnchorFractions(text.ReferencePoint()).value_or(std::array{0.0, 0.0});
    const double left = -fractions[0] * width;
    const double bottom = -fractions[1] * height;
    const annC_Turn turn(*place, lines.front().angleDegrees);
    std::vector<annC_DrawPoint> corners = {turn.ToPixel(left, bottom), turn.ToPixel(left + width, bottom),
                                           turn.ToPixel(left + width, bottom + height),
                                           turn.ToPixel(left, bottom + height)};
    if (!std::all_of(corners.begin(), corners.end(), IsPlaceable)) return {};

    annC_DrawList list;
    annC_DrawPolygon back{
        std::move(corners), BackgroundOf(text, stage.client), {}, stage.WidthOf(annC_LineThicknessEnm::VERY_THIN)};
    if (text.Box()) back.outline = lines.front().color;
    if (back.fill || back.outline) list.Add(std::move(back));
    double baseline = bottom + height - margin - ascent;
    for (annC_DrawText& line : lines) {
        const double indent = (widest - line.width) * LeftShareOf(text.Justification());
        line.baseline = turn.ToPixel(left + margin + indent, baseline);
        baseline -= pitch;
        if (line.text != "") list.Add(std::move(line));
    }
    return list;
}

}  // namespace

annC_DrawList annC_Draw(const annC_Annotation& annotation, const g3d_Camera& camera, const g3d_Viewport& viewport,
                        const annC_AnnotationClient& client) {
    const Stage stage(camera, viewport, client);
    if (const auto* const arrow = dynamic_cast<const annC_Arrow*>(&annotation); arrow != nullptr)
        return DrawArrow(*arrow, stage);
    if (const auto* const text = dynamic_cast<const annC_Text*>(&annotation); text != nullptr)
        return DrawText(*text, stage);
    return {};
}
