// Protects vectors: the identities of vector algebra, the length cache, strictness of comparisons, angles.
#include <gsl/gsl_Matrix.h>
#include <gsl/gsl_PersistentVector.h>
#include <gsl/gsl_Point.h>
#include <gsl/gsl_Vector.h>
#include <support/RandomGeometry.h>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <numbers>

namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// A vector with a cache that tells whether it was used: (3, 4, 0) claims to be 7 long.
struct Liar : gsl_Vector {
    Liar() { FromCoordinates(3.0, 4.0, 0.0, 7.0); }
};

TEST(gsl_Vector, CacheIsKeptDroppedOrFilledAsPromised) {
    static_assert(!std::is_polymorphic_v<gsl_Vector> && std::is_trivially_copyable_v<gsl_Vector>);
    EXPECT_EQ(gsl_Vector().AsArray(), (std::array{0.0, 0.0, 1.0}));
    EXPECT_EQ(gsl_Vector().Length(), 1.0);
    const Liar liar;
    const struct {
        const char* what;
        std::function<gsl_Vector(gsl_Vector)> apply;
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

TEST(gsl_Vector, ProductsAgreeWithLongDoubleAndKeepTheirIdentities) {
    RandomGeometry random(20212);
    SCOPED_TRACE(random.Seed());
    for (int n = 0; n < 500; ++n) {
        const gsl_Vector a = random.Vector(), b = random.Vector(), c = random.Vector(), d = random.Vector();
        const gsl_Vector cross = a.CrossProduct(b);
        long double dot = 0.0L;
        for (unsigned i = 0; i < 3; ++i) {
            const unsigned j = (i + 1) % 3, k = (i + 2) % 3;
            dot += static_cast<long double>(a[i]) * b[i];
            const long double expected = static_cast<long double>(a[j]) * b[k] - static_cast<long double>(a[k]) * b[j];
            EXPECT_NEAR(cross[i], static_cast<double>(expected), 1e-13);
        }
        EXPECT_NEAR(a.DotProduct(b), static_cast<double>(dot), 1e-13);
        EXPECT_NEAR(cross.DotProduct(a), 0.0, 1e-11);
        EXPECT_NEAR(a.TripleProduct(b, c), c.TripleProduct(a, b), 1e-10);
        EXPECT_NEAR(a.TripleProduct(b, c), -b.TripleProduct(a, c), 1e-10);
        // Binet and Cauchy; Jacobi
        EXPECT_NEAR(cross.DotProduct(c.CrossProduct(d)),
                    a.DotProduct(c) * b.DotProduct(d) - a.DotProduct(d) * b.DotProduct(c), 1e-9);
        const gsl_Vector jacobi =
            a.CrossProduct(b.CrossProduct(c)) + b.CrossProduct(c.CrossProduct(a)) + c.CrossProduct(a.CrossProduct(b));
        EXPECT_LT(jacobi.Length(), 1e-10);
        // The angle by the tangent, which is exact where the cosine is not.
        const long double tangent = std::atan2(static_cast<long double>(cross.Length()), dot);
        EXPECT_NEAR(a.AngleWith(b, false), static_cast<double>(tangent), 1e-7);
        EXPECT_NEAR(a.NormalizedCopy().AngleWith(b.NormalizedCopy(), true), static_cast<double>(tangent), 1e-7);
        EXPECT_NEAR(a.AngleWith(b, false, c) + b.AngleWith(a, false, c), 2.0 * kPi, 1e-12);
    }
}

TEST(gsl_Vector, NormalizeRefusesOnlyBelowTheTolerance) {
    gsl_Vector tiny(1e-7, 0.0, 0.0), half(0.0, 0.5, 0.0), least(1e-6, 0.0, 0.0);
    EXPECT_FALSE(tiny.Normalize());
    EXPECT_EQ(tiny.AsArray(), (std::array{1e-7, 0.0, 0.0}));
    EXPECT_EQ(tiny.NormalizedCopy().AsArray(), (std::array{0.0, 0.0, 0.0}));
    EXPECT_FALSE(half.Normalize(std::nextafter(0.5, 1.0)));
    EXPECT_TRUE(half.Normalize(0.5));
    EXPECT_EQ(half.AsArray(), (std::array{0.0, 1.0, 0.0}));
    EXPECT_TRUE(least.Normalize());
    EXPECT_EQ(gsl_Vector(0.0, 0.0, 0.0).UnitX(), 0.0);
}

TEST(gsl_Vector, ComparisonsAreStrictOrInclusiveAsDeclared) {
    const gsl_Vector zero(0.0, 0.0, 0.0), x(1.0, 0.0, 0.0), slanted(3.0, 4.0, 0.0), odd(kNaN, 0.0, 0.0);
    EXPECT_FALSE(zero == gsl_Vector(1e-6, 0.0, 0.0));
    EXPECT_TRUE(zero == gsl_Vector(0.99e-6, 0.0, 0.0));
    EXPECT_TRUE(odd == odd);
    EXPECT_TRUE(odd != gsl_Vector(odd));
    EXPECT_FALSE(x.IsOn(slanted, 0.8));  // the sine is exactly 4/5
    EXPECT_TRUE(x.IsOn(slanted, 0.8125));
    EXPECT_TRUE(x.IsOn(x * -2.0, 1e-9));
    EXPECT_FALSE(x.IsOn(zero, 1.0));
    EXPECT_TRUE(x.IsOrthogonal({0.9e-10, -1.0, 0.0}));
    EXPECT_FALSE(x.IsOrthogonal({1e-10, 1.0, 0.0}));
    EXPECT_FALSE(x.IsOrthogonal(zero));
    const gsl_Vector y(0.0, 1.0, 0.0);
    EXPECT_TRUE(x.SameDirection(y, 1.0));  // components differ by exactly 1
    EXPECT_FALSE(x.SameDirection(y, 0.9999));
    EXPECT_TRUE(slanted.SameDirection(slanted * 3.0, 1e-15));
    EXPECT_FALSE(slanted.SameDirection(slanted * -3.0, 0.5));
    EXPECT_TRUE(slanted.IsParallel(slanted * -3.0, 1e-15));
    EXPECT_FALSE(slanted.IsParallel(x, 0.25));
}

TEST(gsl_Vector, AngleHasItsFallbacksAndFollowsTheReference) {
    const gsl_Vector zero(0.0, 0.0, 0.0), x(1.0, 0.0, 0.0), y(0.0, 1.0, 0.0), z, down(0.0, 0.0, -1.0);
    EXPECT_EQ(zero.AngleWith(x, false), kPi / 2.0);
    EXPECT_EQ(x.AngleWith(x * 1e-6, false), kPi / 2.0);  // too short, though parallel
    EXPECT_EQ((x * 1e-6).AngleWith(x, false), kPi / 2.0);
    EXPECT_EQ(x.AngleWith(x, true), 0.0);
    EXPECT_EQ(x.AngleWith(x * -1.0, true), kPi);
    EXPECT_EQ((x * 2.0).AngleWith(x, true), 0.0);  // believed to be units
    EXPECT_EQ(x.AngleWith(y, false, z), kPi / 2.0);
    EXPECT_EQ(x.AngleWith(y, false, down), 2.0 * kPi - kPi / 2.0);
    EXPECT_EQ(x.AngleWith(y, false, x), kPi / 2.0);
}

TEST(gsl_Vector, AngleBetweenUndoesARotation) {
    RandomGeometry random(20213);
    SCOPED_TRACE(random.Seed());
    for (int n = 0; n < 500; ++n) {
        const gsl_Vector axis = random.Vector(), a = random.Vector();
        if (axis.CrossProduct(a).Length() < 0.1 * axis.Length() * a.Length()) continue;
        const double angle = random.Angle();
        gsl_Matrix rotation;
        rotation.AxisRotation(axis, angle);
        gsl_Vector b = a * 3.0;
        b.RotateAndTransform(rotation);
        double found = 99.0;
        ASSERT_TRUE(axis.AngleBetween(a, b, found));
        EXPECT_NEAR(found, angle, 1e-9);
    }
    const gsl_Vector z, x(1.0, 0.0, 0.0);
    double untouched = 99.0;
    EXPECT_FALSE(z.AngleBetween(x, {1.0, 0.0, 0.5}, untouched));
    EXPECT_FALSE(z.AngleBetween({0.0, 0.0, 0.0}, x, untouched));
    EXPECT_FALSE(z.AngleBetween(x, {0.0, 5e-7, 0.0}, untouched));
    EXPECT_EQ(untouched, 99.0);
}

TEST(gsl_Vector, NormalOfThreePointsIsUnitOrZero) {
    gsl_Vector normal;
    EXPECT_TRUE(gsl_NormalToThreePoints({}, {2.0, 0.0, 0.0}, {2.0, 3.0, 0.0}, normal));
    EXPECT_EQ(normal.AsArray(), (std::array{0.0, 0.0, 1.0}));
    EXPECT_FALSE(gsl_NormalToThreePoints({}, {1.0, 1.0, 1.0}, {3.0, 3.0, 3.0}, normal));
    EXPECT_EQ(normal.AsArray(), (std::array{0.0, 0.0, 0.0}));
    EXPECT_EQ(normal.Length(), 0.0);
    // a = (1, 0, 0), b = (1, 1e-10, 0): the sine is at the tolerance, which belongs to the collinear ones
    EXPECT_FALSE(gsl_NormalToThreePoints({}, {1.0, 0.0, 0.0}, {2.0, 1e-10, 0.0}, normal));
    EXPECT_TRUE(gsl_NormalToThreePoints({}, {1.0, 0.0, 0.0}, {2.0, 1.1e-10, 0.0}, normal));
}

TEST(gsl_Vector, OrthogonalVectorsAreOrthogonal) {
    RandomGeometry random(20214);
    SCOPED_TRACE(random.Seed());
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
    EXPECT_EQ(gsl_Vector(0.0, 0.0, 2.0).BestAlignedOrthogonalUnit().AsArray(), (std::array{4.0, 0.0, 0.0}));
    EXPECT_NEAR(gsl_Vector(1e-4, 0.0, 1.0).BestAlignedOrthogonalUnit().X(), 1.0, 1e-7);  // y is longer, but by 5e-9
    EXPECT_EQ(gsl_Vector(2.0, 0.0, 0.0).BestAlignedOrthogonalUnit().AsArray(), (std::array{0.0, 4.0, 0.0}));
    EXPECT_EQ(gsl_Vector(0.0, 0.0, 0.0).BestAlignedOrthogonalUnit().Length(), 0.0);
}

TEST(gsl_Vector, LinesIntersectWithinTheToleranceUnlessParallel) {
    RandomGeometry random(20215);
    SCOPED_TRACE(random.Seed());
    for (int n = 0; n < 500; ++n) {
        const gsl_Vector d1 = random.Vector(), d2 = random.Vector();
        if (d1.CrossProduct(d2).Length() < 0.1 * d1.Length() * d2.Length()) continue;
        const gsl_Point meeting = random.Point();
        gsl_Point found;
        const gsl_Point p1 = meeting + d1 * random.Number(-3.0, 3.0), p2 = meeting + d2 * random.Number(-3.0, 3.0);
        ASSERT_TRUE(Intersection(d1, p1, d2, p2, found));
        EXPECT_LT(Difference(found, meeting), 1e-10);
    }
    const gsl_Vector x(1.0, 0.0, 0.0), y(0.0, 1.0, 0.0), zero(0.0, 0.0, 0.0);
    gsl_Point out(9.0, 9.0, 9.0);
    EXPECT_FALSE(Intersection(x, {}, y, {5.0, 0.0, 1.1e-6}, out));
    EXPECT_FALSE(Intersection(x, {}, x * -2.0, {}, out));
    EXPECT_FALSE(Intersection(x, {}, zero, {}, out));
    EXPECT_EQ(out.AsArray(), (std::array{9.0, 9.0, 9.0}));
    EXPECT_TRUE(Intersection(x, {}, y, {5.0, 0.0, 1e-6}, out));
    EXPECT_EQ(out.AsArray(), (std::array{5.0, 0.0, 0.0}));
}

}  // namespace
