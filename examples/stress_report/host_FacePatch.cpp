#include "host_FacePatch.h"

#include <algorithm>

namespace {

using Weights = std::vector<double>;

/// A grid of parts x parts cells over the unit square (or the triangle below its diagonal, or the line along its lower
/// side), with the shape functions of a kind of face.
host_FacePatch PatchOf(std::size_t corners, std::size_t parts, Weights (*weightsAt)(double u, double v)) {
    host_FacePatch patch;
    std::vector<std::vector<std::size_t>> placeAt;  // by row and column
    const std::size_t rows = corners == 2 ? 0 : parts;
    for (std::size_t j = 0; j <= rows; ++j) {
        placeAt.emplace_back();
        for (std::size_t i = 0; i + (corners == 3 ? j : 0) <= parts; ++i) {
            placeAt[j].push_back(patch.weights.size());
            const auto whole = static_cast<double>(parts);
            patch.weights.push_back(weightsAt(static_cast<double>(i) / whole, static_cast<double>(j) / whole));
        }
    }
    for (std::size_t j = 0; j < rows; ++j) {
        for (std::size_t i = 0; i + 1 < placeAt[j].size(); ++i) {
            patch.triangles.push_back({placeAt[j][i], placeAt[j][i + 1], placeAt[j + 1][i]});
            if (i + 1 < placeAt[j + 1].size())
                patch.triangles.push_back({placeAt[j][i + 1], placeAt[j + 1][i + 1], placeAt[j + 1][i]});
        }
    }
    std::vector<std::size_t> lower, upper, left, right;
    for (const auto& row : placeAt) {
        left.insert(left.begin(), row.front());
        right.push_back(row.back());
    }
    lower = placeAt.front();
    upper = {placeAt.back().rbegin(), placeAt.back().rend()};
    if (corners == 2) patch.sides = {lower};
    if (corners == 3) patch.sides = {lower, right, left};
    if (corners == 4) patch.sides = {lower, right, upper, left};
    for (const auto& side : patch.sides) {
        const std::size_t from = side[(side.size() - 1) / 2], to = side[(side.size() - 1) / 2 + 1];
        const auto has = [](const auto& triangle, std::size_t place) {
            return std::ranges::count(triangle, place) > 0;
        };
        const auto found = std::ranges::find_if(
            patch.triangles, [&](const auto& triangle) { return has(triangle, from) && has(triangle, to); });
        patch.triangleAtSide.push_back(static_cast<std::size_t>(found - patch.triangles.begin()));
    }
    return patch;
}

Weights Line2(double u, double) { return {1.0 - u, u}; }
Weights Line3(double u, double) {
    const double w = 1.0 - u;
    return {w * (2.0 * w - 1.0), 4.0 * u * w, u * (2.0 * u - 1.0)};
}
Weights Triangle3(double u, double v) { return {1.0 - u - v, u, v}; }
Weights Triangle6(double u, double v) {
    const double w = 1.0 - u - v;
    return {w * (2.0 * w - 1.0), 4.0 * u * w, u * (2.0 * u - 1.0), 4.0 * u * v, v * (2.0 * v - 1.0), 4.0 * v * w};
}
Weights Quadrilateral4(double u, double v) { return {(1.0 - u) * (1.0 - v), u * (1.0 - v), u * v, (1.0 - u) * v}; }
/// The corners' functions are the bilinear ones less half of the neighbouring midside ones.
Weights Quadrilateral8(double u, double v) {
    const Weights linear = Quadrilateral4(u, v);
    const Weights middle{4.0 * u * (1.0 - u) * (1.0 - v), 4.0 * u * v * (1.0 - v), 4.0 * u * (1.0 - u) * v,
                         4.0 * (1.0 - u) * v * (1.0 - v)};
    Weights all;
    for (std::size_t i = 0; i < 4; ++i) {
        all.push_back(linear[i] - (middle[i] + middle[(i + 3) % 4]) / 2.0);
        all.push_back(middle[i]);
    }
    return all;
}

}  // namespace

const host_FacePatch* host_PatchOf(std::size_t nodeCount, bool quadratic) {
    struct Kind {
        std::size_t nodeCount;
        bool quadratic;
        host_FacePatch patch;
    };
    static const std::array<Kind, 6> kinds{{{2, false, PatchOf(2, 1, Line2)},
                                            {3, false, PatchOf(3, 1, Triangle3)},
                                            {4, false, PatchOf(4, 4, Quadrilateral4)},
                                            {3, true, PatchOf(2, 4, Line3)},
                                            {6, true, PatchOf(3, 4, Triangle6)},
                                            {8, true, PatchOf(4, 4, Quadrilateral8)}}};
    const auto found = std::ranges::find_if(kinds, [nodeCount, quadratic](const Kind& kind) {
        return kind.nodeCount == nodeCount && kind.quadratic == quadratic;
    });
    return found != kinds.end() ? &found->patch : nullptr;
}
