// Protects matrices: rotations, inverses and composition against long double, decompositions, the identity state.
#include <gsl/gsl_Matrix.h>
#include <support/RandomGeometry.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kRadians = kPi / 180.0;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
const gsl_Vector kX(1.0, 0.0, 0.0), kY(0.0, 1.0, 0.0), kZ(0.0, 0.0, 1.0), kZero(0.0, 0.0, 0.0);

gsl_Matrix Translation(const gsl_Vector& by) {
    gsl_Matrix matrix;
    matrix.SetTranslation(by);
    return matrix;
}

gsl_Matrix Rotation(const gsl_Vector& axis, double angleRadians) {
    gsl_Matrix matrix;
    matrix.AxisRotation(gsl_Point(), axis, angleRadians);
    return matrix;
}

double Element(const gsl_Matrix& matrix, int row, int column) {
    double rows[4][4];
    matrix.AsArray(rows);
    return rows[row][column];
}

TEST(gsl_Matrix, AxisRotationIsRodriguesFormula) {
    RandomGeometry random(20216);
    SCOPED_TRACE(random.Seed());
    for (int n = 0; n < 500; ++n) {
        const gsl_Vector axis = random.Vector(), v = random.Vector();
        const double angle = random.Angle();
        gsl_Matrix rotation;
        rotation.AxisRotation(axis, angle);
        long double u[3], r[3], along = 0.0L;
        const long double length = std::hypot(static_cast<long double>(axis[0]), axis[1], axis[2]);
        for (unsigned i = 0; i < 3; ++i) along += (u[i] = axis[i] / length) * v[i];
        const long double c = std::cos(static_cast<long double>(angle)), s = std::sin(static_cast<long double>(angle));
        gsl_Vector turned = v;
        turned.RotateAndTransform(rotation);
        for (unsigned i = 0; i < 3; ++i) {
            const unsigned j = (i + 1) % 3, k = (i + 2) % 3;
            r[i] = v[i] * c + (u[j] * v[k] - u[k] * v[j]) * s + u[i] * along * (1.0L - c);
            EXPECT_NEAR(turned[i], static_cast<double>(r[i]), 1e-13);
            EXPECT_NEAR(rotation.NewAxis(i).DotProduct(rotation.NewAxis(j)), 0.0, 1e-15);
            EXPECT_NEAR(rotation.NewAxis(i).LengthSq(), 1.0, 1e-14);
        }
        EXPECT_NEAR(rotation.NewXAxis().TripleProduct(rotation.NewYAxis(), rotation.NewZAxis()), 1.0, 1e-14);

        const gsl_Point centre = random.Point();
        gsl_Matrix aboutLine;
        aboutLine.AxisRotation(centre, axis, angle);
        gsl_Point onLine = centre + axis, moved = centre + v;
        onLine.Transform(aboutLine);
        moved.Transform(aboutLine);
        EXPECT_LT(Difference(onLine, centre + axis), 1e-13);
        EXPECT_LT(Difference(moved, centre + turned), 1e-13);
    }
}

TEST(gsl_Matrix, AxisRotationKeepsTheIdentityStateAndIsBelieved) {
    gsl_Matrix matrix;
    matrix.AxisRotation(kZ, 0.5);
    double a = 9.0, b = 9.0, c = 9.0;
    matrix.GetEulerianAnglesZYX(a, b, c);
    EXPECT_TRUE(matrix.IsIdentity());
    EXPECT_EQ(Difference(matrix.InverseRigidTransform(), gsl_Matrix()), 0.0);
    EXPECT_EQ((std::array{a, b, c}), (std::array{0.0, 0.0, 0.0}));
    EXPECT_EQ(matrix.NewXAxis()[0], std::cos(0.5));
    EXPECT_FALSE(matrix == gsl_Matrix());

    gsl_Matrix honest;
    honest.Concatenate(matrix);
    EXPECT_FALSE(honest.IsIdentity());
    honest.GetEulerianAnglesZYX(a, b, c);
    EXPECT_DOUBLE_EQ(a, 0.5 / kRadians);
    matrix.AxisRotation(gsl_Point(), kZ, 0.5);
    EXPECT_FALSE(matrix.IsIdentity());
    matrix.AxisRotation(gsl_Point(1.0, 2.0, 3.0), kZ * 0.99e-6, 0.5);
    EXPECT_TRUE(matrix.IsIdentity());
    matrix.AxisRotation(kZ * 0.99e-6, 0.5);
    EXPECT_EQ(Difference(matrix, gsl_Matrix()), 0.0);
}

