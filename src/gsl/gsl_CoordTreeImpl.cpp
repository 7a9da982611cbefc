#include <base/nex_RangeException.h>
#include <base/nex_Throw.h>
#include <gsl/gsl_BBox.h>
#include <gsl/gsl_CoordTreeArgs.h>
#include <gsl/gsl_CoordTreeImpl.h>
#include <gsl/gsl_PrintIndented.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <limits>
#include <utility>

namespace {

using Node = gsl_CoordTreeNode;

constexpr unsigned kSampleSize = 20;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// Ascending, NaN last.
bool Before(double a, double b) noexcept { return a < b || (std::isnan(b) && !std::isnan(a)); }

double SquaredDistance(const std::array<double, 3>& a, const std::array<double, 3>& b) noexcept {
    const double x = a[0] - b[0], y = a[1] - b[1], z = a[2] - b[2];
    return x * x + y * y + z * z;
}

bool IsSame(const gsl_Point& a, const gsl_Point& b) noexcept { return a.AsArray() == b.AsArray(); }

/// The next number below a square (not negative).
double BelowSquare(double square) noexcept {
    return square > 0.0 ? std::bit_cast<double>(std::bit_cast<std::uint64_t>(square) - 1) : -1.0;
}

/// The greatest square whose root is less than `tol`, so that comparing squares with it (inclusive) decides as
/// comparing distances with `tol` (strict) does, to the last bit; negative when there is none.
double SquareLimit(double tol) noexcept {
    if (!(tol > 0.0)) return -1.0;
    double limit = tol * tol;
    while (!(std::sqrt(limit) < tol)) limit = std::nextafter(limit, 0.0);
    for (double next = limit; std::sqrt(next) < tol; next = std::nextafter(limit, kInfinity)) limit = next;
    return limit;
}

/// A stack that needs no allocation as long as it is as low as in a balanced tree.
template <class T>
class InlineStack {
public:
    [[nodiscard]] bool IsEmpty() const noexcept { return _size == 0; }

    void Push(const T& item) {
        if (_size < kInline)
            _inPlace[_size] = item;
        else
            _more.push_back(item);
        ++_size;
    }

    T Pop() noexcept {
        if (--_size < kInline) return _inPlace[_size];
        const T item = _more.back();
        _more.pop_back();
        return item;
    }

private:
    static constexpr std::size_t kInline = 48;

    std::array<T, kInline> _inPlace;
    std::vector<T> _more;
    std::size_t _size = 0;
};

/// What `Find` and `FindAll` ask of a node. The distance is tested already, by `limit`; the axes differ from it in
/// their verdict only where squares underflow.
class WithinTolerance {
public:
    WithinTolerance(const gsl_Point& point, unsigned dim, double tol) noexcept
        : limit(SquareLimit(tol)), _point(point), _dim(dim), _tol(tol) {}

    [[nodiscard]] bool Holds(const Node& node) const noexcept {
        for (unsigned axis = 0; axis < _dim; ++axis)
            if (!(std::abs(_point[axis] - node.point[axis]) < _tol)) return false;
        return true;
    }

    double limit;

private:
    const gsl_Point& _point;
    unsigned _dim;
    double _tol;
};

}  // namespace

gsl_CoordTreeImpl::gsl_CoordTreeImpl(unsigned dim) noexcept : _dim(std::clamp(dim, 1U, 3U)) {}

gsl_CoordTreeImpl::gsl_CoordTreeImpl(const gsl_CoordTreeImpl& other)
    : _dim(other._dim), _count(other._count), _greatestDepth(other._greatestDepth) {
    _pool.Reserve(other._count);
    struct Pair {
        const Node* from;
        Node* to;
    };
    InlineStack<Pair> pending;
    const auto copy = [&](const Node* from) -> Node* {
        if (from == nullptr) return nullptr;
        Node* const to = _pool.Make(*from);
        to->CopyBounds(*from);
        pending.Push({from, to});
        return to;
    };
    _root = copy(other._root);
    while (!pending.IsEmpty()) {
        const auto [from, to] = pending.Pop();
        to->right = copy(from->right);
        to->left = copy(from->left);
    }
}

