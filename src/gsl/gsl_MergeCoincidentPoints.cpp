#include <gsl/gsl_CoordTreeImpl.h>
#include <gsl/gsl_MergeCoincidentPoints.h>

#include <limits>
#include <vector>

cow_List<unsigned> gsl_MergeCoincidentPoints(std::span<const gsl_Point> points, double tol) {
    constexpr unsigned none = std::numeric_limits<unsigned>::max();
    gsl_CoordTreeImpl tree(3);
    tree.Insert(points, nullptr);
    std::vector<unsigned> kept(points.size(), none);
    std::vector<unsigned> near;
    for (unsigned i = 0; i < kept.size(); ++i) {
        if (kept[i] != none) continue;
        kept[i] = i;
        near.clear();
        tree.FindAll(points[i], tol, near);
        for (const unsigned j : near)
            if (kept[j] == none) kept[j] = i;  // the kept come in order of index: the first is the lowest
    }
    return cow_List<unsigned>(std::move(kept));
}
