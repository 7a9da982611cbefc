#ifndef ORV_GSL_GSL_TRIOCTREE_H
#define ORV_GSL_GSL_TRIOCTREE_H

#include <base/cow_String.h>
#include <base/orv_Export.h>
#include <gsl/gsl_TriOctreeNode.h>

#include <cstdio>
#include <memory>

/// The triangles of a surface sorted into a tree of boxes, so that two surfaces can be compared box against box before
/// any triangle is touched. The tree holds indices; the corners stay with the caller. It is built completely at
/// construction and filled through the root:
///
///     gsl_TriOctree tree(box, "skin", gsl_TriOctree::TRI_OCTREE_NODE, 5);
///     for (int i = 0; i < n; ++i) tree.GetRoot()->Add(corner(i, 0), corner(i, 1), corner(i, 2), i);
///
/// A tree of depth D has (8^D - 1) / 7 nodes of the plain kind, (14^D - 1) / 13 of the other: keep D low. Every node is
/// destroyed with the tree. Not copyable; shared through `cow_CountedHld<gsl_TriOctree>`.
class ORV_EXPORT gsl_TriOctree {
public:
    /// The kinds of nodes.
    enum OctreeNodeType : int {
        TRI_OCTREE_NODE = 0,  ///< gsl_TriOctreeNode, 8 children
        MOD_OCTREE_NODE = 1,  ///< gsl_ModOctreeNode, 14 children
    };

    /// With levels 1 to `maxDepth` over `box`; a depth of 1 or less gives a single leaf. A type of neither value leaves
    /// the tree without a root. Throws std::bad_alloc, before allocating a node, when the nodes cannot be held.
    gsl_TriOctree(const gsl_BBox& box, const cow_String& name, OctreeNodeType type, int maxDepth);

    gsl_TriOctree(const gsl_TriOctree&) = delete;
    gsl_TriOctree& operator=(const gsl_TriOctree&) = delete;
    ~gsl_TriOctree() = default;

    /// Null in a tree without a root.
    [[nodiscard]] gsl_TriOctreeNode* GetRoot() noexcept { return _root.get(); }
    [[nodiscard]] const gsl_TriOctreeNode* GetRoot() const noexcept { return _root.get(); }

    /// Of the root; the empty box without one.
    [[nodiscard]] gsl_BBox GetBBox() const { return _root ? _root->GetBBox() : gsl_BBox(); }

    /// Of the root: 8 or 14, also when it is a leaf; 0 without one.
    [[nodiscard]] int GetChildCount() const { return _root ? _root->GetChildCount() : 0; }

    /// "Root id: <name>, Max Depth: <depth>", then all nodes, parents before children. Null: nothing.
    void Print(std::FILE* file) const;

private:
    int _maxDepth;
    std::unique_ptr<gsl_TriOctreeNode> _root;
    cow_String _name;
};

#endif