gsl_CoordTreeImpl& gsl_CoordTreeImpl::operator=(const gsl_CoordTreeImpl& other) {
    if (this != &other) DeepCopy(other);
    return *this;
}

void gsl_CoordTreeImpl::Clear() noexcept {
    _root = nullptr;
    _count = 0;
    _greatestDepth = 0;
    _pool.Clear();
}

void gsl_CoordTreeImpl::DeepCopy(const gsl_CoordTreeImpl& other) {
    if (this == &other) return;
    gsl_CoordTreeImpl copy(other);
    std::swap(_root, copy._root);
    std::swap(_dim, copy._dim);
    std::swap(_count, copy._count);
    std::swap(_greatestDepth, copy._greatestDepth);
    std::swap(_pool, copy._pool);
}

// ---- Insertion

/// The positions that the sample of a range is drawn from, which depend on the length of the range alone. Seeding costs
/// more than most ranges are worth, so those of short ranges are kept; at the end the generator is left as if each
/// range had been drawn for.
class gsl_CoordTreeImpl::SamplePositions {
public:
    using Positions = std::array<unsigned, kSampleSize>;

    explicit SamplePositions(std::size_t greatestLength)
        : _kept(greatestLength > kSampleSize ? std::min<std::size_t>(greatestLength, kGreatestKept) + 1 : 0) {}
    SamplePositions(const SamplePositions&) = delete;
    SamplePositions& operator=(const SamplePositions&) = delete;
    ~SamplePositions() {
        if (_wanted != _drawn) static_cast<void>(Draw(_wanted));
    }

    [[nodiscard]] Positions Of(unsigned length) {
        _wanted = length;
        if (length >= _kept.size()) return Draw(length);
        Kept& kept = _kept[length];
        if (!kept.isDrawn) kept = {true, Draw(length)};
        return kept.positions;
    }

private:
    static constexpr std::size_t kGreatestKept = 4096;

    struct Kept {
        bool isDrawn = false;
        Positions positions{};
    };

    [[nodiscard]] Positions Draw(unsigned length) {
        _drawn = length;
        std::srand(length);
        Positions positions;
        for (unsigned& position : positions)
            position = static_cast<unsigned>(static_cast<double>(std::rand()) * length / (RAND_MAX + 1.0));
        return positions;
    }

    std::vector<Kept> _kept;
    unsigned _wanted = 0;
    unsigned _drawn = 0;
};

void gsl_CoordTreeImpl::SwapPoints(Record& a, Record& b) noexcept { std::swap(a, b); }

/// By insertion: at most `kSampleSize` points.
void gsl_CoordTreeImpl::SortOnAxis(std::span<Record> points, unsigned axis) noexcept {
    for (std::size_t i = 1; i < points.size(); ++i) {
        const Record point = points[i];
        std::size_t j = i;
        for (; j > 0 && Before(point.xyz[axis], points[j - 1].xyz[axis]); --j) points[j] = points[j - 1];
        points[j] = point;
    }
}

/// Swaps the points strictly below `value` to `target` and the positions behind it, in their order; their number.
/// `target` is not behind the points.
unsigned gsl_CoordTreeImpl::MoveBelow(Record* target, std::span<Record> points, unsigned axis, double value) noexcept {
    constexpr std::size_t blockLength = 256;
    std::array<std::uint16_t, blockLength> marked;
    unsigned moved = 0;
    for (std::size_t first = 0; first < points.size(); first += blockLength) {
        const std::span<Record> block = points.subspan(first, std::min(blockLength, points.size() - first));
        std::size_t count = 0;
        for (std::size_t i = 0; i < block.size(); ++i) {  // without a branch: it would be a toss-up
            marked[count] = static_cast<std::uint16_t>(i);
            count += block[i].xyz[axis] < value ? 1 : 0;
        }
        for (std::size_t i = 0; i < count; ++i) SwapPoints(target[moved++], block[marked[i]]);
    }
    return moved;
}

