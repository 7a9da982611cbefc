// Protects the quaternion algebra against a rotation formula in extended precision, the ways in and out of matrices,
// arrays and axes with their deliberate asymmetries, and what comes of wrong kinds and degenerate frames.

#include <support/RandomGeometry.h>
#include <support/values.h>
#include <utf/utf_AxisAngle.h>
#include <utf/utf_QuaternionDoubleAdapter.h>
#include <utf/utf_QuaternionFloatAdapter.h>
#include <utf/utf_Slerp.h>

#include <gtest/gtest.h>

namespace {

using Four = std::array<double, 4>;
Four Numbers(const auto& q) { return {q.X(), q.Y(), q.Z(), q.W()}; }

/// Greatest difference of the components; the opposite of one is the same turn.
double Apart(const auto& a, const auto& b) {
    double same = 0.0, opposite = 0.0;
    for (std::size_t i = 0; i < 4; ++i) {
        same = std::max(same, std::abs(Numbers(a)[i] - Numbers(b)[i]));
        opposite = std::max(opposite, std::abs(Numbers(a)[i] + Numbers(b)[i]));
    }
    return std::min(same, opposite);
}

gsl_Vector Row(const auto& c, int i) { return {c.ConstGet(i, 0), c.ConstGet(i, 1), c.ConstGet(i, 2)}; }

/// v turned by Rodrigues' formula.
gsl_Vector Rodrigues(const utf_AxisAngle& turn, const gsl_Vector& v) {
    const long double c = cosl(turn.angleRadians), s = sinl(turn.angleRadians), x[] = {v.X(), v.Y(), v.Z()};
    const long double length = std::hypot<long double>(turn.axis.X(), turn.axis.Y(), turn.axis.Z());
    const long double k[] = {turn.axis.X() / length, turn.axis.Y() / length, turn.axis.Z() / length};
    const long double dot = k[0] * x[0] + k[1] * x[1] + k[2] * x[2];
    const auto turned = [&](int i, int j, int m) {
        return static_cast<double>(x[i] * c + (k[j] * x[m] - k[m] * x[j]) * s + k[i] * dot * (1 - c));
    };
    return {turned(0, 1, 2), turned(1, 2, 0), turned(2, 0, 1)};
}

template <class T>
class utf_QuaternionLaws : public testing::Test {
protected:
    static constexpr double kNear = 16 * double{std::numeric_limits<T>::epsilon()};
    RandomGeometry random{20240611};

