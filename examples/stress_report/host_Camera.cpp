#include "host_Camera.h"

#include "host_Page.h"

#include <g3d/g3d_Viewport.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace {

struct Look {
    const char* name;
    std::array<float, 3> from;
    std::array<float, 3> up;
};

constexpr Look looks[] = {
    {"iso", {1.0F, 1.0F, 1.0F}, {0.0F, 0.0F, 1.0F}},      {"front", {0.0F, -1.0F, 0.0F}, {0.0F, 0.0F, 1.0F}},
    {"back", {0.0F, 1.0F, 0.0F}, {0.0F, 0.0F, 1.0F}},     {"left", {-1.0F, 0.0F, 0.0F}, {0.0F, 0.0F, 1.0F}},
    {"right", {1.0F, 0.0F, 0.0F}, {0.0F, 0.0F, 1.0F}},    {"top", {0.0F, 0.0F, 1.0F}, {0.0F, 1.0F, 0.0F}},
    {"bottom", {0.0F, 0.0F, -1.0F}, {0.0F, -1.0F, 0.0F}},
};

/// What the points take of the view window, from -1/2 to 1/2 to the right and up.
struct Extents {
    static constexpr double none = std::numeric_limits<double>::infinity();
    std::array<double, 2> low{none, none};
    std::array<double, 2> high{-none, -none};
};

Extents ExtentsIn(const g3d_Camera& camera, const std::vector<std::array<double, 3>>& positions) {
    Extents extents;
    const g3d_Viewport window(-0.5, -0.5, 1.0, 1.0);
    for (const auto& position : positions) {
        const auto seen = window.ToPixel(camera, position);
        if (!seen) continue;
        const std::array<double, 2> place{(*seen)[0], -(*seen)[1]};
        for (std::size_t axis : {0U, 1U}) {
            extents.low[axis] = std::min(extents.low[axis], place[axis]);
            extents.high[axis] = std::max(extents.high[axis], place[axis]);
        }
    }
    return extents;
}

}  // namespace

const std::vector<std::string>& host_ViewNames() {
    static const std::vector<std::string> names = [] {
        std::vector<std::string> all;
        for (const Look& look : looks) all.emplace_back(look.name);
        return all;
    }();
    return names;
}

g3d_Camera host_FittedCamera(const std::vector<std::array<double, 3>>& positions, const host_View& view, int width,
                             int height) {
    const Look* const look = std::ranges::find(looks, view.name, &Look::name);
    if (look == std::end(looks)) throw std::invalid_argument("there is no view " + view.name);

    std::vector<g3d_Point> vertices;
    vertices.reserve(positions.size());
    for (const auto& [x, y, z] : positions) vertices.emplace_back(x, y, z);
    g3d_Camera camera;
    camera.SetProjection(view.perspective ? g3d_Camera::Perspective : g3d_Camera::Parallel);
    camera.SetLocation(g3d_Point(look->from[0], look->from[1], look->from[2]), g3d_Point(),
                       g3d_Vector(look->up[0], look->up[1], look->up[2]));
    camera.Fit(g3d_BoundingVolume(vertices));
    camera.CorrectAspect(static_cast<float>(width), static_cast<float>(height));

    // From here on the window is moved and scaled, which moves and scales the picture alike in both projections.
    const Extents extents = ExtentsIn(camera, positions);
    const host_Page page(width, height);
    const std::array<double, 2> room{1.0 - (host_Page::leftMargin + host_Page::rightMargin) / page.width,
                                     1.0 - (host_Page::topMargin + host_Page::bottomMargin) / page.height};
    const std::array<double, 2> middle{(host_Page::leftMargin - host_Page::rightMargin) / 2.0 / page.width,
                                       (host_Page::bottomMargin - host_Page::topMargin) / 2.0 / page.height};
    double scale = std::max((extents.high[0] - extents.low[0]) / room[0], (extents.high[1] - extents.low[1]) / room[1]);
    if (!(scale > 0.0 && std::isfinite(scale))) return camera;
    if (view.zoom > 0.0 && std::isfinite(view.zoom)) scale /= view.zoom;
    std::array<float, 2> window{};
    camera.GetWindow(window[0], window[1]);
    std::array<float, 2> offset{};
    for (std::size_t axis : {0U, 1U}) {
        const double center = extents.low[axis] / 2.0 + extents.high[axis] / 2.0;
        offset[axis] = static_cast<float>((center - middle[axis] * scale) * window[axis]);
    }
    camera.SetWindow(static_cast<float>(window[0] * scale), static_cast<float>(window[1] * scale));
    camera.SetViewOffset(offset[0], offset[1]);
    return camera;
}
