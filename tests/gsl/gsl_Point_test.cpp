// Protects points: identity through copies, the strict and inclusive comparisons, barycentric weights, output.
#include <gsl/gsl_Matrix.h>
#include <gsl/gsl_Point.h>
#include <support/RandomGeometry.h>

#include <gtest/gtest.h>

#include <cmath>
#include <iomanip>
#include <limits>
#include <sstream>
#include <unordered_set>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(gsl_Point, IdentityFollowsCopiesAndIsFreshForComputedPoints) {
    static_assert(std::is_polymorphic_v<gsl_Point> && std::has_virtual_destructor_v<gsl_Point>);
    const gsl_Point a(1.0, 2.0, 3.0), b(3.0, 6.0, -1.0);
    EXPECT_EQ(a.Uid(), cls_Uid());
    const gsl_Point middle(a, b), sum(a, 2.0, b, -1.0);
    EXPECT_EQ(middle.AsArray(), (std::array{2.0, 4.0, 1.0}));
    EXPECT_EQ(sum.AsArray(), (std::array{-1.0, -2.0, 7.0}));
    EXPECT_FALSE(middle.Uid() == cls_Uid() || middle.Uid() == sum.Uid());

    gsl_Point copy(middle);
    EXPECT_EQ(copy.Uid(), middle.Uid());
    copy.SetPos(sum);
    copy.Transform(gsl_Matrix());
    EXPECT_EQ(copy.Uid(), middle.Uid());
    EXPECT_EQ(copy.AsArray(), sum.AsArray());
    copy = sum;
    EXPECT_EQ(copy.Uid(), sum.Uid());
    EXPECT_EQ((sum + gsl_Vector()).Uid(), cls_Uid());
    EXPECT_EQ(sum.PointAtDistInDirection(2.0, {0.0, 0.0, 5e-7}).Uid(), sum.Uid());
    EXPECT_EQ(sum.PointAtDistInDirection(2.0, {0.0, 0.0, -4.0}).AsArray(), (std::array{-1.0, -2.0, 5.0}));
    EXPECT_EQ(sum.PointAtDistInDirection(2.0, {0.0, 0.0, -4.0}).Uid(), cls_Uid());
    gsl_Point::CowDtor(new gsl_Point(a));
    gsl_Point::CowDtor(nullptr);
}

TEST(gsl_Point, EqualityIncludesTheBoundaryAndIsOnDoesNot) {
    const gsl_Point origin, at(1e-6, 0.0, 0.0), inside(std::nextafter(1e-6, 0.0), 0.0, 0.0), beyond(1.1e-6, 0.0, 0.0);
    EXPECT_TRUE(origin == at);
    EXPECT_FALSE(origin.IsOn(at));
    EXPECT_TRUE(origin.IsOn(inside));
    EXPECT_TRUE(origin != beyond);
    const gsl_Point odd(kNaN, 0.0, 0.0), sameNumbers(odd);
    EXPECT_TRUE(odd == odd);
    EXPECT_FALSE(odd == sameNumbers);
    EXPECT_FALSE(odd.IsOn(odd));
}

TEST(gsl_Point, OrderingIsPerAxis) {
    const gsl_Point a(1.0, 1.0, 1.0), touching(2.0, 2.0, 1.0), above(2.0, 2.0, 2.0), odd(kNaN, 2.0, 2.0);
    EXPECT_TRUE(above > a);
    EXPECT_FALSE(touching > a);
    EXPECT_TRUE(touching >= a);
    EXPECT_FALSE(a >= touching);
    EXPECT_FALSE(a > a);
    EXPECT_TRUE(a >= a);
    EXPECT_FALSE(odd > a);
    EXPECT_TRUE(odd >= a);
    EXPECT_FALSE(gsl_Point(kNaN, 0.0, 2.0) >= a);
}

TEST(gsl_Point, LineWeightsReconstructTheProjectionInSwappedOrder) {
    double w[2];
    const gsl_Point p1, p2(4.0, 0.0, 0.0);
    EXPECT_TRUE(gsl_Point(1.0, 7.0, 0.0).Bary(p1, p2, w));
    EXPECT_EQ(w[0], 0.25);  // the second point's
    EXPECT_EQ(w[1], 0.75);
    EXPECT_TRUE(gsl_Point(-0.9e-6, 0.0, 0.0).Bary(p1, p2, w));
    EXPECT_FALSE(gsl_Point(-1.1e-6, 0.0, 0.0).Bary(p1, p2, w));
    EXPECT_FALSE(gsl_Point(6.0, 0.0, 0.0).Bary(p1, p2, w));
    EXPECT_EQ(w[0], 1.5);
    EXPECT_EQ(w[1], -0.5);

    const gsl_Point near(1e-6, 0.0, 0.0);  // p1 and near are too close to span a line
    EXPECT_TRUE(near.Bary(p1, near, w));
    EXPECT_EQ(w[0], 0.0);
    EXPECT_EQ(w[1], 1.0);
    w[0] = w[1] = 5.0;
    EXPECT_FALSE(gsl_Point(2e-6, 0.0, 0.0).Bary(p1, near, w));
    EXPECT_EQ(w[0], 5.0);
    EXPECT_EQ(w[1], 5.0);
}

