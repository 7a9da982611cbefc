#ifndef ORV_GSL_DETAIL_GSL_DIRSEARCHNODE_H
#define ORV_GSL_DETAIL_GSL_DIRSEARCHNODE_H

#include <gsl/detail/gsl_DirTriangle.h>

#include <span>
#include <vector>

class gsl_TriOctreeNode;

/// A node of an octree made ready for a directional search: the extent of what it holds, and as children its children
/// that hold anything and its own triangles. Own triangles lie along the mid-planes, thousands of them in the root of a
/// fine surface, so they are halved again and again until few are left together: nodes without an octree node.
struct gsl_DirSearchNode {
    gsl_DirExtent extent;
    const gsl_TriOctreeNode* octreeNode = nullptr;
    std::vector<gsl_DirSearchNode> children;     ///< none in a leaf
    std::span<const gsl_DirTriangle> triangles;  ///< of a leaf

    [[nodiscard]] bool IsEmpty() const noexcept { return children.empty() && triangles.empty(); }
};

/// A search node over all `triangles`, which it reorders and refers to. Of copies of one triangle, in whatever order of
/// corners, it keeps one: no bound tells copies apart, so a hundred thousand of them would be searched pair by pair.
[[nodiscard]] gsl_DirSearchNode gsl_HalveTriangles(std::span<gsl_DirTriangle> triangles);

#endif
