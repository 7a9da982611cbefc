// The flat routines: principal values and frames beside Jacobi's rotations in extended precision, array arithmetic
// beside plain loops in both of its bodies, and what is odd about each routine, once.

#include <base/OrvBasOmniSSELevel.h>
#include <support/Environment.h>
#include <support/Jacobi.h>
#include <support/SymmetricMatrices.h>
#include <utf/utf_flat.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <vector>

namespace {

using testing::_, testing::ElementsAre;
using Values = std::vector<double>;
constexpr double kInf = std::numeric_limits<double>::infinity(), kNaN = std::numeric_limits<double>::quiet_NaN();

const int32_t* At(const int32_t& number) { return &number; }

/// Three values, then the directions.
Values Sprind(const Values& s, int32_t flag, int32_t ndi, int32_t nshr) {
    Values pv(12);
    utf_sprind(s.data(), pv.data(), pv.data() + 3, &flag, &ndi, &nshr);
    return pv;
}
Values CalPrinQuat(const Values& s, int32_t lflag, int32_t code, int32_t ndi, int32_t nshr) {
    Values out(7);
    utf_calprinquat(s.data(), out.data(), &lflag, &code, &ndi, &nshr);
    return out;
}
Values CalQuat(const Values& columns, int32_t scalarFirst) {
    Values q(4);
    utf_calquat(q.data(), columns.data(), &scalarFirst);
    return q;
}
Values Rotated(const Values& s, const Values& q, int32_t code) {
    Values out(9);
    utf_quatrot(s.data(), q.data(), out.data(), &code);
    return out;
}
auto StartsWith(double a, double b, double c) { return ElementsAre(a, b, c, _, _, _, _, _, _, _, _, _); }
const Values kAxes = {1, 0, 0, 0, 1, 0, 0, 0, 1};

}  // namespace

TEST(Flat, PrincipalValuesAndFramesOfLapacksFamilies) {
    SCOPED_TRACE("seed 5");
    std::mt19937_64 random(5);
    for (const SymmetricFamily& family : kSymmetricFamilies)
        for (const double scale : {1.0, 1e100, 1e-12, 1e-310})
            for (int round = 0; round < 100; ++round) {
                const auto t = SymmetricMatrix(family, round % 2 != 0, scale, random);
                const Values s(t.begin(), t.end());
                const Jacobi exact(t.data());
                const auto norm = static_cast<double>(std::max(std::abs(exact.values[0]), -exact.values[2]));
                const Values out = CalPrinQuat(s, 1, 7, 3, 3);
                const Values pv = Sprind(s, 1, 3, 3);
                // The conjugate, scalar first, leads from S to its principal axes.
                const Values diagonal = Rotated(s, {out[6], -out[3], -out[4], -out[5]}, 6);
                for (std::size_t i = 0; i < 3; ++i) {
                    for (std::size_t j = 0; j < 3; ++j)
                        ASSERT_NEAR(pv[3 + i] * pv[3 + j] + pv[6 + i] * pv[6 + j] + pv[9 + i] * pv[9 + j], i == j,
                                    1e-14);
                    // As precise as a frame can be, however close the values are.
                    ASSERT_NEAR(diagonal[4 * i], static_cast<double>(exact.values[i]), 1e-11 * norm) << family.name;
                    if (scale < 1e-200) continue;  // where the values are approximate, as the deviator is below 2e-16
                    const auto gap = std::min(i > 0 ? exact.values[i - 1] - exact.values[i] : kInf,
                                              i < 2 ? exact.values[i] - exact.values[i + 1] : kInf);
                    ASSERT_NEAR(out[i], static_cast<double>(exact.values[i]), (gap < 0.1 * norm ? 1e-7 : 1e-14) * norm);
                }
            }
}

