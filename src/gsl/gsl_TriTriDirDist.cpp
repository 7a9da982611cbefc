#include <base/detail/orv_PlainNumbers.h>
#include <gsl/detail/gsl_DirSearchNode.h>
#include <gsl/gsl_BBox.h>
#include <gsl/gsl_TriOctreeNode.h>
#include <gsl/gsl_TriTriDirDist.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <utility>

namespace {

void Trace(std::FILE* trace, const char* format, double distance) {
    if (trace == nullptr) return;
    const orv_PlainNumbers plainNumbers;
    std::fprintf(trace, format, distance);
}

/// Of an octree's node.
constexpr int mostChildren = 14;

/// Makes the nodes of an octree ready for a search; triangles and nodes live as long as this does.
class Prepared {
public:
    /// Boxes smaller than `leastBox` are left out, with all below them.
    Prepared(const gsl_TriOctreeNode& root, int levels, const cow_List<gsl_Triangle>& list, const gsl_Matrix& placement,
             const gsl_DirFrame& frame, double leastBox)
        : _list(list.Span()), _placement(placement), _frame(frame), _leastBox(leastBox) {
        _triangles.reserve(root.GetTriangleCount());
        _root = Prepare(root, levels);
    }
    Prepared(const Prepared&) = delete;
    Prepared& operator=(const Prepared&) = delete;

    [[nodiscard]] const gsl_DirSearchNode& Root() const noexcept { return _root; }

private:
    gsl_DirSearchNode Prepare(const gsl_TriOctreeNode& node, int levels) {
        gsl_DirSearchNode result = PrepareOwn(node);
        if (levels > 1) {
            std::vector<gsl_DirSearchNode> children;
            for (int k = 0; k < std::min(node.GetChildCount(), mostChildren); ++k) {
                if (node.IsEmpty(k) || node.GetChildAtIndex(k)->GetBBox().Size() < _leastBox) continue;
                gsl_DirSearchNode child = Prepare(*node.GetChildAtIndex(k), levels - 1);
                if (child.IsEmpty()) continue;
                children.push_back(std::move(child));
            }
            if (!children.empty()) {
                if (!result.IsEmpty()) children.push_back(std::move(result));
                result = gsl_DirSearchNode();
                for (const gsl_DirSearchNode& child : children)
                    result.extent.Update(child.extent.low, child.extent.high);
                result.children = std::move(children);
            }
        }
        result.octreeNode = &node;
        return result;
    }

    gsl_DirSearchNode PrepareOwn(const gsl_TriOctreeNode& node) {
        const std::size_t first = _triangles.size();
        for (const int index : node.GetIndices()) {
            if (index < 0 || static_cast<std::size_t>(index) >= _list.size()) continue;
            const gsl_Triangle& triangle = _list[static_cast<std::size_t>(index)];
            const gsl_DirTriangle prepared(Corner(triangle, 0), Corner(triangle, 1), Corner(triangle, 2), index);
            if (prepared.IsFinite()) _triangles.push_back(prepared);
        }
        return gsl_HalveTriangles(std::span(_triangles).subspan(first));
    }

    [[nodiscard]] gsl_DirPoint Corner(const gsl_Triangle& triangle, int corner) const {
        gsl_Point point = triangle.GetPoint(corner);
        _placement.Transform(point);
        return _frame.ToFrame(point);
    }

