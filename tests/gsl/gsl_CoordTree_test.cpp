// Protects the coordinate tree: every search against brute force and against the plain walk that defines its order,
// the median build, removal, depth without recursion, and the merging of coincident points.
#include <base/nex_RangeException.h>
#include <gsl/gsl_BBox.h>
#include <gsl/gsl_CoordTree.h>
#include <gsl/gsl_CoordTreeImpl.h>
#include <gsl/gsl_CoordTreeIter.h>
#include <gsl/gsl_MergeCoincidentPoints.h>
#include <support/RandomGeometry.h>

#include <gtest/gtest.h>
#include <pthread.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <numeric>

namespace {

using Points = std::vector<gsl_Point>;
using Indices = std::vector<unsigned>;
constexpr unsigned kAll = std::numeric_limits<unsigned>::max();

cow_List<gsl_Point> List(const Points& points) { return cow_List<gsl_Point>(points); }
Indices Of(const cow_List<unsigned>& list) { return {list.begin(), list.end()}; }
Indices Sorted(const cow_List<unsigned>& list) {
    Indices indices = Of(list);
    std::sort(indices.begin(), indices.end());
    return indices;
}
std::string Printed(const gsl_CoordTree& tree, bool print = true) {
    testing::internal::CaptureStdout();
    tree.DebugTree(print);
    return testing::internal::GetCapturedStdout();
}

constexpr int kFactories = 7;
/// Nasty clouds: general, grid, circle, few places, far from the origin, on a line, and with a few NaN.
Points Cloud(RandomGeometry& random, int factory, int count) {
    Points points;
    const auto whole = [&](double n) { return std::floor(random.Number(0.0, n)); };
    for (int i = 0; i < count; ++i) {
        const double t = random.Angle();
        const gsl_Point kinds[kFactories] = {random.Point(),
                                             {whole(6.0), whole(6.0), whole(6.0)},
                                             {std::cos(t), std::sin(t), 0.0},
                                             {whole(2.0), 0.0, whole(3.0)},
                                             random.Point() + gsl_Vector(1e9, -1e9, 1e12),
                                             {whole(50.0), 0.0, 0.0},
                                             i % 9 == 4 ? gsl_Point(kNaN, 1.0, kNaN) : gsl_Point(whole(5.0), 1.0, t)};
        points.push_back(kinds[factory]);
    }
    return points;
}

/// The walk that defines the order of every search. `found` returns the squared reach from then on, to be strictly
/// undercut by what it will be told; negative ends the walk.
template <class Found>
void Walk(const gsl_CoordTreeImpl& tree, const gsl_Point& p, double reach, Found found) {
    std::vector<std::pair<const gsl_CoordTreeNode*, unsigned>> pending = {{tree.GetRoot(), 0}};
    while (!pending.empty() && !(reach < 0.0)) {
        const auto [node, depth] = pending.back();
        pending.pop_back();
        if (node == nullptr) continue;
        if (node->point.GetDistance(p) < reach) reach = found(*node, node->point.GetDistance(p));
        const double gap = node->point[depth % tree.GetDim()] - p[depth % tree.GetDim()];
        if (gap > 0.0) {
            if (gap < reach) pending.emplace_back(node->right, depth + 1);
            pending.emplace_back(node->left, depth + 1);
        } else {
            if (!(-gap >= reach)) pending.emplace_back(node->left, depth + 1);
            pending.emplace_back(node->right, depth + 1);
        }
    }
}

TEST(gsl_CoordTree, SearchesAgreeWithBruteForceAndWithTheDefiningWalk) {
    for (int n = 0; n < 210; ++n) {
        RandomGeometry random(2300 + static_cast<unsigned>(n));
        const Points points = Cloud(random, n % kFactories, n % 5 == 0 ? n % 3 : 1 + n);
        const unsigned dim = 1 + static_cast<unsigned>(n) / kFactories % 3;
        const gsl_CoordTree tree(List(points), dim);
        gsl_CoordTreeImpl impl(dim);
        impl.Insert(points, nullptr);
        gsl_CoordTree oneByOne(dim);
        for (unsigned i = 0; i < points.size(); ++i) oneByOne.Insert(points[i], i);
        Points probes = Cloud(random, n % kFactories, 12);
        probes.insert(probes.end(), points.begin(), points.begin() + std::min<std::ptrdiff_t>(3, std::ssize(points)));
        for (const gsl_Point& p : probes) {
            const double tol = n % 2 == 0 ? 1.0 : random.Number(0.0, 8.0);
            std::vector<std::pair<double, unsigned>> near, all;
            for (unsigned i = 0; i < points.size(); ++i) {
                const double distance = p.GetDistance(points[i]);
                if (!std::isnan(distance)) all.emplace_back(distance, i);
                if (distance < tol) near.emplace_back(distance, i);
            }
            std::sort(all.begin(), all.end());
            Indices walked, expected;
            Walk(impl, p, tol, [&](const gsl_CoordTreeNode& node, double) {
                walked.push_back(node.index);
                return tol;
            });
            for (const auto& [distance, i] : near) expected.push_back(i);
            EXPECT_EQ(Of(tree.FindAll(p, tol)), walked);
            EXPECT_EQ(Sorted(tree.FindAll(p, tol)), expected);
            EXPECT_EQ(Sorted(oneByOne.FindAll(p, tol)), expected);
            EXPECT_EQ(tree.Find(p, tol), walked.empty() ? -1 : static_cast<int>(walked[0]));
            EXPECT_EQ(oneByOne.Find(p, tol) < 0, walked.empty());

            int closest = -1;
            Walk(impl, p, kInfinity, [&](const gsl_CoordTreeNode& node, double distance) {
                closest = static_cast<int>(node.index);
                return distance;
            });
            double distance = -1.0, other = -1.0;
            EXPECT_EQ(tree.FindClosest(p, &distance), closest);
            EXPECT_EQ(distance, all.empty() ? -1.0 : all[0].first);
            EXPECT_EQ(oneByOne.FindClosest(p, &other) < 0, all.empty());
            EXPECT_EQ(other, distance);

            cow_List<double> distances{7.0}, inRadius;
            for (const unsigned k : {0U, 1U, 7U, kAll}) {
                const Indices found = Of(tree.FindClosest(p, k, &distances));
                ASSERT_EQ(found.size(), std::min<std::size_t>(k, all.size()));
                ASSERT_EQ(static_cast<std::size_t>(distances.Length()), found.size());
                for (int i = 0; i < distances.Length(); ++i) {
                    EXPECT_EQ(distances.ConstGet(i), all[static_cast<std::size_t>(i)].first);
                    EXPECT_EQ(distances.ConstGet(i), p.GetDistance(points[found[static_cast<std::size_t>(i)]]));
                }
                EXPECT_TRUE(found.empty() || found[0] == static_cast<unsigned>(closest));
                const Indices limited = Of(tree.FindInRadius(p, tol, k, &inRadius));
                EXPECT_EQ(limited,
                          Indices(found.begin(), found.begin() + std::min(std::ssize(found), std::ssize(near))));
            }
            EXPECT_EQ(Sorted(tree.FindInRadius(p, tol)), expected);

            const gsl_BBox box(p + gsl_Vector(-1.0, -2.0, -3.0), p + gsl_Vector(tol, 2.0, tol - 2.5));
            Indices inside;
            for (unsigned i = 0; i < points.size(); ++i)
                if (points[i] >= box.Low() && box.High() >= points[i] && !std::isnan(points[i].X() + p.X()))
                    inside.push_back(i);
            EXPECT_EQ(Sorted(tree.FindInBox(box)), box.IsEmpty() ? Indices() : inside);
        }
        std::vector<int> many(probes.size()), closest(probes.size());
        std::vector<double> distances(probes.size(), -1.0);
        tree.FindMany(probes, 1.0, many);
        tree.FindClosestMany(probes, closest, distances);
        for (std::size_t i = 0; i < probes.size(); ++i) {
            EXPECT_EQ(many[i], tree.Find(probes[i], 1.0));
            EXPECT_EQ(closest[i], tree.FindClosest(probes[i], nullptr));
        }
        EXPECT_THROW(tree.FindClosestMany(probes, std::span(closest).first(1)), nex_RangeException);
        EXPECT_TRUE(n % kFactories == 6 || (Printed(tree, false) + Printed(oneByOne, false)).empty());
    }
}

TEST(gsl_CoordTree, BulkInsertionSplitsAtTheMedianAndSeedsTheGenerator) {
    Points points;
    for (const double x : {5.0, 1.0, 3.0, 3.0, 3.0, 9.0}) points.emplace_back(x, 0.0, 0.0);
    const gsl_CoordTree few(List(points), 0);  // the upper median of an even count, down its run of equal values
    EXPECT_EQ(Printed(few).substr(0, 72), "#### TREE CONTAINING 6 NODES ####\n Node ID 2 (3) Children: 1 0\n Node ID ");

    Points chains(200);  // at two places, so that the same lengths come twice; the last to be drawn for is 21
    for (std::size_t i = 0; i < chains.size(); i += 2) chains[i][0] = 1.0;
    const gsl_CoordTree chained(List(chains), 2);
    const int afterwards = std::rand();
    std::srand(21);
    for (int i = 0; i < 20; ++i) static_cast<void>(std::rand());
    EXPECT_EQ(afterwards, std::rand());

    RandomGeometry random(2310);
    points = Cloud(random, 0, 5000);
    const gsl_CoordTree tree(List(points), 3);
    const int next = std::rand();
    const std::string printed = Printed(tree);
    EXPECT_TRUE(printed == Printed(gsl_CoordTree(List(points), 3)));
    EXPECT_EQ(std::rand(), next);
    gsl_CoordTree grown = tree;
    EXPECT_TRUE(Printed(grown) == printed);
    EXPECT_THROW(grown.Insert(List(points), cow_List<unsigned>{1, 2}), nex_RangeException);
    EXPECT_TRUE(Printed(grown) == printed);
    grown.Insert(List(points), cow_List<unsigned>(Indices(5000, 4000000000U)));
    EXPECT_EQ(grown.Size(), 10000U);
    EXPECT_EQ(Printed(grown, false), "");
    EXPECT_EQ(grown.FindAll(points[17], 1e-9).Length(), 2);
    gsl_CoordTree moved(std::move(grown));
    EXPECT_EQ(moved.Size(), 10000U);
    for (int n = 0; n < 2; ++n) {  // moved from, then used again
        gsl_CoordTreeIter all(grown);
        EXPECT_TRUE(grown.Size() == 0 && grown.Find(points[17], 1.0) == -1 && gsl_CoordTree(grown).Size() == 0);
        all.Next();
        grown.Clear();
        grown.Insert(points[17], 3);
        moved = std::move(grown);
        EXPECT_EQ(moved.Find(points[17], 1e-9), 3);
    }
    grown = moved = tree;
    EXPECT_TRUE(Printed(grown) == printed);
    const gsl_CoordTree& same = moved;
    moved = same;
    EXPECT_TRUE(Printed(moved) == printed);
}

TEST(gsl_CoordTree, TolerancesAreStrictAndUnusedCoordinatesCountInDistancesOnly) {
    const gsl_Point origin;
    gsl_CoordTree line(1);
    const gsl_Point stored(origin, gsl_Point(6.0, 8.0, 0.0));  // (3, 4, 0), at 5; with an identity of its own
    line.Insert(stored, 11);
    EXPECT_EQ(line.Find(origin, 5.0), -1);
    EXPECT_EQ(line.Find(origin, std::nextafter(5.0, 6.0)), 11);
    EXPECT_EQ(line.Find(origin, 3.5), -1);
    EXPECT_EQ(line.FindInRadius(origin, 5.0).Length() + line.FindAll(stored, 0.0).Length(), 0);
    EXPECT_EQ(line.FindAll(origin, kInfinity).Length() + line.FindAll(origin, kNaN).Length(), 1);
    EXPECT_EQ(line.Find(stored, 1e-300), 11);
    EXPECT_EQ(line.FindInBox({stored, stored}).Length(), 1);
    gsl_Point point;
    unsigned index = 0;
    gsl_CoordTreeIter all(line);
    EXPECT_TRUE(all.GetCurrent(point, index) && index == 11 && point.Uid() == stored.Uid());
    all.Next();
    EXPECT_FALSE(all.GetCurrent(point, index));
    for (const double far : {kInfinity, 1e200}) {  // squares overflow: infinitely far, but the nearest there is
        double distance = 0.0;
        EXPECT_EQ(line.FindClosest({far, 0.0, 0.0}, &distance), 11);
        EXPECT_EQ(distance, kInfinity);
    }
}

TEST(gsl_CoordTree, RemovalTakesTheMatchAndLeavesTheRestToBeFound) {
    for (int n = 0; n < 60; ++n) {
        RandomGeometry random(2330 + static_cast<unsigned>(n));
        const Points points = Cloud(random, n % 6, 120);
        gsl_CoordTree tree(List(points), 1 + static_cast<unsigned>(n) % 3);
        EXPECT_EQ(tree.Remove(points[0], 1e-3, 120), -1);
        Indices left(points.size());
        std::iota(left.begin(), left.end(), 0U);
        int untilInsertion = 60;
        while (!left.empty()) {
            const auto chosen =
                left.begin() + static_cast<std::ptrdiff_t>(random.Number(0.0, 0.999) * double(left.size()));
            const bool byIndex = left.size() % 2 == 0;
            const int removed = tree.Remove(points[*chosen], 1e-3, byIndex ? static_cast<int>(*chosen) : -1);
            EXPECT_TRUE(!byIndex || removed == static_cast<int>(*chosen));
            const auto gone = std::find(left.begin(), left.end(), static_cast<unsigned>(removed));
            ASSERT_NE(gone, left.end());
            EXPECT_LT(points[static_cast<unsigned>(removed)].GetDistance(points[*chosen]), 1e-3);
            left.erase(gone);
            ASSERT_EQ(tree.Size(), left.size());
            if (--untilInsertion == 0) {
                tree.Insert(points[5], 5);
                left.push_back(5);
            }
            for (const unsigned i : left) ASSERT_GE(tree.Find(points[i], 1e-3), 0);
            std::sort(left.begin(), left.end());
            ASSERT_EQ(Sorted(tree.FindClosest(points[0], kAll, nullptr)), left);
        }
        EXPECT_EQ(Printed(tree), "Empty Tree!\n");
    }
}

TEST(gsl_CoordTree, CheckReportsEachPointOnTheWrongSide) {
    gsl_CoordTree tree(1);
    for (const double x : {4.0, 3.0, 3.0, 1.0}) tree.Insert({x, 0.0, 0.0}, static_cast<unsigned>(tree.Size()));
    EXPECT_EQ(tree.Remove({4.0, 0.0, 0.0}, 0.5, -1), 0);
    EXPECT_EQ(Printed(tree, false), "Error! left value 3 is not to the left of 3 at depth 0\n");
    EXPECT_EQ(tree.FindAll({3.0, 0.0, 0.0}, 1e-9).Length(), 2);
}

TEST(gsl_CoordTree, AMillionEqualPointsNeedNoStack) {
    const auto work = [](void*) -> void* {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        const unsigned count = 200000;
#else
        const unsigned count = 1000000;
#endif
        const Points points(count, gsl_Point(1.0, 2.0, 3.0));
        gsl_CoordTree tree(List(points), 3);
        gsl_CoordTree copy(tree);
        EXPECT_EQ(copy.FindAll(points[0], 1e-9).Length(), static_cast<int>(count));
        const int first = copy.Remove(points[0], 1e-9, -1);
        EXPECT_EQ(copy.FindAll(points[0], 1e-9).Length(), static_cast<int>(count) - 1);
        EXPECT_EQ(copy.Remove(points[0], 1e-9, first), -1);
        unsigned visited = 0, index = 0;
        gsl_Point point;
        for (gsl_CoordTreeIter all(copy); all.GetCurrent(point, index); all.Next()) ++visited;
        EXPECT_EQ(visited, copy.Size());
        std::cout.setstate(std::ios::failbit);  // a million lines into nothing
        tree.DebugTree(true);
        std::cout.clear();
        return nullptr;
    };
    pthread_attr_t attributes;
    pthread_t thread{};
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, std::size_t{256} * 1024);
    ASSERT_EQ(pthread_create(&thread, &attributes, work, nullptr), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

TEST(gsl_MergeCoincidentPoints, KeepsTheLowestIndexGreedilyInOrder) {
    for (int n = 0; n < 70; ++n) {
        RandomGeometry random(2350 + static_cast<unsigned>(n));
        const Points points = Cloud(random, n % kFactories, 150);
        const double tol = n % 3 == 0 ? 0.0 : n % 3 == 1 ? 1.0 : random.Number(0.0, 3.0);
        Indices expected(points.size());
        for (unsigned i = 0; i < points.size(); ++i) {
            unsigned& kept = expected[i] = 0;
            while (kept < i && !(expected[kept] == kept && points[kept].GetDistance(points[i]) < tol)) ++kept;
        }
        EXPECT_EQ(Of(gsl_MergeCoincidentPoints(points, tol)), expected);
    }
}

}  // namespace
