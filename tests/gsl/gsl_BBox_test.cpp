// Protects boxes as sets of points, the empty one included: against counting lattice points, and at each boundary.
#include <g3d/g3d_Sphere.h>
#include <gsl/gsl_BBox.h>
#include <support/RandomGeometry.h>
#include <support/streams.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace {

TEST(gsl_BBox, IsTheSetOfItsPoints) {
    RandomGeometry random(20501);
    const auto corner = [&](double least) {
        const auto whole = [&] { return std::floor(random.Number(least, least + 4.0)); };
        return gsl_Point(whole(), whole(), whole());
    };
    for (int n = 0; n < 400; ++n) {
        const gsl_BBox a(corner(0.0), corner(2.0)), b(corner(0.0), corner(2.0));
        std::vector<gsl_Point> ofA, ofB;  // boxes with whole corners are told by their lattice points
        gsl_BBox both = a, all;
        both.Add(b);
        for (int k = 0; k < 216; ++k) {
            const gsl_Point p(k % 6, k / 6 % 6, k / 36);
            if (p >= a.Low() && a.High() >= p) ofA.push_back(p);
            if (p >= b.Low() && b.High() >= p) ofB.push_back(p);
            if (a.ContainsPoint(p) || b.ContainsPoint(p)) all.Add(p);
        }
        const auto inA = [&](const gsl_Point& p) { return a.ContainsPoint(p); };
        const auto inB = [&](const gsl_Point& p) { return b.ContainsPoint(p); };
        const bool aInB = std::all_of(ofA.begin(), ofA.end(), inB), bInA = std::all_of(ofB.begin(), ofB.end(), inA);
        double nearest = kInfinity;
        for (const gsl_Point& p : ofA)
            for (const gsl_Point& q : ofB) nearest = std::min(nearest, p.GetDistance(q));
        EXPECT_EQ(a.IsEmpty(), ofA.empty());
        EXPECT_EQ(a.ContainsBox(b), bInA);
        EXPECT_EQ(BoxBoxContainment(a, b), bInA ? 1 : aInB ? -1 : 0);
        EXPECT_EQ(a.Intersect(b), nearest == 0.0);
        EXPECT_TRUE(nearest == kInfinity || BoxBoxDistance(a, b) == nearest);
        EXPECT_TRUE(both == all || (both.IsEmpty() && all.IsEmpty()));
    }
}

TEST(gsl_BBox, BoundariesAndBadNumbers) {
    const auto at = [](double x) { return gsl_BBox({x, 0.0, 0.0}, {x, 0.0, 0.0}); };
    const double above = std::nextafter(1.0, 2.0);
    const gsl_BBox empty, unit({}, {1.0, 1.0, 1.0}), odd({kNaN, 0.0, 0.0}, {1.0, 1.0, 1.0}), two({}, {2.0, 2.0, 2.0});
    EXPECT_EQ((std::array{empty.Size(), at(7.0).Size()}), (std::array{-1.0, 0.0}));
    EXPECT_TRUE(at(0.0).ContainsPoint({1e-10, -1e-10, 0.0}));
    for (const double beyond : {std::nextafter(1e-10, 1.0), std::nextafter(-1e-10, -1.0), kNaN})
        EXPECT_FALSE(at(0.0).ContainsPoint({0.0, beyond, 0.0}));
    EXPECT_TRUE(unit.Intersect({{1.0, 1.0, 1.0}, two.High()}));
    EXPECT_FALSE(unit.Intersect({{1.0, above, 1.0}, two.High()}));  // a gap of one rounding
    EXPECT_EQ(BoxBoxDistance(unit, {{1.0, above, 1.0}, two.High()}), above - 1.0);
    EXPECT_TRUE(at(0.0) == at(1e-6) && at(0.0) != at(1.1e-6));
    EXPECT_TRUE(at(1e-6).SphereContainsBox({}) && !at(1.0000001e-6).SphereContainsBox({}));  // of radius 0
    EXPECT_FALSE(odd.IsEmpty() || odd.ContainsPoint({1.0, 1.0, 1.0}) || two.ContainsBox(odd));
    EXPECT_FALSE(odd.SphereContainsBox({{}, 9.0F}) || odd.SphereContainsBox(odd.GetExtent()));
    EXPECT_EQ(gsl_BBox({}, {1e300, 0.0, 0.0}).GetExtent().Radius(), std::numeric_limits<float>::infinity());
    EXPECT_TRUE(empty.SphereContainsBox({}) && empty.GetExtent() == g3d_Sphere());
}

TEST(gsl_BBox, ExtentAndTransformedBoxAreTightAndCornersPersist) {
    RandomGeometry random(20502);
    for (int n = 0; n < 300; ++n) {
        gsl_BBox box, kept;
        for (const double offset : {0.0, n % 2 == 0 ? 1.0 : 1e4}) box.Add(random.Point() + random.Vector() * offset);
        EXPECT_TRUE(box.SphereContainsBox(box.GetExtent()));
        EXPECT_NEAR(box.GetExtent().Radius(), box.Size() / 2.0, box.Size() * 1e-6);
        const gsl_Matrix m = random.General();
        gsl_Point center = box.Center();
        center.Transform(m);
        const gsl_Vector d = box.Diag(), x = m.NewXAxis() * d.X(), y = m.NewYAxis() * d.Y(), z = m.NewZAxis() * d.Z();
        box.Transform(m);
        kept.Transform(m);
        for (const unsigned i : {0U, 1U, 2U})
            EXPECT_NEAR(box.Diag()[i], std::abs(x[i]) + std::abs(y[i]) + std::abs(z[i]), d.Length() * 1e-14);
        EXPECT_LT(Difference(box.Center(), center), d.Length() * 1e-14);
        EXPECT_TRUE(kept.IsEmpty());
    }
    cls_ClassRegistrar registrar;
    gsl_Point::InitializeMetadata(registrar);
    gsl_BBox::InitializeMetadata(registrar);
    std::ostringstream out;
    RoundTrip(registrar, gsl_BBox({1.0, 2.0, 3.0}, {4.0, 5.0, 6.5})).Print(out, 1);
    EXPECT_EQ(out.str(), " x:\t1\ty:\t2\tz:\t3\n x:\t4\ty:\t5\tz:\t6.5\n");
    EXPECT_TRUE(gsl_BBox(cls_ReadVisitor(nullptr)).IsEmpty());
}

}  // namespace
