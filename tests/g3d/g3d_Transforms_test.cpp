// Protects the viewing values: single-precision rules of vectors, points and planes to the last bit, matrices against
// long double, the order of composition, projections, the matrix stack, what streams keep.
#include <g3d/g3d_BoundingVolume.h>
#include <g3d/g3d_Plane.h>
#include <g3d/g3d_Ray.h>
#include <g3d/g3d_Utils.h>
#include <g3d/g3d_XFormStack.h>
#include <support/streams.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kPi = std::numbers::pi_v<float>;
constexpr float kLeastNormal = std::numeric_limits<float>::min();
const g3d_Vector kX(1.0F, 0.0F, 0.0F), kY(0.0F, 1.0F, 0.0F), kZ(0.0F, 0.0F, 1.0F), kZero;
const g3d_XForm kIdentity;

class Random {
public:
    explicit Random(unsigned seed) : _trace(__FILE__, __LINE__, "seed " + std::to_string(seed)), _engine(seed) {}

    float Number(float low = -1.0F, float high = 1.0F) {
        return std::uniform_real_distribution<float>(low, high)(_engine);
    }
    g3d_Vector Vector() { return {Number(), Number(), Number()}; }
    g3d_Point Point() { return {Number(), Number(), Number(), Number()}; }

    /// All sixteen elements random; one in each row and column dominates, so it is far from singular.
    g3d_XForm General() {
        g3d_XForm matrix;
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j) matrix.M(i, j) = Number() + (j == (i + 1) % 4 ? 5.0F : 0.0F);
        return matrix;
    }

private:
    testing::ScopedTrace _trace;
    std::mt19937_64 _engine;
};

/// Greatest difference of elements; NaN when there is one.
double Difference(const g3d_XForm& a, const g3d_XForm& b) {
    double greatest = 0.0;
    for (int k = 0; k < 16; ++k) greatest = std::max(std::abs(static_cast<double>(a.M(0, k)) - b.M(0, k)), greatest);
    return a == a * kIdentity && b == b * kIdentity ? greatest : std::numeric_limits<double>::quiet_NaN();
}

template <class Value>
Value Mapped(const g3d_XForm& matrix, Value value) {
    if constexpr (std::is_same_v<Value, g3d_Point>)
        matrix.XForm(value);
    else
        matrix.XForm(&value, 1);
    return value;
}

TEST(g3d_Vector, NormalizeHasALeastLengthAndWorksInDouble) {
    const std::tuple<g3d_Vector, g3d_Vector> rows[] = {
        {{0.0F, 0.0F, 2.0F}, kZ},
        {{0.0, 1e-39, 0.0}, kZero},
        {{kLeastNormal, 0.0F, 0.0F}, kX},
        {{std::nextafter(kLeastNormal, 0.0F), 0.0F, 0.0F}, kZero},
        {{0.0F, 3e38F, 4e-38F}, {0.0, 1.0, 4.0 / 3.0 * 1e-76}},
        {{3e38F, 3e38F, 0.0F}, {std::sqrt(0.5), std::sqrt(0.5), 0.0}},
        {{3e-30F, 0.0F, -4e-30F}, {0.6F, 0.0F, -0.8F}},
        {{-0.0F, 0.0F, 0.0F}, kZero},
    };
    for (const auto& [from, to] : rows) {
        g3d_Vector vector = from;
        g3d_Normalize(vector);
        EXPECT_EQ(vector, to) << from;
    }
    EXPECT_EQ(g3d_Vector(3e-30F, 0.0F, 4e-30F).Length(), 5e-30F);
    EXPECT_EQ(g3d_Vector(3e38F, 3e38F, 0.0F).Length(), kInfinity);
    g3d_Vector infinite(kInfinity, 1.0F, 0.0F);
    EXPECT_TRUE(std::isnan(infinite.Normalize().X()));
    EXPECT_EQ(infinite.Y(), 0.0F);
}

