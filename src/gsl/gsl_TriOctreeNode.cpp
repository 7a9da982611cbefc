#include <base/detail/orv_PlainNumbers.h>
#include <gsl/gsl_TriOctreeNode.h>

#include <limits>
#include <new>
#include <utility>

namespace {

/// Throws std::bad_alloc when the memory for all descendants of a node cannot be had. Children are allocated one by
/// one, which on a system that promises more memory than it has would end the process instead of throwing.
void RequireMemory(std::size_t childCount, long long levelsBelow, std::size_t nodeBytes) {
    constexpr std::size_t most = std::numeric_limits<int>::max();
    std::size_t total = 0, inLevel = 1;
    for (long long level = 0; level < levelsBelow; ++level) {
        inLevel *= childCount;
        total += inLevel;
        if (total > most) throw std::bad_alloc();
    }
    ::operator delete(::operator new(total* nodeBytes));
}

}  // namespace

gsl_TriOctreeNode::gsl_TriOctreeNode(const gsl_BBox& box, int level, int index, gsl_TriOctreeNode* parent)
    : _box(box), _level(level), _index(index), _parent(parent) {}

gsl_TriOctreeNode::~gsl_TriOctreeNode() = default;

int gsl_TriOctreeNode::GetChildCount() const { return 8; }

void gsl_TriOctreeNode::Print(std::FILE* file) const {
    if (file == nullptr) return;
    const orv_PlainNumbers plainNumbers;
    const gsl_Point low = _box.Low(), high = _box.High();
    std::fprintf(file, " Level: %d\n", _level);
    std::fprintf(file, "  Index: %d, # of triangles: %d\n", _index, _indices.Length());
    std::fprintf(file, "  Low(%lf, %lf, %lf)\n", low.X(), low.Y(), low.Z());
    std::fprintf(file, "  High(%lf, %lf, %lf)\n", high.X(), high.Y(), high.Z());
    for (int k = 0; k < GetChildCount(); ++k)
        if (const gsl_TriOctreeNode* const child = GetChildAtIndex(k)) child->Print(file);
}

void gsl_TriOctreeNode::BuildOctree(const gsl_BBox& box, int maxLevel) {
    BuildChildren<gsl_TriOctreeNode>(box, maxLevel);
}

// ---- Queries

gsl_TriOctreeNode* gsl_TriOctreeNode::GetChildAtIndex(int child) noexcept {
    return const_cast<gsl_TriOctreeNode*>(std::as_const(*this).GetChildAtIndex(child));
}

const gsl_TriOctreeNode* gsl_TriOctreeNode::GetChildAtIndex(int child) const noexcept {
    if (!_children || child < 0 || child >= GetChildCount()) return nullptr;
    return _children[static_cast<std::size_t>(child)].get();
}

bool gsl_TriOctreeNode::IsEmpty(int child) const noexcept {
    const gsl_TriOctreeNode* const node = GetChildAtIndex(child);
    return node == nullptr || node->IsEmpty();
}

bool gsl_TriOctreeNode::Contains(const gsl_BBox& box, const gsl_Point& point) noexcept {
    const auto& low = box.Low();
    const auto& high = box.High();
    return low.X() <= point.X() && point.X() <= high.X() && low.Y() <= point.Y() && point.Y() <= high.Y() &&
           low.Z() <= point.Z() && point.Z() <= high.Z();
}

gsl_TriOctreeNode* gsl_TriOctreeNode::FirstChildHolding(const gsl_Point& p1, const gsl_Point& p2,
                                                        const gsl_Point& p3) noexcept {
    for (int k = 0; _children && k < GetChildCount(); ++k) {
        gsl_TriOctreeNode* const child = GetChildAtIndex(k);
        if (child != nullptr && child->Holds(p1, p2, p3)) return child;
    }
    return nullptr;
}

bool gsl_TriOctreeNode::Holds(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3) const noexcept {
    return Contains(_box, p1) && Contains(_box, p2) && Contains(_box, p3);
}

// ---- Change

bool gsl_TriOctreeNode::Add(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3, int index) {
    if (!Holds(p1, p2, p3)) return false;
    gsl_TriOctreeNode* home = this;
    while (gsl_TriOctreeNode* const child = home->FirstChildHolding(p1, p2, p3)) home = child;
    home->_indices.Append(index);
    home->Count(1);
    return true;
}

void gsl_TriOctreeNode::TransformBBox(const gsl_Matrix& matrix) { _box.Transform(matrix); }

// ---- Building

gsl_BBox gsl_TriOctreeNode::SubBox(const gsl_BBox& box, int child) {
    gsl_Point low = box.Low(), high = box.High();
    const gsl_Point centre = box.Center();
    const auto halve = [&](unsigned axis, bool upper) { (upper ? low : high)[axis] = centre[axis]; };
    if (child < 8) {
        halve(0, (child & 1) != 0);
        halve(2, (child & 2) != 0);
        halve(1, (child & 4) != 0);
    } else {
        halve(static_cast<unsigned>(child - 8) / 2, child % 2 != 0);
    }
    return {low, high};
}

void gsl_TriOctreeNode::Build(int child, std::unique_ptr<gsl_TriOctreeNode> node, int maxLevel) {
    if (node == nullptr || child < 0 || child >= GetChildCount()) return;
    if (!_children) AllocateChildren(maxLevel);
    gsl_TriOctreeNode& stored = *node;
    std::unique_ptr<gsl_TriOctreeNode>& place = _children[static_cast<std::size_t>(child)];
    Count(stored._triangleCount - (place ? place->_triangleCount : 0));  // modulo 2^n: less than nothing is right, too
    stored._parent = this;
    stored._index = child;
    place = std::move(node);
    stored.BuildOctree(stored._box, maxLevel);
}

void gsl_TriOctreeNode::AllocateChildren(int maxLevel) {
    const auto count = static_cast<std::size_t>(GetChildCount());
    if (_parent == nullptr)
        RequireMemory(count, static_cast<long long>(maxLevel) - _level, sizeof(gsl_TriOctreeNode) + sizeof(_children));
    _children = std::make_unique<std::unique_ptr<gsl_TriOctreeNode>[]>(count);
}
