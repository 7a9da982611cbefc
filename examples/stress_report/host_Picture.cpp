#include "host_Picture.h"

#include "frd_Skin.h"
#include "host_Annotations.h"

#include <annC/annC_AnnotationClient.h>
#include <annC/annC_Draw.h>
#include <g3d/g3d_Camera.h>
#include <g3d/g3d_Color.h>
#include <g3d/g3d_ContourScale.h>
#include <g3d/g3d_Viewport.h>

#include <cairo/cairo.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <memory>
#include <numbers>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <utility>
#include <variant>
#include <vector>

namespace {

using Pixel = std::array<double, 3>;  // x, y, depth

/// A face on the screen.
struct Drawn {
    std::vector<Pixel> outline;
    double depth = 0.0;
    double value = 0.0;
};

/// Faces with a node that the camera cannot show are left out.
std::vector<Drawn> FacesFromFarToNear(const frd_Model& model, const std::vector<double>& lengths,
                                      const g3d_Camera& camera, const g3d_Viewport& viewport) {
    std::vector<std::optional<Pixel>> pixels;
    pixels.reserve(model.nodes.size());
    for (const frd_Node& node : model.nodes) pixels.push_back(viewport.ToPixel(camera, node.position));

    std::vector<Drawn> faces;
    for (const frd_Face& face : frd_Skin(model)) {
        if (!std::ranges::all_of(face.nodes, [&pixels](std::size_t node) { return pixels[node].has_value(); }))
            continue;
        Drawn drawn;
        const auto count = static_cast<double>(face.nodes.size());
        for (const std::size_t node : face.nodes) {
            drawn.outline.push_back(*pixels[node]);
            drawn.depth += (*pixels[node])[2] / count;
            drawn.value += lengths[node] / count;
        }
        faces.push_back(std::move(drawn));
    }
    std::ranges::stable_sort(faces, std::greater<>(), &Drawn::depth);
    return faces;
}

/// A picture under way, in pixels to the right and down.
class Canvas : public annC_AnnotationClient {
public:
    Canvas(int width, int height)
        : _surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height)),
          _context(cairo_create(_surface.get())) {
        SetColor(g3d_Color(g3d_White));
        cairo_paint(_context.get());
        cairo_set_line_join(_context.get(), CAIRO_LINE_JOIN_ROUND);
    }

    void SetColor(const g3d_Color& color) {
        cairo_set_source_rgb(_context.get(), static_cast<double>(color.R()), static_cast<double>(color.G()),
                             static_cast<double>(color.B()));
    }

    void Fill(const std::vector<Pixel>& outline, const g3d_Color& color) {
        for (const auto& [x, y, depth] : outline) cairo_line_to(_context.get(), x, y);
        cairo_close_path(_context.get());
        SetColor(color);
        cairo_fill_preserve(_context.get());
        SetColor(g3d_Color(g3d_Grey30));
        cairo_set_line_width(_context.get(), 0.4);
        cairo_stroke(_context.get());
    }

    void Draw(const annC_DrawSegment& segment) {
        cairo_t* const context = _context.get();
        cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
        cairo_set_line_width(context, segment.width);
        cairo_set_dash(context, segment.dashes.data(), static_cast<int>(segment.dashes.size()), 0.0);
        cairo_move_to(context, segment.from.x, segment.from.y);
        cairo_line_to(context, segment.to.x, segment.to.y);
        SetColor(segment.color);
        cairo_stroke(context);
        cairo_set_dash(context, nullptr, 0, 0.0);
    }

    void Draw(const annC_DrawPolygon& polygon) {
        cairo_t* const context = _context.get();
        for (const annC_DrawPoint& corner : polygon.corners) cairo_line_to(context, corner.x, corner.y);
        cairo_close_path(context);
        if (polygon.fill) {
            SetColor(*polygon.fill);
            cairo_fill_preserve(context);
        }
        if (polygon.outline) {
            SetColor(*polygon.outline);
            cairo_set_line_width(context, polygon.width);
            cairo_stroke_preserve(context);
        }
        cairo_new_path(context);
    }

    void Draw(const annC_DrawText& text) {
        cairo_t* const context = _context.get();
        SelectFont(text.font);
        SetColor(text.color);
        cairo_save(context);
        cairo_translate(context, text.baseline.x, text.baseline.y);
        cairo_rotate(context, -text.angleDegrees * std::numbers::pi / 180.0);
        cairo_move_to(context, 0.0, 0.0);
        cairo_show_text(context, text.text.c_str());
        cairo_restore(context);
    }

    // ---- What drawing annotations asks

    [[nodiscard]] double GetWidth(const cow_String& line, const cow_String& font) const override {
        SelectFont(font);
        cairo_text_extents_t extents;
        cairo_text_extents(_context.get(), line.c_str(), &extents);
        return extents.x_advance;
    }
    [[nodiscard]] double GetAscent(const cow_String& font) const override { return ExtentsOf(font).ascent; }
    [[nodiscard]] double GetDescent(const cow_String& font) const override { return ExtentsOf(font).descent; }
    [[nodiscard]] g3d_Color GetBackgroundColor() const override { return g3d_Color(g3d_White); }

    [[nodiscard]] std::string Png() {
        std::string bytes;
        const auto append = [](void* to, const unsigned char* data, unsigned length) {
            static_cast<std::string*>(to)->append(reinterpret_cast<const char*>(data), length);
            return CAIRO_STATUS_SUCCESS;
        };
        if (cairo_status(_context.get()) != CAIRO_STATUS_SUCCESS ||
            cairo_surface_write_to_png_stream(_surface.get(), append, &bytes) != CAIRO_STATUS_SUCCESS)
            throw std::runtime_error("the picture could not be drawn");
        return bytes;
    }