TEST(g3d_Vector, DivisionMultipliesByTheReciprocal) {
    const g3d_Vector v(5.0F, 7.0F, -5.0F);
    EXPECT_NE(5.0F / 3.0F, 5.0F * (1.0F / 3.0F));
    EXPECT_EQ(v / 3.0F, v * (1.0F / 3.0F));
    EXPECT_EQ(g3d_Vector(v) /= 3.0F, (1.0F / 3.0F) * v);
    EXPECT_EQ(g3d_Vector(1e300, -1e300, 0.1), g3d_Vector(kInfinity, -kInfinity, 0.1F));
    EXPECT_EQ(g3d_TripleProduct(kY, kZ, kX + kX), 2.0F);
    std::ostringstream text;
    text << g3d_Vector(1.5F, -2.0F, 0.0F);
    EXPECT_EQ(text.str(), "(1.5, -2, 0)");
}

TEST(g3d_Vector, AngleSnapsAtItsEnds) {
    const float below = std::nextafter(0.99999F, 0.0F);
    const auto at = [](float cosine) { return g3d_Vector(cosine, 0.0F, 0.0F); };
    EXPECT_EQ(kX.AngleWith(at(0.99999F), true), 0.0F);
    EXPECT_EQ(kX.AngleWith(at(below), true), static_cast<float>(std::acos(static_cast<double>(below))));
    EXPECT_EQ(kX.AngleWith(at(-0.99999F), true), 3.1415927F);
    EXPECT_LT(kX.AngleWith(at(-below), true), 3.138F);
    EXPECT_EQ(kX.AngleWith(at(0.5F), false), 0.0F);  // the lengths are taken out
    EXPECT_EQ(kX.AngleWith(kZero, false), kPi / 2.0F);
    EXPECT_EQ(kZero.AngleWith(kX, false), kPi / 2.0F);
    EXPECT_TRUE(std::isnan(kX.AngleWith(at(kNaN), true)));
    EXPECT_EQ(kX.AngleWith(at(kNaN), false), kPi / 2.0F);  // no positive length

    EXPECT_EQ(kX.AngleWith(kY, true, kZ), kPi / 2.0F);
    EXPECT_EQ(kX.AngleWith(kY, false, -1.0F * kZ), 4.712389F);
    const g3d_Vector aLittleClockwise(1.0F, -0.001F, 0.0F);
    EXPECT_EQ(kX.AngleWith(aLittleClockwise, false, kZ), 2.0F * kPi);  // 2 pi less an angle that snapped to 0
}

TEST(g3d_Point, HomogeneousByReciprocalOrByDivision) {
    const g3d_Point p(5.0F, 7.0F, -5.0F, 3.0F);
    const float third = 1.0F / 3.0F;
    EXPECT_EQ(g3d_Point(p).HNormalize(), g3d_Point(5.0F * third, 7.0F * third, -5.0F * third));
    EXPECT_EQ(p.Cartesian(), g3d_Point(5.0F / 3.0F, 7.0F / 3.0F, -5.0F / 3.0F));
    EXPECT_EQ(p + kX, g3d_Point(5.0F * third + 1.0F, 7.0F * third, -5.0F * third));
    EXPECT_EQ(p - kX, g3d_Point(5.0F * third - 1.0F, 7.0F * third, -5.0F * third));
    EXPECT_EQ(p - g3d_Point(), g3d_Vector(5.0F / 3.0F, 7.0F / 3.0F, -5.0F / 3.0F));
    EXPECT_EQ(-p, g3d_Point(-5.0F, -7.0F, 5.0F, 3.0F));
    EXPECT_FALSE(p == p.Cartesian());

    const g3d_Point atInfinity(2.0F, 4.0F, 6.0F, 0.0F);
    EXPECT_EQ(g3d_Point(atInfinity).HNormalize(), atInfinity);
    EXPECT_EQ(atInfinity + kX, g3d_Point(3.0F, 4.0F, 6.0F, 0.0F));
    EXPECT_EQ(atInfinity - kX, g3d_Point(1.0F, 4.0F, 6.0F, 0.0F));
    EXPECT_EQ(atInfinity - g3d_Point(1.0, 1.0, 1.0), g3d_Vector(1.0F, 3.0F, 5.0F));
}

TEST(g3d_Utils, InterpolateRunsStraightThroughAllComponents) {
    const g3d_Point a(1.0F, 2.0F, 3.0F, 1.0F), b(3.0F, -2.0F, 3.0F, 0.0F);
    EXPECT_EQ(g3d_Utils::Interpolate(0.25F, a, b), g3d_Point(1.5F, 1.0F, 3.0F, 0.75F));
    EXPECT_EQ(g3d_Utils::Interpolate(2.0F, kX, kY), g3d_Vector(-1.0F, 2.0F, 0.0F));
    EXPECT_EQ(g3d_Utils::Interpolate(1.0F, g3d_Vector(1e8F, 0.0F, 0.0F), kX), kZero);  // a + (b - a) is not b
}