    std::span<const gsl_Triangle> _list;
    const gsl_Matrix& _placement;
    const gsl_DirFrame& _frame;
    double _leastBox;
    std::vector<gsl_DirTriangle> _triangles;  // reserved for all: spans refer to it
    gsl_DirSearchNode _root;
};

/// The box of what `matrix` makes of points in `box`: each bound is summed as `gsl_Matrix::Transform` sums a point, and
/// rounding keeps order, so no such point is left outside. `gsl_BBox::Transform` goes by centre and half diagonal and
/// may lose the last bits, which would prune contacts.
gsl_BBox Placed(const gsl_BBox& box, const gsl_Matrix& matrix) {
    if (box.IsEmpty()) return box;
    double m[4][4];
    matrix.AsArray(m);
    gsl_Point low, high;
    for (unsigned i = 0; i < 3; ++i) {
        double from = 0.0, to = 0.0;
        for (unsigned j = 0; j < 3; ++j) {
            if (m[i][j] == 0.0) continue;  // an infinite side counts for nothing then
            const double a = m[i][j] * box.Low()[j], b = m[i][j] * box.High()[j];
            from += std::min(a, b);
            to += std::max(a, b);
        }
        low[i] = from + m[i][3];
        high[i] = to + m[i][3];
    }
    return {low, high};
}

}  // namespace

gsl_TriTriDirDist::gsl_TriTriDirDist(int levels) : _levels(levels) {
    if (std::getenv("QRT_TRITRIDIRDIST_DEBUG") != nullptr) _trace.reset(std::fopen("TriTriDirDist.dat", "w"));
}

gsl_TriTriDirDist::~gsl_TriTriDirDist() = default;

void gsl_TriTriDirDist::SetTriangles(const cow_List<gsl_Triangle>& fixed, const cow_List<gsl_Triangle>& movable) {
    _fixed = fixed;
    _movable = movable;
}

bool gsl_TriTriDirDist::FindDirectionalDistance(const gsl_TriOctreeNode* fixedRoot,
                                                const gsl_TriOctreeNode* movableRoot, double& distance) {
    _contact.reset();
    _boxPairs = _trianglePairs = 0;
    if (fixedRoot == nullptr || movableRoot == nullptr || !CheckBBoxes(*fixedRoot, *movableRoot, distance))
        return false;
    const std::optional<gsl_DirFrame> frame = gsl_DirFrame::Along(_direction, fixedRoot->GetBBox().Center());
    if (!frame) return false;

    const Prepared fixed(*fixedRoot, _levels, _fixed, gsl_Matrix(), *frame, GetLinTol());
    const Prepared movable(*movableRoot, _levels, _movable, _matrix, *frame, -std::numeric_limits<double>::infinity());
    if (!RecursiveFindDirDist(fixed.Root(), movable.Root(), true, distance)) return false;
    _contact->point = frame->FromFrame(_contact->point.AsArray());
    Trace(_trace.get(), "  Distance: %lf\n", distance);
    return true;
}

// ---- Boxes

bool gsl_TriTriDirDist::CheckBBoxes(const gsl_TriOctreeNode& fixed, const gsl_TriOctreeNode& movable, double best) {
    if (fixed.GetBBox().Size() < GetLinTol()) return false;
    ++_boxPairs;
    std::FILE* const trace = _trace.get();
    if (trace != nullptr) {
        std::fprintf(trace, " Fixed bbox node level %d and index %d\n", fixed.GetLevel(), fixed.GetIndex());
        std::fprintf(trace, " Movable bbox node level %d and index %d\n", movable.GetLevel(), movable.GetIndex());
    }
    const gsl_BBox placed = Placed(movable.GetBBox(), _matrix);
    double distance = std::numeric_limits<double>::max();
    if (!FindMinDirDistBetBBoxes(fixed.GetBBox(), placed, distance)) {
        if (trace != nullptr) std::fprintf(trace, "  BBox did not intersect\n");
        return false;
    }
    Trace(trace, "  Bbox distance: %lf\n", distance);
    if (distance < best) return true;
    if (trace != nullptr) std::fprintf(trace, "  Rejecting based on the face bbox check\n");
    return false;
}

