// Protects what picks and clips mean at every boundary: strict tolerances, inclusive bounds, even-odd polygons, and
// that no input, however degenerate, does more than give a stated result. Oracles are exact integers and long doubles.
#include <base/nex_RangeException.h>
#include <g3d/g3d_GeomUtils.h>
#include <support/RandomFloats.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>
#include <utility>
#include <vector>

namespace {

using Utils = g3d_GeomUtils;
using Polygon = cow_List<g3d_Point>;
using Pieces = cow_List<Polygon>;

g3d_Point At(float x, float y) { return {x, y, 0.0F}; }
g3d_Storage Moved(const g3d_Storage& p, double t, const g3d_Storage& d) {
    return {p.GetX() + t * d.GetX(), p.GetY() + t * d.GetY(), p.GetZ() + t * d.GetZ()};
}
Polygon Box(float x, float y, float size) {
    return {At(x, y), At(x + size, y), At(x + size, y + size), At(x, y + size)};
}

/// The greatest difference.
double Off(const Precise& found, const Precise& expected) { return std::abs(found - expected).max(); }

class g3d_Picking : public testing::Test {
protected:
    g3d_Picking() { Utils::setTolerance(1e-5); }
    ~g3d_Picking() override { Utils::setTolerance(1e-5); }

    double s[2]{9, 9}, t[2]{9, 9}, u[2]{9, 9}, v[2]{9, 9};
    int count = 9;
    Pieces pieces;
};

struct Random : RandomFloats {
    using RandomFloats::RandomFloats;
    double Coordinate() { return Number(-10.0, 10.0); }
    g3d_Storage Triple() { return {Coordinate(), Coordinate(), Coordinate()}; }
    g3d_Point OnGrid(int size) { return At(static_cast<float>(Whole(0, size)), static_cast<float>(Whole(0, size))); }
    /// Duplicates, collinear runs, spikes and crossings are frequent on a small grid.
    Polygon Grid(int size) {
        Polygon polygon;
        for (int n = Whole(3, 7); n > 0; --n) polygon.Append(OnGrid(size));
        return polygon;
    }
};

/// The even-odd rule away from the outline, the distance from it, and the area, counter-clockwise positive.
struct Oracle {
    bool inside = false;
    long double distance = 1e30L, area = 0.0L;
    explicit Oracle(const Polygon& polygon, long double x = 0.0L, long double y = 0.0L) {
        for (int k = 0; k < polygon.Length(); ++k) {
            const g3d_Point &a = polygon.ConstGet(k), &b = polygon.ConstGet((k + 1) % polygon.Length());
            const long double dx = b.X() - a.X(), dy = b.Y() - a.Y(), px = x - a.X(), py = y - a.Y();
            if ((py >= 0) != (y >= b.Y()) && (px - py * dx / dy) < 0) inside = !inside;
            const long double square = dx * dx + dy * dy;
            const long double s = square > 0 ? std::clamp<long double>((px * dx + py * dy) / square, 0, 1) : 0;
            distance = std::min(distance, std::hypot(px - s * dx, py - s * dy));
            area += (a.X() * dy - a.Y() * dx) / 2;
        }
    }
};

TEST_F(g3d_Picking, ToleranceIsSharedAndStrict) {
    EXPECT_FALSE(Utils::EqualValue(1.0, 1.00001, Utils::getTolerance()));
    EXPECT_TRUE(Utils::EqualValue(1.0, 1.000009, 1e-5));
    EXPECT_FALSE(Utils::EqualValue(0.0, 0.25, 0.25) || Utils::EqualValue(kNaN, kNaN, kInfinity));
    EXPECT_TRUE(Utils::EqualPoint({0.2, 0.2, -0.2}, {}, 0.25));  // a cube
    EXPECT_FALSE(Utils::EqualPoint({0.0, 0.0, 0.25}, {}, 0.25));
    Utils::setTolerance(0.5);  // |(2, 0, 0) x (1, h, 0)| = 2 h
    EXPECT_TRUE(Utils::PointsCollinear({}, {2.0, 0.0, 0.0}, {1.0, 0.24, 0.0}));
    EXPECT_FALSE(Utils::PointsCollinear({}, {2.0, 0.0, 0.0}, {1.0, 0.25, 0.0}));
    EXPECT_FALSE(Utils::LinePointIntersection({}, {2.0, 0.0, 0.0}, {1.0, 0.5, 0.0}, t[0]));
    EXPECT_TRUE(Utils::LinePointIntersection({}, {2.0, 0.0, 0.0}, {3.0, 0.4, 0.0}, t[1]));
    EXPECT_TRUE(Utils::LinePointIntersection({}, {0.4, 0.0, 0.0}, {0.0, 0.4, 0.0}, u[0]));  // a point
    EXPECT_EQ((std::array{t[0], t[1], u[0]}), (std::array{9.0, 1.5, 0.0}));
}

TEST_F(g3d_Picking, TriplesAndSorting) {
    g3d_Storage a(3.0, 4.0, 0.0), zero;
    g3d_Normalize(a);
    g3d_Normalize(zero);
    EXPECT_TRUE(Utils::EqualPoint(a, {0.6, 0.8, 0.0}, 1e-15) && Utils::EqualPoint(zero, {}, 1e-300));
    a.Set({1.0, 2.0, 3.0}, a *= 0.0);
    EXPECT_EQ(g3d_TripleProduct({1.0, 0.0, 0.0}, {0.0, 2.0, 0.0}, a), 6.0);
    EXPECT_EQ(g3d_Dot(g3d_Cross(a, {0.0, 0.0, 1.0}), {1.0, 10.0, 100.0}), 2.0 - 10.0);
    const double one = 1.0, two = 2.0, nan = kNaN;
    EXPECT_EQ((std::array{g3d_GeomUtils_compare(&one, &two), g3d_GeomUtils_compare(&two, &one),
                          g3d_GeomUtils_compare(&one, &one), g3d_GeomUtils_compare(&one, &nan)}),
              (std::array{-1, 1, 0, 0}));
    const cow_List<g3d_Storage> triples{{kNaN, 0.0, 0.0}, {2.0, 0.0, 0.0}, {0.0, -2.0, 0.0}, {3.0, 0.0, 0.0}};
    EXPECT_EQ(Utils::FindClosestPt(triples, {}), 1);
    EXPECT_EQ(Utils::FindClosestPt({g3d_Storage(1e200, 0.0, 0.0)}, {}), 0);
    EXPECT_EQ(Utils::FindClosestPt(cow_List<g3d_Storage>(), {}), -1);
    EXPECT_EQ(Utils::FindClosestPt({At(3, 0), {4.0F, 0.0F, 0.0F, 2.0F}, At(kNaN, 0)}, At(2, 0)), 1);
}

TEST_F(g3d_Picking, PlanesGiveBackWhatPointsWereBuiltFrom) {
    Random random(1);
    for (int k = 0; k < 2000; ++k) {
        const g3d_Storage origin = random.Triple(), a = random.Triple(), b = random.Triple(), p0 = random.Triple();
        const double area = std::sqrt(g3d_Dot(g3d_Cross(a, b), g3d_Cross(a, b)));
        if (area < 1.0) continue;
        const double u0 = random.Coordinate(), v0 = random.Coordinate();
        const g3d_Storage hit = Moved(Moved(origin, u0, a), v0, b);
        ASSERT_TRUE(Utils::PointInPlane(hit, origin, a, b, u[0], v[0]));
        EXPECT_LT(Off({u[0], v[0]}, {u0, v0}), 1e-9);
        const g3d_Storage d(hit, p0), off = Moved(hit, 10.0 / area, g3d_Cross(a, b));
        EXPECT_FALSE(Utils::PointInPlane(off, origin, a, b, u[0], v[0]));
        if (std::abs(g3d_TripleProduct(a, b, d)) < 1.0) continue;
        ASSERT_TRUE(Utils::LinePlaneIntersection(p0, Moved(p0, 0.5, d), origin, a, b, t, u, v, count));
        EXPECT_LT(Off({1.0 * count, t[0], u[0], v[0]}, {1.0, 2.0, u0, v0}), 1e-8);
        const g3d_Storage corners[] = {Moved(origin, 1, a), Moved(origin, 1, b)};
        const bool inside = u0 >= 0.0 && v0 >= 0.0 && u0 + v0 <= 1.0;
        EXPECT_EQ(Utils::LineTriIntersection(p0, hit, origin, corners[0], corners[1], t, u, v, count), inside);
        EXPECT_EQ(count, inside ? 1 : 0);
    }
}

TEST_F(g3d_Picking, PlanesAtTheirBoundaries) {
    const g3d_Storage o, x(1.0, 0.0, 0.0), y(0.0, 1.0, 0.0), far(1000.0, 0.0, 0.005);
    EXPECT_TRUE(Utils::PointInPlane({10.0, 0.0, 0.0}, o, {5.0, 0.0, 0.0}, y, u[0], v[0]));
    EXPECT_EQ(std::pair(u[0], v[0]), std::pair(2.0, 0.0));
    EXPECT_TRUE(Utils::PointInPlane(far, o, x, y, u[0], v[0]));  // an angle, so 0.005 is near enough out there
    EXPECT_FALSE(Utils::PointInPlane({1.0, 0.0, 0.005}, o, x, y, u[0], v[0]));
    EXPECT_FALSE(Utils::PointInPlane(o, o, x, {3.0, 0.0, 0.0}, u[0], v[0]));
    EXPECT_TRUE(Utils::PointInPlane({5e-6, 0.0, 0.0}, o, x, y, u[0], v[0]));
    EXPECT_EQ(u[0], 5e-6 * 5e-6);  // scaled as if the offset had been normalised
    Utils::setTolerance(0.01);     // u must agree between the axes to 1e-5 all the same
    EXPECT_FALSE(Utils::PointInPlane({1.0, 0.0, 0.005}, o, {0.0, 1.0, 1.0}, x, u[0], v[0]));
    Utils::setTolerance(1e-5);

    // in the plane; p0 alone in it writes u[0] and v[0]; parallel and apart writes nothing
    const auto plane = [&](const g3d_Storage& p0, const g3d_Storage& p1, const g3d_Storage& b) {
        return Utils::LinePlaneIntersection(p0, p1, o, x, b, t, u, v, count);
    };
    EXPECT_TRUE(plane({2.0, 1.0, 0.0}, {0.0, 3.0, 0.0}, y));
    EXPECT_EQ((std::array{t[0], u[0], v[0], t[1], u[1], v[1]}), (std::array{0.0, 2.0, 1.0, 1.0, 0.0, 3.0}));
    EXPECT_EQ(count, 2);
    t[0] = 9.0;
    for (const double height : {0.0, 1.0}) {
        EXPECT_FALSE(plane({1e3, 0.0, height}, {-1.0, 0.0, height + 5e-3}, y));
        EXPECT_EQ((std::tuple{count, t[0], u[0], u[1]}), (std::tuple{0, 9.0, 1e3, 0.0}));
    }
    // shorter than the root of the least normal float: no direction
    EXPECT_FALSE(plane({0, 0, 1}, {0, 0, 1.0 + 1e-19}, y));
    EXPECT_FALSE(plane({0, 0, 1}, {0, 0, 2}, {0.0, 1e-20, 0.0}));
    EXPECT_TRUE(plane({0, 0, 1e-18}, {0, 0, 2e-18}, y));
    EXPECT_EQ(t[0], -1.0);

    // triangle: tolerance at the sides, strict; a line in its plane is cut as the segment it is given by
    using Hits = std::vector<std::array<double, 3>>;  // t, u, v
    const std::tuple<g3d_Storage, g3d_Storage, Hits, double> rows[] = {
        {{-0.9e-5, 0.5, 1.0}, {-0.9e-5, 0.5, 2.0}, {{-1.0, -0.9e-5, 0.5}}, 0.0},
        {{-1.1e-5, 0.5, 1.0}, {-1.1e-5, 0.5, 2.0}, {}, 0.0},
        {{0.5, 0.50002, 1.0}, {0.5, 0.50002, 2.0}, {}, 0.0},
        {{-1.0, 0.5, 0.0}, {3.0, 0.5, 0.0}, {{0.25, 0.0, 0.5}, {0.375, 0.5, 0.5}}, 2e-5},
        {{0.5, 0.25, 0.0}, {0.25, 0.5, 0.0}, {{0.0, 0.5, 0.25}, {1.0, 0.25, 0.5}}, 0.0},
        {{-5e-6, 0.25, 0.0}, {0.25, 0.25, 0.0}, {{0.0, -5e-6, 0.25}, {1.0, 0.25, 0.25}}, 0.0},
        {{-3.0, 0.5, 0.0}, {-1.0, 0.5, 0.0}, {}, 0.0},
        {{-1.0, 1.5, 0.0}, {2.0, 0.5, 0.0}, {}, 0.0},
    };
    for (const auto& [p0, p1, hits, tolerance] : rows) {
        EXPECT_EQ(Utils::LineTriIntersection(p0, p1, o, x, y, t, u, v, count), !hits.empty());
        ASSERT_EQ(count, static_cast<int>(hits.size()));
        for (std::size_t k = 0; k < hits.size(); ++k)
            EXPECT_LE(Off({t[k], u[k], v[k]}, {hits[k][0], hits[k][1], hits[k][2]}), tolerance + 1e-15);
    }
}

TEST_F(g3d_Picking, LinesInSpace) {
    Random random(2);
    for (int k = 0; k < 1000; ++k) {
        const g3d_Storage meet = random.Triple(), a = random.Triple(), b = random.Triple(), n = g3d_Cross(a, b);
        if (g3d_Dot(n, n) < 1.0) continue;
        const double s0 = random.Coordinate(), t0 = random.Coordinate();
        const g3d_Storage a0 = Moved(meet, -s0, a), a1 = Moved(a0, 1, a), b0 = Moved(meet, -t0, b),
                          b1 = Moved(b0, 1, b);
        ASSERT_TRUE(Utils::LineLineIntersection(a0, a1, b0, b1, s, t, count));
        EXPECT_LT(Off({1.0 * count, s[0], t[0]}, {1.0, s0, t0}), 1e-8);
        const g3d_Storage off = Moved(b0, 2e-5 / std::sqrt(g3d_Dot(n, n)), n);
        EXPECT_FALSE(Utils::LineLineIntersection(a0, a1, off, Moved(off, 1, b), s, t, count));
        EXPECT_EQ(count, 0);
        ASSERT_TRUE(Utils::LineLineIntersection(a0, a1, Moved(a0, 2, a), Moved(a0, -2, a), s, t, count));
        EXPECT_LT(Off({1.0 * count, s[0], s[1], t[0], t[1]}, {2.0, 0.0, 1.0, 0.5, 0.25}), 1e-12);
        ASSERT_TRUE(Utils::ParallelLineIntersection(meet, meet, b0, b1, s, t, count));  // points
        EXPECT_LT(Off({1.0 * count, s[0], t[0]}, {1.0, 0.0, t0}), 1e-8);
        ASSERT_TRUE(Utils::ParallelLineIntersection(a0, a1, meet, meet, s, t, count));
        EXPECT_LT(Off({1.0 * count, s[0], t[0]}, {1.0, s0, 0.0}), 1e-8);
    }
    s[0] = 9.0;
    EXPECT_FALSE(Utils::LineLineIntersection(At(0, 0), At(1, 0), At(0, 1), At(1, 1), s, t, count));
    EXPECT_EQ(std::pair(count, s[0]), std::pair(0, 9.0));
    const g3d_Point w2(4.0F, 4.0F, 0.0F, 2.0F);  // (2, 2, 0)
    EXPECT_TRUE(Utils::LineLineIntersection(At(0, 0), w2, At(1, 0), At(1, 1), s, t, count));
    EXPECT_EQ(std::pair(s[0], t[0]), std::pair(0.5, 1.0));
}

TEST_F(g3d_Picking, SegmentsCrossInclusivelyAndParallelOnesNever) {
    Random random(3);
    for (int k = 0; k < 20000; ++k) {
        const int size = k % 2 == 0 ? 3 : 100000;
        const g3d_Point p[4] = {random.OnGrid(size), random.OnGrid(size), random.OnGrid(size), random.OnGrid(size)};
        const auto cross = [&](int i, int j, int k0, int k1) {  // of the steps i to j and k0 to k1
            return std::llround((double{p[j].X()} - p[i].X()) * (double{p[k1].Y()} - p[k0].Y()) -
                                (double{p[j].Y()} - p[i].Y()) * (double{p[k1].X()} - p[k0].X()));
        };
        const long long det = cross(0, 1, 2, 3), sign = det < 0 ? -1 : 1, whole = sign * det;
        const long long s0 = sign * cross(0, 2, 2, 3), t0 = sign * cross(0, 2, 0, 1);
        const bool expected = det != 0 && 0 <= s0 && s0 <= whole && 0 <= t0 && t0 <= whole;
        s[0] = t[0] = -7.0;
        ASSERT_EQ(Utils::DoLinesCross2D(p[0], p[1], p[2], p[3], s[0], t[0]), expected);
        ASSERT_EQ(s[0], expected ? static_cast<double>(s0) / static_cast<double>(whole) : -7.0);
        ASSERT_EQ(t[0], expected ? static_cast<double>(t0) / static_cast<double>(whole) : -7.0);
    }
    // no angle: what counts is that they part by more than 1e-5 over the shorter
    EXPECT_TRUE(Utils::DoLinesCross2D(At(0, 0), At(1e3F, 0), At(0, -0.004F), At(1e3F, 0.004F), s[0], t[0]));
    EXPECT_TRUE(Utils::DoLinesCross2D(At(0, 0), At(100, 0), At(1, -1e-5F), At(2, 1e-5F), s[0], t[0]));
    EXPECT_FALSE(Utils::DoLinesCross2D(At(0, 0), At(100, 0), At(1, -4e-6F), At(2, 4e-6F), s[0], t[0]));
}

TEST_F(g3d_Picking, PointInPolygonDecidesByItsComparisons) {
    Random random(4);
    for (int k = 0; k < 3000; ++k) {
        const Polygon polygon = random.Grid(6);
        const g3d_Point quarters = random.OnGrid(32), p = At(quarters.X() / 4 - 1, quarters.Y() / 4 - 1);
        const Oracle oracle(polygon, p.X(), p.Y());
        EXPECT_TRUE(oracle.distance == 0 || Utils::PointInPolygon2D(polygon, p) == oracle.inside);
    }
    // on the outline: bottom out, top in; upright edges in when the square runs counter-clockwise, else out
    const Polygon square = Box(0, 0, 1), clockwise{At(0, 1), At(1, 1), At(1, 0), At(0, 0)};
    const std::tuple<float, float, bool, bool> onSquare[] = {
        {0.5F, 0.5F, true, true},   {1.5F, 0.5F, false, false}, {0.0F, 0.5F, true, false},
        {1.0F, 0.5F, true, false},  {0.5F, 0.0F, false, false}, {0.5F, 1.0F, true, true},
        {0.0F, 0.0F, false, false}, {kNaN, 0.5F, true, true},   {0.5F, kNaN, false, false},
    };
    for (const auto& [x, y, inside, insideClockwise] : onSquare) {
        EXPECT_EQ(Utils::PointInPolygon2D(square, At(x, y), &square.ConstGet(0)), inside) << x << ' ' << y;
        EXPECT_EQ(Utils::PointInPolygon2D(clockwise, At(x, y)), insideClockwise) << x << ' ' << y;
    }
    EXPECT_THROW((void)Utils::PointInPolygon2D({}, At(0, 0)), nex_RangeException);

    g3d_Point upperLeft = At(9, 9), lowerRight = At(9, 9);
    EXPECT_FALSE(Utils::RangeOfPolygon({At(kNaN, 0), At(kNaN, 1)}, upperLeft, lowerRight));
    EXPECT_EQ(upperLeft, At(9, 9));
    EXPECT_TRUE(Utils::RangeOfPolygon({At(kNaN, 7), At(3, -2), At(-1, kNaN)}, upperLeft, lowerRight));
    EXPECT_EQ(std::pair(upperLeft, lowerRight), std::pair(At(-1, 7), At(3, -2)));
}

TEST_F(g3d_Picking, RectanglesClipAsPolygonsDo) {
    Random random(5);
    int seen[6]{};
    for (int k = 0; k < 20000; ++k) {
        const g3d_Point a = random.OnGrid(9), b = random.OnGrid(9);
        const Polygon rect{At(3, 7), At(3, 2), At(6, 2), At(6, 7)};
        const g3d_ClipResultEnum result = Utils::ClipLineToPolygon2D(rect, a, b, pieces);
        ++seen[result];
        g3d_Point outA = At(-5, -5), outB = At(-5, -5);
        ASSERT_EQ(Utils::ClipLineToRect2D(At(3, 7), At(6, 2), a, b, outA, outB), result);
        const Polygon piece = pieces.Length() == 1 ? pieces.ConstGet(0) : Polygon{At(-5, -5)};
        const g3d_Point first = piece.ConstGet(0), last = piece.ConstGet(piece.Length() - 1);
        ASSERT_LT(Off({outA.X(), outA.Y(), outB.X(), outB.Y()}, {first.X(), first.Y(), last.X(), last.Y()}), 1e-6);
        ASSERT_EQ(outA == At(-5, -5), result == g3d_ClipTriviallyOutside || result == g3d_ClipOutside);
    }
    for (const int result : {0, 2, 3, 4}) EXPECT_GT(seen[result], 100);

    // copied whole when inside; all four components move; outputs may be inputs; exchanged corners contain nothing
    const g3d_Point start(1.0F, 1.0F, 5.0F, 3.0F), end(5.0F, 1.0F, 9.0F, 1.0F);
    g3d_Point a = end, b = start;
    EXPECT_EQ(Utils::ClipLineToRect2D(At(0, 9), At(9, 0), b, a, a, b), g3d_ClipInside);
    EXPECT_TRUE(a == start && b == end);
    EXPECT_EQ(Utils::ClipLineToRect2D(At(2, 9), At(3, 0), a, b, a, b), g3d_ClipClipped);
    EXPECT_EQ(std::pair(a, b), std::pair(g3d_Point(2.0F, 1.0F, 6.0F, 2.5F), g3d_Point(3.0F, 1.0F, 7.0F, 2.0F)));
    EXPECT_NE(Utils::ClipLineToRect2D(At(3, 0), At(2, 9), a, b, a, b), g3d_ClipInside);
}

TEST_F(g3d_Picking, LinestringsAreJoinedAcrossVertices) {
    const Polygon line{At(-1, 1), At(1, 1), At(1, 1), At(2, 2), At(5, 2), At(5, 4), At(3, 4), At(3, 9)};
    const Polygon box = Box(0, 0, 4);
    const Pieces expected{{At(0, 1), At(1, 1), At(2, 2), At(4, 2)}, {At(4, 4), At(3, 4)}};
    EXPECT_EQ(Utils::ClipLinestringToPolygon2D(box, line, pieces), g3d_ClipClipped);
    EXPECT_EQ(pieces, expected);
    EXPECT_EQ(Utils::ClipLinestringToRect2D(At(-9, 9), At(9, -9), line, pieces), g3d_ClipInside);
    EXPECT_EQ(Utils::ClipLinestringToRect2D(At(-9, 9), At(9, -9), pieces.ConstGet(0), pieces), g3d_ClipInside);
    EXPECT_EQ(pieces, Pieces{line});
    EXPECT_EQ(Utils::ClipLinestringToRect2D(At(0, 4), At(4, 0), pieces.ConstGet(0), pieces), g3d_ClipClipped);
    EXPECT_EQ(pieces, expected);  // the input was one of the outputs
    EXPECT_EQ(Utils::ClipLinestringToRect2D(At(0, 4), At(4, 0), {At(2, 2)}, pieces), g3d_ClipInside);
    const Polygon spiked{At(0, 0), At(7, 0), At(4, 0), At(4, 4), At(0, 4)};
    const std::tuple<Polygon, Polygon, g3d_ClipResultEnum> cases[] = {
        {box, {At(4, 2)}, g3d_ClipInside},
        {box, {At(5, -1), At(5, 5), At(-1, 5)}, g3d_ClipTriviallyOutside},
        {box, {At(3, 6), At(6, 3)}, g3d_ClipOutside},
        {spiked, {At(-1, 0), At(15, 0)}, g3d_ClipClipped}};
    for (const auto& [polygon, given, result] : cases)
        EXPECT_EQ(Utils::ClipLinestringToPolygon2D(polygon, given, pieces), result);
    EXPECT_EQ(pieces, Pieces({{At(0, 0), At(7, 0)}}));  // of the last
    EXPECT_EQ(Utils::ClipLinestringToRect2D(At(0, 4), At(4, 0), {}, pieces), g3d_ClipDegenerate);
    EXPECT_EQ(pieces.Length(), 0);
}

TEST_F(g3d_Picking, PolygonsCutSegmentsAsSamplesSay) {
    Random random(6);
    Utils::setTolerance(1e-9);
    for (int k = 0; k < 3000; ++k) {
        const Polygon polygon = random.Grid(6);
        const g3d_Point a = random.OnGrid(6), b = random.OnGrid(6);
        if (a == b) continue;
        cow_List<double> meets;
        const g3d_ClipResultEnum result = Utils::ClipLineToPolygon2D(polygon, a, b, pieces);
        const bool met = Utils::IntersectLinePolygon2D(polygon, a, b, meets);
        ASSERT_EQ(met, meets.Length() > 0);
        const long double dx = b.X() - a.X(), dy = b.Y() - a.Y(), square = dx * dx + dy * dy;
        for (const double at : meets) ASSERT_LT(Oracle(polygon, a.X() + at * dx, a.Y() + at * dy).distance, 1e-9L);
        if (result == g3d_ClipDegenerate) continue;
        const auto parameter = [&](const g3d_Point& p) {
            return ((p.X() - a.X()) * dx + (p.Y() - a.Y()) * dy) / square;
        };
        int changes = 0;
        bool before = false;
        for (int i = 0; i < 100; ++i) {
            const long double at = (i + 0.37L) / 100;
            const Oracle oracle(polygon, a.X() + at * dx, a.Y() + at * dy);
            const bool on = oracle.distance < 1e-12L;  // along an edge
            if (!on && oracle.distance < 1e-4L) continue;
            bool inPiece = false;
            for (const Polygon& piece : pieces)
                inPiece |= parameter(piece.ConstGet(0)) <= at && at <= parameter(piece.ConstGet(piece.Length() - 1));
            ASSERT_EQ(inPiece, on || oracle.inside) << k << ' ' << static_cast<double>(at);
            changes += i > 0 && inPiece != before ? 1 : 0;
            before = inPiece;
        }
        ASSERT_LE(changes, meets.Length());
        ASSERT_TRUE(result != g3d_ClipInside || changes == 0);
        ASSERT_TRUE(met || result == g3d_ClipInside || pieces.Length() == 0);
    }
}

TEST_F(g3d_Picking, PolygonsHaveInCommonWhatSamplesSay) {
    Random random(7);
    int seen[6]{};
    for (int k = 0; k < 1500; ++k) {
        const Polygon first = k % 5 == 1 ? Box(-1, -1, 9) : random.Grid(5);
        const Polygon second = k % 5 == 0 ? first : random.Grid(random.Whole(1, 8));
        Pieces swapped;
        const g3d_ClipResultEnum result = Utils::IntersectPolygonPolygon2D(first, second, pieces);
        const g3d_ClipResultEnum other = Utils::IntersectPolygonPolygon2D(second, first, swapped);
        ++seen[result];
        ASSERT_TRUE(result != g3d_ClipCovers || other == g3d_ClipInside);
        ASSERT_TRUE(result != g3d_ClipInside || other == g3d_ClipCovers || other == g3d_ClipInside);
        ASSERT_TRUE(result < g3d_ClipTriviallyOutside || other == result);
        for (const Polygon& piece : pieces) ASSERT_TRUE(result != g3d_ClipClipped || Oracle(piece).area > 0.0);
        for (int i = 0; i < 400; ++i) {
            const long double x = (i % 20 + 0.513L) * 8 / 20, y = (i / 20 + 0.487L) * 8 / 20;  // NOLINT
            const Oracle inFirst(first, x, y), inSecond(second, x, y);
            if (std::min(inFirst.distance, inSecond.distance) < 1e-3L || result == g3d_ClipDegenerate) continue;
            int inPieces = 0;
            for (const Polygon& piece : pieces) inPieces += Oracle(piece, x, y).inside ? 1 : 0;
            ASSERT_EQ(inPieces, inFirst.inside && inSecond.inside ? 1 : 0) << k;
            ASSERT_TRUE(result != g3d_ClipInside || !inFirst.inside || inSecond.inside) << k;
        }
    }
    for (const int times : seen) EXPECT_GT(times, 20);

    // touching is nothing in common; a hole is not filled; a twisted outline still counts
    const Polygon box = Box(0, 0, 4), twisted{At(0, 0), At(4, 4), At(4, 0), At(0, 4)};
    const Polygon hourglass{At(0, 0), At(4, 0), At(0, 4), At(4, 4)}, outAndBack{At(0, 0), At(4, 0), At(4, 4), At(4, 0)};
    const Polygon diamond{At(2, -1), At(5, 2), At(2, 5), At(-1, 2)};
    const Polygon ring{At(0, 0), At(9, 0), At(9, 9), At(0, 9), At(0, 0),
                       At(3, 3), At(3, 6), At(6, 6), At(6, 3), At(3, 3)};
    const std::tuple<Polygon, Polygon, g3d_ClipResultEnum, int> cases[] = {
        {box, Box(4, 0, 4), g3d_ClipOutside, 0},
        {box, Box(4.5F, 0, 4), g3d_ClipTriviallyOutside, 0},
        {Box(4, 4, 1), ring, g3d_ClipOutside, 0},
        {twisted, box, g3d_ClipInside, 1},
        {outAndBack, box, g3d_ClipDegenerate, 0},
        {Box(0, 1e-6F, 4), box, g3d_ClipInside, 1},
        {hourglass, Box(-1, -1, 4), g3d_ClipClipped, 2},  // not one that pinches
        {box, diamond, g3d_ClipClipped, 1}};              // convex ones have one piece
    for (const auto& [first, second, result, parts] : cases) {
        EXPECT_EQ(Utils::IntersectPolygonPolygon2D(first, second, pieces), result);
        EXPECT_EQ(pieces.Length(), parts);
    }
    EXPECT_EQ(std::pair(Oracle(pieces.ConstGet(0)).area, pieces.ConstGet(0).Length()), std::pair(14.0L, 8));

    for (int k = 0; k < 500; ++k) {  // vertices rounded onto the edges make no slivers
        const auto low = [&] { return At(random.Number(-10.0, 10.0), random.Number()); };
        const g3d_Point corners[] = {low(), low(), At(random.Number(-10.0, 10.0), 20.0F)};
        Polygon plain, refined;
        for (int i = 0; i < 3; ++i) {
            const g3d_Point &from = corners[i], &to = corners[(i + 1) % 3];
            plain.Append(from);
            refined.Append(from);
            refined.Append(At(from.X() + 0.3F * (to.X() - from.X()), from.Y() + 0.3F * (to.Y() - from.Y())));
        }
        EXPECT_EQ(Utils::IntersectPolygonPolygon2D(plain, refined, pieces), g3d_ClipInside) << k;
        EXPECT_EQ(Utils::IntersectPolygonPolygon2D(refined, plain, pieces), g3d_ClipInside) << k;
    }
}

TEST_F(g3d_Picking, BadInputHasAStatedResult) {
    Random random(8);
    constexpr float bad[] = {0.0F, 1.0F, -1.0F, 1e-38F, kGreatest, -kGreatest, kInfinity, -kInfinity, kNaN, 0.5F};
    const auto number = [&] { return bad[random.Whole(0, 9)]; };
    const auto point = [&] { return g3d_Point(number(), number(), number(), number()); };
    const auto triple = [&] { return g3d_Storage(number() * 1e200, number(), number()); };
    for (int k = 0; k < 20000; ++k) {
        Utils::setTolerance(k % 4 == 0 ? number() : 1e-5);
        Polygon polygon, line;
        for (int n = random.Whole(1, 6); n > 0; --n) polygon.Append(point()), line.Append(point());
        g3d_Point outA, outB;
        const auto a = triple(), b = triple(), c = triple(), d = triple(), e = triple();
        bool met = Utils::LinePlaneIntersection(a, b, c, d, e, t, u, v, count);
        EXPECT_EQ(met, count > 0);
        met = Utils::LineTriIntersection(a, b, c, d, e, t, u, v, count);
        EXPECT_EQ(met, count > 0);
        met = Utils::LineLineIntersection(point(), point(), point(), point(), t, u, count);
        EXPECT_EQ(met, count > 0);
        (void)Utils::ClipLineToRect2D(point(), point(), point(), point(), outA, outB);
        (void)Utils::ClipLinestringToRect2D(point(), point(), line, pieces);
        (void)Utils::PointInPolygon2D(polygon, point());
        (void)Utils::RangeOfPolygon(polygon, outA, outB);
        cow_List<double> meets;
        (void)Utils::IntersectLinePolygon2D(polygon, point(), point(), meets);
        for (const double at : meets) EXPECT_TRUE(0.0 <= at && at <= 1.0);
        const bool finite = std::all_of(polygon.begin(), polygon.end(), [](const g3d_Point& p) {
            return std::isfinite(p.X()) && std::isfinite(p.Y());
        });
        const auto clipped = Utils::ClipLinestringToPolygon2D(polygon, line, pieces);
        const auto common = Utils::IntersectPolygonPolygon2D(polygon, line, pieces);
        EXPECT_TRUE((finite && polygon.Length() >= 3) ||
                    (clipped == g3d_ClipDegenerate && common == g3d_ClipDegenerate));
    }
    Utils::setTolerance(1e-5);
    EXPECT_EQ(Utils::ClipLineToPolygon2D(Box(0, 0, 1), At(kNaN, 0.5F), At(0.5F, 0.5F), pieces), g3d_ClipOutside);
    // nothing is inside a rectangle with NaN, nothing with NaN is beyond a side
    const auto clip = [](float left, const g3d_Point& a, const g3d_Point& b) {
        g3d_Point outA, outB;
        return Utils::ClipLineToRect2D(At(left, 1), At(left + 1, 0), a, b, outA, outB);
    };
    EXPECT_EQ(clip(kNaN, At(0, 0), At(1, 1)), g3d_ClipOutside);
    EXPECT_EQ(clip(0, At(kNaN, 0.5F), At(0.5F, 0.5F)), g3d_ClipOutside);
    EXPECT_EQ(clip(0, At(kInfinity, 0.5F), At(2, 0)), g3d_ClipTriviallyOutside);
}

}  // namespace