    utf_AxisAngle Turn() { return {random.Vector(), random.Angle()}; }
    utf_Quaternion<T> Of(const gsl_Vector& axis, double angle) { return utf_FromAxisAngle<T>({axis, angle}); }
    std::array<std::array<utf_Quaternion<T>, 3>, 2> Turns() {
        const auto space = [this] { return utf_FromAxisAngle<T>(Turn()); };
        const auto plane = [this] {
            return utf_Quaternion<T>(res_QUATERNION_2D, Of(kZ, random.Angle()).Span().data() + 2);
        };
        return {{{space(), space(), space()}, {plane(), plane(), plane()}}};
    }
};
using BothPrecisions = testing::Types<float, double>;
TYPED_TEST_SUITE(utf_QuaternionLaws, BothPrecisions);

TYPED_TEST(utf_QuaternionLaws, CosinesAreTheTurnedAxesAndProductsTurnInSequence) {
    using T = TypeParam;
    for (int n = 0; n < 200; ++n) {
        const utf_AxisAngle first = this->Turn(), second = this->Turn();
        const auto a = utf_FromAxisAngle<T>(first), b = utf_FromAxisAngle<T>(second), q = b.mult(a);
        T numbers[4] = {q.X(), q.Y(), q.Z(), q.W()};
        const utf_Quat3dBase<T> v(numbers);
        const std::vector<T> named = {q.R11(), q.R12(), q.R13(), q.R21(), q.R22(), q.R23(), q.R31(), q.R32(), q.R33()};
        const std::vector<T> viewed = {v.R11(), v.R12(), v.R13(), v.R21(), v.R22(), v.R23(), v.R31(), v.R32(), v.R33()};
        ASSERT_EQ(named, viewed);
        ASSERT_EQ(q.cosines(), cow_2DArray<T>(3, 3, named));
        const gsl_Vector turned = Rodrigues(second, Rodrigues(first, n % 3 == 0 ? kX : n % 3 == 1 ? kY : kZ));
        ASSERT_LT(Difference(Row(q.cosines(), n % 3), turned), this->kNear);
        const gsl_Vector expected = first.axis.NormalizedCopy() * first.angleRadians;
        ASSERT_NEAR(a.toVector().constGet(n % 3), expected[static_cast<unsigned>(n % 3)], this->kNear);
    }
}

TYPED_TEST(utf_QuaternionLaws, GroupLawsHoldAndOutputsMayBeInputs) {
    using T = TypeParam;
    for (int n = 0; n < 100; ++n) {
        for (const auto& [a, b, c] : this->Turns()) {
            T left[] = {a.constGet(0), a.constGet(1), a.constGet(2), a.constGet(3)};
            T right[] = {b.constGet(0), b.constGet(1), b.constGet(2), b.constGet(3)};
            const utf_Quaternion<T> wrap(a.type(), left), wrapRight(a.type(), right);
            const auto operate = [&](const auto& view) {
                view.mult(right, right), view.mult(std::as_const(right), left), view.inverse(view);
            };
            a.count() == 4 ? operate(utf_Quat3dBase<T>(left)) : operate(utf_Quat2dBase<T>(left));
            ASSERT_EQ(Numbers(wrapRight), Numbers(a.mult(b)));
            ASSERT_EQ(Numbers(wrap), Numbers(a.mult(a.mult(b)).inverse()));
            ASSERT_LT(Apart(wrapRight.mult(c), a.mult(b.mult(c))), this->kNear);
            ASSERT_LT(Apart(a.inverse().mult(wrapRight), b), this->kNear);
            // A 2D quaternion is the 3D one of (0, 0, z, w).
            const utf_Quaternion<T> a3(res_QUATERNION_3D, cow_List<T>{a.X(), a.Y(), a.Z(), a.W()});
            ASSERT_LT(Difference(Row(a.cosines(), n % 3), Row(a3.cosines(), n % 3)), this->kNear);
        }
    }
}

TYPED_TEST(utf_QuaternionLaws, AnArrayGivesTheInverseAMatrixAndAxesTheQuaternion) {
    using Quaternion = utf_Quaternion<TypeParam>;
    using Adapter = std::conditional_t<sizeof(TypeParam) == 4, utf_QuaternionFloatAdapter, utf_QuaternionDoubleAdapter>;
    for (int n = 0; n < 100; ++n) {
        for (const auto& [q, unused, unusedToo] : this->Turns()) {
            const auto c = q.cosines();
            const gsl_Vector x = Row(c, 0) * 3, y = Row(c, 1), z = Row(c, 2);
            gsl_Matrix frame;
            frame.SetRotationVectors(x, y, z);
            ASSERT_LT(Apart(Quaternion(q.type(), c), q.inverse()), this->kNear);
            ASSERT_LT(Apart(Adapter(q.type(), Adapter(q).cosines()).quaternion(), q.inverse()), this->kNear);
            ASSERT_LT(Apart(Quaternion(q.type(), frame), q), this->kNear);
            // Of a left-handed frame the second axis turns round; in the plane it is not even looked at.
            ASSERT_LT(Apart(q.count() == 2 ? Quaternion(x, y * -1) : Quaternion(x, y * -1, z), q), this->kNear);
        }
        const auto a = static_cast<TypeParam>(this->random.Angle()), b = a / 3, c = b - 1;
        ASSERT_LT(Apart(Quaternion(a, b, c), this->Of(kX, a).mult(this->Of(kY, b)).mult(this->Of(kZ, c))), this->kNear);
    }
}

TYPED_TEST(utf_QuaternionLaws, SlerpGoesTheShorterWayAtConstantSpeed) {
    for (int n = 0; n < 100; ++n) {
        for (const auto& [a, b, unused] : this->Turns()) {
            const double whole = utf_AngleBetween(a, b), fraction = this->random.Number(0, 1);
            const auto between = utf_Slerp(a, b, fraction);
            ASSERT_LT(Apart(utf_Slerp(a, b, 0.0), a) + Apart(utf_Slerp(a, b, 1.0), b), this->kNear);
            ASSERT_EQ(between.type(), a.type());
            ASSERT_NEAR(utf_ToAxisAngle(a.inverse().mult(b)).angleRadians, whole, this->kNear);
            ASSERT_NEAR(utf_AngleBetween(a, between), fraction * whole, this->kNear);
            ASSERT_NEAR(utf_AngleBetween(between, b), (1 - fraction) * whole, this->kNear);
        }
    }
    // Small turns keep their digits; no turn has no axis; the axis turns round rather than the angle exceed pi.
    EXPECT_EQ(utf_AngleBetween(this->Of(kX * 5, 0x1p-60), this->Of(kZero, 1.0)), 0x1p-60);
    EXPECT_EQ(utf_ToAxisAngle(this->Of(kZero, 1.0)).axis, kZero);
    EXPECT_LT(Difference(utf_ToAxisAngle(this->Of(kY, 1.5 * kPi)).axis, kY * -1), this->kNear);
}

using Quaternion = utf_Quaternion<double>;

TEST(utf_Quaternion, ArraysOfOtherShapesAreRefused) {
    const std::string space = "c.Rows() == 3 && c.Cols() == 3", plane = "c.Rows()==2 || c.Rows()==3";
    const auto expect = [](int kind, int rows, int columns, const std::string& message) {
        cow_List<cow_List<double>> lists;
        for (int i = 0; i < rows; ++i) lists.Append(cow_List<double>(std::vector<double>(std::size_t(columns))));
        const auto type = static_cast<res_DataTypeEnm>(kind);
        EXPECT_EQ(Refusal([&] { (void)Quaternion(type, cow_2DArray<double>(rows, columns)); }), message);
        EXPECT_EQ(Refusal([&] { (void)utf_QuaternionDoubleAdapter(type, lists); }), message);
    };
    expect(7, 3, 2, space), expect(7, 2, 3, space), expect(7, 3, 3, "accepted"), expect(6, 2, 2, "accepted");
    expect(6, 1, 2, plane), expect(6, 4, 4, plane), expect(6, 3, 2, "c.Cols() == 3"), expect(6, 2, 3, "c.Cols() == 2");
    expect(6, 0, 0, plane), expect(8, 3, 3, "!\"Unknown quaternion type\"");
    const auto ragged = [] { (void)utf_QuaternionDoubleAdapter(res_QUATERNION_2D, {{1, 0}, {0, 1, 0}}); };
    EXPECT_EQ(Refusal(ragged), "c.Cols() == 2");
}

TEST(utf_Quaternion, NothingIsNormalisedAndOddKindsAreEmpty) {
    double q[] = {1, 2, 3, 4};
    const Quaternion space(res_QUATERNION_3D, q), plane(res_QUATERNION_2D, q);
    EXPECT_EQ(Numbers(space.inverse()), (Four{-1, -2, -3, 4}));
    EXPECT_EQ(Numbers(space.mult(plane)), (Four{4, 3, 10, 5}));
    EXPECT_EQ(Numbers(plane.mult(space)), (Four{0, 0, 10, 5}));
    EXPECT_EQ(space.R11() + plane.R11(), 4.0 - 1.0);  // 1 - 2 z^2 in the plane
    EXPECT_EQ(plane.toVector().constGet(2), kPi);
    for (const double w : {1.0, -1.0, 1.5, 0.5}) {
        q[3] = w;  // wrapped
        EXPECT_NEAR(space.toVector().constGet(1), w == 0.5 ? 2 * (2 * kPi / 3) / std::sqrt(0.75) : 0.0, 1e-14);
    }
    Quaternion odd(static_cast<res_DataTypeEnm>(8), q);
    EXPECT_TRUE(odd.projectOn(space, 0, 1.0));
    EXPECT_EQ(odd.mult(space).count() + utf_QuaternionDoubleAdapter(odd).cosines().Length(), 0);
    EXPECT_EQ(odd.R33() + odd.toVector().magnitude() + odd.W() + odd.R12_2d(), 0.0);
}

TEST(utf_Quaternion, AProjectedAxisBecomesTheSecond) {
    RandomGeometry random(77);
    for (unsigned axis = 0; axis < 99; ++axis) {
        Quaternion q = utf_FromAxisAngle<double>({random.Vector(), random.Angle()});
        const Quaternion other = utf_FromAxisAngle<double>({random.Vector(), random.Angle()});
        const gsl_Vector before = Row(q.cosines(), static_cast<int>(axis % 3));
        const gsl_Vector normal(other.R13(), other.R23(), other.R33());  // a column, not an axis of `other`
        const double dot = before.DotProduct(normal);
        gsl_Vector projected = before - normal * dot;
        projected.Normalize();
        ASSERT_EQ(q.projectOn(other, axis % 3, 0.9), std::abs(dot) <= 0.9);
        ASSERT_EQ(Difference(Row(q.cosines(), 1), projected) < 1e-14, std::abs(dot) <= 0.9);
        ASSERT_EQ(Difference(Row(q.cosines(), 2), normal) < 1e-14, std::abs(dot) <= 0.9);
    }
    // The tolerance is inclusive and looks at the normal as it stands; degenerate input changes nothing.
    double q[4];
    const utf_Quat3dBase<double> view(q);
    view.setIdentity();
    const gsl_Vector slanted(0.5, 0, 1);
    EXPECT_FALSE(view.projectOn(slanted, 0, std::nextafter(0.5, 0.0)));
    for (const gsl_Vector& normal : {kX, kZero, gsl_Vector(kNaN, 0, 1)}) EXPECT_FALSE(view.projectOn(normal, 0, 2.0));
    EXPECT_FALSE(view.projectOn(kY, 3, 2.0) || utf_Quat2dBase<double>(q + 2).projectOn(kX, 2, 0.5));
    EXPECT_EQ(q[3], 1.0);
    EXPECT_TRUE(view.projectOn(slanted, 0, 0.5));
    Quaternion flat(kX + kY, kY);  // in the plane the projected axis keeps its angle, and becomes the second
    EXPECT_TRUE(flat.projectOn(Quaternion(kX, kY), 0, 0.0));
    EXPECT_LT(Difference(Row(flat.cosines(), 1), (kX + kY).NormalizedCopy()), 1e-15);
}

}  // namespace
