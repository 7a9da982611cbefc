#include "host_Picture.h"

#include "frd_Skin.h"

#include <g3d/g3d_Camera.h>
#include <g3d/g3d_Color.h>
#include <g3d/g3d_ContourScale.h>
#include <g3d/g3d_Viewport.h>

#include <cairo/cairo.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace {

/// The length of the displacement at each node; NaN where there is none.
std::vector<double> Magnitudes(const frd_Model& model, const frd_Result* displacements) {
    std::vector<double> lengths(model.nodes.size(), std::numeric_limits<double>::quiet_NaN());
    for (std::size_t row = 0; displacements != nullptr && row < displacements->nodes.size(); ++row)
        lengths[displacements->nodes[row]] =
            std::hypot(displacements->Value(row, 0), displacements->Value(row, 1), displacements->Value(row, 2));
    return lengths;
}

/// Twelve bands over the lengths that are numbers.
g3d_ContourScale Legend(const std::vector<double>& lengths) {
    double low = std::numeric_limits<double>::infinity();
    double high = -low;
    for (const double length : lengths) {
        if (!std::isfinite(length)) continue;
        low = std::min(low, length);
        high = std::max(high, length);
    }
    constexpr int bandCount = 12;
    g3d_ContourScale legend(low, high, bandCount);
    legend.SetNaNColor(g3d_Color(g3d_Grey60));
    return legend;
}

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

class Canvas {
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

    void Write(double x, double y, const std::string& text) {
        SetColor(g3d_Color(g3d_Black));
        cairo_move_to(_context.get(), x, y);
        cairo_show_text(_context.get(), text.c_str());
    }

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
    struct Destroy {
        void operator()(cairo_surface_t* surface) const noexcept { cairo_surface_destroy(surface); }
        void operator()(cairo_t* context) const noexcept { cairo_destroy(context); }
    };
    std::unique_ptr<cairo_surface_t, Destroy> _surface;
    std::unique_ptr<cairo_t, Destroy> _context;
};

/// One box a band in the lower left, the greatest on top, with the limits beside them.
void DrawLegend(Canvas& canvas, const g3d_ContourScale& legend, int height) {
    constexpr double left = 12.0, boxWidth = 18.0, boxHeight = 14.0;
    const double bottom = height - 16.0;
    const auto number = [](double value) {
        std::array<char, 32> text{};
        std::snprintf(text.data(), text.size(), "%.4g", value);
        return std::string(text.data());
    };
    for (int band = 0; band < legend.BandCount(); ++band) {
        const double low = bottom - band * boxHeight, high = low - boxHeight;
        canvas.Fill({{left, low}, {left + boxWidth, low}, {left + boxWidth, high}, {left, high}},
                    legend.BandColor(band));
    }
    for (int limit = 0; limit <= legend.BandCount(); ++limit)
        canvas.Write(left + boxWidth + 6.0, bottom - limit * boxHeight + 4.0, number(legend.Limit(limit)));
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

std::string host_Picture(const frd_Model& model, const frd_Result* displacements, const g3d_Camera& camera, int width,
                         int height) {
    const std::vector<double> lengths = Magnitudes(model, displacements);
    const g3d_ContourScale legend = Legend(lengths);
    Canvas canvas(width, height);
    for (const Drawn& face : FacesFromFarToNear(model, lengths, camera, g3d_Viewport(0.0, 0.0, width, height)))
        canvas.Fill(face.outline, legend.Color(face.value));
    if (displacements != nullptr) DrawLegend(canvas, legend, height);
    return canvas.Png();
}