/// Puts a point that is about the median to the position that is returned, all that are strictly less in front of it
/// and all others behind. No point is strictly below `low`: a pivot that is not above it leaves nothing to look for,
/// which is what makes a long chain of equal points cheap.
unsigned gsl_CoordTreeImpl::SplitPointList(std::span<Record> points, unsigned axis, double low,
                                           SamplePositions& sample) {
    const auto length = static_cast<unsigned>(points.size());
    const unsigned sorted = std::min(length, kSampleSize);
    if (length > kSampleSize) {
        const auto positions = sample.Of(length);
        for (unsigned i = 0; i < kSampleSize; ++i) SwapPoints(points[i], points[positions[i]]);
    }
    SortOnAxis(points.first(sorted), axis);
    unsigned k = sorted / 2;
    const double pivot = points[k].xyz[axis];
    while (k > 0 && points[k - 1].xyz[axis] == pivot) --k;
    if (length > kSampleSize && low < pivot) {
        const unsigned moved = MoveBelow(&points[k] + 1, points.subspan(kSampleSize), axis, pivot);
        SwapPoints(points[k], points[k + moved]);
        k += moved;
    }
    return k;
}

/// Moves the points strictly below an existing node to the front; their number.
unsigned gsl_CoordTreeImpl::SplitPointList(std::span<Record> points, unsigned axis, double low, const Node& node) {
    return low < node.point[axis] ? MoveBelow(points.data(), points, axis, node.point[axis]) : 0;
}

/// The greatest coordinate, NaN aside; minus infinity when there is none.
double gsl_CoordTreeImpl::Greatest(std::span<const Record> points, unsigned axis) noexcept {
    double greatest = -kInfinity;
    for (const Record& point : points) greatest = std::max(greatest, point.xyz[axis]);
    return greatest;
}

/// All that can throw comes before the first change: the room for the nodes, for the sample, and for the stack, whose
/// items have a point each.
void gsl_CoordTreeImpl::InsertRecords(std::span<Record> records, std::span<const gsl_Point> points) {
    _pool.Reserve(records.size());
    SamplePositions sample(records.size());
    std::vector<gsl_CoordTreeArgs> pending;
    pending.reserve(records.size());
    std::vector<Node*> made;  // parents before their children
    made.reserve(records.size());

    // Gives `node` the range, and makes it of one of the range's points if there is none yet.
    const auto place = [&](Node*& node, gsl_CoordTreeArgs range) {
        if (range.length == 0) return;
        if (node == nullptr) {
            const unsigned axis = static_cast<unsigned>(range.depth) % _dim;
            const std::span<Record> part = records.subspan(range.start, range.length);
            const unsigned chosen = SplitPointList(part, axis, range.low[axis], sample);
            node = _pool.Make({points[part[chosen].origin], part[chosen].index});
            made.push_back(node);
            range.position = static_cast<int>(chosen);
        }
        range.node = node;
        pending.push_back(range);
    };

    place(_root, {.length = static_cast<unsigned>(records.size())});
    while (!pending.empty()) {
        const gsl_CoordTreeArgs item = pending.back();
        pending.pop_back();
        _greatestDepth = std::max(_greatestDepth, item.depth + 1);
        const unsigned axis = static_cast<unsigned>(item.depth) % _dim;
        const unsigned own = item.position < 0 ? 0 : 1;  // whether the node stands in the range
        const unsigned below =
            own == 1 ? static_cast<unsigned>(item.position)
                     : SplitPointList(records.subspan(item.start, item.length), axis, item.low[axis], *item.node);

        gsl_CoordTreeArgs upper{.depth = item.depth + 1,
                                .start = item.start + below + own,
                                .length = item.length - below - own,
                                .low = item.low};
        upper.low[axis] = std::max(item.low[axis], item.node->point[axis]);  // a NaN does not replace the first
        if (own == 0 && item.node->IsSameBelow()) item.node->SetSameBelow(false);
        if (below > 0) item.node->RaiseLeftBound(Greatest(records.subspan(item.start, below), axis));
        place(item.node->right, upper);
        place(item.node->left, {.depth = item.depth + 1, .start = item.start, .length = below, .low = item.low});
    }
    _count += static_cast<unsigned>(records.size());
    for (std::size_t i = made.size(); i-- > 0;) {
        const Node* const right = made[i]->right;
        if (made[i]->left == nullptr && right != nullptr)
            made[i]->SetSameBelow(right->IsSameBelow() && IsSame(right->point, made[i]->point));
    }
}

