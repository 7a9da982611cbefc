// The directional distance, of two triangles and of two sets, is the exact one, and pruning never changes it.
#include <gsl/gsl_DirectionalContact.h>
#include <gsl/gsl_Plane.h>
#include <gsl/gsl_TriOctree.h>
#include <gsl/gsl_TriTriDirDist.h>
#include <gsl/gsl_TriTriMinDirectionalDist.h>
#include <support/Environment.h>
#include <support/RandomGeometry.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>

namespace {

using Triangles = cow_List<gsl_Triangle>;
using Real = long double;
using Vec = std::array<Real, 3>;

constexpr double large = 1e30;
const gsl_Vector down(0.0, 0.0, -1.0);

// ---- The oracle: every corner against every face, edge and corner, both ways, and every edge against every edge, each
// as a linear system solved by Cramer's rule in long double. Exact for small integers.

Vec Of(const gsl_Triangle& t, int k) { return {t.GetPoint(k % 3).X(), t.GetPoint(k % 3).Y(), t.GetPoint(k % 3).Z()}; }
Vec operator-(const Vec& a, const Vec& b) { return {a[0] - b[0], a[1] - b[1], a[2] - b[2]}; }
Vec operator-(const Vec& a) { return Vec{} - a; }
Vec Cross(const Vec& a, const Vec& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
Real Dot(const Vec& a, const Vec& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

/// Factors of a, b, c that sum up to `sum`; NaN when there are none or many.
Vec Solve(const Vec& a, const Vec& b, const Vec& c, const Vec& sum) {
    const Real det = Dot(a, Cross(b, c)) == 0 ? kNaN : Dot(a, Cross(b, c));
    return Vec{Dot(sum, Cross(b, c)) / det, Dot(a, Cross(sum, c)) / det, Dot(a, Cross(b, sum)) / det};
}

/// Travels of `other` along d, times `sign`, at which a corner of it, or for sign 1 an edge, touches `tri`.
void Travels(const gsl_Triangle& tri, const gsl_Triangle& other, const Vec& d, Real sign, std::vector<Real>& travels) {
    const auto within = [](Real x) { return x >= 0 && x <= 1; };
    for (int i = 0; i < 3; ++i) {
        const Vec q = Of(other, i), f = Of(other, i + 1) - q, p = Of(tri, 0);
        const Vec face = Solve(Of(tri, 1) - p, Of(tri, 2) - p, -d, q - p);
        if (face[0] >= 0 && face[1] >= 0 && face[0] + face[1] <= 1) travels.push_back(sign * face[2]);
        for (int k = 0; k < 3; ++k) {
            const Vec a = Of(tri, k), e = Of(tri, k + 1) - a;
            const Vec edge = Solve(e, -d, Cross(e, d), q - a), cross = Solve(e, -f, -d, q - a);
            if (edge[2] == 0 && within(edge[0])) travels.push_back(sign * edge[1]);
            if (Cross(q - a, d) == Vec{}) travels.push_back(sign * Dot(a - q, d) / Dot(d, d));
            if (sign > 0 && within(cross[0]) && within(cross[1])) travels.push_back(cross[2]);
        }
    }
}

std::optional<double> Exact(const Triangles& fixed, const Triangles& movable, const gsl_Vector& direction) {
    const Vec d{direction.X(), direction.Y(), direction.Z()};
    const Real length = std::sqrt(Dot(d, d));
    std::optional<double> best;
    for (const gsl_Triangle& f : fixed) {
        for (const gsl_Triangle& m : movable) {
            std::vector<Real> travels;
            Travels(f, m, d, 1, travels);
            Travels(m, f, d, -1, travels);
            if (travels.empty() || *std::max_element(travels.begin(), travels.end()) * length < -1e-6L) continue;
            const Real low = *std::min_element(travels.begin(), travels.end());
            best = std::min(best.value_or(HUGE_VAL), static_cast<double>(std::max(low, Real(0)) * length));
        }
    }
    return best;
}

// ---- What is tested

std::optional<double> Distance(const gsl_Vector& direction, const gsl_Triangle& f, const gsl_Triangle& m) {
    double distance = -7.0;
    const bool found = gsl_TriTriMinDirectionalDist(direction, f.GetPoint(0), f.GetPoint(1), f.GetPoint(2),
                                                    m.GetPoint(0), m.GetPoint(1), m.GetPoint(2), distance);
    EXPECT_EQ(found, distance != -7.0);
    return found ? std::optional(distance) : std::nullopt;
}

testing::AssertionResult Near(const std::optional<double>& a, const std::optional<double>& b, double tolerance) {
    if (a.has_value() == b.has_value() && (!a || std::abs(*a - *b) <= tolerance)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << a.value_or(kNaN) << " is not " << b.value_or(kNaN);
}

gsl_Triangle Moved(const gsl_Triangle& t, const gsl_Vector& by) {
    return {t.GetPoint(0) + by, t.GetPoint(1) + by, t.GetPoint(2) + by};
}

/// Small triangles in a box of side 10 with its low corner at `low`. `grid` rounds to integers, which makes touching,
/// grazing, coplanar, edge-on and zero-area triangles common.
Triangles Soup(RandomGeometry& random, int count, const gsl_Vector& low, bool grid) {
    Triangles soup;
    for (int n = 0; n < count; ++n) {
        const gsl_Point middle = gsl_Point() + (random.Vector() + gsl_Vector(10.0, 10.0, 10.0)) * 0.5 + low;
        gsl_Point corners[3];
        for (gsl_Point& p : corners) {
            p = middle + random.Vector() * 0.2;
            if (grid) p = gsl_Point(std::round(p.X()), std::round(p.Y()), std::round(p.Z()));
        }
        soup.Append(gsl_Triangle(corners[0], corners[1], corners[2]));
    }
    return soup;
}

const gsl_Vector directions[] = {{0, 0, -1}, {0, 0, 49}, {1, 0, 0}, {0, -3, 0}, {1, 1, 0}, {1, -2, 3}, {.1, .7, -.3}};

gsl_TriOctree TreeOver(const Triangles& triangles, int type, int depth) {
    gsl_BBox box;
    for (const gsl_Triangle& t : triangles) box.Add(t.GetBBox());
    return {box, "", static_cast<gsl_TriOctree::OctreeNodeType>(type), depth};
}

struct Searched {
    Searched(const Triangles& fixed, const Triangles& movable, const gsl_Vector& direction, int type, int depth)
        : f(TreeOver(fixed, type % 2, depth)), m(TreeOver(movable, type / 2 % 2, depth)), search(depth) {
        for (auto [tree, list] : {std::pair(&f, &fixed), std::pair(&m, &movable)})
            for (int i = 0; const gsl_Triangle& t : *list)
                EXPECT_TRUE(tree->GetRoot()->Add(t.GetPoint(0), t.GetPoint(1), t.GetPoint(2), i++));
        search.SetTriangles(fixed, movable);
        search.SetDirection(direction);
    }
    bool Find(double& distance) { return search.FindDirectionalDistance(f.GetRoot(), m.GetRoot(), distance); }

    gsl_TriOctree f, m;
    gsl_TriTriDirDist search;
};

const gsl_Triangle tile(gsl_Point(0, 0, 0), gsl_Point(4, 0, 0), gsl_Point(0, 4, 0));

TEST(gsl_DirDist, PairsOfTrianglesAgainstTheOracleAndTheLaws) {
    for (const bool grid : {true, false}) {
        RandomGeometry random(grid ? 11 : 12);
        const Triangles f = Soup(random, 1000, kZero, grid), m = Soup(random, 1000, kZero, grid);
        int met = 0;
        for (int n = 0; n < f.Length(); ++n) {
            const gsl_Vector& d = directions[n % (grid ? 6 : 7)];  // integers with integers
            const gsl_Triangle &fixed = f.ConstGet(n), &start = m.ConstGet(n);
            const gsl_Vector off = d * (-n % 3) + (grid ? kZero : random.Vector() * 0.1);  // so that many pairs meet
            const gsl_Triangle movable = Moved(start, fixed.GetPoint(0) - start.GetPoint(1) + off);
            const auto distance = Distance(d, fixed, movable);
            ASSERT_TRUE(Near(distance, Exact({fixed}, {movable}, d), 1e-9)) << n;
            met += distance.has_value() ? 1 : 0;
            gsl_Triangle turned = movable;
            turned.Reverse();
            EXPECT_TRUE(Near(Distance(d, fixed, turned), distance, 1e-12)) << n;
            EXPECT_TRUE(Near(Distance(d * -2.0, movable, fixed), distance, 1e-12)) << n;
            if (distance.value_or(0.0) == 0.0) continue;
            EXPECT_TRUE(Near(Distance(d, fixed, Moved(movable, d * -2.0)), *distance + d.Length() * 2.0, 1e-9)) << n;
        }
        EXPECT_GT(met, 250);
    }
}

TEST(gsl_DirDist, BoundariesOfContact) {
    const auto at = [](double x, double z) { return Moved(tile, gsl_Vector(x, 0.0, z)); };
    const auto beside = [](double x) { return gsl_Triangle({-x, 1, 2}, {-1, 0, 2}, {-1, 2, 2}); };
    const gsl_Point high(1, 1, 5);
    const std::pair<gsl_Triangle, std::optional<double>> cases[] = {
        {at(-4.0, 3.0), 3.0},                                   // a corner over a corner
        {beside(1e-6), 2.0},                                    // LinTol beside: in
        {beside(1.01e-6), std::nullopt},                        //
        {at(0.0, -1e-6), 0.0},                                  // LinTol past: in
        {at(0.0, -1.01e-6), std::nullopt},                      //
        {{high, high, high}, 5.0},                              // a point
        {{{4, 0, 8}, {4, 0, 8}, {4, 0, 6}}, 6.0},               // a needle along the direction over a corner
        {{{-1, 1, 2}, {9, 1, 2}, {4, 1, -9}}, 0.0},             // edge-on, passes through
        {{{4, -5e-7, 1}, {5, -1, 1}, {3, -1, 1e6}}, 1.0},       // steep: not to the height that its plane has there
        {{{0, 0, kNaN}, {4, 0, 1}, {0, 4, 1}}, std::nullopt},   //
        {{{0, 0, 1}, {kInfinity, 0, 1}, high}, std::nullopt}};  //
    for (const auto& [movable, distance] : cases) {
        EXPECT_TRUE(Near(Distance(down, tile, movable), distance, 0.0)) << distance.value_or(-1.0);
    }
    for (const double length : {1e-6, 1.0, 49.0, 1e200}) EXPECT_EQ(Distance(down * length, tile, at(0, 1)), 1.0);
    for (const double length : {0.0, 9e-7, kNaN, kInfinity}) EXPECT_FALSE(Distance(down * length, tile, at(0, 1)));
    double distance = 0.0;  // segments of one plane: across each other, in line, past
    EXPECT_TRUE(gsl_InPlaneSegSegMinDirectionalDist(kX, {4, 0, 1}, {6, 2, 1}, {0, 1, 1}, {2, 1, 1}, distance));
    EXPECT_EQ(distance, 3.0);
    EXPECT_TRUE(gsl_InPlaneSegSegMinDirectionalDist(kX, {4, 1, 1}, {6, 1, 1}, {0, 1, 1}, {3, 1, 1}, distance));
    EXPECT_EQ(distance, 1.0);
    EXPECT_FALSE(gsl_InPlaneSegSegMinDirectionalDist(kX, {4, 1, 1}, {6, 1, 1}, {7, 1, 1}, {9, 1, 1}, distance));
}

TEST(gsl_DirDist, SetsAgainstTheOracle) {
    for (int run = 0; run < 28; ++run) {
        const bool grid = run % 2 == 0;
        RandomGeometry random(100 + static_cast<unsigned>(run));
        const gsl_Vector& d = directions[run / 2 % (grid ? 6 : 7)];
        const double gap = std::round((run % 3 == 0 ? 2.0 : 12.0) / d.Length());  // the sets overlap, or are apart
        const Triangles fixed = Soup(random, 30, d * gap, grid), start = Soup(random, 40, kZero, grid);
        gsl_Matrix placement;  // whose identity state denies that it turns; the grid stays as it is
        if (!grid) placement.AxisRotation(gsl_Vector(1.0, 2.0, 3.0), run);
        Triangles movable = start;
        for (int i = 0; i < movable.Length(); ++i) {
            gsl_Point p[] = {start[i].GetPoint(0), start[i].GetPoint(1), start[i].GetPoint(2)};
            for (gsl_Point& corner : p) corner.Transform(placement);
            movable[i].SetPoints(p[0], p[1], p[2], true);
        }
        const auto exact = Exact(fixed, movable, d);
        Searched sets(fixed, start, d, run, 1 + run % 4);
        sets.search.SetMatrix(placement);
        double distance = large;
        const bool found = sets.Find(distance);
        ASSERT_TRUE(Near(found ? std::optional(distance) : std::nullopt, exact, 1e-9)) << run;
        const auto contact = sets.search.GetContact(), easy = gsl_FindDirectionalContact(fixed, movable, d);
        ASSERT_TRUE(contact.has_value() == found && easy.has_value() == found) << run;
        if (!found) continue;
        for (const gsl_DirectionalContact& c : {*contact, *easy}) {
            const gsl_Triangle &f = fixed[c.fixedTriangle], &m = std::as_const(movable)[c.movableTriangle];
            EXPECT_TRUE(Near(c.distance, exact, 1e-9) && Near(Distance(d, f, m), exact, 1e-9)) << run;
            EXPECT_TRUE(f.Contains(c.point) && m.Contains(c.point.PointAtDistInDirection(-c.distance, d))) << run;
        }
        // A bound on entry: only what is strictly less counts, and the bound stays to the bit.
        for (const double bound : {distance, distance / 2.0, 0.0, -1.0, kNaN}) {
            double entry = bound;
            EXPECT_TRUE(!sets.Find(entry) && (entry == bound || std::isnan(bound))) << run;
        }
    }
}

TEST(gsl_DirDist, LevelsSmallBoxesAndMissingThings) {
    Triangles fixed{tile, tile}, movable{Moved(tile, gsl_Vector(0.0, 0.0, 9.0)), tile};
    const gsl_BBox cube({-16, -16, -16}, {16, 16, 16});
    gsl_TriOctree fixedTree(cube, "", gsl_TriOctree::TRI_OCTREE_NODE, 4), movableTree(cube, "", {}, 4);
    for (const int index : {-1, 0, 2})  // in level 4 both; -1 and 2 are not in the lists
        for (gsl_TriOctree* tree : {&fixedTree, &movableTree})
            ASSERT_TRUE(tree->GetRoot()->Add({1, 1, 1}, {2, 1, 1}, {1, 2, 1}, index));
    const auto found = [&](int levels, const gsl_TriOctreeNode* a, const gsl_TriOctreeNode* b, double z = -1.0) {
        gsl_TriTriDirDist search(levels);
        search.SetTriangles(fixed, movable);
        search.SetDirection(gsl_Vector(0.0, 0.0, z));
        double distance = large;
        const bool result = search.FindDirectionalDistance(a, b, distance);
        EXPECT_EQ(distance, result ? 9.0 : large);
        return result;
    };
    const gsl_TriOctreeNode *f = fixedTree.GetRoot(), *m = movableTree.GetRoot();
    EXPECT_TRUE(found(4, f, m, -1e200)) << "directions are of any length";
    EXPECT_TRUE(found(4, f, m) && found(3, f->GetChildAtIndex(7), m->GetChildAtIndex(7)));  // counted from those given
    for (const int levels : {3, 1, 0, -5}) EXPECT_FALSE(found(levels, f, m));
    for (const double z : {1.0, 0.0, kNaN}) EXPECT_FALSE(found(4, f, m, z));
    EXPECT_FALSE(found(4, nullptr, m) || found(4, f, nullptr) || found(4, f, f->GetChildAtIndex(0)));
    gsl_TriOctree tiny(gsl_BBox({0, 0, 0}, {9e-7, 0, 0}), "", {}, 1);
    EXPECT_TRUE(tiny.GetRoot()->Add({}, {}, {}, 0) && !found(4, tiny.GetRoot(), m));  // too small as the fixed one
    EXPECT_FALSE(gsl_FindDirectionalContact({}, movable, kZ) || gsl_FindDirectionalContact(fixed, {}, kZ));

    // Copies by the hundred thousand, slanted so that no bound tells them apart, their corners in every order, and one
    // that is no triangle.
    const gsl_Triangle slanted({0, 0, 0}, {4, 0, 4}, {0, 4, 1}), over = Moved(slanted, gsl_Vector(0.5, 0.5, 7.0));
    const auto copies = [](const gsl_Triangle& triangle) {
        std::vector<gsl_Triangle> list;
        for (int i = 0; i < 100000; ++i) {
            list.emplace_back(triangle.GetPoint(i % 3), triangle.GetPoint((i + 1) % 3), triangle.GetPoint((i + 2) % 3));
            if (i % 2 != 0) list.back().Reverse();
        }
        return Triangles(list);
    };
    fixed = copies(slanted);
    movable = copies(over);
    fixed.Append(gsl_Triangle({kNaN, 0, 0}, {kInfinity, 0, 0}, {}));
    EXPECT_EQ(gsl_FindDirectionalContact(fixed, movable, down).value().distance, Distance(down, slanted, over));
}

TEST(gsl_DirDist, ABoxOfAnySizeBoundsWhatIsInIt) {
    const gsl_Triangle near({0, 0, 0.1}, {1, 0, 0.1}, {0, 1, 0.1}), far({0, 0, -1e6}, {1, 0, -1e6}, {0, 1, -1e6});
    gsl_TriTriDirDist search(1);
    gsl_TriOctree fixed(gsl_BBox({0, 0, 1}, {2, 2, 1}), "", {}, 1),
        movable(gsl_BBox({0, 0, -1e6}, {1, 1, 0.1}), "", {}, 1);
    ASSERT_TRUE(fixed.GetRoot()->Add({0, 0, 1}, {2, 0, 1}, {0, 2, 1}, 0));
    ASSERT_TRUE(movable.GetRoot()->Add({0, 0, 0.1}, {1, 0, 0.1}, {0, 1, 0.1}, 0));
    search.SetTriangles({gsl_Triangle({0, 0, 1}, {2, 0, 1}, {0, 2, 1})}, {near, far});
    double distance = 0.90000000001;
    EXPECT_TRUE(search.FindDirectionalDistance(fixed.GetRoot(), movable.GetRoot(), distance));
    EXPECT_EQ(distance, 0.9);
}

TEST(gsl_DirDist, Trace) {
    const auto home = std::filesystem::current_path(), folder = std::filesystem::path(testing::TempDir()) / "orv_trace";
    std::filesystem::create_directories(folder);
    std::filesystem::current_path(folder);
    SetVariable("QRT_TRITRIDIRDIST_DEBUG", "");
    const auto traced = [](double x, double entry) {
        (void)Searched({tile}, {Moved(tile, gsl_Vector(x, 0.0, 2.5))}, down, 0, 1).Find(entry);
        std::ostringstream text;
        text << std::ifstream("TriTriDirDist.dat").rdbuf();
        return text.str();
    };
    const std::string nodes = " Fixed bbox node level 1 and index -1\n Movable bbox node level 1 and index -1\n";
    EXPECT_EQ(traced(0, large), nodes + "  Bbox distance: 2.500000\n  Distance: 2.500000\n");
    EXPECT_EQ(traced(0, 2), nodes + "  Bbox distance: 2.500000\n  Rejecting based on the face bbox check\n");
    EXPECT_EQ(traced(9, large), nodes + "  BBox did not intersect\n");
    SetVariable("QRT_TRITRIDIRDIST_DEBUG", nullptr);
    std::filesystem::remove("TriTriDirDist.dat");
    EXPECT_EQ(traced(0, large), "");
    std::filesystem::current_path(home);
}

TEST(gsl_Triangle, SidesProjectionsAndContainment) {
    gsl_Triangle tri = tile, shadow;
    gsl_Point p;
    double d = 0.0;
    EXPECT_TRUE(!tri.TestProjectedPointAgainstSide(2, {-3, 2, 8}, d) && d == -3.0);
    EXPECT_TRUE(tri.ContainsProjectedPoint({1, -1e-6, 8}) && !tri.ContainsProjectedPoint({1, -1.01e-6, 8}));
    EXPECT_TRUE(tri.ComputeClosestPointOnSide(1, {4, 4, 3}, p) && p == gsl_Point(2, 2, 0));
    EXPECT_TRUE(!tri.ComputeClosestPointOnSide(0, {9, 4, 3}, p) && p == gsl_Point(4, 0, 0));
    EXPECT_TRUE(tri.Contains({1, 1, 1e-6}) && !tri.Contains({1, 1, 1.01e-6}) && !tri.Contains({3, 3, 0}));
    EXPECT_TRUE(tri.Project({{0, 0, 5}, kZ}, gsl_Vector(1, 0, 1), shadow) && shadow.GetPoint(0) == gsl_Point(5, 0, 5));
    EXPECT_FALSE(tri.Project({{0, 0, 5}, kZ}, kX, shadow));
    tri.Reverse();
    EXPECT_TRUE(tri.GetPoint(1) == gsl_Point(0, 4, 0) && tri.GetNormal() == down && tri.Contains({1, 1, 0}));
    tri.SetPoints({0, 0, 0}, {1, 0, 0}, {3, 0, 0}, true);  // zero area: its sides
    EXPECT_TRUE(tri.GetNormal() == kZero && !tri.ProjectPoint(p, p) && tri.Contains({2, 0, 0}));
}

}  // namespace
