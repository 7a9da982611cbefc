#ifndef ORV_GSL_GSL_COORDTREENODE_H
#define ORV_GSL_GSL_COORDTREENODE_H

#include <gsl/gsl_CoordTreePt.h>

/// A node of a coordinate tree: one point, and the subtrees on both sides of it along the node's axis, which is its
/// depth modulo the tree's number of coordinates (0 = x). The tree's pool owns the nodes.
///
/// A search reads all of a node it comes to: the alignment puts it into one line of the cache.
struct alignas(64) gsl_CoordTreeNode : gsl_CoordTreePt {
    explicit gsl_CoordTreeNode(const gsl_CoordTreePt& pt) noexcept : gsl_CoordTreePt(pt) {}

    [[nodiscard]] bool IsLeaf() const noexcept { return left == nullptr && right == nullptr; }

    /// Every point below has exactly this one's coordinates, as in a chain of equal points; false when unknown. In the
    /// gap behind the index, so it costs no room.
    bool isSameBelow = true;
    gsl_CoordTreeNode* left = nullptr;   ///< coordinates strictly less than the node's, on its axis
    gsl_CoordTreeNode* right = nullptr;  ///< greater or equal, or NaN
};

static_assert(sizeof(void*) != 8 || sizeof(gsl_CoordTreeNode) == 64);

#endif
