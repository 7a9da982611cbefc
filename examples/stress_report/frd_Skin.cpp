#include "frd_Skin.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <map>
#include <utility>

namespace {

using Corners = std::vector<std::size_t>;
using Edge = std::pair<std::size_t, std::size_t>;

/// By places in the list of an element's nodes: corners come first, then, in the quadratic types, a midside node for
/// each edge in the order of `edges`.
struct Shape {
    std::size_t cornerCount;
    bool solid;
    std::vector<Edge> edges;
    std::vector<Corners> faces;
};

const Shape brick{8,
                  true,
                  {{0, 1}, {1, 2}, {2, 3}, {3, 0}, {0, 4}, {1, 5}, {2, 6}, {3, 7}, {4, 5}, {5, 6}, {6, 7}, {7, 4}},
                  {{0, 3, 2, 1}, {4, 5, 6, 7}, {0, 1, 5, 4}, {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 0, 4, 7}}};
const Shape wedge{6,
                  true,
                  {{0, 1}, {1, 2}, {2, 0}, {0, 3}, {1, 4}, {2, 5}, {3, 4}, {4, 5}, {5, 3}},
                  {{0, 2, 1}, {3, 4, 5}, {0, 1, 4, 3}, {1, 2, 5, 4}, {2, 0, 3, 5}}};
const Shape tetrahedron{
    4, true, {{0, 1}, {1, 2}, {2, 0}, {0, 3}, {1, 3}, {2, 3}}, {{0, 2, 1}, {0, 1, 3}, {1, 2, 3}, {2, 0, 3}}};
const Shape triangle{3, false, {{0, 1}, {1, 2}, {2, 0}}, {{0, 1, 2}}};
const Shape quadrilateral{4, false, {{0, 1}, {1, 2}, {2, 3}, {3, 0}}, {{0, 1, 2, 3}}};
const Shape line{2, false, {{0, 1}}, {{0, 1}}};

/// By type number, as `frd_ElementTypes`.
const std::array<const Shape*, 13> shapeOfType{nullptr,        &brick,       &wedge,    &tetrahedron, &brick,
                                               &wedge,         &tetrahedron, &triangle, &triangle,    &quadrilateral,
                                               &quadrilateral, &line,        &line};

/// The place of the midside node between two corners.
std::size_t Between(const Shape& shape, std::size_t a, std::size_t b) {
    const auto edge =
        std::ranges::find_if(shape.edges, [&](const Edge& e) { return e == Edge(a, b) || e == Edge(b, a); });
    return shape.cornerCount + static_cast<std::size_t>(edge - shape.edges.begin());
}

host_Face Outline(const frd_Element& element, const Shape& shape, const Corners& corners) {
    host_Face face{{}, element.nodes.size() > shape.cornerCount};
    const bool closed = corners.size() > 2;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        face.nodes.push_back(element.nodes.at(corners[i]));
        if (face.quadratic && (closed || i == 0))
            face.nodes.push_back(element.nodes.at(Between(shape, corners[i], corners[(i + 1) % corners.size()])));
    }
    return face;
}

/// A face by its corners, whichever way round; a triangle lacks the fourth.
using Key = std::array<std::size_t, 4>;

Key KeyOf(const frd_Element& element, const Corners& corners) {
    Key key;
    key.fill(std::numeric_limits<std::size_t>::max());
    for (std::size_t i = 0; i < corners.size(); ++i) key.at(i) = element.nodes.at(corners[i]);
    std::ranges::sort(key);
    return key;
}

/// Calls visit(element, shape, corners) for each face.
template <class Visit>
void ForEachFace(const frd_Model& model, const Visit& visit) {
    for (const frd_Element& element : model.elements) {
        const Shape& shape = *shapeOfType.at(static_cast<std::size_t>(element.type));
        for (const Corners& corners : shape.faces) visit(element, shape, corners);
    }
}

}  // namespace

std::vector<host_Face> frd_Skin(const frd_Model& model) {
    std::map<Key, int> solids;  // how many have the face
    ForEachFace(model, [&](const frd_Element& element, const Shape& shape, const Corners& corners) {
        if (shape.solid) ++solids[KeyOf(element, corners)];
    });
    std::vector<host_Face> skin;
    ForEachFace(model, [&](const frd_Element& element, const Shape& shape, const Corners& corners) {
        if (!shape.solid || solids[KeyOf(element, corners)] == 1) skin.push_back(Outline(element, shape, corners));
    });
    return skin;
}
