#include "host_Picture.h"

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
#include <set>
#include <stdexcept>
#include <utility>
#include <vector>

namespace {

using Face = std::vector<std::size_t>;  // indices of nodes, around the face
using Corners = std::vector<std::size_t>;

const std::vector<Corners> brick{{0, 1, 2, 3}, {4, 5, 6, 7}, {0, 1, 5, 4}, {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 0, 4, 7}};
const std::vector<Corners> wedge{{0, 1, 2}, {3, 4, 5}, {0, 1, 4, 3}, {1, 2, 5, 4}, {2, 0, 3, 5}};
const std::vector<Corners> tetrahedron{{0, 1, 2}, {0, 1, 3}, {1, 2, 3}, {2, 0, 3}};
const std::vector<Corners> triangle{{0, 1, 2}};
const std::vector<Corners> quadrilateral{{0, 1, 2, 3}};
const std::vector<Corners> line{{0, 1}};

/// By corner nodes, which come first in every type. By type number, as `frd_ElementTypes`.
const std::array<const std::vector<Corners>*, 13> facesOfType{
    nullptr,   &brick,    &wedge,         &tetrahedron,   &brick, &wedge, &tetrahedron,
    &triangle, &triangle, &quadrilateral, &quadrilateral, &line,  &line};

/// Each face that no second element shares, in the order of the elements.
std::vector<Face> Skin(const frd_Model& model) {
    std::vector<Face> faces;
    std::set<Face> free;  // by sorted nodes
    std::vector<Face> keys;
    for (const frd_Element& element : model.elements) {
        for (const Corners& corners : *facesOfType.at(static_cast<std::size_t>(element.type))) {
            Face face;
            for (const std::size_t corner : corners) face.push_back(element.nodes.at(corner));
            Face key = face;
            std::ranges::sort(key);
            if (!free.insert(key).second) free.erase(key);
            faces.push_back(std::move(face));
            keys.push_back(std::move(key));
        }
    }
    std::vector<Face> skin;
    for (std::size_t i = 0; i < faces.size(); ++i)
        if (free.contains(keys[i])) skin.push_back(std::move(faces[i]));
    return skin;
}

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

/// A face on the screen.
struct Drawn {
    std::vector<std::array<double, 2>> outline;
    double depth = 0.0;
    double value = 0.0;
};

std::optional<Drawn> Project(const Face& face, const frd_Model& model, const std::vector<double>& lengths,
                             const g3d_Camera& camera, const g3d_Viewport& viewport) {
    Drawn drawn;
    for (const std::size_t node : face) {
        const auto pixel = viewport.ToPixel(camera, model.nodes[node].position);
        if (!pixel) return std::nullopt;
        drawn.outline.push_back({(*pixel)[0], (*pixel)[1]});
        drawn.depth += (*pixel)[2] / static_cast<double>(face.size());
        drawn.value += lengths[node] / static_cast<double>(face.size());
    }
    return drawn;
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

    void Fill(const std::vector<std::array<double, 2>>& outline, const g3d_Color& color) {
        for (const auto& [x, y] : outline) cairo_line_to(_context.get(), x, y);
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
    const g3d_Viewport viewport(0.0, 0.0, width, height);
    std::vector<Drawn> faces;
    for (const Face& face : Skin(model))
        if (auto drawn = Project(face, model, lengths, camera, viewport)) faces.push_back(std::move(*drawn));
    std::ranges::stable_sort(faces, std::greater<>(), &Drawn::depth);

    Canvas canvas(width, height);
    for (const Drawn& face : faces) canvas.Fill(face.outline, legend.Color(face.value));
    if (displacements != nullptr) DrawLegend(canvas, legend, height);
    return canvas.Png();
}