void gsl_CoordTreeImpl::Insert(std::span<const gsl_Point> points, const cow_List<unsigned>* indices) {
    if (points.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()) - std::min(_count, 0x7fffffffU))
        nex_Throw(nex_RangeException("gsl_CoordTree: 2^31 points or more"));
    std::vector<Record> records(points.size());
    for (unsigned i = 0; i < records.size(); ++i) {
        const std::array<double, 3>& xyz = points[i].AsArray();
        const unsigned index = indices != nullptr ? indices->ConstGet(static_cast<int>(i)) : i;
        records[i] = {{xyz[0], xyz[1], xyz[2]}, index, i};
    }
    if (!records.empty()) InsertRecords(records, points);
}

void gsl_CoordTreeImpl::Insert(const gsl_Point& point, unsigned index) {
    Node* const made = _pool.Make({point, index});  // before any change: it may throw
    Node** link = &_root;
    int depth = 0;
    for (unsigned axis = 0; *link != nullptr; axis = NextAxis(axis), ++depth) {
        Node& node = **link;
        if (node.IsSameBelow() && !IsSame(node.point, point)) node.SetSameBelow(false);
        const bool isLeft = point[axis] < node.point[axis];
        if (isLeft) node.RaiseLeftBound(point[axis]);
        link = isLeft ? &node.left : &node.right;
    }
    *link = made;
    _greatestDepth = std::max(_greatestDepth, depth + 1);
    ++_count;
}

// ---- Searches

/// Calls visitor(place, squared distance) for the nodes whose squared distance is at most `visitor.limit`, which the
/// visitor may lower meanwhile; until it returns true. A node comes before its subtrees, and the subtree on the point's
/// side before the other.
///
/// A subtree is left out when its cell, the region its ancestors leave to it, is beyond the limit. The distance of the
/// cell is computed from its offsets along the axes just as that of a node is, so rounding leaves out no node that
/// would have passed. A node with a NaN coordinate leaves cells as they are.
template <class Visitor>
void gsl_CoordTreeImpl::Search(const gsl_Point& point, Visitor& visitor) const {
    struct Cell {
        Place root;
        std::array<double, 3> offset;  // from the point to the cell
        double square;                 // of the distance to the cell

        void MoveTo(unsigned axis, double gap) noexcept {
            if (!(gap > offset[axis])) return;
            offset[axis] = gap;
            square = SquaredDistance(offset, {0.0, 0.0, 0.0});
        }
    };
    const std::array<double, 3> p = point.AsArray();
    if (std::isnan(p[0]) || std::isnan(p[1]) || std::isnan(p[2])) return;
    InlineStack<Cell> pending;
    if (_root != nullptr) pending.Push({{_root, nullptr, 0}, {0.0, 0.0, 0.0}, 0.0});
    while (!pending.IsEmpty()) {
        Cell cell = pending.Pop();
        Place& at = cell.root;
        while (at.node != nullptr && !(cell.square > visitor.limit)) {
            const std::array<double, 3>& q = at.node->point.AsArray();
            const double square = SquaredDistance(p, q);
            if (square <= visitor.limit && visitor(at, square)) return;
            if (at.node->IsSameBelow() && square > visitor.limit) break;

            const unsigned axis = at.axis;
            const bool isLeft = q[axis] > p[axis];
            const double toLeft = p[axis] - at.node->LeftBound(q[axis]), toRight = q[axis] - p[axis];
            Node* const node = at.node;
            Node* const far = isLeft ? node->right : node->left;
            if (far != nullptr) {
                Cell beyond = cell;
                beyond.root = {far, node, NextAxis(axis)};
                beyond.MoveTo(axis, isLeft ? toRight : toLeft);
                if (!(beyond.square > visitor.limit)) pending.Push(beyond);
            }
            at = {isLeft ? node->left : node->right, node, NextAxis(axis)};
            cell.MoveTo(axis, isLeft ? toLeft : toRight);
        }
    }
}

gsl_CoordTreeImpl::Place gsl_CoordTreeImpl::FindNode(const gsl_Point& point, double tol, int index) const {
    struct Visitor : WithinTolerance {
        int index;
        Place found;
        bool operator()(const Place& at, double /*square*/) {
            if (index >= 0 && at.node->index != static_cast<unsigned>(index)) return false;
            if (!Holds(*at.node)) return false;
            found = at;
            return true;
        }
    };
    Visitor visitor{{point, _dim, tol}, index, {}};
    Search(point, visitor);
    return visitor.found;
}

