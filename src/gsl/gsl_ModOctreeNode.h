#ifndef ORV_GSL_GSL_MODOCTREENODE_H
#define ORV_GSL_GSL_MODOCTREENODE_H

#include <gsl/gsl_TriOctreeNode.h>

/// An octree node with fourteen children of its own kind: the eight octants in the order of `gsl_TriOctreeNode`, then
/// six half-boxes, whole in two axes:
///
///     child   8        9        10       11       12       13
///            lower x  upper x  lower y  upper y  lower z  upper z
///
/// A triangle fits an octant before it is tried against a half-box. One that straddles one or two of the three
/// mid-planes finds a home here deeper than in a plain octree, at the price of 14 instead of 8 times the nodes a level.
class ORV_EXPORT gsl_ModOctreeNode : public gsl_TriOctreeNode {
public:
    using gsl_TriOctreeNode::gsl_TriOctreeNode;

    /// 14
    [[nodiscard]] int GetChildCount() const override;
    /// As of gsl_TriOctreeNode, with fourteen children a node.
    void BuildOctree(const gsl_BBox& box, int maxLevel) override;
};

#endif
