#ifndef ORV_GSL_GSL_COORDTREE_H
#define ORV_GSL_GSL_COORDTREE_H

#include <base/cls_xo1DArrayList.h>
#include <base/cow_List.h>
#include <base/orv_Export.h>
#include <gsl/gsl_Point.h>

#include <memory>
#include <span>

class gsl_BBox;
class gsl_CoordTreeImpl;

/// Looks points up by their coordinates: a k-d tree over one (x), two (x, y) or three coordinates, in which each point
/// carries an index that its caller chose, usually its position in the caller's array.
///
/// | question                           | operation                        | order of the answer |
/// |------------------------------------|----------------------------------|---------------------|
/// | is a point here, and which         | `Find`, `FindMany`               | the first one found |
/// | which points are near              | `FindAll`                        | of discovery        |
/// | which points are near, how far     | `FindInRadius`                   | nearest first       |
/// | which is nearest, which k are      | `FindClosest`, `FindClosestMany` | nearest first       |
/// | which points are in a box          | `FindInBox`                      | of discovery        |
///
/// **Distance** is always that in space, |p - q| as `gsl_Point::GetDistance` computes it, also in a tree of one or two
/// coordinates; these only decide how the tree is built. Tolerances and radii are *strict*: a point exactly that far
/// away is not found, and 0 or less, or NaN, finds nothing. Where squares of differences underflow, below 1e-154,
/// points may be missed whose distance is computed as 0.
///
/// **Order.** A search looks at a node before its subtrees, and at the subtree on its own side before the other; a
/// point equal to a node's on the node's axis belongs to the right. Among equals the one found first is taken, which
/// need not be the one with the lowest index.
///
/// **Bulk insertion** chooses each node by a median, of 20 points drawn by `std::rand` where there are more than 20. It
/// seeds the process-wide generator (`std::srand`) with numbers of points, so equal input gives equal trees, and other
/// users of `std::rand` notice. It balances the tree; inserting one by one does not. Points that are equal in all used
/// coordinates always form a chain. Chains are safe at any length, but a search that comes to one walks it.
///
/// **Bad coordinates.** A point with a NaN is stored and counted, but no search finds it, and it hides no other point
/// (but `Remove` may make it hide some). Searches from a point with a NaN find nothing. Infinite coordinates are
/// ordinary numbers; infinity from infinity is no distance, and such pairs do not find each other.
///
/// **When something throws**, std::bad_alloc too, the tree is as it was: the points, their count and every answer.
/// Moving does not throw; a tree that was moved from is empty and goes on as one of three coordinates.
///
/// Const operations may run on several threads at a time, `DebugTree` apart.
class ORV_EXPORT gsl_CoordTree {
public:
    /// Empty. `dim` below 1 gives 1, above 3 gives 3.
    explicit gsl_CoordTree(unsigned dim);

    /// Empty, then the bulk `Insert`, and throws as that does.
    gsl_CoordTree(const cls_xo1DArrayList<gsl_Point>& points, unsigned dim);
    gsl_CoordTree(const cls_xo1DArrayList<gsl_Point>& points, unsigned dim, const cow_List<unsigned>& indices);

    /// Copies all nodes, in the same shape. Assignment frees the nodes that were there when the copy is made.
    gsl_CoordTree(const gsl_CoordTree& other);
    gsl_CoordTree(gsl_CoordTree&& other) noexcept;
    gsl_CoordTree& operator=(const gsl_CoordTree& other);
    gsl_CoordTree& operator=(gsl_CoordTree&& other) noexcept;
    ~gsl_CoordTree();

    /// Number of points.
    [[nodiscard]] unsigned Size() const noexcept;

    // ---- Insertion and removal

    /// Adds one point, below the nodes that are there; the tree is not rebalanced. Indices need not differ.
    void Insert(const gsl_Point& point, unsigned index);

    /// Bulk insertion, of all points or, when it throws, of none: point i gets the index i, or indices[i].
    /// nex_RangeException when `indices` is shorter than `points`. An empty list of points does nothing.
    void Insert(const cls_xo1DArrayList<gsl_Point>& points);
    void Insert(const cls_xo1DArrayList<gsl_Point>& points, const cow_List<unsigned>& indices);

    /// Removes the point that `Find` finds or, with index >= 0, the first one found that carries this index. Its index,
    /// or -1 when there is none. The tree is not rebalanced.
    int Remove(const gsl_Point& point, double tol, int index);

    /// Removes all points.
    void Clear() noexcept;

    // ---- Searches. An index from 2^31 on comes out of the operations that return int as a negative number.

    /// The index of a point less than `tol` away: the first one found, not necessarily the nearest; or -1.
    [[nodiscard]] int Find(const gsl_Point& point, double tol) const;

    /// The indices of all points less than `tol` away.
    [[nodiscard]] cow_List<unsigned> FindAll(const gsl_Point& point, double tol) const;

    /// The index of the nearest point, and its distance through `dist` unless that is null; or -1, nothing written.
    int FindClosest(const gsl_Point& point, double* dist) const;

    /// The indices of the `k` nearest points, of all when fewer are stored. `distances`, unless null, is replaced by
    /// theirs.
    cow_List<unsigned> FindClosest(const gsl_Point& point, unsigned k, cow_List<double>* distances) const;

    /// All points less than `radius` away, nearest first, with their distances as above; and the `k` nearest of them.
    cow_List<unsigned> FindInRadius(const gsl_Point& point, double radius, cow_List<double>* distances = nullptr) const;
    cow_List<unsigned> FindInRadius(const gsl_Point& point, double radius, unsigned k,
                                    cow_List<double>* distances) const;

    /// The indices of all points in the box: low <= coordinate <= high on all three axes, also in a tree of fewer. An
    /// empty box finds nothing.
    [[nodiscard]] cow_List<unsigned> FindInBox(const gsl_BBox& box) const;

    // ---- Many searches in one call: result i answers point i. nex_RangeException, and nothing written, when a span of
    // results is shorter than that of the points.

    /// As `Find`.
    void FindMany(std::span<const gsl_Point> points, double tol, std::span<int> indices) const;

    /// A distance is not written where the index is -1. The form without distances asks for indices only.
    void FindClosestMany(std::span<const gsl_Point> points, std::span<int> indices, std::span<double> distances) const;
    void FindClosestMany(std::span<const gsl_Point> points, std::span<int> indices) const;

    // ---- Debugging

    /// Checks that each node's subtrees are on their sides of it, one line on standard output for each point that is
    /// not; then prints the tree if `print` is true.
    ///
    ///     Error! left value 3 is not to the left of 3 at depth 0
    ///     #### TREE CONTAINING 2 NODES ####
    ///      Node ID 0 (1, 2, 3) Children: - 1
    ///
    /// `Remove` can leave points on the left that are equal to their node; they are found all the same.
    void DebugTree(bool print) const;

private:
    friend class gsl_CoordTreeIter;

    std::unique_ptr<gsl_CoordTreeImpl> _impl;  // null in a tree that was moved from
};

#endif
