// Protects matrices: rotations, inverses and composition against long double, decompositions, the identity state.
#include <support/RandomGeometry.h>

#include <gtest/gtest.h>

namespace {

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

/// `matrix` with one element replaced.
gsl_Matrix With(const gsl_Matrix& matrix, int row, int column, double value) {
    double rows[4][4];
    matrix.AsArray(rows);
    rows[row][column] = value;
    return gsl_Matrix(rows);
}

template <class Value>
Value Transformed(Value value, const gsl_Matrix& matrix) {
    matrix.Transform(value);
    return value;
}

TEST(gsl_Matrix, AxisRotationIsRodriguesFormula) {
    RandomGeometry random(20216);
    for (int n = 0; n < 500; ++n) {
        const gsl_Vector axis = random.Vector(), v = random.Vector();
        const double angle = random.Angle();
        gsl_Matrix rotation, aboutLine;
        rotation.AxisRotation(axis, angle);
        long double u[3], along = 0.0L;
        const long double length = std::hypot(static_cast<long double>(axis[0]), axis[1], axis[2]);
        for (unsigned i = 0; i < 3; ++i) along += (u[i] = axis[i] / length) * v[i];
        const long double c = std::cos(static_cast<long double>(angle)), s = std::sin(static_cast<long double>(angle));
        const gsl_Vector turned = Transformed(v, rotation);
        for (unsigned i = 0; i < 3; ++i) {
            const unsigned j = (i + 1) % 3, k = (i + 2) % 3;
            const long double expected = v[i] * c + (u[j] * v[k] - u[k] * v[j]) * s + u[i] * along * (1.0L - c);
            EXPECT_NEAR(turned[i], static_cast<double>(expected), 1e-13);
        }
        const gsl_Point centre = random.Point();
        aboutLine.AxisRotation(centre, axis, angle);
        EXPECT_LT(Difference(Transformed(centre + axis, aboutLine), centre + axis), 1e-13);
        EXPECT_LT(Difference(Transformed(centre + v, aboutLine), centre + turned), 1e-13);
    }
}

TEST(gsl_Matrix, AxisRotationKeepsTheIdentityStateAndIsBelieved) {
    gsl_Matrix matrix, honest;
    matrix.AxisRotation(kZ, 0.5);
    double a = 9.0, b = 9.0, c = 9.0;
    matrix.GetEulerianAnglesZYX(a, b, c);
    EXPECT_TRUE(matrix.IsIdentity());
    EXPECT_EQ(Difference(matrix.InverseRigidTransform(), gsl_Matrix()), 0.0);
    EXPECT_EQ((std::array{a, b, c}), (std::array{0.0, 0.0, 0.0}));
    EXPECT_EQ(matrix.NewXAxis()[0], std::cos(0.5));
    EXPECT_FALSE(matrix == gsl_Matrix());
    EXPECT_LT(Difference(*matrix.Inverse(), Rotation(kZ, -0.5)), 1e-15);  // not misled by the state
    honest.Concatenate(matrix);
    EXPECT_FALSE(honest.IsIdentity());
    EXPECT_FALSE(Rotation(kZ, 0.5).IsIdentity());
    EXPECT_TRUE(Rotation(kZ * 0.99e-6, 0.5).IsIdentity());
    matrix.AxisRotation(kZ * 0.99e-6, 0.5);
    EXPECT_EQ(Difference(matrix, gsl_Matrix()), 0.0);
}

TEST(gsl_Matrix, IdentityIsExaminedOnlyWhenUnknownAndThenMadeExact) {
    const std::tuple<int, int, double, bool> cases[] = {
        {0, 3, 1e-8, true},       {0, 3, std::nextafter(1e-8, 1.0), false},
        {1, 0, -1e-8, true},      {1, 0, std::nextafter(-1e-8, -1.0), false},
        {2, 2, 1.00000001, true}, {2, 2, std::nextafter(1.00000001, 2.0), false},
        {1, 1, 0.99999999, true}, {1, 1, std::nextafter(0.99999999, 0.0), false},
        {3, 0, 5.0, true},  // the fourth row is not looked at, and overwritten
        {0, 0, kNaN, false},
    };
    for (const auto& [row, column, value, identity] : cases) {
        const gsl_Matrix matrix = With(gsl_Matrix(), row, column, value);
        EXPECT_EQ(matrix.IsIdentity(), identity) << row << column << ' ' << value;
        EXPECT_EQ(Difference(matrix, gsl_Matrix()) == 0.0, identity);
        EXPECT_EQ(matrix.IsIdentity(), identity);
    }
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
    for (int n = 0; n < 200; ++n) {
        const gsl_Matrix a = random.General(), b = random.General(), c = random.General();
        EXPECT_LT(Difference(a.GetConcatenated(b).GetConcatenated(c), a.GetConcatenated(b.GetConcatenated(c))), 1e-14);
        EXPECT_EQ(Difference(a.GetConcatenated(gsl_Matrix()), a), 0.0);
        gsl_Matrix self = a;
        self.Concatenate(self);
        EXPECT_EQ(Difference(self, a.GetConcatenated(a)), 0.0);
        const gsl_Matrix first = random.Rigid(), second = random.Rigid();
        const gsl_Point p = random.Point(), stepwise = Transformed(Transformed(p, first), second);
        EXPECT_LT(Difference(Transformed(p, first.GetConcatenated(second)), stepwise), 1e-12);
    }
}

TEST(gsl_Matrix, InversesUndoAndRefuseSingularMatrices) {
    RandomGeometry random(20218);
    const gsl_Matrix identity, zero({{0, 0, 0, 0}});
    for (int n = 0; n < 500; ++n) {
        const gsl_Matrix rigid = random.Rigid(), general = random.General();
        const auto inverse = general.Inverse();
        ASSERT_TRUE(inverse);
        const double greatest = Difference(*inverse, zero), error = 1e-14 * greatest * greatest + 1e-14;
        EXPECT_LT(Difference(general.GetConcatenated(*inverse), identity), error);
        EXPECT_LT(Difference(inverse->GetConcatenated(general), identity), error);
        EXPECT_LT(Difference(rigid.GetConcatenated(rigid.InverseRigidTransform()), identity), 1e-12);
        EXPECT_LT(Difference(*rigid.Inverse(), rigid.InverseRigidTransform()), 1e-12);
    }
    const gsl_Matrix tinyAndFar({{1e-20, 0, 0, 1e9}, {0, 1e-20, 0, 1e9}, {0, 0, 1e-20, 1e9}, {0, 0, 0, 1}});
    ASSERT_TRUE(tinyAndFar.Inverse());
    EXPECT_DOUBLE_EQ(tinyAndFar.Inverse()->NewOrigin().X(), -1e29);
    const gsl_Matrix needsPivots({{0, 0, 0, 1}, {0, 0, 1, 0}, {0, 1, 0, 0}, {1, 0, 0, 0}});
    EXPECT_EQ(Difference(*needsPivots.Inverse(), needsPivots), 0.0);
    EXPECT_TRUE(Translation(kX * 1e13).Inverse());
    const gsl_Matrix singular[] = {
        gsl_Matrix({{1, 2, 3, 0}, {4, 5, 6, 0}, {7, 8, 9, 0}, {0, 0, 0, 1}}),
        gsl_Matrix({{1, 1, 0, 0}, {1, 1 + 0x1p-47, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}),  // a pivot of 7e-15
        With(identity, 0, 0, 1e-310),                                                    // the result overflows
        Translation({kNaN, 0.0, 0.0}),
        Translation({0.0, kInfinity, 0.0}),
        Translation(kX * 1e15),
    };
    for (const gsl_Matrix& each : singular) EXPECT_FALSE(each.Inverse()) << &each - singular;
}

TEST(gsl_Matrix, MirrorReflectsInThePlane) {
    RandomGeometry random(20219);
    gsl_Matrix mirror = Rotation(kX, 1.0);
    mirror.Mirror({}, kX * 0.99e-6);
    EXPECT_TRUE(mirror.IsIdentity());
    for (int n = 0; n < 200; ++n) {
        const gsl_Point at = random.Point(), p = random.Point();
        const gsl_Vector normal = random.Vector(), unit = normal.NormalizedCopy();
        mirror.Mirror(at, normal);
        EXPECT_LT(Difference(Transformed(p, mirror), p - unit * (2.0 * unit.DotProduct(p - at))), 1e-12);
        EXPECT_FALSE(mirror.IsIdentity());
    }
}

/// What the decompositions of a matrix give: about x, y, z in radians; about z, y, x in degrees; axis and angle.
struct Decomposed {
    double x, y, z, a, b, c, angle = 9.0;
    gsl_Vector axis;
    gsl_Point point;

    explicit Decomposed(const gsl_Matrix& matrix) {
        matrix.GetRotationAngles(x, y, z);
        matrix.GetEulerianAnglesZYX(a, b, c);
        matrix.GetAxisRotation(point, axis, angle);
    }
};

TEST(gsl_Matrix, AnglesRebuildTheRotation) {
    RandomGeometry random(20220);
    const auto rebuilt = [](double x, double y, double z) {
        return Rotation(kX, x).GetConcatenated(Rotation(kY, y)).GetConcatenated(Rotation(kZ, z));
    };
    for (int n = 0; n < 1000; ++n) {
        // Every fourth at the pole of the angles, every fourth a half turn, where the quaternion takes another branch.
        const double tilt = n % 4 == 0 ? (n % 8 == 0 ? kPi / 2.0 : -kPi / 2.0) : random.Number(-1.5, 1.5);
        const gsl_Matrix rotation =
            n % 4 == 1 ? Rotation(random.Vector(), kPi) : rebuilt(random.Angle(), tilt, random.Angle());
        const Decomposed found(rotation);
        constexpr double degree = kPi / 180.0;
        EXPECT_LT(Difference(rebuilt(found.x, found.y, found.z), rotation), 1e-9);
        EXPECT_LT(Difference(rebuilt(found.c * degree, found.b * degree, found.a * degree), rotation), 1e-9);
        EXPECT_LT(Difference(Rotation(found.axis, found.angle), rotation), 1e-6);
        EXPECT_TRUE(found.angle >= 0.0 && found.angle <= 2.0 * kPi);
    }
    // The exact pole: m00 and m10 are 0, so all of the turn about the vertical counts as the first rotation.
    gsl_Matrix pole;
    pole.SetRotationVectors(kZ * -3.0, kX, kY * -2.0);
    const Decomposed atPole(pole);
    EXPECT_EQ((std::array{atPole.a, atPole.b, atPole.c}), (std::array{0.0, 90.0, 90.0}));
    EXPECT_EQ((std::array{atPole.y, atPole.z}), (std::array{kPi / 2.0, 0.0}));
    for (const double cosine : {0x1p-19, std::nextafter(0x1p-19, 1.0)}) {  // the boundary belongs to the pole
        const gsl_Matrix nearPole({{0, 0, 0, 0}, {cosine, 1, 0, 0}, {-1, 0, 1, 0}, {0, 0, 0, 1}});
        EXPECT_EQ(Decomposed(nearPole).z, cosine == 0x1p-19 ? 0.0 : kPi / 2.0);
    }
    // Half a turn, with two small diagonal elements of which only the order tells them from the great one.
    const gsl_Vector nearY(0.0, 1.0, 1e-6);
    EXPECT_LT(Difference(Decomposed(Rotation(nearY, kPi)).axis, nearY), 1e-12);
}

TEST(gsl_Matrix, AxisRotationIsReadInSinglePrecision) {
    gsl_Matrix matrix = Rotation(kY, 0.5);
    matrix.SetTranslation({4.0, 5.0, 6.0});
    const Decomposed found(matrix), none((gsl_Matrix()));
    EXPECT_EQ(found.point.AsArray(), (std::array{4.0, 5.0, 6.0}));  // the translation, which lies on no axis
    EXPECT_EQ(found.axis.AsArray(), kY.AsArray());
    EXPECT_EQ(found.angle, 2.0 * std::atan2(static_cast<double>(static_cast<float>(std::sin(0.25))),
                                            static_cast<double>(static_cast<float>(std::cos(0.25)))));
    EXPECT_EQ(none.angle, 0.0);
    EXPECT_EQ(none.axis.AsArray(), kZero.AsArray());

    double rows[4][4];
    Rotation(kX, 0.5).AsArray(rows);
    for (double* row : rows) std::transform(row, row + 4, row, [](double element) { return 4.0 * element; });
    EXPECT_NEAR(Decomposed(gsl_Matrix(rows)).angle, 0.5, 1e-6);  // homogeneous: the same rotation
    for (const double bad : {0.0, -1.0, 1e300, kNaN}) {          // whatever comes, it is defined
        const gsl_Matrix odd = With(With(gsl_Matrix(rows), 3, 3, bad), 0, 1, -bad);
        EXPECT_EQ(std::isnan(Decomposed(odd).angle), bad != 1e300) << bad;
    }
}

TEST(gsl_Matrix, SettersTouchTheirElementsOnly) {
    gsl_Matrix matrix;
    matrix.SetRow(3, {1.0, 2.0, 3.0});
    matrix.SetColumn(3, {4.0, 5.0, 6.0});
    matrix.SetRow(4, kX);
    matrix.SetColumn(4, kX);
    EXPECT_EQ(Difference(matrix, gsl_Matrix({{1, 0, 0, 4}, {0, 1, 0, 5}, {0, 0, 1, 6}, {1, 2, 3, 1}})), 0.0);
    EXPECT_EQ(matrix.NewAxis(4).AsArray(), kZero.AsArray());
    gsl_Vector translation;
    matrix.GetTranslation(translation);
    EXPECT_EQ(translation.AsArray(), matrix.NewOrigin().AsArray());
    EXPECT_EQ(Transformed(kX, matrix).AsArray(), kX.AsArray());  // vectors are not translated
    matrix.SetRotationVectors(kY * 2.0, kX * -3.0, kZero);
    EXPECT_EQ(matrix.NewXAxis().AsArray(), kY.AsArray());
    EXPECT_EQ(matrix.NewYAxis()[0], -1.0);
    EXPECT_TRUE(std::isnan(matrix.NewZAxis()[2]));
    double block[4][4] = {};
    axRot(kZ * 4.0, 4.0, kPi / 2.0, block);
    EXPECT_EQ((std::array{block[1][0], block[0][1], block[2][2]}), (std::array{1.0, -1.0, 1.0}));
    EXPECT_EQ((std::array{block[0][3], block[3][0], block[3][3]}), (std::array{0.0, 0.0, 0.0}));
}

}  // namespace