TEST(gsl_Matrix, IdentityIsExaminedOnlyWhenUnknownAndThenMadeExact) {
    const auto with = [](int row, int column, double value) {
        double rows[4][4];
        gsl_Matrix().AsArray(rows);
        rows[row][column] = value;
        return gsl_Matrix(rows);
    };
    const struct {
        int row, column;
        double value;
        bool identity;
    } cases[] = {
        {0, 3, 1e-8, true},       {0, 3, std::nextafter(1e-8, 1.0), false},
        {1, 0, -1e-8, true},      {1, 0, std::nextafter(-1e-8, -1.0), false},
        {2, 2, 1.00000001, true}, {2, 2, std::nextafter(1.00000001, 2.0), false},
        {1, 1, 0.99999999, true}, {1, 1, std::nextafter(0.99999999, 0.0), false},
        {3, 0, 5.0, true},  // the fourth row is not looked at, and overwritten
        {0, 0, kNaN, false},
    };
    for (const auto& c : cases) {
        const gsl_Matrix matrix = with(c.row, c.column, c.value);
        EXPECT_EQ(matrix.IsIdentity(), c.identity) << c.row << c.column << ' ' << c.value;
        EXPECT_EQ(Difference(matrix, gsl_Matrix()) == 0.0, c.identity);
        EXPECT_EQ(matrix.IsIdentity(), c.identity);
    }
    const gsl_Matrix rotation = Rotation(kX, 0.3);
    EXPECT_FALSE(rotation.IsIdentity());
    EXPECT_TRUE(rotation.GetConcatenated(rotation.InverseRigidTransform()).IsIdentity());
}

TEST(gsl_Matrix, EqualityIsCoarseAndInclusive) {
    const gsl_Matrix identity, odd = Translation({kNaN, 0.0, 0.0});
    EXPECT_TRUE(identity == Translation({0.001, 0.0, -0.001}));
    EXPECT_FALSE(identity == Translation({std::nextafter(0.001, 1.0), 0.0, 0.0}));
    EXPECT_TRUE(odd == odd);
    EXPECT_TRUE(odd != gsl_Matrix(odd));
}

TEST(gsl_Matrix, ConcatenationIsAssociativeAndAppliesThisFirst) {
    RandomGeometry random(20217);
    SCOPED_TRACE(random.Seed());
    for (int n = 0; n < 200; ++n) {
        const gsl_Matrix a = random.General(), b = random.General(), c = random.General();
        EXPECT_LT(Difference(a.GetConcatenated(b).GetConcatenated(c), a.GetConcatenated(b.GetConcatenated(c))), 1e-14);
        EXPECT_EQ(Difference(a.GetConcatenated(gsl_Matrix()), a), 0.0);
        gsl_Matrix self = a;
        self.Concatenate(self);
        EXPECT_EQ(Difference(self, a.GetConcatenated(a)), 0.0);

        const gsl_Matrix first = random.Rigid(), second = random.Rigid();
        const gsl_Point p = random.Point();
        gsl_Point stepwise = p, atOnce = p;
        stepwise.Transform(first);
        stepwise.Transform(second);
        atOnce.Transform(first.GetConcatenated(second));
        EXPECT_LT(Difference(stepwise, atOnce), 1e-12);
    }
}

