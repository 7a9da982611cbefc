// Any sequence of operations on a coordinate tree, beside a list of points that is searched one by one.

#include "fuzz_Bytes.h"

#include <gsl/gsl_BBox.h>
#include <gsl/gsl_CoordTree.h>
#include <gsl/gsl_CoordTreeIter.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <utility>
#include <vector>

namespace {

using Indices = std::vector<unsigned>;

Indices Sorted(const cow_List<unsigned>& list) {
    Indices indices(list.begin(), list.end());
    std::ranges::sort(indices);
    return indices;
}

class Pair {
public:
    /// NaN and removal do not go together: a tree from which points were removed may hide some behind a NaN.
    explicit Pair(fuzz_Bytes& bytes) : _bytes(bytes), _tree(1 + bytes.Below(3)), _hasNaN(bytes.Flag()) {}

    void Step() {
        switch (_bytes.Below(10)) {
            default:
                InsertOne();
                break;
            case 1:
                InsertMany();
                break;
            case 2:
                Remove();
                break;
            case 3:
                SearchNear();
                break;
            case 4:
                SearchClosest();
                break;
            case 5:
                SearchBox();
                break;
            case 6:
                Compare();
                break;
            case 7:
                CopyAndMove();
                break;
        }
        fuzz_Require(_tree.Size() == _points.size(), "the size");
    }

    void Compare() {
        std::map<unsigned, std::array<double, 3>> visited;
        gsl_Point point;
        unsigned index = 0;
        gsl_CoordTreeIter all(_tree);
        for (; all.GetCurrent(point, index); all.Next()) visited[index] = point.AsArray();
        fuzz_Require(visited.size() == _points.size(), "each point is visited once");
        for (const auto& [i, place] : _points) {
            const auto found = visited.find(i);
            fuzz_Require(found != visited.end() && SamePlace(found->second, place.AsArray()), "where it was put");
        }
    }

private:
    static bool SamePlace(const std::array<double, 3>& a, const std::array<double, 3>& b) {
        return std::equal(a.begin(), a.end(), b.begin(),
                          [](double x, double y) { return x == y || (std::isnan(x) && std::isnan(y)); });
    }

    /// Not so small that its square is none: distances are roots of sums of squares, and cells are compared by
    /// coordinates.
    double Number() {
        const double number = _bytes.Double();
        return std::abs(number) < 1e-150 ? 0.0 : number;
    }
    /// Mostly few places, so that points coincide.
    double Coordinate() {
        const double number = _bytes.Flag() ? static_cast<double>(_bytes.Below(4)) : Number();
        return std::isnan(number) && !_hasNaN ? 7.0 : number;
    }
    gsl_Point Place() {
        const double x = Coordinate(), y = Coordinate();
        return {x, y, Coordinate()};
    }
    /// An old point as often as a new place.
    gsl_Point Probe() {
        if (_points.empty() || _bytes.Flag()) return Place();
        return std::next(_points.begin(), static_cast<std::ptrdiff_t>(_bytes.Byte() % _points.size()))->second;
    }

    void InsertOne() {
        const gsl_Point place = Place();
        _tree.Insert(place, _next);
        _points.emplace(_next++, place);
    }

    void InsertMany() {
        std::vector<gsl_Point> places;
        std::vector<unsigned> indices;
        for (unsigned n = _bytes.Below(64); n > 0; --n) {
            places.push_back(Place());
            _points.emplace(_next, places.back());
            indices.push_back(_next++);
        }
        _tree.Insert(cow_List<gsl_Point>(places), cow_List<unsigned>(indices));
    }

    /// Index and distance of the points that have one, nearest first.
    [[nodiscard]] std::vector<std::pair<double, unsigned>> Distances(const gsl_Point& from) const {
        std::vector<std::pair<double, unsigned>> distances;
        for (const auto& [index, place] : _points)
            if (const double distance = from.GetDistance(place); !std::isnan(distance))
                distances.emplace_back(distance, index);
        std::ranges::sort(distances);
        return distances;
    }