int gsl_CoordTreeImpl::Find(const gsl_Point& point, double tol) const {
    const Place found = FindNode(point, tol, -1);
    return found.node != nullptr ? static_cast<int>(found.node->index) : -1;
}

void gsl_CoordTreeImpl::FindAll(const gsl_Point& point, double tol, std::vector<unsigned>& indices) const {
    struct Visitor : WithinTolerance {
        std::vector<unsigned>& indices;
        bool operator()(const Place& at, double /*square*/) {
            if (Holds(*at.node)) indices.push_back(at.node->index);
            return false;
        }
    };
    Visitor visitor{{point, _dim, tol}, indices};
    Search(point, visitor);
}

int gsl_CoordTreeImpl::FindClosest(const gsl_Point& point, double* dist) const {
    struct Visitor {
        double limit = kInfinity;
        const Node* closest = nullptr;
        double distance = 0.0;
        bool operator()(const Place& at, double square) {
            const double candidate = std::sqrt(square);
            if (closest != nullptr && !(candidate < distance)) return false;
            closest = at.node;
            distance = candidate;
            limit = BelowSquare(square);
            return false;
        }
    };
    Visitor visitor;
    Search(point, visitor);
    if (visitor.closest == nullptr) return -1;
    if (dist != nullptr) *dist = visitor.distance;
    return static_cast<int>(visitor.closest->index);
}

/// The k nearest points, as a heap once k are held, the last to be dropped on top. Of equally distant ones the later
/// found is the later in order.
class gsl_CoordTreeImpl::Nearest {
public:
    Nearest(std::size_t k, double squareLimit) : limit(k > 0 ? squareLimit : -1.0), _k(k) {
        _held.reserve(std::min<std::size_t>(k, 16));
    }

    bool operator()(const Place& at, double square) {
        const Candidate candidate{std::sqrt(square), square, _found++, at.node->index};
        if (_held.size() == _k) {
            if (!(candidate.distance < _held.front().distance)) return false;
            std::pop_heap(_held.begin(), _held.end());
            _held.back() = candidate;
            std::push_heap(_held.begin(), _held.end());
        } else {
            _held.push_back(candidate);
            if (_held.size() < _k) return false;
            std::make_heap(_held.begin(), _held.end());
        }
        limit = BelowSquare(_held.front().square);
        return false;
    }

    [[nodiscard]] cow_List<unsigned> Result(cow_List<double>* distances) {
        std::sort(_held.begin(), _held.end());
        std::vector<unsigned> indices;
        indices.reserve(_held.size());
        for (const Candidate& candidate : _held) indices.push_back(candidate.index);
        if (distances != nullptr) {
            std::vector<double> values;
            values.reserve(_held.size());
            for (const Candidate& candidate : _held) values.push_back(candidate.distance);
            *distances = cow_List<double>(std::move(values));
        }
        return cow_List<unsigned>(std::move(indices));
    }

    double limit;

private:
    struct Candidate {
        double distance;
        double square;
        unsigned found;
        unsigned index;

        bool operator<(const Candidate& other) const noexcept {
            return distance != other.distance ? distance < other.distance : found < other.found;
        }
    };

    std::size_t _k;
    unsigned _found = 0;
    std::vector<Candidate> _held;
};

cow_List<unsigned> gsl_CoordTreeImpl::FindClosest(const gsl_Point& point, unsigned k,
                                                  cow_List<double>* distances) const {
    Nearest nearest(k, kInfinity);
    Search(point, nearest);
    return nearest.Result(distances);
}

cow_List<unsigned> gsl_CoordTreeImpl::FindInRadius(const gsl_Point& point, double radius, unsigned k,
                                                   cow_List<double>* distances) const {
    Nearest nearest(k, SquareLimit(radius));
    Search(point, nearest);
    return nearest.Result(distances);
}