private:
    /// Of an X logical font description, which has the size in tenths of a point in its eighth field, what cairo has
    /// without looking for fonts: a sans serif face of that size, 12 points if there is none.
    void SelectFont(const cow_String& font) const {
        std::istringstream fields(font.c_str());
        std::string field, weight;
        double points = 0.0;
        for (int i = 0; std::getline(fields, field, '-'); ++i) {
            if (i == 3) weight = field;
            if (i == 8) points = std::strtod(field.c_str(), nullptr) / 10.0;
        }
        if (!(points >= 1.0 && points <= 1000.0)) points = 12.0;
        cairo_select_font_face(_context.get(), "sans-serif", CAIRO_FONT_SLANT_NORMAL,
                               weight == "bold" ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
        constexpr double pixelsPerPoint = 96.0 / 72.0;
        cairo_set_font_size(_context.get(), points * pixelsPerPoint);
    }

    [[nodiscard]] cairo_font_extents_t ExtentsOf(const cow_String& font) const {
        SelectFont(font);
        cairo_font_extents_t extents;
        cairo_font_extents(_context.get(), &extents);
        return extents;
    }

    struct Destroy {
        void operator()(cairo_surface_t* surface) const noexcept { cairo_surface_destroy(surface); }
        void operator()(cairo_t* context) const noexcept { cairo_destroy(context); }
    };
    std::unique_ptr<cairo_surface_t, Destroy> _surface;
    std::unique_ptr<cairo_t, Destroy> _context;
};

/// One box a band in the lower left, the greatest on top.
void DrawLegend(Canvas& canvas, const g3d_ContourScale& legend, int height) {
    using Place = host_LegendPlace;
    const double scale = canvas.GetPixelsPerMillimeter();
    const double left = Place::left * scale, right = left + Place::boxWidth * scale;
    for (int band = 0; band < legend.BandCount(); ++band) {
        const double low = height - (Place::bottom + band * Place::boxHeight) * scale;
        const double high = low - Place::boxHeight * scale;
        canvas.Fill({{left, low}, {right, low}, {right, high}, {left, high}}, legend.BandColor(band));
    }
}

}  // namespace

g3d_Camera host_FittedCamera(const frd_Model& model, int width, int height) {
    std::vector<g3d_Point> vertices;
    vertices.reserve(model.nodes.size());
    for (const auto& [number, position] : model.nodes) vertices.emplace_back(position[0], position[1], position[2]);

    g3d_Camera camera;
    camera.MakeParallel();
    camera.SetLocation(g3d_Point(1.0F, 1.0F, 1.0F), g3d_Point(), g3d_Vector(0.0F, 0.0F, 1.0F));
    camera.Fit(g3d_BoundingVolume(vertices));
    camera.CorrectAspect(static_cast<float>(width), static_cast<float>(height));
    return camera;
}

std::string host_Picture(const frd_Model& model, const std::vector<double>& valueOfNode, const g3d_ContourScale& legend,
                         const annC_AnnotationContainer& annotations, const g3d_Camera& camera, int width, int height) {
    Canvas canvas(width, height);
    const g3d_Viewport viewport(0.0, 0.0, width, height);
    for (const Drawn& face : FacesFromFarToNear(model, valueOfNode, camera, viewport))
        canvas.Fill(face.outline, legend.Color(face.value));
    if (!std::ranges::all_of(valueOfNode, [](double value) { return std::isnan(value); }))
        DrawLegend(canvas, legend, height);
    for (const auto& [name, annotation] : annotations) {
        const annC_DrawList list = annC_Draw(*annotation, camera, viewport, canvas);
        for (const annC_DrawList::Item& item : list.Items())
            std::visit([&canvas](const auto& drawn) { canvas.Draw(drawn); }, item);
    }
    return canvas.Png();
}