TEST(gsl_Point, TriangleWeightsReconstructTheProjection) {
    RandomGeometry random(20211);
    SCOPED_TRACE(random.Seed());
    for (int n = 0; n < 500; ++n) {
        const gsl_Point p1 = random.Point(), p2 = random.Point(), p3 = random.Point(), p = random.Point();
        const gsl_Vector normal(p1, p2, p3);
        if ((p2 - p1).CrossProduct(p3 - p1).Length() < 1.0) continue;
        double w[3];
        const bool inside = p.Bary(p1, p2, p3, w);
        const gsl_Point foot = p - normal * normal.DotProduct(p - p1);
        EXPECT_NEAR(w[0] + w[1] + w[2], 1.0, 1e-9);
        const gsl_Vector rebuilt = (p1 - gsl_Point()) * w[0] + (p2 - gsl_Point()) * w[1] + (p3 - gsl_Point()) * w[2];
        EXPECT_LT(Difference(gsl_Point() + rebuilt, foot), 1e-9);
        EXPECT_EQ(inside, w[0] >= 0.0 && w[1] >= 0.0 && w[2] >= 0.0);
    }
    double w[3];
    const gsl_Point corner, alongX(1.0, 0.0, 0.0), alongY(0.0, 1.0, 0.0);  // twice the area is 1
    EXPECT_TRUE(gsl_Point(0.5, -1e-13, 0.0).Bary(corner, alongX, alongY, w));
    EXPECT_FALSE(gsl_Point(0.5, -1e-11, 0.0).Bary(corner, alongX, alongY, w));
    EXPECT_TRUE(gsl_Point(1.0, 1.0, 0.0).Bary(gsl_Point(), gsl_Point(), gsl_Point(1.0, 0.0, 0.0), w));
    EXPECT_FALSE(std::isfinite(w[0]) || std::isfinite(w[1]) || std::isfinite(w[2]));
}

TEST(gsl_Point, PrintsFifteenDigitsAndLeavesTheStreamAsItWas) {
    std::ostringstream out;
    out << std::hex << std::showpos << std::fixed << std::setprecision(2) << std::setfill('*');
    gsl_Point(1.0 / 3.0, -2e20, 0.5).Print(out, 2);
    EXPECT_EQ(out.str(), "  x:\t0.333333333333333\ty:\t-2e+20\tz:\t0.5\n");
    out.str("");
    gsl_Vector(3.0, 4.0, 0.0).Print(out, 1);
    EXPECT_EQ(out.str(), " magnitude:\t5\n x:\t3\ty:\t4\tz:\t0\n");
    out.str("");
    out << gsl_Point(0.5, 1.0, -1.0) << gsl_Vector(0.0, 0.125, 2.0);
    EXPECT_EQ(out.str(), "(+0.50, +1.00, -1.00)(+0.00, +0.12, +2.00)");
}

TEST(gsl_Point, ConvertsToArraysBindsAndHashesExactCoordinates) {
    const std::array xyz{1.0, 2.0, 3.0};
    const gsl_Point p(xyz);
    const gsl_Vector v(p.AsSpan());
    EXPECT_EQ(v.AsArray(), xyz);
    const auto [px, py, pz] = p;
    const auto [vx, vy, vz] = v;
    EXPECT_EQ((std::array{px, py, pz}), (std::array{vx, vy, vz}));
    EXPECT_EQ(p[0], 1.0);
    EXPECT_EQ(p[1], p.GetY());
    EXPECT_EQ(p[99], 3.0);

    std::unordered_set<gsl_Point, std::hash<gsl_Point>, gsl_SameCoordinates> exact{gsl_Point(0.0, 1.0, 2.0)};
    EXPECT_TRUE(exact.contains(gsl_Point(-0.0, 1.0, 2.0)));
    EXPECT_FALSE(exact.contains(gsl_Point(1e-9, 1.0, 2.0)));  // equal within the tolerance, yet another key
    EXPECT_FALSE(exact.contains(gsl_Point(1.0, 0.0, 2.0)));
    EXPECT_EQ(std::hash<gsl_Vector>{}({-0.0, 1.0, 2.0}), std::hash<gsl_Vector>{}({0.0, 1.0, -0.0 + 2.0}));
}

}  // namespace