cow_List<unsigned> gsl_CoordTreeImpl::FindInBox(const gsl_BBox& box) const {
    const std::array<double, 3> low = box.Low().AsArray(), high = box.High().AsArray();
    const auto inside = [&](const std::array<double, 3>& q) {
        for (unsigned axis = 0; axis < 3; ++axis)
            if (!(low[axis] <= q[axis] && q[axis] <= high[axis])) return false;
        return true;
    };
    struct Item {
        const Node* node;
        unsigned axis;
    };
    std::vector<unsigned> found;
    InlineStack<Item> pending;
    const bool isEmpty = !(low[0] <= high[0] && low[1] <= high[1] && low[2] <= high[2]);
    if (_root != nullptr && !isEmpty) pending.Push({_root, 0});
    while (!pending.IsEmpty()) {
        const auto [node, axis] = pending.Pop();
        const std::array<double, 3>& q = node->point.AsArray();
        if (inside(q)) found.push_back(node->index);
        // Equal on the left too: removal leaves such points there.
        if (node->right != nullptr && !(high[axis] < q[axis])) pending.Push({node->right, NextAxis(axis)});
        if (node->left != nullptr && !(low[axis] > node->LeftBound(q[axis])))
            pending.Push({node->left, NextAxis(axis)});
    }
    return cow_List<unsigned>(std::move(found));
}

// ---- Removal

/// The node of the subtree whose coordinate on `axis` is the best, numbers before NaN; of equal ones the first met.
template <class Better>
gsl_CoordTreeImpl::Place gsl_CoordTreeImpl::FindExtreme(const Place& subtree, unsigned axis, Better better) const {
    const bool isMin = better(0.0, 1.0);
    Place best = subtree;
    InlineStack<Place> pending;
    pending.Push(subtree);
    while (!pending.IsEmpty()) {
        const Place at = pending.Pop();
        const double value = at.node->point[axis], held = best.node->point[axis];
        if (better(value, held) || (std::isnan(held) && !std::isnan(value))) best = at;
        const bool splits = at.axis == axis && !std::isnan(value);  // then one side has nothing better than the node
        const auto push = [&](Node* child) {
            if (child != nullptr) pending.Push({child, at.node, NextAxis(at.axis)});
        };
        if (!splits || !isMin) push(at.node->right);
        if (!splits || isMin) push(at.node->left);
    }
    return best;
}

gsl_CoordTreeImpl::Place gsl_CoordTreeImpl::FindMinNode(const Place& subtree, unsigned axis) const {
    return FindExtreme(subtree, axis, std::less<>());
}

gsl_CoordTreeImpl::Place gsl_CoordTreeImpl::FindMaxNode(const Place& subtree, unsigned axis) const {
    return FindExtreme(subtree, axis, std::greater<>());
}

int gsl_CoordTreeImpl::Remove(const gsl_Point& point, double tol, int index) {
    Place current = FindNode(point, tol, index);
    if (current.node == nullptr) return -1;
    const auto removed = static_cast<int>(current.node->index);
    // Each node of the chain gets the point of the next, the leaf at its end goes. The chain is known before anything
    // is overwritten: looking for it may throw.
    InlineStack<Node*> chain;
    while (!current.node->IsLeaf()) {
        Node* const node = current.node;
        const unsigned below = NextAxis(current.axis);
        chain.Push(node);
        current = node->right != nullptr ? FindMinNode({node->right, node, below}, current.axis)
                                         : FindMaxNode({node->left, node, below}, current.axis);
    }
    auto moving = static_cast<const gsl_CoordTreePt&>(*current.node);
    while (!chain.IsEmpty()) std::swap<gsl_CoordTreePt>(*chain.Pop(), moving);
    if (current.parent == nullptr) {
        Clear();
        return removed;
    }
    (current.parent->left == current.node ? current.parent->left : current.parent->right) = nullptr;
    _pool.Free(current.node);
    --_count;
    return removed;
}

// ---- Debugging

/// The nodes of a subtree: a node, then its left subtree, then its right one.
std::vector<const gsl_CoordTreeNode*> gsl_CoordTreeImpl::GatherNodes(const Node* node) {
    std::vector<const Node*> gathered;
    InlineStack<const Node*> pending;
    if (node != nullptr) pending.Push(node);
    while (!pending.IsEmpty()) {
        const Node* const next = pending.Pop();
        gathered.push_back(next);
        if (next->right != nullptr) pending.Push(next->right);
        if (next->left != nullptr) pending.Push(next->left);
    }
    return gathered;
}