    void Remove() {
        if (_hasNaN) return;
        const gsl_Point from = Probe();
        const double tolerance = Number();
        const int wanted = _bytes.Flag() ? static_cast<int>(_bytes.Byte()) : -1;
        const int first = _tree.Find(from, tolerance);
        const auto isNear = [&](unsigned index) {
            return _points.contains(index) && from.GetDistance(_points.at(index)) < tolerance;
        };
        const int removed = _tree.Remove(from, tolerance, wanted);
        if (wanted < 0)
            fuzz_Require(removed == first, "what is found is removed");
        else
            fuzz_Require(removed == (isNear(static_cast<unsigned>(wanted)) ? wanted : -1), "what was asked is removed");
        if (removed >= 0) fuzz_Require(isNear(static_cast<unsigned>(removed)), "what is near is removed");
        if (removed >= 0) _points.erase(static_cast<unsigned>(removed));
    }

    void SearchNear() {
        const gsl_Point from = Probe();
        const double tolerance = Number();
        Indices expected;
        for (const auto& [distance, index] : Distances(from))
            if (distance < tolerance) expected.push_back(index);
        const Indices inOrder = expected;
        std::ranges::sort(expected);
        fuzz_Require(Sorted(_tree.FindAll(from, tolerance)) == expected, "all that are near");
        const int one = _tree.Find(from, tolerance);
        fuzz_Require(one < 0 ? expected.empty() : std::ranges::binary_search(expected, static_cast<unsigned>(one)),
                     "one that is near");
        cow_List<double> distances;
        const cow_List<unsigned> inRadius = _tree.FindInRadius(from, tolerance, &distances);
        fuzz_Require(Sorted(inRadius) == expected, "all in the radius");
        fuzz_Require(std::is_sorted(distances.begin(), distances.end()), "nearest first");
        for (int i = 0; i < inRadius.Length(); ++i)
            fuzz_Require(from.GetDistance(_points.at(inRadius.ConstGet(i))) == distances.ConstGet(i), "the distance");
    }

    void SearchClosest() {
        const gsl_Point from = Probe();
        const auto expected = Distances(from);
        double distance = -1.0;
        const int closest = _tree.FindClosest(from, &distance);
        fuzz_Require((closest < 0) == expected.empty(), "a closest one");
        if (closest >= 0) fuzz_Require(distance == expected.front().first, "the least distance");
        const std::size_t k = std::min<std::size_t>(_bytes.Below(8), expected.size());
        cow_List<double> distances;
        const cow_List<unsigned> several = _tree.FindClosest(from, static_cast<unsigned>(k), &distances);
        fuzz_Require(static_cast<std::size_t>(several.Length()) == k, "the k closest");
        for (std::size_t i = 0; i < k; ++i) {
            const int at = static_cast<int>(i);
            fuzz_Require(distances.ConstGet(at) == expected[i].first, "the k least distances");
            fuzz_Require(from.GetDistance(_points.at(several.ConstGet(at))) == expected[i].first, "of these points");
        }
    }

    void SearchBox() {
        const gsl_Point low = Probe();
        const gsl_BBox box(low, Probe());
        Indices expected;
        for (const auto& [index, place] : _points) {
            bool isInside = !box.IsEmpty();
            for (unsigned axis = 0; axis < 3; ++axis)
                isInside = isInside && box.Low()[axis] <= place[axis] && place[axis] <= box.High()[axis];
            if (isInside) expected.push_back(index);
        }
        fuzz_Require(Sorted(_tree.FindInBox(box)) == expected, "all in the box");
    }

    void CopyAndMove() {
        const gsl_CoordTree copy(_tree);
        gsl_CoordTree moved(std::move(_tree));
        if (_bytes.Flag()) moved.Clear();
        _tree = copy;
        Compare();
    }

    fuzz_Bytes& _bytes;
    gsl_CoordTree _tree;
    bool _hasNaN;
    std::map<unsigned, gsl_Point> _points;  // by index, which no two share
    unsigned _next = 0;
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz_StartLibrary();
    fuzz_Bytes bytes(data, size);
    Pair pair(bytes);
    for (int step = 0; step < 200 && !bytes.IsEmpty(); ++step) pair.Step();
    pair.Compare();
    return 0;
}