TEST(Flat, WhatIsOddAboutPrincipalValues) {
    const double limit = 2 * 2.22e-12;  // the deviator is (-1, 2, -1)
    EXPECT_THAT(Sprind({0, 3, 0, std::nextafter(limit, 0), 0, 0}, 1, 3, 3), StartsWith(0, 3, 0)) << "not sorted";
    EXPECT_EQ(Sprind({0, 3, 0, limit, 0, 0}, 1, 3, 3)[0], 3) << "the limit is strict";
    EXPECT_THAT(Sprind({7, 7, 7}, 1, 3, 0), ElementsAre(7, 7, 7, 1, 0, 0, 0, 1, 0, 0, 0, 1));
    EXPECT_THAT(Sprind({0, 0, 9, 2}, 1, 3, 1), StartsWith(2, -2, 9)) << "the third stays";
    EXPECT_THAT(Sprind({0, 0, 9, 2}, 2, 3, 1), StartsWith(1, -1, 9)) << "engineering shears with any flag but 1";
    EXPECT_THAT(Sprind({5, 4}, 0, 0, 1), StartsWith(2.5, -2.5, 0)) << "missing components are 0";
    for (const double bad : {kNaN, kInf, -kInf})
        EXPECT_THAT(Sprind({1, 2, 3, 0, bad, 0}, 1, 3, 3), ElementsAre(_, _, _, 1, 0, 0, 0, 1, 0, 0, 0, 1));

    EXPECT_EQ(CalPrinQuat({0, 2}, 1, 9, 1, 1)[0], 2.0) << "code 9 with one direct component: s11 and s12";
    for (const int32_t lflag : {21, 25, 88, 91, 21999}) EXPECT_EQ(CalPrinQuat({0, 0, 0, 2}, lflag, 8, 3, 1)[0], 1);
    for (const int32_t lflag : {1, 20, 26, 87, 92, 1000, 20999})
        EXPECT_EQ(CalPrinQuat({0, 0, 0, 2}, lflag, 8, 3, 1)[0], 2);
    EXPECT_THAT(CalPrinQuat({-1}, 1, 7, 1, 0), ElementsAre(-1, 0, 0, 0, 0, 0, 1)) << "one direct component: not sorted";
    EXPECT_GT(CalPrinQuat({-0.0, 0, 0, 2}, 1, 8, 3, 1)[5], 0.3) << "-0 counts as 0";
    const double half = std::sqrt(0.5);
    EXPECT_THAT(CalPrinQuat({1, 3, 9}, 1, 8, 3, 0), ElementsAre(3, 1, 9, 0, 0, _, half)) << "only a pair is sorted";
    EXPECT_THAT(CalPrinQuat({1, 2, 3}, 1, 7, 3, 0), ElementsAre(3, 2, 1, _, 0, half, 0)) << "frame and all";
    EXPECT_THAT(CalPrinQuat({3, 1, 0, 0}, 1, 10, 3, 1), ElementsAre(3, 1, 0, 0, 1, 0, 0)) << "(z, w)";
}

TEST(Flat, Quaternions) {
    EXPECT_THAT(CalQuat(kAxes, 0), ElementsAre(0, 0, 0, 1));
    EXPECT_THAT(CalQuat(kAxes, -1), ElementsAre(1, 0, 0, 0)) << "any value but 0 is true";
    testing::internal::CaptureStdout();
    EXPECT_THAT(CalQuat({1, 0, 0, 0, -1, 0, 0, 0, -1}, 0), ElementsAre(1, 0, 0, 0)) << "half a turn";
    EXPECT_THAT(CalQuat({0, 1, 1, 1, 0, 1, 1, 1, -1}, 0)[1], std::sqrt(0.5)) << "of equal elements the later one";
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    testing::internal::CaptureStdout();
    CalQuat({-kInf, 0, 0, 0, -kInf, 0, 0, 0, -kInf}, 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), " SYSTEM ERROR 1 IN CALQUAT\n");

    Values q(4), left = {1, 0, 0, 0, -1, 0, 0, 0, 1};
    utf_getquat(q.data(), left.data());
    EXPECT_EQ(left, kAxes) << "made right-handed in place";
    EXPECT_THAT(Rotated({1, 2, 3, 4, 5, 6}, {1, 0}, 7), ElementsAre(1, -4, 5, -4, 2, -6, 5, -6, 3)) << "(y, z)";
}

TEST(Flat, ArraysInBothBodies) {
    SCOPED_TRACE("seed 6");
    std::mt19937_64 random(6);
    std::normal_distribution<double> normal;
    SetVariable("VLM_SSE_LEVEL_NOTIFIED", "1");
    for (const char* level : {"NONE", "AVX"}) {
        SetVariable("VLM_SSE_LEVEL", level);
        OrvBasOmniSetSSELevel();
        for (unsigned l = 1; l < 20; ++l) {
            const unsigned m = 1 + l % 4, n = 1 + l % 3;
            const int32_t counts[] = {static_cast<int32_t>(l), static_cast<int32_t>(m), static_cast<int32_t>(n)};
            Values a(l * m), b(m * n), c(l * n, 9.0), expected(l * n), transposed(l * m), copy(l * m);
            for (Values* x : {&a, &b}) std::generate(x->begin(), x->end(), [&] { return normal(random); });
            for (unsigned k = 0; k < l * n; ++k)
                for (unsigned i = 0; i < m; ++i) expected[k] += a[k % l + l * i] * b[i + m * (k / l)];
            utf_aprd(a.data(), b.data(), c.data(), counts, counts + 1, counts + 2);
            EXPECT_EQ(c, expected) << "to the last bit";
            utf_atra(a.data(), transposed.data(), counts, counts + 1);
            for (unsigned k = 0; k < l * m; ++k) EXPECT_EQ(transposed[k], a[k / m + l * (k % m)]);
            utf_copy(a.data(), copy.data(), At(counts[0] * counts[1]));
            EXPECT_EQ(copy, a);
        }
        const Values d = {1e36, 1e40, -1e40, kInf, -kInf, kNaN, 0.1, 1e-50, -2};
        std::vector<float> s(10, 7);
        for (const int32_t n : {-1, 0, 9}) utf_acopds(d.data(), s.data(), &n);
        EXPECT_THAT(s, ElementsAre(1e36F, 1e36F, -1e36F, 1e36F, -1e36F, testing::IsNan(), 0.1F, 0, -2, 7));
    }
    Values a = {1, 2, 3};
    utf_aset(a.data(), &kNaN, At(-1));
    utf_aset(a.data(), &kInf, At(2));
    utf_copy(&kNaN, a.data(), At(0));
    EXPECT_THAT(a, ElementsAre(kInf, kInf, 3));
}
