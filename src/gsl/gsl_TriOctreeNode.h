#ifndef ORV_GSL_GSL_TRIOCTREENODE_H
#define ORV_GSL_GSL_TRIOCTREENODE_H

#include <base/cow_List.h>
#include <base/mem_AllocationOperators.h>
#include <base/orv_Export.h>
#include <gsl/gsl_BBox.h>
#include <gsl/gsl_Point.h>

#include <cstddef>
#include <cstdio>
#include <memory>

class gsl_Matrix;

/// A box of a triangle octree: its eight octants as children (none in a leaf) and the indices of the triangles that lie
/// in the box but in none of its children. With l, c, h the low corner, centre and high corner of the box:
///
///     child  0    1    2    3    4    5    6    7      bit 0 of the index: upper half in x
///     x     l-c  c-h  l-c  c-h  l-c  c-h  l-c  c-h     bit 1: upper half in *z*
///     z     l-c  l-c  c-h  c-h  l-c  l-c  c-h  c-h     bit 2: upper half in *y*
///     y     l-c  l-c  l-c  l-c  c-h  c-h  c-h  c-h     (x varies fastest, then z, then y)
///
/// A triangle across a mid-plane stays in the parent; `gsl_ModOctreeNode` gives such triangles a deeper home. Boxes are
/// closed and compared without a tolerance, so neighbours share their common face and the lower index gets what lies
/// in it. NaN lies in no box.
class ORV_EXPORT gsl_TriOctreeNode : public mem_AllocationOperators {
public:
    /// A leaf over `box`. `parent` may be null; it must outlive this node. It counts this node's triangles once it has
    /// the node among its children (`Build`).
    gsl_TriOctreeNode(const gsl_BBox& box, int level, int index, gsl_TriOctreeNode* parent);

    gsl_TriOctreeNode(const gsl_TriOctreeNode&) = delete;
    gsl_TriOctreeNode& operator=(const gsl_TriOctreeNode&) = delete;
    virtual ~gsl_TriOctreeNode();

    /// How many children a node of this kind has when it is no leaf: 8.
    [[nodiscard]] virtual int GetChildCount() const;

    /// Level, index, number of triangles kept here (not below), corners; then the same of each child. Null: nothing.
    virtual void Print(std::FILE* file) const;

    /// Gives this leaf all its descendants down to `maxLevel`, the root being level 1; it stays a leaf when its own
    /// level is not below that. `box` is the node's own. Does nothing on a node that has children. On a node without a
    /// parent the descendants are counted first: std::bad_alloc, before anything is allocated, when there is no memory
    /// for them (or they are beyond 2^31). Whenever it throws, this node is a leaf as before.
    virtual void BuildOctree(const gsl_BBox& box, int maxLevel);

    // ---- Queries

    /// 1 for the root.
    [[nodiscard]] int GetLevel() const noexcept { return _level; }

    /// Among the children of its parent; -1 for the root.
    [[nodiscard]] int GetIndex() const noexcept { return _index; }
    /// The box of the node.
    [[nodiscard]] const gsl_BBox& GetBBox() const noexcept { return _box; }

    /// Null in a leaf, for an index that no child has, and for a child that was not built.
    [[nodiscard]] gsl_TriOctreeNode* GetChildAtIndex(int child) noexcept;
    [[nodiscard]] const gsl_TriOctreeNode* GetChildAtIndex(int child) const noexcept;

    /// Of the triangles kept in this very node, in the order of their adding.
    [[nodiscard]] cow_List<int> GetIndices() const { return _indices; }

    /// Of the triangles kept in this node and below.
    [[nodiscard]] std::size_t GetTriangleCount() const noexcept { return _triangleCount; }

    /// No triangle here or below. O(1).
    [[nodiscard]] bool IsEmpty() const noexcept { return _triangleCount == 0; }

    /// The child is absent or empty.
    [[nodiscard]] bool IsEmpty(int child) const noexcept;

    /// Every coordinate within the box: low <= c <= high.
    [[nodiscard]] static bool Contains(const gsl_BBox& box, const gsl_Point& point) noexcept;

    // ---- Change

    /// Keeps `index` in the first child, by index, that holds all three corners, there in its first such child and so
    /// on: not in the deepest one. False, and nothing kept, when a corner lies outside this node's box.
    bool Add(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3, int index);

    /// Transforms this node's box alone: children, triangles and parents keep what they have.
    void TransformBBox(const gsl_Matrix& matrix);

protected:
    /// The part of `box` that child `child` covers: 0 to 7 the octants, 8 to 13 the lower and upper half in x, in y and
    /// in z.
    [[nodiscard]] static gsl_BBox SubBox(const gsl_BBox& box, int child);

    /// Stores the child in place of one that may be there, as number `child` of this node, builds it down to `maxLevel`
    /// over its own box, and counts what it holds. Nothing when `node` is null or no child has this number. Children
    /// that a derived class does not build are absent.
    void Build(int child, std::unique_ptr<gsl_TriOctreeNode> node, int maxLevel);

    /// `BuildOctree` with children of the kind `Node`.
    template <class Node>
    void BuildChildren(const gsl_BBox& box, int maxLevel);

private:
    void AllocateChildren(int maxLevel);
    /// The parent, unless it does not have this node among its children.
    [[nodiscard]] gsl_TriOctreeNode* Holder() const noexcept {
        return _parent != nullptr && _parent->GetChildAtIndex(_index) == this ? _parent : nullptr;
    }
    /// There are `more` triangles here or below than there were.
    void Count(std::size_t more) noexcept {
        for (gsl_TriOctreeNode* node = this; node != nullptr; node = node->Holder()) node->_triangleCount += more;
    }
    [[nodiscard]] gsl_TriOctreeNode* FirstChildHolding(const gsl_Point& p1, const gsl_Point& p2,
                                                       const gsl_Point& p3) noexcept;
    [[nodiscard]] bool Holds(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3) const noexcept;

    std::unique_ptr<std::unique_ptr<gsl_TriOctreeNode>[]> _children;  // null in a leaf
    cow_List<int> _indices;
    gsl_BBox _box;
    int _level;
    int _index;
    gsl_TriOctreeNode* _parent;
    std::size_t _triangleCount = 0;  // here and below
};

template <class Node>
void gsl_TriOctreeNode::BuildChildren(const gsl_BBox& box, int maxLevel) {
    if (_children || _level >= maxLevel) return;
    AllocateChildren(maxLevel);
    try {
        for (int k = 0; k < GetChildCount(); ++k)
            Build(k, std::make_unique<Node>(SubBox(box, k), _level + 1, k, this), maxLevel);
    } catch (...) {
        _children.reset();
        throw;
    }
}

#endif