TEST(g3d_Plane, ProjectFollowsTheLineBothWaysAndGivesTheOriginForAParallelOne) {
    const g3d_Plane plane({1.0F, 1.0F, 2.0F}, 3.0F * kZ);
    EXPECT_EQ(plane.Project({{5.0F, 6.0F, 7.0F}, {1.0F, 0.0F, 1.0F}}), g3d_Point(0.0, 6.0, 2.0));
    EXPECT_EQ(plane.Project({{10.0F, 12.0F, 14.0F, 2.0F}, -4.0F * kZ}), g3d_Point(5.0, 6.0, 2.0));
    EXPECT_EQ(plane.Project({{5.0F, 6.0F, 7.0F}, kX + kY}), g3d_Point());
    EXPECT_EQ(g3d_Plane().Project({{5.0F, 6.0F, 7.0F}, kX}), g3d_Point());
}

TEST(g3d_BoundingVolume, BoxHasACornerForEachChoiceOfSides) {
    const g3d_Point a(2.0F, 4.0F, 6.0F, 2.0F), b(-1.0F, -2.0F, -3.0F);
    const g3d_BoundingVolume box = g3d_BoundingVolume::Box(a, b);
    ASSERT_EQ(box.Count(), 8);
    EXPECT_EQ(box.Vertices()[0], a.Cartesian());
    EXPECT_EQ(box.Vertices()[1], g3d_Point(-1.0, 2.0, 3.0));
    EXPECT_EQ(box.Vertices()[2], g3d_Point(1.0, -2.0, 3.0));
    EXPECT_EQ(box.Vertices()[4], g3d_Point(1.0, 2.0, -3.0));
    EXPECT_EQ(box.Vertices()[7], b);
    EXPECT_EQ(g3d_BoundingVolume(box.Vertices()), box);
}

TEST(g3d_XForm, ElementsLieRowByRow) {
    float rows[4][4], numbers[16];
    double doubles[4][4], transpose[16], wide[16];
    for (int k = 0; k < 16; ++k) numbers[k] = static_cast<float>(wide[k] = k + 0.1);
    g3d_XForm matrix(numbers);
    EXPECT_EQ(matrix, g3d_XForm(wide));
    matrix.GetM(rows);
    matrix.GetM(doubles);
    matrix.GetTranspose(transpose);
    const g3d_XForm turned = g3d_XForm(matrix).Transpose();
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            EXPECT_EQ(rows[i][j], numbers[4 * i + j]);
            EXPECT_EQ(doubles[i][j], matrix.M(i, j));
            EXPECT_EQ(transpose[4 * j + i], matrix.M(i, j));
            EXPECT_EQ(turned.M(j, i), matrix.M(i, j));
        }
    }
    EXPECT_EQ(&matrix.M(-1, 3), &matrix.M(3, 3));
    std::ostringstream text;
    text << g3d_XForm().Set({1.0F, 2.0F, 3.0F}, {4.0F, 5.0F, 6.0F}, {7.0F, 8.0F, 0.5F});
    EXPECT_EQ(text.str(), "(1, 4, 7, 0)\n(2, 5, 8, 0)\n(3, 6, 0.5, 0)\n(0, 0, 0, 1)\n");

    matrix.M(1, 2) = kNaN;
    const g3d_XForm copy = matrix;
    EXPECT_TRUE(matrix == matrix);
    EXPECT_FALSE(copy == matrix);
}

