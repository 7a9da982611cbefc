#include "frd_Skin.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace {

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

}  // namespace

std::vector<frd_Face> frd_Skin(const frd_Model& model) {
    std::vector<frd_Face> faces;
    std::vector<Corners> keys;
    std::set<Corners> free;  // by sorted nodes
    for (std::size_t i = 0; i < model.elements.size(); ++i) {
        const frd_Element& element = model.elements[i];
        for (const Corners& corners : *facesOfType.at(static_cast<std::size_t>(element.type))) {
            frd_Face face{i, {}};
            for (const std::size_t corner : corners) face.nodes.push_back(element.nodes.at(corner));
            Corners key = face.nodes;
            std::ranges::sort(key);
            if (!free.insert(key).second) free.erase(key);
            faces.push_back(std::move(face));
            keys.push_back(std::move(key));
        }
    }
    std::vector<frd_Face> skin;
    for (std::size_t i = 0; i < faces.size(); ++i)
        if (free.contains(keys[i])) skin.push_back(std::move(faces[i]));
    return skin;
}
