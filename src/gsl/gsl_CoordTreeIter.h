#ifndef ORV_GSL_GSL_COORDTREEITER_H
#define ORV_GSL_GSL_COORDTREEITER_H

#include <base/orv_Export.h>

#include <vector>

class gsl_CoordTree;
class gsl_Point;
struct gsl_CoordTreeNode;

/// Visits every point of a tree once: a node, then its left subtree, then its right one. The tree must not be changed
/// meanwhile.
///
///     for (gsl_CoordTreeIter all(tree); all.GetCurrent(point, index); all.Next()) ...
class ORV_EXPORT gsl_CoordTreeIter {
public:
    /// Before the first point of a tree that must outlive it unchanged.
    explicit gsl_CoordTreeIter(const gsl_CoordTree& tree);

    /// The current point, with its identity, and its index; false at the end, nothing written.
    [[nodiscard]] bool GetCurrent(gsl_Point& point, unsigned int& index) const;

    /// Does nothing at the end.
    void Next();

private:
    std::vector<const gsl_CoordTreeNode*> _pending;  // the current node is the last one
};

#endif