TEST(g3d_XForm, IncrementalOperationsMultiplyFromTheRight) {
    Random random(4202);
    for (int n = 0; n < 200; ++n) {
        const g3d_XForm a = random.General(), b = random.General(), c = random.General();
        const g3d_Vector v = random.Vector();
        const float angle = random.Number(-400.0F, 400.0F);
        EXPECT_EQ(g3d_XForm(a).Translate(v.X(), v.Y(), v.Z()), a * g3d_XForm().SetTranslate(v));
        EXPECT_EQ(g3d_XForm(a).Scale(v.X(), v.Y(), v.Z()), a * g3d_XForm().SetScale(v.X(), v.Y(), v.Z()));
        EXPECT_EQ(g3d_XForm(a).Rotate(angle, v), a * g3d_XForm().SetRotate(angle, v));
        EXPECT_LT(Difference((a * b) * c, a * (b * c)), 1e-4);
        g3d_XForm squared = a;
        EXPECT_EQ(squared *= squared, a * a);
        const g3d_Point p = random.Point();
        EXPECT_NEAR(Mapped(a * b, p).X(), Mapped(a, Mapped(b, p)).X(), 2e-5);
    }
    g3d_Point by(2.0F, 4.0F, 6.0F, 2.0F);
    EXPECT_EQ(g3d_XForm().SetTranslate(by), g3d_XForm().SetTranslate(g3d_Vector(1.0F, 2.0F, 3.0F)));
    EXPECT_EQ(g3d_XForm().Translate(by), g3d_XForm().SetTranslate(by));
    EXPECT_EQ(by, g3d_Point(1.0, 2.0, 3.0));
    g3d_Point thirds(5.0F, 7.0F, 1.0F, 3.0F), atInfinity(5.0F, 7.0F, 1.0F, 0.0F);
    EXPECT_EQ(g3d_XForm().Translate(thirds).M(0, 3), 5.0F / 3.0F);
    EXPECT_EQ(g3d_XForm().Translate(atInfinity).M(0, 3), 5.0F);
    EXPECT_EQ(atInfinity.W(), 0.0F);
}

TEST(g3d_XForm, RotationIsRodriguesFormulaAboutTheUnitAxis) {
    Random random(4203);
    for (int n = 0; n < 500; ++n) {
        const g3d_Vector axis = 100.0F * random.Vector(), v = random.Vector();
        const float degrees = random.Number(-180.0F, 180.0F);
        const long double theta = degrees * std::numbers::pi_v<long double> / 180.0L, c = std::cos(theta),
                          s = std::sin(theta),
                          length = std::hypot(static_cast<long double>(axis.X()), axis.Y(), axis.Z());
        const long double u[] = {axis.X() / length, axis.Y() / length, axis.Z() / length};
        const long double w[] = {v.X(), v.Y(), v.Z()};
        const long double along = u[0] * w[0] + u[1] * w[1] + u[2] * w[2];
        const g3d_XForm rotation = g3d_XForm().SetRotate(degrees, axis);
        const g3d_Vector turned = Mapped(rotation, v);
        const float components[] = {turned.X(), turned.Y(), turned.Z()};
        for (int i = 0; i < 3; ++i) {
            const int j = (i + 1) % 3, k = (i + 2) % 3;
            const long double expected = w[i] * c + (u[j] * w[k] - u[k] * w[j]) * s + u[i] * along * (1.0L - c);
            EXPECT_NEAR(components[i], static_cast<double>(expected), 5e-7);
        }
        // The same rotation as a quaternion, the scalar last.
        const auto sine = [&](int i) { return static_cast<float>(u[i] * std::sin(theta / 2.0L)); };
        const float cosine = static_cast<float>(std::cos(theta / 2.0L));
        EXPECT_LT(Difference(g3d_XForm().SetRotate3d({sine(0), sine(1), sine(2), cosine}), rotation), 5e-7);
        const float half[] = {static_cast<float>(std::sin(theta / 2.0L)), cosine};
        EXPECT_LT(Difference(g3d_XForm().SetRotate2d(half), g3d_XForm().SetRotate(degrees, kZ)), 5e-7);
    }
}

