#ifndef ORV_GSL_GSL_COORDTREEARGS_H
#define ORV_GSL_GSL_COORDTREEARGS_H

#include <array>
#include <limits>

struct gsl_CoordTreeNode;

/// A work item of the stacks that stand in for recursion in `gsl_CoordTreeImpl`: a node and its depth and, while
/// points are inserted, the range of points still to be placed under the node.
struct gsl_CoordTreeArgs {
    /// The bound of an axis on which no split is known yet.
    static constexpr double kUnbounded = -std::numeric_limits<double>::infinity();

    /// The node, its depth, and the range.
    gsl_CoordTreeNode* node = nullptr;
    int depth = 0;
    unsigned start = 0;
    unsigned length = 0;
    /// Where in the range the point stands that became the node; -1 when the node existed before.
    int position = -1;
    /// By axis: no point of the range is strictly below. Splits higher up tell it at no cost.
    std::array<double, 3> low{kUnbounded, kUnbounded, kUnbounded};
};

#endif