TEST(gsl_Matrix, InversesUndoAndRefuseSingularMatrices) {
    RandomGeometry random(20218);
    SCOPED_TRACE(random.Seed());
    for (int n = 0; n < 500; ++n) {
        const gsl_Matrix rigid = random.Rigid(), general = random.General();
        const auto inverse = general.Inverse(), rigidInverse = rigid.Inverse();
        ASSERT_TRUE(inverse && rigidInverse);
        double rows[4][4], greatest = 0.0;
        inverse->AsArray(rows);
        for (const auto& row : rows) {
            for (const double element : row) greatest = std::max(greatest, std::abs(element));
        }
        EXPECT_LT(Difference(general.GetConcatenated(*inverse), gsl_Matrix()), 1e-14 * greatest * greatest + 1e-14);
        EXPECT_LT(Difference(inverse->GetConcatenated(general), gsl_Matrix()), 1e-14 * greatest * greatest + 1e-14);
        EXPECT_LT(Difference(*rigidInverse, rigid.InverseRigidTransform()), 1e-12);
        EXPECT_LT(Difference(rigid.GetConcatenated(rigid.InverseRigidTransform()), gsl_Matrix()), 1e-12);
    }
    gsl_Matrix deceiving;
    deceiving.AxisRotation(kZ, 0.5);
    EXPECT_LT(Difference(*deceiving.Inverse(), Rotation(kZ, -0.5)), 1e-15);  // not misled by the state

    const double tinyAndFar[4][4] = {{1e-20, 0, 0, 1e9}, {0, 1e-20, 0, 1e9}, {0, 0, 1e-20, 1e9}, {0, 0, 0, 1}};
    ASSERT_TRUE(gsl_Matrix(tinyAndFar).Inverse());
    EXPECT_DOUBLE_EQ(Element(*gsl_Matrix(tinyAndFar).Inverse(), 0, 3), -1e29);
    const double needsPivots[4][4] = {{0, 0, 0, 1}, {0, 0, 1, 0}, {0, 1, 0, 0}, {1, 0, 0, 0}};
    EXPECT_EQ(Difference(*gsl_Matrix(needsPivots).Inverse(), gsl_Matrix(needsPivots)), 0.0);
    const double dependent[4][4] = {{1, 2, 3, 0}, {4, 5, 6, 0}, {7, 8, 9, 0}, {0, 0, 0, 1}};
    const double overflows[4][4] = {{1e-310, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    const double atThreshold[4][4] = {{1, 1, 0, 0}, {1, 1 + 0x1p-47, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};  // 7e-15
    EXPECT_FALSE(gsl_Matrix(dependent).Inverse());
    EXPECT_FALSE(gsl_Matrix(overflows).Inverse());
    EXPECT_FALSE(gsl_Matrix(atThreshold).Inverse());
    EXPECT_FALSE(Translation({kNaN, 0.0, 0.0}).Inverse());
    EXPECT_FALSE(Translation({0.0, std::numeric_limits<double>::infinity(), 0.0}).Inverse());
    EXPECT_TRUE(Translation({1e13, 0.0, 0.0}).Inverse());
    EXPECT_FALSE(Translation({1e15, 0.0, 0.0}).Inverse());
}

TEST(gsl_Matrix, MirrorReflectsInThePlane) {
    RandomGeometry random(20219);
    SCOPED_TRACE(random.Seed());
    for (int n = 0; n < 200; ++n) {
        const gsl_Point at = random.Point(), p = random.Point();
        const gsl_Vector normal = random.Vector(), unit = normal.NormalizedCopy();
        gsl_Matrix mirror;
        mirror.Mirror(at, normal);
        gsl_Point image = p, inPlane = at + normal.AnyOrthogonalUnit() * 4.0;
        image.Transform(mirror);
        EXPECT_LT(Difference(image, p - unit * (2.0 * unit.DotProduct(p - at))), 1e-12);
        image.Transform(mirror);
        EXPECT_LT(Difference(image, p), 1e-12);
        const gsl_Point before = inPlane;
        inPlane.Transform(mirror);
        EXPECT_LT(Difference(inPlane, before), 1e-12);
        EXPECT_NEAR(mirror.NewXAxis().TripleProduct(mirror.NewYAxis(), mirror.NewZAxis()), -1.0, 1e-14);
        EXPECT_FALSE(mirror.IsIdentity());
    }
    gsl_Matrix none = Rotation(kX, 1.0);
    none.Mirror({}, kX * 0.99e-6);
    EXPECT_TRUE(none.IsIdentity());
}

TEST(gsl_Matrix, AnglesRebuildTheRotation) {
    RandomGeometry random(20220);
    SCOPED_TRACE(random.Seed());
    const auto rebuilt = [](double x, double y, double z) {
        return Rotation(kX, x).GetConcatenated(Rotation(kY, y)).GetConcatenated(Rotation(kZ, z));
    };
    double x, y, z, a, b, c, angle;
    gsl_Vector axis;
    gsl_Point point;
    for (int n = 0; n < 1000; ++n) {
        // Every fourth at the pole of the angles, every fourth a half turn, where the quaternion takes another branch.
        const double tilt = n % 4 == 0 ? (n % 8 == 0 ? kPi / 2.0 : -kPi / 2.0) : random.Number(-1.5, 1.5);
        const gsl_Matrix rotation =
            n % 4 == 1 ? Rotation(random.Vector(), kPi) : rebuilt(random.Angle(), tilt, random.Angle());
        rotation.GetRotationAngles(x, y, z);
        EXPECT_LT(Difference(rebuilt(x, y, z), rotation), 1e-9);
        rotation.GetEulerianAnglesZYX(a, b, c);
        EXPECT_LT(Difference(rebuilt(c * kRadians, b * kRadians, a * kRadians), rotation), 1e-9);
        rotation.GetAxisRotation(point, axis, angle);
        EXPECT_LT(Difference(Rotation(axis, angle), rotation), 1e-6);
        EXPECT_TRUE(angle >= 0.0 && angle <= 2.0 * kPi);
    }
    // The exact pole: m00 and m10 are 0, so all of the turn about the vertical counts as the first rotation.
    gsl_Matrix pole;
    pole.SetRotationVectors(kZ * -3.0, kX, kY * -2.0);
    pole.GetEulerianAnglesZYX(a, b, c);
    EXPECT_EQ(a, 0.0);
    EXPECT_DOUBLE_EQ(b, 90.0);
    EXPECT_DOUBLE_EQ(c, 90.0);
    pole.GetRotationAngles(x, y, z);
    EXPECT_DOUBLE_EQ(y, kPi / 2.0);
    EXPECT_EQ(z, 0.0);
    for (const double cosine : {0x1p-19, std::nextafter(0x1p-19, 1.0)}) {  // the boundary belongs to the pole
        const double rows[4][4] = {{0, 0, 0, 0}, {cosine, 1, 0, 0}, {-1, 0, 1, 0}, {0, 0, 0, 1}};
        gsl_Matrix(rows).GetRotationAngles(x, y, z);
        EXPECT_EQ(z, cosine == 0x1p-19 ? 0.0 : kPi / 2.0);
    }
    // Half a turn, with two small diagonal elements of which only the order tells them from the great one.
    const gsl_Matrix halfTurn = Rotation({0.0, 1.0, 1e-6}, kPi);
    halfTurn.GetAxisRotation(point, axis, angle);
    EXPECT_LT(Difference(axis, {0.0, 1.0, 1e-6}), 1e-12);
}

TEST(gsl_Matrix, AxisRotationIsReadInSinglePrecision) {
    double angle = 9.0;
    gsl_Vector axis;
    gsl_Point point;
    gsl_Matrix matrix = Rotation(kY, 0.5);
    matrix.SetTranslation({4.0, 5.0, 6.0});
    matrix.GetAxisRotation(point, axis, angle);
    EXPECT_EQ(point.AsArray(), (std::array{4.0, 5.0, 6.0}));  // the translation, which lies on no axis
    EXPECT_EQ(axis.AsArray(), kY.AsArray());
    EXPECT_EQ(angle, 2.0 * std::atan2(static_cast<double>(static_cast<float>(std::sin(0.25))),
                                      static_cast<double>(static_cast<float>(std::cos(0.25)))));
    gsl_Matrix().GetAxisRotation(point, axis, angle);
    EXPECT_EQ(angle, 0.0);
    EXPECT_EQ(axis.AsArray(), kZero.AsArray());

    double rows[4][4];
    Rotation(kX, 0.5).AsArray(rows);
    for (auto& row : rows) {
        for (double& element : row) element *= 4.0;  // homogeneous: the same rotation
    }
    gsl_Matrix(rows).GetAxisRotation(point, axis, angle);
    EXPECT_NEAR(angle, 0.5, 1e-6);
    for (const double bad : {0.0, -1.0, 1e300, kNaN}) {
        rows[3][3] = bad;
        rows[0][1] = -bad;
        gsl_Matrix(rows).GetAxisRotation(point, axis, angle);  // whatever comes, it is defined
        EXPECT_EQ(std::isnan(angle), bad != 1e300) << bad;
    }
}

TEST(gsl_Matrix, SettersTouchTheirElementsOnly) {
    gsl_Matrix matrix;
    matrix.SetRow(3, {1.0, 2.0, 3.0});
    matrix.SetColumn(3, {4.0, 5.0, 6.0});
    matrix.SetRow(4, kX);
    matrix.SetColumn(4, kX);
    const double expected[4][4] = {{1, 0, 0, 4}, {0, 1, 0, 5}, {0, 0, 1, 6}, {1, 2, 3, 1}};
    EXPECT_EQ(Difference(matrix, gsl_Matrix(expected)), 0.0);
    EXPECT_EQ(matrix.NewAxis(4).AsArray(), kZero.AsArray());
    gsl_Vector translation, v = kX;
    matrix.GetTranslation(translation);
    EXPECT_EQ(translation.AsArray(), matrix.NewOrigin().AsArray());
    v.RotateAndTransform(matrix);
    EXPECT_EQ(v.AsArray(), kX.AsArray());  // vectors are not translated
    matrix.SetRotationVectors(kY * 2.0, kX * -3.0, kZero);
    EXPECT_EQ(matrix.NewXAxis().AsArray(), kY.AsArray());
    EXPECT_EQ(Element(matrix, 0, 1), -1.0);
    EXPECT_TRUE(std::isnan(Element(matrix, 2, 2)));
    double block[4][4] = {};
    axRot(kZ * 4.0, 4.0, kPi / 2.0, block);
    EXPECT_EQ((std::array{block[1][0], block[0][1], block[2][2]}), (std::array{1.0, -1.0, 1.0}));
    EXPECT_EQ((std::array{block[0][3], block[3][0], block[3][3]}), (std::array{0.0, 0.0, 0.0}));
}

}  // namespace