TEST(g3d_XForm, RotationWithoutAngleOrAxisIsNone) {
    const g3d_XForm some = Random(4204).General();
    const std::tuple<float, g3d_Vector> rows[] = {
        {0.0F, kX}, {-0.0F, {kNaN, 0.0F, 0.0F}}, {90.0F, kZero}, {kNaN, kZero}, {90.0F, {1e-39, 0.0, 0.0}},
    };
    for (const auto& [angle, axis] : rows) {
        EXPECT_EQ(g3d_XForm(some).SetRotate(angle, axis), kIdentity) << angle << axis;
        EXPECT_EQ(g3d_XForm(some).Rotate(angle, axis), some) << angle << axis;
    }
    for (const float angle : {kNaN, kInfinity}) EXPECT_TRUE(std::isnan(g3d_XForm().SetRotate(angle, kX).M(1, 1)));

    const double theta = static_cast<float>(90.0 * 0.017453292519943295);
    const float c = static_cast<float>(std::cos(theta)), s = static_cast<float>(std::sin(theta));
    EXPECT_EQ(Mapped(g3d_XForm().SetRotate(90.0F, 2.0F * kZ), g3d_Point(1.0, 0.0, 0.0)), g3d_Point(c, s, 0.0F));
    // Of 27 degrees the radians differ in their last bit when they are computed in single precision.
    const float radians = static_cast<float>(27.0 * 0.017453292519943295);
    EXPECT_EQ(g3d_XForm().SetRotate(27.0F, kZ).M(1, 0), static_cast<float>(std::sin(static_cast<double>(radians))));
}

TEST(g3d_XForm, QuaternionIsTakenAsGivenItsProductsInDouble) {
    const g3d_XForm doubled = g3d_XForm().SetRotate3d({0.0F, 0.0F, 0.0F, 2.0F});
    EXPECT_EQ(doubled, g3d_XForm().SetScale(4.0F, 4.0F, 4.0F));
    // In single precision the square of a below would round away what the difference leaves.
    const float a = 1.0F + 0x1p-12F, b = 1.0F + 0x1p-11F;
    EXPECT_EQ(g3d_XForm().SetRotate3d({a, a, b, 1.0F}).M(0, 1), 0x1p-23F);
    EXPECT_EQ(g3d_XForm().SetRotate3d({a, a, -b, 1.0F}).M(1, 0), 0x1p-23F);
}

TEST(g3d_XForm, InverseTimesMatrixIsTheIdentity) {
    Random random(4205);
    for (int n = 0; n < 500; ++n) {
        const g3d_XForm a = random.General(), b = random.General(), inverse = g3d_XForm(a).Invert();
        for (int i = 0; i < 4; ++i) {
            for (int j = 0; j < 4; ++j) {
                long double sum = i == j ? -1.0L : 0.0L;
                for (int k = 0; k < 4; ++k) sum += static_cast<long double>(a.M(i, k)) * inverse.M(k, j);
                EXPECT_NEAR(static_cast<double>(sum), 0.0, 2e-6);
            }
        }
        const float expected = a.Determinant() * b.Determinant();
        EXPECT_NEAR((a * b).Determinant(), expected, 2e-6F * std::abs(expected));
    }
    EXPECT_EQ(g3d_XForm().SetScale(2.0F, -3.0F, 0.5F).Determinant(), -3.0F);
    EXPECT_EQ(g3d_XForm().SetTranslate(g3d_Vector(1.0F, 2.0F, 3.0F)).Invert(),
              g3d_XForm().SetTranslate(g3d_Vector(-1.0F, -2.0F, -3.0F)));
    EXPECT_EQ(g3d_XForm().SetScale(3.0F, 1.0F, 1.0F).Invert().M(0, 0), 1.0F / 3.0F);
}

TEST(g3d_XForm, SingularMatrixIsLeftAsItIsWithoutATrace) {
    float counted[16];
    for (int k = 0; k < 16; ++k) counted[k] = static_cast<float>(k);
    for (const g3d_XForm& singular : {g3d_XForm().SetScale(0.0F, 0.0F, 0.0F), g3d_XForm(counted),
                                      g3d_XForm().SetScale(1e-20F, 1e-20F, 1e-20F)}) {  // the last by underflow
        EXPECT_EQ(singular.Determinant(), 0.0F);
        EXPECT_EQ(g3d_XForm(singular).Invert(), singular);
    }
    EXPECT_EQ(g3d_XForm().SetScale(1e-40F, 1.0F, 1.0F).Invert().M(1, 1),
              kInfinity * 1e-40F);  // 1/determinant overflows
    EXPECT_TRUE(std::isnan(g3d_XForm().SetScale(kNaN, 1.0F, 1.0F).Invert().M(1, 1)));
}

