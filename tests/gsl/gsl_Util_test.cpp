// Protects the tolerances' place and values, and the equality of numbers.
#include <base/OrvBasTimeCounter.h>
#include <gsl/gsl_Real.h>
#include <gsl/gsl_Util.h>
#include <support/RandomGeometry.h>

#include <gtest/gtest.h>

namespace {

TEST(gsl_Util, KeepsTolerancesAndStateAndComesBackFresh) {
    gsl_Util& util = gsl_Util::Instance();
    EXPECT_EQ(&util, &omi_Singleton<gsl_Util>::Instance());
    EXPECT_EQ((std::array{util.LinTol(), util.LinTolSq(), util.AngTol(), util.FourthTol()}),
              (std::array{1e-6, 1e-12, 1e-10, 1e-4}));
    EXPECT_LE(util.CreationTime(), OrvBasTimeCounter());
    util.SetOldDisplayFactor(true);
    EXPECT_EQ(util.DisplayFactors(), (std::array{45.0, 22.5, 15.0, 5.625, 2.8125}));
    util.SetOldDisplayFactor(false);
    EXPECT_EQ(util.DisplayFactors()[2], 11.25);
    util.SetOldDisplayFactor(true);
    omi_Singleton<gsl_Util>::Finalize();
    EXPECT_EQ(gsl_Util::Instance().DisplayFactors()[2], 11.25);
}

TEST(gsl_Real, EqualIsInclusiveOnBothSides) {
    EXPECT_TRUE(gsl_RealEqual(1.0, 1.25, 0.25));
    EXPECT_TRUE(gsl_RealEqual(1.25, 1.0, 0.25));
    EXPECT_FALSE(gsl_RealEqual(1.0, std::nextafter(1.25, 2.0), 0.25));
    EXPECT_FALSE(gsl_RealEqual(1.0, 1.0, -0.25));
    EXPECT_FALSE(gsl_RealEqual(kNaN, kNaN, kInfinity));
}

TEST(gsl_Real, EqualDigComparesRoundedDigitsOnly) {
    const std::tuple<double, double, int, bool> cases[] = {
        {1.23456, 1.23457, 5, true},
        {1.23456, 1.23457, 6, false},
        {1.5, 1.5, 99, true},  // the same number always, others not beyond 15 digits
        {1.5, std::nextafter(1.5, 2.0), 15, true},
        {1.5, std::nextafter(1.5, 2.0), 16, false},
        {1.25, 12.5, 3, true},    // the decade is not compared
        {2.5, 3.0, 1, true},      // half goes up,
        {-2.5, -3.0, 1, true},    // away from zero
        {2.5, -2.5, 1, false},    // the sign counts
        {0.0, 1e-300, 1, false},  // zero has no digits
        {9.99, 1.0, 2, false},    // rounds up to 100, not to 10
        {1.0, 7.0, std::numeric_limits<int>::min(), true},
        {5e-324, 1e-323, 15, false},  // the scale overflows
        {kInfinity, kInfinity, 3, true},
        {kInfinity, -kInfinity, 3, false},
        {kNaN, kNaN, 3, false},
        {std::numeric_limits<double>::max(), 1.797693, 7, true},
    };
    for (const auto& [a, b, digits, equal] : cases) {
        EXPECT_EQ(gsl_RealEqualDig(a, b, digits), equal) << a << ' ' << b << ' ' << digits;
        EXPECT_EQ(gsl_RealEqualDig(b, a, digits), equal) << b << ' ' << a << ' ' << digits;
    }
}

}  // namespace
