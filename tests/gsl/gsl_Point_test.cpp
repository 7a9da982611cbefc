// Protects points: identity through copies, the strict and inclusive comparisons, barycentric weights, output.
#include <base/cls_ClassRegistrar.h>
#include <support/RandomGeometry.h>

#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>
#include <unordered_set>

namespace {

TEST(gsl_Point, IdentityFollowsCopiesAndIsFreshForComputedPoints) {
    static_assert(std::is_polymorphic_v<gsl_Point> && std::has_virtual_destructor_v<gsl_Point>);
    const gsl_Point a(1.0, 2.0, 3.0), b(3.0, 6.0, -1.0), middle(a, b), sum(a, 2.0, b, -1.0);
    EXPECT_EQ(middle.AsArray(), (std::array{2.0, 4.0, 1.0}));
    EXPECT_EQ(sum.AsArray(), (std::array{-1.0, -2.0, 7.0}));
    EXPECT_EQ(a.Uid(), cls_Uid());
    EXPECT_FALSE(middle.Uid() == cls_Uid() || sum.Uid() == cls_Uid() || middle.Uid() == sum.Uid());
    gsl_Point copy(middle);
    copy.SetPos(sum);
    copy.Transform(gsl_Matrix());
    EXPECT_EQ(copy.Uid(), middle.Uid());
    EXPECT_EQ(copy.AsArray(), sum.AsArray());
    copy = sum;
    EXPECT_EQ(copy.Uid(), sum.Uid());
    EXPECT_EQ((sum + gsl_Vector()).Uid(), cls_Uid());
    EXPECT_EQ(sum.PointAtDistInDirection(2.0, kZ * 5e-7).Uid(), sum.Uid());
    EXPECT_EQ(sum.PointAtDistInDirection(2.0, kZ * -4.0).AsArray(), (std::array{-1.0, -2.0, 5.0}));
    EXPECT_EQ(sum.PointAtDistInDirection(2.0, kZ * -4.0).Uid(), cls_Uid());
    cls_ClassRegistrar registrar;
    gsl_Point::InitializeMetadata(registrar);
    const auto destroy = registrar.Find(gsl_Point::TypeId())->cowDtor;  // by the untyped address alone
    destroy(new gsl_Point(a));
    destroy(nullptr);
}

TEST(gsl_Point, EqualityIncludesTheBoundaryAndIsOnDoesNot) {
    const gsl_Point origin, at(1e-6, 0.0, 0.0), odd(kNaN, 0.0, 0.0);
    EXPECT_TRUE(origin == at);
    EXPECT_FALSE(origin.IsOn(at));
    EXPECT_TRUE(origin.IsOn({std::nextafter(1e-6, 0.0), 0.0, 0.0}));
    EXPECT_TRUE(origin != gsl_Point(1.1e-6, 0.0, 0.0));
    EXPECT_TRUE(odd == odd);
    EXPECT_FALSE(odd == gsl_Point(odd));
    EXPECT_FALSE(odd.IsOn(odd));
}

TEST(gsl_Point, OrderingIsPerAxis) {
    const gsl_Point base(1.0, 2.0, 3.0);
    for (unsigned axis = 0; axis < 3; ++axis) {
        gsl_Point p = base + gsl_Vector(0.5, 0.5, 0.5);
        EXPECT_TRUE(p > base && p >= base);
        p[axis] = base[axis];
        EXPECT_TRUE(!(p > base) && p >= base);
        p[axis] = kNaN;
        EXPECT_TRUE(!(p > base) && p >= base);
        p[axis] = base[axis] - 0.5;
        EXPECT_FALSE(p > base || p >= base);
    }
}

TEST(gsl_Point, LineWeightsReconstructTheProjectionInSwappedOrder) {
    // The point, the end of the line from the origin along x, whether within, the weights.
    const std::tuple<gsl_Point, double, bool, std::array<double, 2>> cases[] = {
        {gsl_Point(1.0, 7.0, 0.0), 4.0, true, {0.25, 0.75}},  // the first weight is the second point's
        {gsl_Point(6.0, 0.0, 0.0), 4.0, false, {1.5, -0.5}},
        {gsl_Point(-0.9e-6, 0.0, 0.0), 4.0, true, {-2.25e-7, 1.0 + 2.25e-7}},
        {gsl_Point(-1.1e-6, 0.0, 0.0), 4.0, false, {-2.75e-7, 1.0 + 2.75e-7}},
        {gsl_Point(1e-6, 0.0, 0.0), 1e-6, true, {0.0, 1.0}},   // too short to be a line
        {gsl_Point(2e-6, 0.0, 0.0), 1e-6, false, {5.0, 5.0}},  // and then not touched
    };
    for (const auto& [point, end, inside, weights] : cases) {
        double found[2] = {5.0, 5.0};
        EXPECT_EQ(point.Bary({}, {end, 0.0, 0.0}, found), inside) << point;
        for (const std::size_t k : {0U, 1U}) EXPECT_DOUBLE_EQ(found[k], weights[k]) << point;
    }
}

TEST(gsl_Point, TriangleWeightsReconstructTheProjection) {
    RandomGeometry random(20211);
    double w[3];
    for (int n = 0; n < 500; ++n) {
        const gsl_Point p1 = random.Point(), p2 = random.Point(), p3 = random.Point(), p = random.Point();
        const gsl_Vector normal(p1, p2, p3);
        if ((p2 - p1).CrossProduct(p3 - p1).Length() < 1.0) continue;
        const bool inside = p.Bary(p1, p2, p3, w);
        EXPECT_EQ(inside, w[0] >= 0.0 && w[1] >= 0.0 && w[2] >= 0.0);
        EXPECT_NEAR(w[0] + w[1] + w[2], 1.0, 1e-9);
        const gsl_Point foot = p - normal * normal.DotProduct(p - p1);
        EXPECT_LT(Difference(p1 + (p2 - p1) * w[1] + (p3 - p1) * w[2], foot), 1e-9);
    }
    const gsl_Point corner, alongX(1.0, 0.0, 0.0), alongY(0.0, 1.0, 0.0);  // twice the area is 1
    EXPECT_TRUE(gsl_Point(0.5, -1e-13, 0.0).Bary(corner, alongX, alongY, w));
    EXPECT_FALSE(gsl_Point(0.5, -1e-11, 0.0).Bary(corner, alongX, alongY, w));
    EXPECT_TRUE(gsl_Point(1.0, 1.0, 0.0).Bary(corner, corner, alongX, w));
    EXPECT_FALSE(std::isfinite(w[0]) || std::isfinite(w[1]) || std::isfinite(w[2]));
}

TEST(gsl_Point, PrintsFifteenDigitsAndLeavesTheStreamAsItWas) {
    std::ostringstream out;
    out << std::hex << std::showpos << std::fixed << std::setprecision(2) << std::setfill('*');
    gsl_Point(1.0 / 3.0, -2e20, 0.5).Print(out, 2);
    gsl_Vector(3.0, 4.0, 0.0).Print(out, 1);
    out << gsl_Point(0.5, 1.0, -1.0) << gsl_Vector(0.0, 0.125, 2.0);
    EXPECT_EQ(out.str(),
              "  x:\t0.333333333333333\ty:\t-2e+20\tz:\t0.5\n"
              " magnitude:\t5\n x:\t3\ty:\t4\tz:\t0\n"
              "(+0.50, +1.00, -1.00)(+0.00, +0.12, +2.00)");
}

TEST(gsl_Point, ConvertsToArraysBindsAndHashesExactCoordinates) {
    const std::array xyz{1.0, 2.0, 3.0};
    const gsl_Point p(xyz);
    const gsl_Vector v(p.AsSpan());
    const auto [px, py, pz] = p;
    const auto [vx, vy, vz] = v;
    EXPECT_EQ((std::array{px, py, pz}), xyz);
    EXPECT_EQ((std::array{vx, vy, vz}), xyz);
    EXPECT_EQ((std::array{p[0], p.GetY(), p[99]}), xyz);
    EXPECT_EQ((std::array{v[0], v[1], v[99]}), xyz);
    std::unordered_set<gsl_Point, std::hash<gsl_Point>, gsl_SameCoordinates> exact{gsl_Point(0.0, 1.0, 2.0)};
    EXPECT_TRUE(exact.contains(gsl_Point(-0.0, 1.0, 2.0)));
    EXPECT_FALSE(exact.contains(gsl_Point(1e-9, 1.0, 2.0)));  // equal within the tolerance, yet another key
    EXPECT_FALSE(exact.contains(gsl_Point(1.0, 0.0, 2.0)));
    EXPECT_EQ(std::hash<gsl_Vector>{}({-0.0, 1.0, 2.0}), std::hash<gsl_Vector>{}({0.0, 1.0, 2.0}));
}

}  // namespace