TEST(g3d_XForm, SumsRunFromLeftToRightUnfused) {
    // ((1 + 0) + 1e8) - 1e8 loses the 1; the products of a are inexact and cancel only when each is rounded.
    const float a = 1.0F + 0x1p-12F;
    const float rows[] = {1.0F, 0.0F, 1e8F, -1e8F, a, -a, 0.0F, 0.0F, 0.0F, a, -a, 0.0F, 0.0F, 0.0F, a, -a};
    const g3d_XForm matrix(rows), ones = g3d_XForm({1.0F, a, a, a, 1.0F, a, a, a, 1.0F, a, a, a, 1.0F, a, a, a});
    EXPECT_EQ(Mapped(matrix, g3d_Point(1.0F, 1.0F, 1.0F, 1.0F)).X(), 0.0F);
    const g3d_Point cancelled = Mapped(matrix, g3d_Point(a, a, a, a));
    EXPECT_EQ((std::array{cancelled.Y(), cancelled.Z(), cancelled.W()}), (std::array{0.0F, 0.0F, 0.0F}));
    EXPECT_EQ(Mapped(matrix, g3d_Vector(a, a, a)).Y(), 0.0F);
    const g3d_XForm product = matrix * ones;
    EXPECT_EQ(product.M(0, 0), 0.0F);
    for (int i = 1; i < 4; ++i) EXPECT_EQ(product.M(i, i), 0.0F) << i;

    Random random(4206);
    const g3d_XForm general = random.General();
    std::vector<g3d_Point> points;
    std::vector<g3d_Vector> vectors;
    for (int n = 0; n < 1003; ++n) {
        points.push_back(random.Point());
        vectors.push_back(random.Vector());
    }
    const std::vector<g3d_Point> from = points;
    const std::vector<g3d_Vector> directions = vectors;
    general.XForm(points.data(), 1002);
    general.XForm(vectors.data(), 1002);
    for (std::size_t n = 0; n < 1002; ++n) {
        ASSERT_EQ(points[n], Mapped(general, from[n])) << n;
        ASSERT_EQ(vectors[n], directions[n].X() * Mapped(general, kX) + directions[n].Y() * Mapped(general, kY) +
                                  directions[n].Z() * Mapped(general, kZ))
            << n;
    }
    EXPECT_EQ(points[1002], from[1002]);
    general.XForm(points.data(), -1);
    general.XForm(static_cast<g3d_Vector*>(nullptr), 0);
    EXPECT_EQ(Mapped(g3d_XForm().SetTranslate(kX), kZ), kZ);  // directions do not move
}

TEST(g3d_XForm, ProjectionsTakeTheViewVolumeToTheCube) {
    Random random(4207);
    for (int n = 0; n < 200; ++n) {
        const float l = random.Number(-3.0F, -1.0F), r = random.Number(-0.5F, 3.0F), t = random.Number(0.5F, 3.0F),
                    b = random.Number(-3.0F, 0.0F), near = random.Number(0.5F, 2.0F),
                    far = near + random.Number(1.0F, 9.0F);
        const g3d_XForm perspective = g3d_XForm().SetPerspectiveProjection(l, r, t, b, near, far);
        const g3d_XForm parallel = g3d_XForm().SetOrthographicProjection(l, r, t, b, -near, far);
        for (int corner = 0; corner < 8; ++corner) {
            const bool right = corner & 1, top = corner & 2, behind = corner & 4;
            const float x = right ? r : l, y = top ? t : b, spread = behind ? far / near : 1.0F;
            const g3d_Point expected(right ? 1.0F : -1.0F, top ? 1.0F : -1.0F, behind ? 1.0F : -1.0F);
            const g3d_Point projected =
                Mapped(perspective, g3d_Point(x * spread, y * spread, behind ? -far : -near)).HNormalize();
            EXPECT_LT((projected - expected).Length(), 2e-5F);
            EXPECT_LT((Mapped(parallel, g3d_Point(x, y, behind ? -far : near)) - expected).Length(), 2e-6F);
        }
    }
}

