// Protects lines, planes, segments and dots: which boundaries belong to a comparison, and the distances, projections
// and intersections that points, lines, planes, segments and triangles have with each other.
#include <base/ftr_FeatureList.h>
#include <gsl/gsl_ModelSegment.h>
#include <gsl/gsl_Pairs.h>
#include <gsl/gsl_Plane.h>
#include <gsl/gsl_Segment.h>
#include <gsl/gsl_StLine.h>
#include <support/RandomGeometry.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <valarray>

namespace {

const gsl_Point kOrigin;
const gsl_StLine kAlongX(kOrigin, kX * 4.0);
const gsl_Plane kFloor(kOrigin, kZ * 2.0);

using Wide = std::valarray<long double>;

Wide Between(const gsl_Point& a, const gsl_Point& b, long double t) {
    return Wide{a.X(), a.Y(), a.Z()} * (1 - t) + Wide{b.X(), b.Y(), b.Z()} * t;
}

/// The least distance of a point on its way from p to q and a segment whose ends go from a to b and from c to d. It is
/// convex along the way, so thirds find it.
double Least(const gsl_Point& p, const gsl_Point& q, const gsl_Point& a, const gsl_Point& b, const gsl_Point& c,
             const gsl_Point& d) {
    const auto at = [&](long double t) {
        const Wide end = Between(a, b, t), span = Between(c, d, t) - end, from = Between(p, q, t) - end;
        const long double along = (span * from).sum() / std::max((span * span).sum(), 1e-300L);
        const Wide gap = from - span * std::clamp(along, 0.0L, 1.0L);
        return std::sqrt((gap * gap).sum());
    };
    long double low = 0, high = 1;
    for (int n = 0; n < 80; ++n) {
        const long double third = (high - low) / 3;
        at(low + third) < at(high - third) ? high -= third : low += third;
    }
    return static_cast<double>(std::min({at(low), at(0), at(1)}));
}

/// Points in general places by turns with points of a coarse grid, where most things touch, overlap or vanish.
gsl_Point Nasty(RandomGeometry& random, int n) {
    gsl_Point p = random.Point();
    if (n % 2 != 0)
        for (unsigned axis = 0; axis < 3; ++axis) p[axis] = std::floor(random.Number(0.0, 3.0));
    return p;
}

TEST(gsl_Lines, BoundariesAreInOrOutAsDeclared) {
    gsl_Point out;
    double dist = 0.0;
    const auto point = [](double y, double z) { return gsl_Point(5.0, y, z); };
    const auto line = [&](double y, double z) { return gsl_StLine(point(y, z), kX); };
    const auto across = [&](double z, double length) { return gsl_StLine(point(0.0, z), kY * length); };
    const auto tilted = [](double sine) { return gsl_StLine(kOrigin, kX + kY * sine); };
    const auto wall = [](double sine) { return gsl_Plane(kOrigin, kZ + kX * sine); };
    const auto rod = [&](double low, double high, double z) { return gsl_Segment(point(low, z), point(high, z)); };
    const std::tuple<const char*, double, bool, std::function<bool(double)>> boundaries[] = {
        // what, the boundary, whether it belongs to it, whether it holds there; it holds below and does not above
        {"point on line", 1e-6, true, [&](double y) { return point(y, 0.0).IsOn(kAlongX); }},
        {"point on plane", 1e-6, true, [&](double z) { return point(3.0, -z).IsOn(kFloor); }},
        {"line on line", 1e-6, false, [&](double y) { return line(y, 0.0).IsOn(kAlongX); }},
        {"line on plane", 1e-6, true, [&](double z) { return line(0.0, z).IsOn(kFloor); }},
        {"plane on plane", 1e-6, true, [&](double z) { return gsl_Plane(point(3.0, z), kZ).IsOn(kFloor); }},
        {"plane over plane", 1e-9, false, [&](double sine) { return wall(sine).IsOn(kFloor); }},
        {"line along line", 1e-9, false, [&](double sine) { return tilted(sine).IsParallel(kAlongX); }},
        {"plane along plane", 1e-9, false, [&](double sine) { return wall(sine).IsParallel(kFloor); }},
        {"line along plane", 1e-10, false, [&](double sine) { return kAlongX.IsParallel(wall(sine)); }},
        {"lines not skew", 1e-6, true, [&](double z) { return !across(z, 1.0).IsSkewed(kAlongX); }},
        {"lines meet", 1e-6, true, [&](double z) { return across(z, 1.0).Intersect(kAlongX, out, dist); }},
        {"segments meet", 1e-6, true, [&](double z) { return rod(-1.0, 1.0, z).Intersect(kAlongX, out); }},
        {"short lines", 1e-6, false, [&](double y) { return tilted(0.0).GetDistance(across(7.0, y)) == 0.0; }},
        {"short ray", 1e-6, false, [&](double z) { return !point(1.0, 1.0).RayIntersect(kZ * z, kFloor, out); }},
        {"short rod", 1e-6, true, [&](double y) { return point(1.0, 0.0).GetDistance(rod(0, y, 0), out) == 1.0; }},
    };
    for (const auto& [what, at, belongs, holds] : boundaries) {
        SCOPED_TRACE(what);
        EXPECT_TRUE(holds(std::nextafter(at, 0.0)));
        EXPECT_EQ(holds(at), belongs);
        EXPECT_FALSE(holds(std::nextafter(at, 1.0)));
    }
}

TEST(gsl_Lines, IntersectionWritesOnlyWhatItFound) {
    gsl_Point out(7.0, 7.0, 7.0);
    double dist = 7.0;
    EXPECT_FALSE(kAlongX.Intersect(gsl_StLine({0.0, 0.0, 1.0}, kY), out, dist));  // apart: nothing
    EXPECT_FALSE(kAlongX.Intersect(gsl_StLine(kOrigin, kX * kNaN), out, dist));
    EXPECT_EQ(dist, 7.0);
    EXPECT_TRUE(!kAlongX.Intersect(gsl_StLine({0.0, 3.0, 4.0}, kX), out, dist) && dist == 5.0);  // parallel: dist alone
    EXPECT_FALSE(kAlongX.Intersect(gsl_StLine(kOrigin, kX + kY * 0.9e-5), out, dist));           // although they cross
    EXPECT_EQ(out.X(), 7.0);
    EXPECT_TRUE(kAlongX.Intersect(gsl_StLine(kOrigin, kX + kY * 1.1e-5), out, dist));
    const gsl_StLine tiny({1.0, 0.0, 5.0}, kY * 1e-7);
    EXPECT_TRUE(kAlongX.Intersect(tiny, out, dist) && dist == 5.0);  // the caller looks at dist
    EXPECT_FALSE(gsl_Segment(kOrigin, {2.0, 0.0, 0.0}).Intersect(tiny, out));

    const gsl_Point above(1.0, 2.0, 3.0);
    EXPECT_TRUE(!above.RayIntersect(kX + kZ * 0.9e-10, kFloor, out) && out == above);
    EXPECT_TRUE(above.RayIntersect(kX, gsl_Plane(kOrigin, kZero), out) && std::isnan(out.X()));
    EXPECT_TRUE(above.RayIntersect(kX + kZ, gsl_Plane({0.0, 0.0, 1e308}, kZ * 1e-3), out) && std::isfinite(out.X()));
    EXPECT_TRUE(above.RayIntersect(kX * 1e10 + kZ, gsl_Plane({0.0, 0.0, 1e300}, kZ), out) && out.X() == kInfinity);
    EXPECT_TRUE(std::isnan(above.GetDistance(gsl_Plane(kOrigin, kZero))) && !above.IsOn(gsl_StLine(kOrigin, kZero)));
    EXPECT_TRUE(gsl_StLine({1.0, 2.0, 0.0}, kX).Intersect(kFloor, out) && out == gsl_Point(1.0, 2.0, 0.0));  // within
}

TEST(gsl_Lines, ProjectionsDistancesAndIntersectionsAgree) {
    RandomGeometry random(50221);
    for (int n = 0; n < 500; ++n) {
        const gsl_Point p = random.Point();
        const gsl_StLine line(random.Point(), random.Vector());
        const gsl_Plane plane(random.Point(), random.Vector());
        const gsl_Vector normal = plane.Direction().Unit();

        double along = 0.0;
        gsl_Point met;
        const gsl_Point foot = p.ProjectOn(line, along);
        line.PointAtDistance(along, met);
        EXPECT_LT(Difference(foot, met) + std::abs(p.GetDistance(line) - p.GetDistance(foot)), 1e-11);
        EXPECT_NEAR((p - foot).DotProduct(line.Direction()), 0.0, 1e-11);

        const gsl_Point below = p.ProjectOn(plane);
        const gsl_Vector within = line.Direction().ProjectOn(plane);
        EXPECT_LT(Difference(p, below + normal * p.GetSignedDistance(plane)) + below.GetDistance(plane), 1e-12);
        EXPECT_NEAR(within.DotProduct(normal), 0.0, 1e-13);
        EXPECT_NEAR((line.Direction() - within).CrossProduct(normal).Length(), 0.0, 1e-12);

        ASSERT_TRUE(line.Intersect(plane, met));
        const double slope = std::abs(line.Direction().Unit().DotProduct(normal));
        EXPECT_LT(met.GetDistance(plane) + met.GetDistance(line), 1e-11 / slope);
        EXPECT_NEAR(line.Point().GetDistance(plane, line.Direction()) * slope, line.Point().GetDistance(plane), 1e-11);
        EXPECT_EQ(gsl_StLine(p, within).GetSignedDistance(plane) + line.GetDistance(plane), p.GetSignedDistance(plane));
        EXPECT_NEAR(plane.GetDistance(gsl_Plane(p, normal * -3.0)), std::abs(p.GetSignedDistance(plane)), 1e-12);
        EXPECT_EQ(plane.GetDistance(gsl_Plane(p, line.Direction())), 0.0);

        // Two lines whose common perpendicular at p is as long as said.
        const gsl_Vector side = random.Vector();
        const double gap = n % 2 == 0 ? 0.0 : random.Number(0.1, 5.0);
        const gsl_StLine one(p + line.Direction() * 2.0, line.Direction());
        const gsl_StLine other(p + side * 3.0 + line.Direction().CrossProduct(side).Unit() * gap, side);
        EXPECT_NEAR(one.GetDistance(other), gap, 1e-9);
        EXPECT_TRUE(one.IsSkewed(other) == (gap > 0.0) && one.Intersect(other, met, along) == (gap == 0.0));
        EXPECT_TRUE(gap > 0.0 || Difference(met, p) + along < 1e-7);
    }
}

TEST(gsl_Lines, SegmentsAndTrianglesAreAsFarAsASearchFinds) {
    RandomGeometry random(50222);
    for (int n = 0; n < 240; ++n) {
        SCOPED_TRACE(n);
        const gsl_Point p1 = Nasty(random, n), p2 = Nasty(random, n), p3 = Nasty(random, n), p = Nasty(random, n);
        const gsl_Segment one(p1, p2), other(p3, p);
        gsl_Segment shortest = one;  // which its operand may be
        gsl_Point foot;
        double along = 0.0;
        EXPECT_NEAR(shortest.GetDistance(other, shortest), Least(p1, p2, p3, p3, p, p), 1e-9);
        EXPECT_LT(shortest.Point1().GetDistance(one, foot) + shortest.Point2().GetDistance(other, foot), 1e-9);
        const bool crosses = one.Direction().CrossProduct(other.Direction()).Length() > 1e-3;
        EXPECT_TRUE(!crosses || one.Intersect(other, foot) == (shortest.Length() == 0.0));

        EXPECT_NEAR(p.GetDistance(one, foot), Least(p, p, p1, p1, p2, p2), 1e-12);
        const bool isWithin = p.ProjectOn(one, foot, along);
        EXPECT_TRUE(p1 == p2 || isWithin == (along >= -1e-6 && along <= one.Length() + 1e-6));
        EXPECT_LT(Difference(foot, p1 + one.Direction().Unit() * along), 1e-11);

        // Every other triangle is a sliver or has no area.
        const gsl_Point tip = n % 4 < 2 ? p3 : gsl_Point(p1, 0.3, p2, 0.7) + random.Vector() * 1e-6;
        EXPECT_NEAR(p.GetDistance(p1, p2, tip), Least(p, p, p1, tip, p2, tip), 2e-9);
    }
    gsl_Segment joined;
    const gsl_Segment far({1.0, 0.0, 1e10}, {0.0, 0.0, 1e10}), near(kOrigin, {1.0, 0.0, 0.0});
    EXPECT_TRUE(near.GetDistance(far, joined) == 1e10 && joined.Point2() == far.Point1());
    const gsl_Segment speck({-2e-7, 0.0, 1.0}, {3e-7, 0.0, 1.0});  // too short for a common perpendicular
    speck.GetDistance(gsl_Segment({0.0, -9.0, 0.0}, {0.0, 9.0, 0.0}), joined);
    EXPECT_EQ(joined.Point1().X(), -2e-7);
    EXPECT_EQ(kOrigin.GetDistance({3.0, 4.0, 0.0}, {kNaN, 0.0, 0.0}, {3.0, 4.0, 1.0}), 5.0);
}

TEST(gsl_Lines, DatumsRememberHowTheyWereMade) {
    gsl_StLine line({1.0, 2.0, 3.0}, gsl_Point(1.0, 2.0, 5.0));
    line.FlipDirection();
    const auto copy = line.Copy();
    EXPECT_TRUE(copy->IsFlipped() && copy->Direction() == kZ * -2.0 && copy->DirectionForDatum() == kZ * 2.0);
    EXPECT_TRUE(copy->IsOk() && !gsl_StLine(kOrigin, kX, gsl_LineMethod::STLINE_INVALID).IsOk());
    EXPECT_TRUE(gsl_Dot().IsA(0x30A0005) && !gsl_Dot().IsA(0x30A0004));
    EXPECT_EQ(omu_PrimEnum(copy->Method()).StringValue().View(), "FROM_PNT_PNT");
    EXPECT_EQ(omu_PrimEnum<gsl_DirMethod>::Value(3), gsl_DirMethod::FROM_ELEM_FACE);
    EXPECT_EQ(omu_PrimEnum(gsl_DotMethod{12}).StringValue().View(), "gsl_FROM_DATUM_CSYS_ORIGIN");

    const gsl_Dot a(kOrigin), b(gsl_Point(1e-6, 0.0, 0.0)), c(gsl_Point(0.0, 1.0, 0.0)), *const none = nullptr;
    EXPECT_TRUE(gsl_PointsAreCoincident(&a, &b) && gsl_ThreePointsColinear(&a, &a, &c));
    EXPECT_TRUE(gsl_LinesAreParallel(&line, copy.get()) && gsl_PlanesAreParallel(&kFloor, &kFloor));
    EXPECT_TRUE(gsl_LinesAreSkew(&line, &kAlongX) && !gsl_LinesAreParallel(&line, &kAlongX));
    EXPECT_FALSE(gsl_PointsAreCoincident(&a, &c) || gsl_ThreePointsColinear(&a, &b, &c));
    EXPECT_FALSE(gsl_PointsAreCoincident(&a, none) || gsl_ThreePointsColinear(none, &a, &a));
    EXPECT_FALSE(gsl_LinesAreParallel(nullptr, &line) || gsl_LinesAreSkew(&line, nullptr) ||
                 gsl_PlanesAreParallel(&kFloor, nullptr));
}

/// A dot of the application's: each regeneration lifts it.
struct Lifted : gsl_Dot {
    using gsl_Dot::gsl_Dot;
    std::unique_ptr<gsl_Dot> Copy() const override { return std::make_unique<Lifted>(*this); }
    void Regenerate(const ftr_FeatureList*) override { SetValues(0.0, 0.0, Point().Z() + 1.0); }
};

TEST(gsl_Lines, ModelSegmentsShareDotsUntilTheyRegenerate) {
    gsl_ModelSegment segment(gsl_Dot(gsl_Point(0.5, 0.0, 0.0)), Lifted(gsl_Point(0.0, 0.0, 1.0)));
    const gsl_ModelSegment copy = segment, nothing;
    EXPECT_TRUE(copy.Point2() == segment.Point2() && copy.Uid() == segment.Uid() && !(copy.Uid() == nothing.Uid()));
    segment.Regenerate(nullptr);
    EXPECT_EQ(omu_ReturnPrim(segment)->AsString().View(), "((0.5, 0.0, 0.0), (0.0, 0.0, 2.0))");
    EXPECT_EQ(omu_ReturnPrim(copy)->AsString().View(), "((0.5, 0.0, 0.0), (0.0, 0.0, 1.0))");
    EXPECT_TRUE(copy.Direction() == gsl_Vector(-0.5, 0.0, 1.0) && copy.Length() == std::sqrt(1.25));
    EXPECT_TRUE(nothing.Direction() == kZ && nothing.Length() == 0.0 && nothing.Point1() == nullptr);
    EXPECT_EQ(omu_ReturnPrim(nothing)->AsString().View(), "(None, None)");
}

}  // namespace
