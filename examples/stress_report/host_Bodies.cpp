#include "host_Bodies.h"

#include <gsl/gsl_Triangle.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <utility>

namespace {

/// Which nodes hang together: a forest with halved paths.
class Components {
public:
    explicit Components(std::size_t count) : _parents(count) { std::iota(_parents.begin(), _parents.end(), 0U); }

    [[nodiscard]] std::size_t Root(std::size_t node) {
        while (_parents[node] != node) node = _parents[node] = _parents[_parents[node]];
        return node;
    }
    void Join(std::size_t a, std::size_t b) { _parents[Root(a)] = Root(b); }

private:
    std::vector<std::size_t> _parents;
};

cow_List<gsl_Triangle> Triangles(const host_Body& body, const std::vector<gsl_Point>& positions) {
    std::vector<gsl_Triangle> triangles;
    triangles.reserve(body.triangles.size());
    for (const auto& [a, b, c] : body.triangles) triangles.emplace_back(positions[a], positions[b], positions[c]);
    return cow_List<gsl_Triangle>(std::move(triangles));
}

}  // namespace

std::vector<host_Body> host_Bodies(const frd_Model& model, const std::vector<host_Face>& skin,
                                   const cow_List<unsigned>& kept) {
    Components components(model.nodes.size());
    for (std::size_t node = 0; node < model.nodes.size(); ++node)
        components.Join(node, kept.ConstGet(static_cast<int>(node)));
    for (const frd_Element& element : model.elements)
        for (const std::size_t node : element.nodes) components.Join(element.nodes.front(), node);

    std::vector<host_Body> bodies;
    std::map<std::size_t, std::size_t> bodyOf;  // by root
    for (const host_Face& face : skin) {
        const auto& nodes = face.nodes;
        const std::size_t step = face.quadratic ? 2 : 1;  // from corner to corner
        if (nodes.size() < 3 * step) continue;            // a line
        const auto [found, isNew] = bodyOf.try_emplace(components.Root(nodes[0]), bodies.size());
        if (isNew) bodies.emplace_back();
        for (std::size_t k = 2 * step; k < nodes.size(); k += step)
            bodies[found->second].triangles.push_back({nodes[0], nodes[k - step], nodes[k]});
    }
    return bodies;
}

std::optional<gsl_DirectionalContact> host_Gap(const host_Body& fixed, const host_Body& movable,
                                               const std::vector<gsl_Point>& positions, const gsl_Vector& direction) {
    // Its length does not count; one below the linear tolerance would be none.
    const double size = std::max({std::abs(direction.X()), std::abs(direction.Y()), std::abs(direction.Z())});
    const gsl_Vector along(direction.X() / size, direction.Y() / size, direction.Z() / size);
    return gsl_FindDirectionalContact(Triangles(fixed, positions), Triangles(movable, positions), along);
}