bool gsl_TriTriDirDist::FindMinDirDistBetBBoxes(const gsl_BBox& fixed, const gsl_BBox& movable,
                                                double& distance) const {
    const std::optional<gsl_DirFrame> frame = gsl_DirFrame::Along(_direction, gsl_Point());
    if (fixed.IsEmpty() || movable.IsEmpty() || !frame) return false;
    // The travels t at which the boxes overlap: on every axis t d lies between the ends of fixed minus movable, give or
    // take what a shift of LinTol across the direction does to that axis.
    double least = -std::numeric_limits<double>::infinity(), greatest = -least;
    const gsl_DirPoint& unit = frame->Direction();
    for (unsigned axis = 0; axis < 3; ++axis) {
        const double slack = GetLinTol() * std::sqrt(std::max(1.0 - unit[axis] * unit[axis], 0.0));
        double from = fixed.Low()[axis] - movable.High()[axis] - slack;
        double to = fixed.High()[axis] - movable.Low()[axis] + slack;
        if (unit[axis] == 0.0) {
            if (!(from <= 0.0 && 0.0 <= to)) return false;
            continue;
        }
        from /= unit[axis];
        to /= unit[axis];
        least = std::max(least, std::min(from, to));
        greatest = std::min(greatest, std::max(from, to));
    }
    if (!(least <= greatest) || greatest < -GetLinTol()) return false;
    distance = std::max(least, 0.0);
    return true;
}

// ---- The walk

bool gsl_TriTriDirDist::RecursiveFindDirDist(const gsl_DirSearchNode& fixed, const gsl_DirSearchNode& movable,
                                             bool skipBoxCheck, double& best) {
    if (fixed.IsEmpty() || movable.IsEmpty()) return false;
    if (!skipBoxCheck && fixed.octreeNode != nullptr && movable.octreeNode != nullptr &&
        !CheckBBoxes(*fixed.octreeNode, *movable.octreeNode, best))
        return false;
    if (fixed.children.empty() && movable.children.empty()) return FindDirDistUsingTriangles(fixed, movable, best);

    const bool splitFixed =
        movable.children.empty() || (!fixed.children.empty() && fixed.extent.Size() >= movable.extent.Size());
    std::array<std::pair<double, const gsl_DirSearchNode*>, mostChildren + 1> pairs;  // and the own triangles
    std::size_t count = 0;
    for (const gsl_DirSearchNode& child : splitFixed ? fixed.children : movable.children) {
        const gsl_DirExtent& target = splitFixed ? child.extent : fixed.extent;
        const gsl_DirExtent& traveller = splitFixed ? movable.extent : child.extent;
        if (target.CanMeet(traveller)) pairs[count++] = {target.LeastTravel(traveller), &child};
    }
    std::sort(pairs.begin(), pairs.begin() + static_cast<std::ptrdiff_t>(count),
              [](const auto& a, const auto& b) { return a.first < b.first; });
    bool found = false;
    for (std::size_t k = 0; k < count && pairs[k].first < best; ++k) {
        const gsl_DirSearchNode& child = *pairs[k].second;
        if (RecursiveFindDirDist(splitFixed ? child : fixed, splitFixed ? movable : child, false, best)) found = true;
    }
    return found;
}

bool gsl_TriTriDirDist::FindDirDistUsingTriangles(const gsl_DirSearchNode& fixed, const gsl_DirSearchNode& movable,
                                                  double& best) {
    bool found = false;
    for (const gsl_DirTriangle& target : fixed.triangles)
        for (const gsl_DirTriangle& traveller : movable.triangles)
            if (FindDirDistBetweenTriangles(target, traveller, best)) found = true;
    return found;
}

bool gsl_TriTriDirDist::FindDirDistBetweenTriangles(const gsl_DirTriangle& fixed, const gsl_DirTriangle& movable,
                                                    double& best) {
    if (!fixed.extent.CanMeet(movable.extent) || !(fixed.extent.LeastTravel(movable.extent) < best)) return false;
    ++_trianglePairs;
    double travel = 0.0;
    gsl_DirPoint contact;
    if (!gsl_LeastTravel(fixed, movable, travel, contact) || !(travel < best)) return false;
    best = travel;
    _contact = gsl_DirectionalContact{travel, fixed.index, movable.index, gsl_Point(contact)};
    return true;
}
