// Protects vectors: the identities of vector algebra, the length cache, strictness of comparisons, angles.
#include <gsl/gsl_PersistentVector.h>
#include <support/RandomGeometry.h>

#include <gtest/gtest.h>

namespace {

/// A vector with a cache that tells whether it was used: (3, 4, 0) claims to be 7 long.
struct Liar : gsl_Vector {
    Liar() { FromCoordinates(3.0, 4.0, 0.0, 7.0); }
};

TEST(gsl_Vector, CacheIsKeptDroppedOrFilledAsPromised) {
    static_assert(!std::is_polymorphic_v<gsl_Vector> && std::is_trivially_copyable_v<gsl_Vector>);
    EXPECT_EQ(gsl_Vector().AsArray(), kZ.AsArray());
    EXPECT_EQ(gsl_Vector().Length(), 1.0);
    const Liar liar;
    const struct {
        const char* what;
        gsl_Vector (*apply)(gsl_Vector);
        double length;
    } cases[] = {
        {"copy", [](gsl_Vector v) { return v; }, 7.0},
        {"negate", [](gsl_Vector v) { return v.Negate(), v; }, 7.0},
        {"scale", [](gsl_Vector v) { return v.Scale(-2.0), v; }, 14.0},
        {"write", [](gsl_Vector v) { return v[0] = 0.0, v; }, 4.0},
        {"sum", [](gsl_Vector v) { return v + v; }, 10.0},
        {"difference", [](gsl_Vector v) { return v - gsl_Vector(3.0, 0.0, 0.0); }, 4.0},
        {"multiple", [](gsl_Vector v) { return v * 2.0; }, 10.0},
        {"cross", [](gsl_Vector v) { return v.CrossProduct(gsl_Vector()); }, 5.0},
        {"transform", [](gsl_Vector v) { return v.RotateAndTransform(gsl_Matrix()), v; }, 5.0},
        {"normalize", [](gsl_Vector v) { return v.Normalize(), v; }, 1.0},
        {"normalized copy", [](gsl_Vector v) { return v.NormalizedCopy() * 7.0; }, 5.0},
    };
    for (const auto& c : cases) EXPECT_DOUBLE_EQ(c.apply(liar).Length(), c.length) << c.what;
    EXPECT_EQ(liar.LengthSq(), 49.0);
    EXPECT_EQ(liar.UnitY(), 4.0 / 7.0);
    gsl_PersistentVector persistent(1.0, 2.0, 3.0);
    persistent = liar;
    EXPECT_EQ(persistent.Length(), 7.0);
    EXPECT_EQ(persistent.Uid(), cls_Uid());
}

TEST(gsl_Vector, ProductsAndAnglesAgreeWithLongDouble) {
    RandomGeometry random(20212);
    for (int n = 0; n < 500; ++n) {
        const gsl_Vector a = random.Vector(), b = random.Vector(), c = random.Vector();
        const gsl_Vector cross = a.CrossProduct(b);
        long double dot = 0.0L;
        for (unsigned i = 0; i < 3; ++i) {
            const unsigned j = (i + 1) % 3, k = (i + 2) % 3;
            dot += static_cast<long double>(a[i]) * b[i];
            const long double expected = static_cast<long double>(a[j]) * b[k] - static_cast<long double>(a[k]) * b[j];
            EXPECT_NEAR(cross[i], static_cast<double>(expected), 1e-13);
        }
        EXPECT_NEAR(a.DotProduct(b), static_cast<double>(dot), 1e-13);
        EXPECT_NEAR(a.TripleProduct(b, c), cross.DotProduct(c), 1e-10);
        // The angle by the tangent, which is exact where the cosine is not.
        const long double tangent = std::atan2(static_cast<long double>(cross.Length()), dot);
        EXPECT_NEAR(a.AngleWith(b, false), static_cast<double>(tangent), 1e-7);
        EXPECT_NEAR(a.NormalizedCopy().AngleWith(b.NormalizedCopy(), true), static_cast<double>(tangent), 1e-7);
        EXPECT_NEAR(a.AngleWith(b, false, c) + b.AngleWith(a, false, c), 2.0 * kPi, 1e-12);
    }
}

TEST(gsl_Vector, NormalizeRefusesOnlyBelowTheTolerance) {
    gsl_Vector tiny = kX * 1e-7, half = kY * 0.5, least = kX * 1e-6;
    EXPECT_FALSE(tiny.Normalize());
    EXPECT_EQ(tiny.X(), 1e-7);
    EXPECT_EQ(tiny.NormalizedCopy().AsArray(), kZero.AsArray());
    EXPECT_FALSE(half.Normalize(std::nextafter(0.5, 1.0)));
    EXPECT_TRUE(half.Normalize(0.5));
    EXPECT_EQ(half.AsArray(), kY.AsArray());
    EXPECT_TRUE(least.Normalize());
    EXPECT_EQ(kZero.UnitX(), 0.0);
}

TEST(gsl_Vector, ComparisonsAreStrictOrInclusiveAsDeclared) {
    const gsl_Vector slanted(3.0, 4.0, 0.0), odd(kNaN, 0.0, 0.0);
    EXPECT_TRUE(kZero == kX * 0.99e-6 && kZero != kX * 1e-6);
    EXPECT_TRUE(odd == odd && odd != gsl_Vector(odd));
    EXPECT_TRUE(kX.IsOn(slanted * -2.0, 0.8125) && !kX.IsOn(slanted, 0.8));  // the sine is exactly 4/5
    EXPECT_TRUE(kX.IsOrthogonal({0.9e-10, -1.0, 0.0}) && !kX.IsOrthogonal({1e-10, 1.0, 0.0}));
    EXPECT_FALSE(kX.IsOn(kZero, 1.0) || kX.IsOrthogonal(kZero));
    EXPECT_TRUE(kX.SameDirection(kY, 1.0) && !kX.SameDirection(kY, 0.9999));  // components differ by exactly 1
    EXPECT_FALSE(slanted.SameDirection(slanted * -3.0, 0.5));
    for (const double factor : {3.0, -3.0}) EXPECT_TRUE(slanted.IsParallel(slanted * factor, 1e-15));
    EXPECT_FALSE(slanted.IsParallel(kX, 0.25));
}

TEST(gsl_Vector, AngleHasItsFallbacksAndFollowsTheReference) {
    EXPECT_EQ(kX.AngleWith(kX * 1e-6, false), kPi / 2.0);  // too short, though parallel
    EXPECT_EQ((kX * 1e-6).AngleWith(kX, false), kPi / 2.0);
    EXPECT_EQ(kX.AngleWith(kX * -1.0, true), kPi);
    EXPECT_EQ((kX * 2.0).AngleWith(kX, true), 0.0);  // believed to be units
    EXPECT_EQ(kX.AngleWith(kY, false, kZ), kPi / 2.0);
    EXPECT_EQ(kX.AngleWith(kY, false, kZ * -1.0), 2.0 * kPi - kPi / 2.0);
    EXPECT_EQ(kX.AngleWith(kY, false, kX), kPi / 2.0);
}

TEST(gsl_Vector, AngleBetweenUndoesARotation) {
    RandomGeometry random(20213);
    double found = 99.0;
    EXPECT_FALSE(kZ.AngleBetween(kX, {1.0, 0.0, 0.5}, found));
    EXPECT_FALSE(kZ.AngleBetween(kZero, kX, found));
    EXPECT_FALSE(kZ.AngleBetween(kX, kY * 5e-7, found));
    EXPECT_EQ(found, 99.0);
    for (int n = 0; n < 500; ++n) {
        const gsl_Vector axis = random.Vector(), a = random.Vector();
        if (axis.CrossProduct(a).Length() < 0.1 * axis.Length() * a.Length()) continue;
        const double angle = random.Angle();
        gsl_Matrix rotation;
        rotation.AxisRotation(axis, angle);
        gsl_Vector b = a * 3.0;
        b.RotateAndTransform(rotation);
        ASSERT_TRUE(axis.AngleBetween(a, b, found));
        EXPECT_NEAR(found, angle, 1e-9);
    }
}

TEST(gsl_Vector, NormalOfThreePointsIsUnitOrZero) {
    gsl_Vector normal;
    EXPECT_TRUE(gsl_NormalToThreePoints({}, {2.0, 0.0, 0.0}, {2.0, 3.0, 0.0}, normal));
    EXPECT_EQ(normal.AsArray(), kZ.AsArray());
    // a = (1, 0, 0), b = (1, 1e-10, 0): the sine is at the tolerance, which belongs to the collinear ones
    EXPECT_TRUE(gsl_NormalToThreePoints({}, {1.0, 0.0, 0.0}, {2.0, 1.1e-10, 0.0}, normal));
    EXPECT_FALSE(gsl_NormalToThreePoints({}, {1.0, 0.0, 0.0}, {2.0, 1e-10, 0.0}, normal));
    EXPECT_EQ(normal.AsArray(), kZero.AsArray());
    EXPECT_EQ(normal.Length(), 0.0);
}

TEST(gsl_Vector, OrthogonalVectorsAreOrthogonal) {
    RandomGeometry random(20214);
    for (int n = 0; n < 500; ++n) {
        const gsl_Vector v = random.Vector(), any = v.AnyOrthogonalUnit(), best = v.BestAlignedOrthogonalUnit();
        EXPECT_NEAR(any.DotProduct(v), 0.0, 1e-12);
        EXPECT_NEAR(std::hypot(any.X(), any.Y(), any.Z()), 1.0, 1e-15);
        EXPECT_NEAR(best.DotProduct(v), 0.0, 1e-10);
        // The longest projection belongs to the least component; its length is the sine of that axis with v.
        const double least = std::min({std::abs(v.UnitX()), std::abs(v.UnitY()), std::abs(v.UnitZ())});
        EXPECT_NEAR(best.Length(), v.LengthSq() * std::sqrt(1.0 - least * least), 2e-6 * v.LengthSq());
    }
    const gsl_Vector fallback = gsl_Vector(2.0, 2.0, 2.0).AnyOrthogonalUnit();
    EXPECT_DOUBLE_EQ(fallback.X(), std::numbers::sqrt2 / 2.0);
    EXPECT_EQ(fallback.Y(), -fallback.X());
    EXPECT_EQ((kZ * 2.0).BestAlignedOrthogonalUnit().AsArray(), (kX * 4.0).AsArray());
    EXPECT_NEAR(gsl_Vector(1e-4, 0.0, 1.0).BestAlignedOrthogonalUnit().X(), 1.0, 1e-7);  // y is longer, but by 5e-9
    EXPECT_EQ(kZero.BestAlignedOrthogonalUnit().Length(), 0.0);
}

TEST(gsl_Vector, LinesIntersectWithinTheToleranceUnlessParallel) {
    RandomGeometry random(20215);
    gsl_Point out(9.0, 9.0, 9.0);
    EXPECT_FALSE(Intersection(kX, {}, kY, {5.0, 0.0, 1.1e-6}, out));
    EXPECT_FALSE(Intersection(kX, {}, kX * -2.0, {}, out));
    EXPECT_FALSE(Intersection(kX, {}, kZero, {}, out));
    EXPECT_EQ(out.AsArray(), (std::array{9.0, 9.0, 9.0}));
    EXPECT_TRUE(Intersection(kX, {}, kY, {5.0, 0.0, 1e-6}, out));
    EXPECT_EQ(out.AsArray(), (std::array{5.0, 0.0, 0.0}));
    for (int n = 0; n < 500; ++n) {
        const gsl_Vector d1 = random.Vector(), d2 = random.Vector();
        if (d1.CrossProduct(d2).Length() < 0.1 * d1.Length() * d2.Length()) continue;
        const gsl_Point meeting = random.Point();
        const gsl_Point p1 = meeting + d1 * random.Number(-3.0, 3.0), p2 = meeting + d2 * random.Number(-3.0, 3.0);
        ASSERT_TRUE(Intersection(d1, p1, d2, p2, out));
        EXPECT_LT(Difference(out, meeting), 1e-10);
    }
}

}  // namespace
