#include <gsl/gsl_DirectionalContact.h>
#include <gsl/gsl_TriOctree.h>
#include <gsl/gsl_TriTriDirDist.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// The deepest plain octree that has no more than a node for four triangles.
int DepthFor(int triangleCount) {
    int depth = 1;
    for (long long nodes = 9; nodes <= triangleCount / 4; nodes = nodes * 8 + 1) ++depth;
    return depth;
}

/// The box of the finite triangles, a little widened: no node of the tree gets so small that a search leaves it out.
gsl_BBox BoxOf(const cow_List<gsl_Triangle>& triangles, int depth) {
    gsl_BBox box;
    for (const gsl_Triangle& triangle : triangles) {
        const gsl_BBox own = triangle.GetBBox();
        if (std::isfinite(own.Size())) box.Add(own);
    }
    const double margin = std::ldexp(gsl_Util::LinTol(), depth);
    const gsl_Vector widening(margin, margin, margin);
    return {box.Low() - widening, box.High() + widening};
}

struct Tree {
    explicit Tree(const cow_List<gsl_Triangle>& triangles)
        : depth(DepthFor(triangles.Length())),
          octree(BoxOf(triangles, depth), "", gsl_TriOctree::TRI_OCTREE_NODE, depth) {
        int index = 0;
        for (const gsl_Triangle& triangle : triangles)
            octree.GetRoot()->Add(triangle.GetPoint(0), triangle.GetPoint(1), triangle.GetPoint(2), index++);
    }

    int depth;
    gsl_TriOctree octree;
};

}  // namespace

std::optional<gsl_DirectionalContact> gsl_FindDirectionalContact(const cow_List<gsl_Triangle>& fixed,
                                                                 const cow_List<gsl_Triangle>& movable,
                                                                 const gsl_Vector& direction) {
    const Tree fixedTree(fixed), movableTree(movable);
    gsl_TriTriDirDist search(std::max(fixedTree.depth, movableTree.depth));
    search.SetTriangles(fixed, movable);
    search.SetDirection(direction);
    double distance = std::numeric_limits<double>::infinity();
    (void)search.FindDirectionalDistance(fixedTree.octree.GetRoot(), movableTree.octree.GetRoot(), distance);
    return search.GetContact();
}
