#ifndef ORV_STRESS_REPORT_HOST_FACEPATCH_H
#define ORV_STRESS_REPORT_HOST_FACEPATCH_H

#include <array>
#include <cstddef>
#include <vector>

/// How faces of one kind are cut into triangles: a grid of places on the face, each by its shape functions.
struct host_FacePatch {
    std::vector<std::vector<double>> weights;           ///< of each place, by node of the face
    std::vector<std::array<std::size_t, 3>> triangles;  ///< places; none for a line
    std::vector<std::vector<std::size_t>> sides;        ///< places along each, from corner to corner
    std::vector<std::size_t> triangleAtSide;            ///< one that has a part of it
};

/// For triangles of 3 and 6 nodes, quadrilaterals of 4 and 8, lines of 2 and 3, midside nodes between their corners;
/// null for others.
[[nodiscard]] const host_FacePatch* host_PatchOf(std::size_t nodeCount, bool quadratic);

#endif
