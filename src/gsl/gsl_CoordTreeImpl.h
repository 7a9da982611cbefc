#ifndef ORV_GSL_GSL_COORDTREEIMPL_H
#define ORV_GSL_GSL_COORDTREEIMPL_H

#include <base/cow_List.h>
#include <base/orv_Export.h>
#include <gsl/gsl_CoordTreeNode.h>
#include <gsl/gsl_CoordTreePool.h>
#include <gsl/gsl_Point.h>

#include <cstddef>
#include <span>
#include <vector>

class gsl_BBox;
struct gsl_CoordTreeArgs;

/// The tree behind `gsl_CoordTree`, where the contracts of its operations stand.
///
/// The node at depth d splits on axis d modulo `dim`. Nothing recurses: a tree may be as deep as it has nodes.
class ORV_EXPORT gsl_CoordTreeImpl {
public:
    /// Empty; `dim` is clamped to 1..3.
    explicit gsl_CoordTreeImpl(unsigned dim) noexcept;
    gsl_CoordTreeImpl(const gsl_CoordTreeImpl& other);
    gsl_CoordTreeImpl& operator=(const gsl_CoordTreeImpl& other);
    ~gsl_CoordTreeImpl() = default;

    /// Null for an empty tree.
    [[nodiscard]] const gsl_CoordTreeNode* GetRoot() const noexcept { return _root; }
    /// Number of coordinates that the tree splits on, and number of points.
    [[nodiscard]] unsigned GetDim() const noexcept { return _dim; }
    [[nodiscard]] unsigned Size() const noexcept { return _count; }

    // ---- Changes. One that throws, std::bad_alloc too, leaves the tree as it was.

    /// As of gsl_CoordTree.
    void Insert(const gsl_Point& point, unsigned index);

    /// Point i gets its position i as its index when `indices` is null. nex_RangeException when `indices` is too short
    /// or the tree would hold 2^31 points or more.
    void Insert(std::span<const gsl_Point> points, const cow_List<unsigned>* indices);

    /// As of gsl_CoordTree.
    int Remove(const gsl_Point& point, double tol, int index);
    void Clear() noexcept;

    /// Becomes a copy of `other`, which may be this tree, node by node. Its own nodes go when the copy is made.
    void DeepCopy(const gsl_CoordTreeImpl& other);

    // ---- Searches

    /// As of gsl_CoordTree.
    [[nodiscard]] int Find(const gsl_Point& point, double tol) const;

    /// Appends to `indices`.
    void FindAll(const gsl_Point& point, double tol, std::vector<unsigned>& indices) const;

    /// As of gsl_CoordTree.
    int FindClosest(const gsl_Point& point, double* dist) const;
    cow_List<unsigned> FindClosest(const gsl_Point& point, unsigned k, cow_List<double>* distances) const;
    cow_List<unsigned> FindInRadius(const gsl_Point& point, double radius, unsigned k,
                                    cow_List<double>* distances) const;
    [[nodiscard]] cow_List<unsigned> FindInBox(const gsl_BBox& box) const;

    // ---- Debugging, on standard output

    /// The number of points that are on the wrong side of a node above them, each of them reported.
    std::size_t CheckTree() const;

    /// The nodes under `node`, or all when that is null.
    void PrintTree(const gsl_CoordTreeNode* node = nullptr) const;

private:
    /// A point on its way into the tree: compact, since it is moved often. `origin` is its position among the points
    /// that are inserted, which leads to its identity.
    struct Record {
        double xyz[3];
        unsigned index;
        unsigned origin;
    };
    class SamplePositions;
    class Nearest;

    /// A node with what removal needs to know: its parent (null for the root) and the axis it splits on.
    struct Place {
        gsl_CoordTreeNode* node;
        gsl_CoordTreeNode* parent;
        unsigned axis;
    };

    [[nodiscard]] unsigned NextAxis(unsigned axis) const noexcept { return axis + 1 == _dim ? 0 : axis + 1; }

    // ---- Insertion
    static void SwapPoints(Record& a, Record& b) noexcept;
    static void SortOnAxis(std::span<Record> points, unsigned axis) noexcept;
    static unsigned MoveBelow(Record* target, std::span<Record> points, unsigned axis, double value) noexcept;
    static unsigned SplitPointList(std::span<Record> points, unsigned axis, double low, SamplePositions& sample);
    static unsigned SplitPointList(std::span<Record> points, unsigned axis, double low, const gsl_CoordTreeNode& node);
    static double Greatest(std::span<const Record> points, unsigned axis) noexcept;
    void InsertRecords(std::span<Record> records, std::span<const gsl_Point> points);

    // ---- Searches
    template <class Visitor>
    void Search(const gsl_Point& point, Visitor& visitor) const;
    [[nodiscard]] Place FindNode(const gsl_Point& point, double tol, int index) const;
    template <class Better>
    [[nodiscard]] Place FindExtreme(const Place& subtree, unsigned axis, Better better) const;
    [[nodiscard]] Place FindMinNode(const Place& subtree, unsigned axis) const;
    [[nodiscard]] Place FindMaxNode(const Place& subtree, unsigned axis) const;

    // ---- Debugging
    static std::vector<const gsl_CoordTreeNode*> GatherNodes(const gsl_CoordTreeNode* node);
    static std::vector<double> GatherAxisValues(const gsl_CoordTreeNode* node, unsigned axis);

    gsl_CoordTreeNode* _root = nullptr;
    unsigned _dim;
    unsigned _count = 0;
    int _greatestDepth = 0;  // one below the deepest node there was since the tree was empty
    gsl_CoordTreePool _pool;
};

#endif
