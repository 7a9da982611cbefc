#include "host_MakeScene.h"

#include "host_Annotations.h"
#include "host_Camera.h"
#include "host_Limits.h"
#include "host_Printable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

namespace {

/// As few digits as tell it, at most so many.
std::string Number(double value, int digits) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.*g", digits, value);
    return text.data();
}

/// Of the values, ascending, and never without extent; 0 to 1 where there are none. What differs by less than the six
/// digits of a result file can tell is one value: its contours would show nothing but rounding.
std::array<double, 2> RangeOf(const std::vector<double>& values) {
    double low = std::numeric_limits<double>::infinity();
    double high = -low;
    for (const double value : values) {
        if (std::isnan(value)) continue;
        low = std::min(low, value);
        high = std::max(high, value);
    }
    if (low > high) return {0.0, 1.0};
    const double size = std::max(std::abs(low), std::abs(high));
    if (high - low > 1e-6 * size) return {low, high};
    return {low, low + (size > 0.0 ? size : 1.0)};
}

host_Captions CaptionsOf(const host_Choice& choice, const host_Options& options) {
    const host_Quantity& quantity = host_Quantities.at(static_cast<std::size_t>(choice.quantity));
    const bool any = choice.set.displacements != nullptr || choice.set.stresses != nullptr;
    host_Captions captions;
    captions.title = any ? std::string(quantity.name) + (quantity.stress ? " stress" : "") : "Model";
    constexpr std::size_t longest = 60;
    captions.subtitle =
        host_Shortened(host_Printable(std::filesystem::path(options.results).filename().string()), longest);
    if (any) captions.subtitle += ", set " + std::to_string(choice.set.number) + ", time " + Number(choice.set.time, 6);
    if (options.deform != 0.0) captions.subtitle += ", deformation x " + Number(options.deform, 6);
    captions.quantity = any ? quantity.name : "";
    captions.unit = host_Printable(options.unit.value_or(!any ? "" : quantity.stress ? "MPa" : "mm"));
    return captions;
}

/// Of the nodes that are seen; of all where there are no faces.
std::vector<std::array<double, 3>> SeenPositions(const host_Scene& scene) {
    std::vector<std::array<double, 3>> seen;
    for (const host_Face& face : scene.faces)
        for (const std::size_t node : face.nodes) seen.push_back(scene.positions[node]);
    return seen.empty() ? scene.positions : seen;
}

}  // namespace

host_Scene host_MakeScene(const frd_Model& model, std::vector<host_Face> skin, const host_Choice& choice,
                          const host_Options& options) {
    host_Scene scene;
    for (const gsl_Point& position : host_Deformed(host_Positions(model), choice.set.displacements, options.deform))
        scene.positions.push_back(position.AsArray());
    if (!std::ranges::all_of(scene.positions, host_Limits::IsDrawable))
        throw std::runtime_error("the model, as deformed, has nodes nowhere, or is too large to be drawn");
    scene.values = host_NodeValues(model, choice);
    scene.faces = std::move(skin);
    const std::array<double, 2> range = options.range.value_or(RangeOf(scene.values));
    if (!host_Limits::IsRange(range[0], range[1])) throw std::runtime_error("the values are too large to be drawn");
    scene.low = range[0];
    scene.high = range[1];
    scene.bands = options.bands;
    scene.edges = options.edges;
    scene.camera = host_FittedCamera(SeenPositions(scene), options.view, options.size[0], options.size[1]);
    const host_Captions captions = CaptionsOf(choice, options);
    const std::size_t greatest = host_Extreme(scene.values, choice.quantity).value_or(scene.values.size());
    std::string label;
    if (greatest < scene.values.size()) {
        label = Number(scene.values[greatest], 4) + (captions.unit.empty() ? "" : " " + captions.unit) + " at node " +
                std::to_string(model.nodes[greatest].number);
    }
    scene.annotations = host_Annotations(scene, captions, greatest, label);
    return scene;
}
