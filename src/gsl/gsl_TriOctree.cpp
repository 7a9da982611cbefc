#include <gsl/gsl_ModOctreeNode.h>
#include <gsl/gsl_TriOctree.h>

gsl_TriOctree::gsl_TriOctree(const gsl_BBox& box, const cow_String& name, OctreeNodeType type, int maxDepth)
    : _maxDepth(maxDepth), _name(name) {
    if (type == TRI_OCTREE_NODE) _root = std::make_unique<gsl_TriOctreeNode>(box, 1, -1, nullptr);
    if (type == MOD_OCTREE_NODE) _root = std::make_unique<gsl_ModOctreeNode>(box, 1, -1, nullptr);
    if (_root) _root->BuildOctree(box, maxDepth);
}

void gsl_TriOctree::Print(std::FILE* file) const {
    if (file == nullptr) return;
    std::fprintf(file, "Root id: %s, Max Depth: %d\n", _name.c_str(), _maxDepth);
    if (_root) _root->Print(file);
}
