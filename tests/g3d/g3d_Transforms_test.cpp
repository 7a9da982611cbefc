// Protects the viewing values: single-precision rules of vectors, points and planes to the last bit, matrices against
// double precision, the order of composition, projections, the matrix stack, what streams keep.
#include <g3d/g3d.h>
#include <support/RandomFloats.h>
#include <support/streams.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <tuple>
#include <vector>

namespace {

constexpr float kPi = std::numbers::pi_v<float>;
const g3d_XForm kIdentity;

struct Random : RandomFloats {
    using RandomFloats::RandomFloats;
    g3d_Point Point() { return {Number(), Number(), Number(), Number()}; }

    /// All sixteen elements random; one in each row and column dominates, so it is far from singular.
    g3d_XForm General() {
        g3d_XForm matrix;
        for (int k = 0; k < 16; ++k) matrix.M(0, k) = Number() + (k % 4 == (k / 4 + 1) % 4 ? 5.0F : 0.0F);
        return matrix;
    }
};

/// Greatest difference of elements; NaN when there is one.
double Difference(const g3d_XForm& a, const g3d_XForm& b) {
    double greatest = 0.0;
    for (int k = 0; k < 16; ++k) greatest = std::max(std::abs(static_cast<double>(a.M(0, k)) - b.M(0, k)), greatest);
    return a == a * kIdentity && b == b * kIdentity ? greatest : kNaN;
}

g3d_Point Mapped(const g3d_XForm& matrix, g3d_Point point) {
    matrix.XForm(point);
    return point;
}

TEST(g3d_Vector, NormalizeHasALeastLengthAndWorksInDouble) {
    constexpr float least = std::numeric_limits<float>::min();
    const std::tuple<g3d_Vector, g3d_Vector> rows[] = {
        {{least, 0.0F, 0.0F}, kX},
        {{std::nextafter(least, 0.0F), 0.0F, 0.0F}, kZero},
        {{0.0F, 3e38F, 4e-38F}, {0.0, 1.0, 4.0 / 3.0 * 1e-76}},
        {{3e38F, 3e38F, 0.0F}, {std::sqrt(0.5), std::sqrt(0.5), 0.0}},
        {{3e-30F, 0.0F, -4e-30F}, {0.6F, 0.0F, -0.8F}},
    };
    for (const auto& [from, to] : rows) {
        g3d_Vector vector = from;
        g3d_Normalize(vector);
        EXPECT_EQ(vector, to) << from;
    }
    EXPECT_EQ(g3d_Vector(3e-30F, 0.0F, 4e-30F).Length(), 5e-30F);
    EXPECT_EQ(g3d_Vector(3e38F, 3e38F, 0.0F).Length(), kInfinity);
    g3d_Vector infinite(kInfinity, 1.0F, 0.0F);
    EXPECT_TRUE(std::isnan(infinite.Normalize().X()) && infinite.Y() == 0.0F);
}

TEST(g3d_Vector, AngleSnapsAtItsEnds) {
    const float below = std::nextafter(0.99999F, 0.0F);
    const auto at = [](float cosine) { return g3d_Vector(cosine, 0.0F, 0.0F); };
    const auto arc = [](double cosine) { return static_cast<float>(std::acos(cosine)); };
    const std::tuple<g3d_Vector, bool, float> rows[] = {
        {at(0.99999F), true, 0.0F},      {at(below), true, arc(below)}, {at(-0.99999F), true, 3.1415927F},
        {at(-below), true, arc(-below)}, {at(0.5F), false, 0.0F},       {kZero, false, kPi / 2.0F},
        {at(kNaN), false, kPi / 2.0F},  // no positive length
    };
    for (const auto& [other, alreadyUnit, angle] : rows) EXPECT_EQ(kX.AngleWith(other, alreadyUnit), angle) << other;
    EXPECT_EQ(kZero.AngleWith(kX, false), kPi / 2.0F);
    EXPECT_TRUE(std::isnan(kX.AngleWith(at(kNaN), true)));

    EXPECT_EQ(kX.AngleWith(kY, true, kZ), kPi / 2.0F);
    EXPECT_EQ(kX.AngleWith(kY, false, -1.0F * kZ), 4.712389F);
    const g3d_Vector aLittleClockwise(1.0F, -0.001F, 0.0F);
    EXPECT_EQ(kX.AngleWith(aLittleClockwise, false, kZ), 2.0F * kPi);  // 2 pi less an angle that snapped to 0
}

TEST(g3d_Point, DividesOrMultipliesByTheReciprocal) {
    const g3d_Vector v(5.0F, 7.0F, -5.0F);
    const g3d_Point p(5.0F, 7.0F, -5.0F, 3.0F), atInfinity(2.0F, 4.0F, 6.0F, 0.0F);
    const float third = 1.0F / 3.0F;  // 5 / 3 is not 5 * third
    const g3d_Point multiplied(5.0F * third, 7.0F * third, -5.0F * third);
    EXPECT_EQ(v / 3.0F, v * third);
    EXPECT_EQ(g3d_Point(p).HNormalize(), multiplied);
    EXPECT_EQ(p.Cartesian(), g3d_Point(5.0F / 3.0F, 7.0F / 3.0F, -5.0F / 3.0F));
    EXPECT_EQ(p + kX, multiplied + kX);
    EXPECT_EQ(p - kX, multiplied - kX);
    EXPECT_EQ(p - g3d_Point(), g3d_Vector(5.0F / 3.0F, 7.0F / 3.0F, -5.0F / 3.0F));
    EXPECT_EQ(-p, g3d_Point(-5.0F, -7.0F, 5.0F, 3.0F));
    EXPECT_EQ(g3d_TripleProduct(kY, kZ, kX + kX), 2.0F);

    EXPECT_EQ(atInfinity + kX, g3d_Point(3.0F, 4.0F, 6.0F, 0.0F));
    EXPECT_EQ(atInfinity - kX, g3d_Point(1.0F, 4.0F, 6.0F, 0.0F));
    EXPECT_EQ(atInfinity - g3d_Point(1.0, 1.0, 1.0), g3d_Vector(1.0F, 3.0F, 5.0F));

    const g3d_Point end(3.0F, -2.0F, 3.0F, 0.0F);
    EXPECT_EQ(g3d_Utils::Interpolate(0.25F, g3d_Point(1.0, 2.0, 3.0), end), g3d_Point(1.5F, 1.0F, 3.0F, 0.75F));
    EXPECT_EQ(g3d_Utils::Interpolate(1.0F, g3d_Vector(1e8F, 0.0F, 0.0F), kX), kZero);  // a + (b - a) is not b
}

TEST(g3d_Plane, ProjectFollowsTheLineBothWaysAndGivesTheOriginForAParallelOne) {
    const g3d_Plane plane({1.0F, 1.0F, 2.0F}, 3.0F * kZ);
    EXPECT_EQ(plane.Project({{5.0F, 6.0F, 7.0F}, {1.0F, 0.0F, 1.0F}}), g3d_Point(0.0, 6.0, 2.0));
    EXPECT_EQ(plane.Project({{10.0F, 12.0F, 14.0F, 2.0F}, -4.0F * kZ}), g3d_Point(5.0, 6.0, 2.0));
    EXPECT_EQ(plane.Project({{5.0F, 6.0F, 7.0F}, kX + kY}), g3d_Point());
}

TEST(g3d_BoundingVolume, BoxHasACornerForEachChoiceOfSides) {
    const g3d_BoundingVolume box = g3d_BoundingVolume::Box({2.0F, 4.0F, 6.0F, 2.0F}, {-1.0F, -2.0F, -3.0F});
    ASSERT_EQ(box.Count(), 8);
    for (unsigned k = 0; k < 8; ++k)
        EXPECT_EQ(box.Vertices()[k], g3d_Point(k & 1 ? -1.0 : 1.0, k & 2 ? -2.0 : 2.0, k & 4 ? -3.0 : 3.0)) << k;
}

TEST(g3d_XForm, ElementsLieRowByRow) {
    float rows[4][4], numbers[16];
    double doubles[4][4], transpose[16];
    for (int k = 0; k < 16; ++k) numbers[k] = static_cast<float>(k) + 0.1F;
    g3d_XForm matrix(numbers);
    matrix.GetM(rows);
    matrix.GetM(doubles);
    matrix.GetTranspose(transpose);
    const g3d_XForm turned = g3d_XForm(matrix).Transpose();
    EXPECT_EQ(turned, g3d_XForm(transpose));
    for (int k = 0; k < 16; ++k) {
        const int i = k / 4, j = k % 4;
        for (const double element : {double{matrix.M(i, j)}, double{rows[i][j]}, doubles[i][j], double{turned.M(j, i)}})
            EXPECT_EQ(element, numbers[k]) << k;
    }
    EXPECT_EQ(&matrix.M(-1, 3), &matrix.M(3, 3));
    EXPECT_EQ(testing::PrintToString(g3d_XForm().Set({1.0F, 2.0F, 3.0F}, {4.0F, 5.0F, 6.0F}, {7.0F, -8.0F, 0.5F})),
              "(1, 4, 7, 0)\n(2, 5, -8, 0)\n(3, 6, 0.5, 0)\n(0, 0, 0, 1)\n");
    EXPECT_EQ(testing::PrintToString(g3d_Vector(1.5F, -2.0F, 0.0F)), "(1.5, -2, 0)");

    matrix.M(1, 2) = kNaN;
    const g3d_XForm copy = matrix;
    EXPECT_TRUE(matrix == matrix);
    EXPECT_FALSE(copy == matrix);
}

TEST(g3d_XForm, IncrementalOperationsMultiplyFromTheRight) {
    Random random(4202);
    for (int n = 0; n < 200; ++n) {
        const g3d_XForm a = random.General();
        const g3d_Vector v = random.Vector();
        const float angle = random.Number(-400.0, 400.0);
        EXPECT_EQ(g3d_XForm(a).Translate(v.X(), v.Y(), v.Z()), a * g3d_XForm().SetTranslate(v));
        EXPECT_EQ(g3d_XForm(a).Scale(v.X(), v.Y(), v.Z()), a * g3d_XForm().SetScale(v.X(), v.Y(), v.Z()));
        EXPECT_EQ(g3d_XForm(a).Rotate(angle, v), a * g3d_XForm().SetRotate(angle, v));
        g3d_XForm squared = a;
        EXPECT_EQ(squared *= squared, a * a);
    }
    g3d_Point by(5.0F, 7.0F, 1.0F, 3.0F), atInfinity(5.0F, 7.0F, 1.0F, 0.0F);
    const g3d_XForm moved = g3d_XForm().SetTranslate(by);
    EXPECT_EQ(moved.M(0, 3), 5.0F / 3.0F);
    EXPECT_EQ(g3d_XForm().Translate(by), moved);
    EXPECT_EQ(by, g3d_Point(5.0F / 3.0F, 7.0F / 3.0F, 1.0F / 3.0F));  // made ordinary on the way
    EXPECT_EQ(g3d_XForm().Translate(atInfinity).M(0, 3), 5.0F);
    EXPECT_EQ(atInfinity.W(), 0.0F);
}

TEST(g3d_XForm, RotationIsRodriguesFormulaAboutTheUnitAxis) {
    Random random(4203);
    for (int n = 0; n < 500; ++n) {
        const g3d_Vector axis = random.Vector(100.0), v = random.Vector();
        const float degrees = random.Number(-180.0, 180.0);
        const double theta = degrees * std::numbers::pi / 180.0, c = std::cos(theta), s = std::sin(theta);
        const Precise u = Unit(Precisely(axis)), w = Precisely(v);
        const g3d_XForm rotation = g3d_XForm().SetRotate(degrees, axis);
        g3d_Vector turned = v;
        rotation.XForm(&turned, 1);
        const Precise off = Precisely(turned) - (w * c + Cross(u, w) * s + u * (Dot(u, w) * (1.0 - c)));
        EXPECT_LT(std::abs(off).max(), 5e-7);
        // The same rotation as a quaternion, the scalar last.
        const Precise q = u * std::sin(theta / 2.0);
        const float sine = static_cast<float>(std::sin(theta / 2.0)),
                    cosine = static_cast<float>(std::cos(theta / 2.0));
        const float quaternion[] = {static_cast<float>(q[0]), static_cast<float>(q[1]), static_cast<float>(q[2]),
                                    cosine};
        EXPECT_LT(Difference(g3d_XForm().SetRotate3d(quaternion), rotation), 5e-7);
        EXPECT_LT(Difference(g3d_XForm().SetRotate2d({sine, cosine}), g3d_XForm().SetRotate(degrees, kZ)), 5e-7);
    }
    const g3d_XForm some = random.General();
    const std::tuple<float, g3d_Vector> none[] = {
        {0.0F, kX}, {-0.0F, {kNaN, 0.0F, 0.0F}}, {90.0F, kZero}, {kNaN, kZero}, {90.0F, {1e-39, 0.0, 0.0}},
    };
    for (const auto& [angle, axis] : none) {
        EXPECT_EQ(g3d_XForm(some).SetRotate(angle, axis), kIdentity) << angle << axis;
        EXPECT_EQ(g3d_XForm(some).Rotate(angle, axis), some) << angle << axis;
    }
    for (const float angle : {kNaN, kInfinity}) EXPECT_TRUE(std::isnan(g3d_XForm().SetRotate(angle, kX).M(1, 1)));
    // Of 27 degrees the radians differ in their last bit when they are computed in single precision.
    const double radians = static_cast<float>(27.0 * 0.017453292519943295);
    EXPECT_EQ(Mapped(g3d_XForm().SetRotate(27.0F, 2.0F * kZ), g3d_Point(1.0, 0.0, 0.0)),
              g3d_Point(std::cos(radians), std::sin(radians), 0.0));
}

TEST(g3d_XForm, QuaternionIsTakenAsGivenItsProductsInDouble) {
    EXPECT_EQ(g3d_XForm().SetRotate3d({0.0F, 0.0F, 0.0F, 2.0F}), g3d_XForm().SetScale(4.0F, 4.0F, 4.0F));
    // In single precision the square of a below would round away what the difference leaves.
    const float a = 1.0F + 0x1p-12F, b = 1.0F + 0x1p-11F;
    EXPECT_EQ(g3d_XForm().SetRotate3d({a, a, b, 1.0F}).M(0, 1), 0x1p-23F);
    EXPECT_EQ(g3d_XForm().SetRotate3d({a, a, -b, 1.0F}).M(1, 0), 0x1p-23F);
}

TEST(g3d_XForm, InverseTimesMatrixIsTheIdentityAndASingularOneIsLeftAsItIs) {
    Random random(4205);
    for (int n = 0; n < 500; ++n) {
        const g3d_XForm a = random.General(), b = random.General(), inverse = g3d_XForm(a).Invert();
        for (int k = 0; k < 16; ++k) {
            double sum = k % 5 == 0 ? -1.0 : 0.0;
            for (int j = 0; j < 4; ++j) sum += static_cast<double>(a.M(k / 4, j)) * inverse.M(j, k % 4);
            EXPECT_NEAR(sum, 0.0, 2e-6);
        }
        const float expected = a.Determinant() * b.Determinant();
        EXPECT_NEAR((a * b).Determinant(), expected, 2e-6F * std::abs(expected));
    }
    const auto scale = [](float x, float y, float z) { return g3d_XForm().SetScale(x, y, z); };
    EXPECT_EQ(scale(2.0F, -3.0F, 0.5F).Determinant(), -3.0F);
    EXPECT_EQ(scale(3.0F, 1.0F, 1.0F).Invert().M(0, 0), 1.0F / 3.0F);

    float counted[16];
    for (int k = 0; k < 16; ++k) counted[k] = static_cast<float>(k);
    for (const g3d_XForm& singular : {g3d_XForm(counted), scale(1e-20F, 1e-20F, 1e-20F)}) {  // the last by underflow
        EXPECT_EQ(singular.Determinant(), 0.0F);
        EXPECT_EQ(g3d_XForm(singular).Invert(), singular);
    }
    EXPECT_EQ(scale(1e-40F, 1.0F, 1.0F).Invert().M(1, 1), kInfinity * 1e-40F);  // 1/determinant overflows
    EXPECT_TRUE(std::isnan(scale(kNaN, 1.0F, 1.0F).Invert().M(1, 1)));
}

TEST(g3d_XForm, SumsRunFromLeftToRightUnfused) {
    const auto sum = [](const std::array<float, 4>& a, const std::array<float, 4>& b) {
        volatile float total = 0.0F;
        for (unsigned k = 0; k < 4; ++k) {
            volatile const float product = a[k] * b[k];
            total = total + product;
        }
        return float{total};
    };
    Random random(4206);
    const g3d_XForm a = random.General(), b = random.General(), product = a * b;
    const auto row = [&a](int i) { return std::array{a.M(i, 0), a.M(i, 1), a.M(i, 2), a.M(i, 3)}; };
    for (int k = 0; k < 16; ++k) {
        const int j = k % 4;
        EXPECT_EQ(product.M(0, k), sum(row(k / 4), {b.M(0, j), b.M(1, j), b.M(2, j), b.M(3, j)}));
    }
    std::vector<g3d_Point> points(1003);
    std::vector<g3d_Vector> vectors(1003);
    for (g3d_Point& point : points) point = random.Point();
    for (g3d_Vector& vector : vectors) vector = random.Vector();
    const std::vector<g3d_Point> from = points;
    const std::vector<g3d_Vector> directions = vectors;
    a.XForm(points.data(), 1002);
    a.XForm(vectors.data(), 1002);
    for (std::size_t n = 0; n < 1002; ++n) {
        const std::array p{from[n].X(), from[n].Y(), from[n].Z(), from[n].W()};
        const std::array v{directions[n].X(), directions[n].Y(), directions[n].Z(), 0.0F};
        ASSERT_EQ(points[n], g3d_Point(sum(row(0), p), sum(row(1), p), sum(row(2), p), sum(row(3), p))) << n;
        ASSERT_EQ(vectors[n], g3d_Vector(sum(row(0), v), sum(row(1), v), sum(row(2), v))) << n;
    }
    EXPECT_EQ(points[1002], from[1002]);
    a.XForm(points.data(), -1);
    a.XForm(static_cast<g3d_Vector*>(nullptr), 0);
}

TEST(g3d_XForm, ProjectionsTakeTheViewVolumeToTheCube) {
    Random random(4207);
    for (int n = 0; n < 200; ++n) {
        const float l = random.Number(-3.0, -1.0), r = random.Number(-0.5, 3.0), t = random.Number(0.5, 3.0);
        const float b = random.Number(-3.0, 0.0), near = random.Number(0.5, 2.0), far = near + random.Number(1.0, 9.0);
        const g3d_XForm perspective = g3d_XForm().SetPerspectiveProjection(l, r, t, b, near, far);
        const g3d_XForm parallel = g3d_XForm().SetOrthographicProjection(l, r, t, b, -near, far);
        for (int corner = 0; corner < 8; ++corner) {
            const bool right = corner & 1, top = corner & 2, behind = corner & 4;
            const float x = right ? r : l, y = top ? t : b, spread = behind ? far / near : 1.0F;
            const g3d_Point expected(right ? 1.0F : -1.0F, top ? 1.0F : -1.0F, behind ? 1.0F : -1.0F);
            const g3d_Point seen(x * spread, y * spread, behind ? -far : -near), plain(x, y, behind ? -far : near);
            EXPECT_LT((Mapped(perspective, seen).HNormalize() - expected).Length(), 2e-5F);
            EXPECT_LT((Mapped(parallel, plain) - expected).Length(), 2e-6F);
        }
    }
}

TEST(g3d_XForm, ProjectionsRefuseDegenerateVolumesAndRoundTheDepthOnce) {
    using Volume = std::array<float, 6>;  // left, right, top, bottom, near, far
    const auto perspective = [](const Volume& v) {
        return g3d_XForm().SetScale(2.0F, 2.0F, 2.0F).SetPerspectiveProjection(v[0], v[1], v[2], v[3], v[4], v[5]);
    };
    const auto parallel = [](const Volume& v) {
        return g3d_XForm().SetScale(2.0F, 2.0F, 2.0F).SetOrthographicProjection(v[0], v[1], v[2], v[3], v[4], v[5]);
    };
    for (const Volume& refused :
         {Volume{1, 1, 1, -1, 1, 2}, Volume{-1, 1, 1, 1, 1, 2}, Volume{-1, 1, 1, -1, 2, 2}, Volume{-1, 1, 1, -1, 2, 1},
          Volume{-1, 1, 1, -1, kNaN, 2}, Volume{-1, 1, 1, -1, 1, kNaN}}) {
        EXPECT_EQ(perspective(refused), kIdentity);
        EXPECT_EQ(parallel(refused), kIdentity);
    }
    for (const float near : {0.0F, -1.0F}) {
        EXPECT_EQ(perspective({-1, 1, 1, -1, near, 1}), kIdentity);
        EXPECT_EQ(parallel({-1, 1, 1, -1, near, 1}).M(2, 2), -2.0F / (1.0F - near));
    }
    // Top before bottom: the other way round the picture stands on its head.
    EXPECT_EQ(parallel({-1, 1, 1, 3, -1, 1}).M(1, 1), -1.0F);
    // 2 f n / (f - n) in double: rounding the product to float first gives another last bit.
    const float near = 1.5F, far = 10000.3F, depth = far - near;
    EXPECT_EQ(perspective({-1, 1, 1, -1, near, far}).M(2, 3),
              static_cast<float>(-2.0 * near * far / static_cast<double>(depth)));
    EXPECT_EQ(perspective({-1, 1, 1, -1, 3e38F, 3.2e38F}).M(0, 0), 3e38F);  // 2 n alone is beyond float
}

TEST(g3d_XFormStack, TopIsTheProductOfWhatWasPushed) {
    Random random(4208);
    const g3d_XForm a = random.General(), b = random.General();
    g3d_XFormStack stack(3);
    const g3d_XForm& bottom = stack.Top();
    stack.Push(a);
    g3d_XFormStack copy = stack;
    stack.Push(b);
    EXPECT_EQ(stack.Top(), a * b);
    EXPECT_FALSE(stack == copy);
    stack.Pop();
    EXPECT_EQ(stack, copy);  // what was popped does not count
    stack.Push(stack.Top());
    EXPECT_EQ(stack.Top(), a * a);
    stack.Replace(b);
    copy.Push(kIdentity);
    copy.Replace(b);
    EXPECT_EQ(stack, copy);
    stack.Reset(stack.Top());
    EXPECT_EQ(bottom, b);  // the entries have not moved
    EXPECT_FALSE(g3d_XFormStack(4) == g3d_XFormStack(5));
    EXPECT_EQ(g3d_XFormStack(0), g3d_XFormStack(1));
    EXPECT_EQ(g3d_XFormStack(-7).Top(), kIdentity);
}

TEST(g3d_XFormStackDeathTest, BreachesAreAssertedAndOtherwiseHarmless) {
    const g3d_XForm a = Random(4209).General();
    g3d_XFormStack empty(1), full(1);
    empty.Pop();
    EXPECT_DEBUG_DEATH(full.Push(a), "");
    EXPECT_EQ(full, g3d_XFormStack(1));
    EXPECT_DEBUG_DEATH(empty.Pop(), "");
    EXPECT_DEBUG_DEATH(empty.Replace(a), "");
    EXPECT_DEBUG_DEATH(EXPECT_EQ(empty.Top(), kIdentity), "");
    EXPECT_DEBUG_DEATH(empty.Push(a); EXPECT_EQ(empty.Top(), a), "");
}

TEST(g3d_Persistence, PointsAndVectorsComeBackBitForBit) {
    cls_ClassRegistrar registrar;
    g3d_Vector::InitializeMetadata(registrar);
    g3d_Point::InitializeMetadata(registrar);
    EXPECT_EQ(RoundTrip(registrar, g3d_Vector(0.1F, 0.2F, 0.3F)), g3d_Vector(0.1F, 0.2F, 0.3F));
    const g3d_Point odd = RoundTrip(registrar, g3d_Point(-0.0F, kInfinity, kNaN, 1e-40F));
    EXPECT_TRUE(std::signbit(odd.X()) && odd.Y() == kInfinity && std::isnan(odd.Z()) && odd.W() == 1e-40F);
    EXPECT_EQ(g3d_Point(cls_ReadVisitor(nullptr)), g3d_Point());
    EXPECT_EQ(g3d_Vector(cls_ReadVisitor(nullptr)), kZero);
}

}  // namespace
