#include <gsl/gsl_ModOctreeNode.h>

int gsl_ModOctreeNode::GetChildCount() const { return 14; }

void gsl_ModOctreeNode::BuildOctree(const gsl_BBox& box, int maxLevel) {
    BuildChildren<gsl_ModOctreeNode>(box, maxLevel);
}