TEST(g3d_XForm, ProjectionsRefuseDegenerateVolumesAndRoundTheDepthOnce) {
    const auto perspective = [](float l, float r, float t, float b, float near, float far) {
        return g3d_XForm().SetScale(2.0F, 2.0F, 2.0F).SetPerspectiveProjection(l, r, t, b, near, far);
    };
    const auto parallel = [](float l, float r, float t, float b, float near, float far) {
        return g3d_XForm().SetScale(2.0F, 2.0F, 2.0F).SetOrthographicProjection(l, r, t, b, near, far);
    };
    const std::tuple<float, float, float, float, float, float> refusedByBoth[] = {
        {1.0F, 1.0F, 1.0F, -1.0F, 1.0F, 2.0F},  {-1.0F, 1.0F, 1.0F, 1.0F, 1.0F, 2.0F},
        {-1.0F, 1.0F, 1.0F, -1.0F, 2.0F, 2.0F}, {-1.0F, 1.0F, 1.0F, -1.0F, 2.0F, 1.0F},
        {-1.0F, 1.0F, 1.0F, -1.0F, kNaN, 2.0F}, {-1.0F, 1.0F, 1.0F, -1.0F, 1.0F, kNaN},
    };
    for (const auto& row : refusedByBoth) {
        EXPECT_EQ(std::apply(perspective, row), kIdentity);
        EXPECT_EQ(std::apply(parallel, row), kIdentity);
    }
    for (const float near : {0.0F, -1.0F}) {
        EXPECT_EQ(perspective(-1.0F, 1.0F, 1.0F, -1.0F, near, 1.0F), kIdentity);
        EXPECT_EQ(parallel(-1.0F, 1.0F, 1.0F, -1.0F, near, 1.0F).M(2, 2), -2.0F / (1.0F - near));
    }
    // Top before bottom: the other way round the picture stands on its head.
    EXPECT_EQ(parallel(-1.0F, 1.0F, 3.0F, 1.0F, -1.0F, 1.0F).M(1, 1), 1.0F);
    EXPECT_EQ(parallel(-1.0F, 1.0F, 1.0F, 3.0F, -1.0F, 1.0F).M(1, 1), -1.0F);
    // 2 f n / (f - n) in double: rounding the product to float first gives another last bit.
    const float near = 1.5F, far = 10000.3F, depth = far - near;
    EXPECT_EQ(perspective(-1.0F, 1.0F, 1.0F, -1.0F, near, far).M(2, 3),
              static_cast<float>(-2.0 * near * far / static_cast<double>(depth)));
    EXPECT_EQ(perspective(-1.0F, 1.0F, 1.0F, -1.0F, 3e38F, 3.2e38F).M(0, 0), 3e38F);  // 2 n alone is beyond float
}

TEST(g3d_XFormStack, TopIsTheProductOfWhatWasPushed) {
    Random random(4208);
    const g3d_XForm a = random.General(), b = random.General();
    g3d_XFormStack stack(3);
    const g3d_XForm& bottom = stack.Top();
    EXPECT_EQ(bottom, kIdentity);
    stack.Push(a);
    g3d_XFormStack copy = stack;
    stack.Push(b);
    EXPECT_EQ(stack.Top(), a * b);
    EXPECT_FALSE(stack == copy);
    stack.Pop();
    EXPECT_EQ(stack.Top(), a);
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
    const auto push = [&] {
        empty.Push(a);
        EXPECT_EQ(empty.Top(), a);
    };
    EXPECT_DEBUG_DEATH(push(), "");
}

TEST(g3d_Persistence, PointsAndVectorsComeBackBitForBit) {
    cls_ClassRegistrar registrar;
    g3d_Vector::InitializeMetadata(registrar);
    EXPECT_EQ(registrar.AttributeNames(), (cow_List<cow_String>{"x", "y", "z"}));
    g3d_Point::InitializeMetadata(registrar);
    EXPECT_EQ(registrar.AttributeNames(), (cow_List<cow_String>{"x", "y", "z", "w"}));
    EXPECT_EQ(registrar.Find(0x240001)->Name(), "g3d_Point");
    EXPECT_EQ(registrar.Find(0x240002)->Name(), "g3d_Vector");

    EXPECT_EQ(RoundTrip(registrar, g3d_Vector(0.1F, 0.2F, 0.3F)), g3d_Vector(0.1F, 0.2F, 0.3F));
    const g3d_Point odd = RoundTrip(registrar, g3d_Point(-0.0F, kInfinity, kNaN, 1e-40F));
    EXPECT_TRUE(std::signbit(odd.X()) && odd.Y() == kInfinity && std::isnan(odd.Z()) && odd.W() == 1e-40F);
    EXPECT_EQ(g3d_Point(cls_ReadVisitor(nullptr)), g3d_Point());
    EXPECT_EQ(g3d_Vector(cls_ReadVisitor(nullptr)), kZero);
}

}  // namespace
