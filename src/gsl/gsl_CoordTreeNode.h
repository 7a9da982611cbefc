#ifndef ORV_GSL_GSL_COORDTREENODE_H
#define ORV_GSL_GSL_COORDTREENODE_H

#include <gsl/gsl_CoordTreePt.h>

#include <algorithm>
#include <cmath>
#include <limits>

/// A node of a coordinate tree: one point, and the subtrees on both sides of it along the node's axis, which is its
/// depth modulo the tree's number of coordinates (0 = x). The tree's pool owns the nodes.
///
/// A search reads all of a node it comes to: the alignment puts it into one line of the cache.
struct alignas(64) gsl_CoordTreeNode : gsl_CoordTreePt {
    /// A leaf.
    explicit gsl_CoordTreeNode(const gsl_CoordTreePt& pt) noexcept : gsl_CoordTreePt(pt) {}

    /// Whether there is nothing below.
    [[nodiscard]] bool IsLeaf() const noexcept { return left == nullptr && right == nullptr; }

    /// Whether every point below has exactly this one's coordinates, as in a chain of equal points; false when unknown.
    [[nodiscard]] bool IsSameBelow() const noexcept { return left == nullptr && std::isnan(_leftGreatest); }
    void SetSameBelow(bool isSame) noexcept { _leftGreatest = isSame ? kSameBelow : -kInfinity; }

    /// For a node that gets the subtrees of `other`.
    void CopyBounds(const gsl_CoordTreeNode& other) noexcept { _leftGreatest = other._leftGreatest; }

    /// Nothing in the left subtree has a coordinate above this on the node's axis. Closer than the node's own
    /// coordinate where there are gaps, as between the planes of a grid.
    [[nodiscard]] double LeftBound(double coordinate) const noexcept {
        return std::min(static_cast<double>(_leftGreatest), coordinate);
    }

    /// `coordinate` is in the left subtree from now on.
    void RaiseLeftBound(double coordinate) noexcept {
        if (!(coordinate <= static_cast<double>(_leftGreatest))) _leftGreatest = RoundedUp(coordinate);
    }

private:
    static constexpr float kInfinity = std::numeric_limits<float>::infinity();
    static constexpr float kSameBelow = std::numeric_limits<float>::quiet_NaN();

    [[nodiscard]] static float RoundedUp(double value) noexcept {
        constexpr float greatest = std::numeric_limits<float>::max();
        if (!(value <= static_cast<double>(greatest))) return kInfinity;
        if (value < -static_cast<double>(greatest)) return -greatest;
        const auto rounded = static_cast<float>(value);
        return static_cast<double>(rounded) < value ? std::nextafter(rounded, kInfinity) : rounded;
    }

    float _leftGreatest = kSameBelow;  // in the gap behind the index, where it costs no room

public:
    gsl_CoordTreeNode* left = nullptr;   ///< coordinates strictly less than the node's, on its axis
    gsl_CoordTreeNode* right = nullptr;  ///< greater or equal, or NaN
};

static_assert(sizeof(void*) != 8 || sizeof(gsl_CoordTreeNode) == 64);

#endif