std::vector<double> gsl_CoordTreeImpl::GatherAxisValues(const Node* node, unsigned axis) {
    const std::vector<const Node*> nodes = GatherNodes(node);
    std::vector<double> values;
    values.reserve(nodes.size());
    for (const Node* const each : nodes) values.push_back(each->point[axis]);
    return values;
}

/// The range of each subtree tells which nodes have something wrong below them, in one pass from the bottom up; only
/// for those the subtrees are gathered.
std::size_t gsl_CoordTreeImpl::CheckTree() const {
    struct Entry {
        const Node* node;
        std::size_t parent;
        int depth;
        bool isWrong = false;
        std::array<double, 3> least{kInfinity, kInfinity, kInfinity};  // NaN aside
        std::array<double, 3> greatest{-kInfinity, -kInfinity, -kInfinity};
        std::array<bool, 3> hasNaN{};
    };
    std::vector<Entry> entries;  // parents before their children
    entries.reserve(_count);
    if (_root != nullptr) entries.push_back({_root, 0, 0});
    for (std::size_t i = 0; i < entries.size(); ++i)
        for (const Node* const child : {entries[i].node->left, entries[i].node->right})
            if (child != nullptr) entries.push_back({child, i, entries[i].depth + 1});

    for (std::size_t i = entries.size(); i-- > 1;) {
        Entry& entry = entries[i];
        Entry& parent = entries[entry.parent];
        for (unsigned axis = 0; axis < 3; ++axis) {
            const double value = entry.node->point[axis];
            entry.least[axis] = std::min(entry.least[axis], value);
            entry.greatest[axis] = std::max(entry.greatest[axis], value);
            entry.hasNaN[axis] = entry.hasNaN[axis] || std::isnan(value);
            parent.least[axis] = std::min(parent.least[axis], entry.least[axis]);
            parent.greatest[axis] = std::max(parent.greatest[axis], entry.greatest[axis]);
            parent.hasNaN[axis] = parent.hasNaN[axis] || entry.hasNaN[axis];
        }
        const unsigned axis = static_cast<unsigned>(parent.depth) % _dim;
        const double split = parent.node->point[axis];
        if (parent.node->left == entry.node ? !(entry.greatest[axis] < split) || entry.hasNaN[axis]
                                            : entry.least[axis] < split)
            parent.isWrong = true;
    }

    std::size_t reports = 0;
    for (const Entry& entry : entries) {
        if (!entry.isWrong) continue;
        const unsigned axis = static_cast<unsigned>(entry.depth) % _dim;
        const double split = entry.node->point[axis];
        const auto report = [&](const char* before, double value, const char* after) {
            ++reports;
            gsl_PrintIndented(std::cout, 0, {{before, value}, {after, split}, {" at depth ", double(entry.depth)}});
        };
        for (const double value : GatherAxisValues(entry.node->left, axis))
            if (!(value < split)) report("Error! left value ", value, " is not to the left of ");
        for (const double value : GatherAxisValues(entry.node->right, axis))
            if (value < split) report("Error! right value ", value, " is not to the right of ");
    }
    std::cout.flush();
    return reports;
}

void gsl_CoordTreeImpl::PrintTree(const Node* node) const {
    const std::vector<const Node*> nodes = GatherNodes(node != nullptr ? node : _root);
    if (nodes.empty()) {
        std::cout << "Empty Tree!" << std::endl;
        return;
    }
    const auto printIndex = [](const Node* child) {
        if (child != nullptr)
            std::cout << child->index;
        else
            std::cout << '-';
    };
    std::cout << "#### TREE CONTAINING " << nodes.size() << " NODES ####\n";
    for (const Node* const each : nodes) {
        std::cout << " Node ID " << each->index << " (" << each->point.X();
        for (unsigned axis = 1; axis < _dim; ++axis) std::cout << ", " << each->point[axis];
        std::cout << ") Children: ";
        printIndex(each->left);
        std::cout << ' ';
        printIndex(each->right);
        std::cout << '\n';
    }
    std::cout.flush();
}
