// Protects the linear solvers, bit for bit against the plain loops, and what three points define through them.
#include <gsl/gsl_ComputeCircumCircle.h>
#include <gsl/gsl_Interval.h>
#include <gsl/gsl_LinearEqnLUDSolver.h>
#include <gsl/gsl_MergePointsWithinAcisTol.h>
#include <gsl/gsl_Real.h>
#include <gsl/gsl_SolveLinearSystem.h>
#include <support/RandomGeometry.h>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using Numbers = std::vector<double>;

/// A square matrix whose rows lie in memory in reverse.
struct Matrix {
    explicit Matrix(std::size_t n) : order(n), numbers(n * n) {}
    double& operator()(std::size_t i, std::size_t j) { return numbers[(order - 1 - i) * order + j]; }
    bool Solve(gsl_LinearEqnLUDSolver& solver, const Numbers& b, Numbers& x) {
        for (std::size_t i = 0; i < order; ++i) rows.push_back(&(*this)(i, 0));
        solver.SetMatrix(rows.data(), static_cast<unsigned>(order));
        return solver.Solve(b.data(), x.data());
    }
    std::size_t order;
    Numbers numbers;
    std::vector<double*> rows;
};

/// The method as the books print it, element after element. Gives the parity, 0 when a pivot was replaced.
int SolvePlainly(Matrix& a, Numbers& x) {
    const std::size_t n = a.order;
    Numbers big(n);
    int parity = 1, replaced = 0;
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = 0; j < n; ++j) big[i] = std::max(big[i], std::abs(a(i, j)));
    for (std::size_t j = 0; j < n; ++j) {
        std::size_t pivot = j;
        double best = 0.0;
        for (std::size_t i = 0; i < n; ++i) {
            for (std::size_t k = 0; k < std::min(i, j); ++k) a(i, j) -= a(i, k) * a(k, j);
            if (i < j || !(1.0 / big[i] * std::abs(a(i, j)) >= best)) continue;
            best = 1.0 / big[i] * std::abs(a(i, j));
            pivot = i;
        }
        for (std::size_t k = 0; k < n; ++k) std::swap(a(pivot, k), a(j, k));
        std::swap(x[pivot], x[j]);
        if (pivot != j) parity = -parity;
        big[pivot] = big[j];
        if (std::abs(a(j, j)) < 1e-14 && ++replaced > 0) a(j, j) = 1e-14;
        for (std::size_t i = j + 1; i < n; ++i) a(i, j) /= a(j, j);
    }
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = 0; j < i; ++j) x[i] -= a(i, j) * x[j];
    for (std::size_t i = n; i-- > 0; x[i] /= a(i, i))
        for (std::size_t j = i + 1; j < n; ++j) x[i] -= a(i, j) * x[j];
    return replaced > 0 ? 0 : parity;
}

bool Same(const Numbers& a, const Numbers& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](double p, double q) { return std::isnan(p) ? std::isnan(q) : p == q; });
}

TEST(gsl_LinearEqnLUDSolver, GivesTheBitsOfThePlainLoopsAndSolves) {
    RandomGeometry random(20511);
    for (const double strange : {1.0, 0.0, kNaN, kInfinity})  // with 0: ties, singular matrices
        for (const std::size_t n : {1U, 2U, 3U, 6U, 15U, 16U, 17U, 31U, 34U, 49U, 65U, 100U, 131U, 166U}) {
            SCOPED_TRACE(std::to_string(strange) + " " + std::to_string(n));
            Matrix a(n);
            Numbers b(n, 1.0), x(n);
            for (double& one : a.numbers) {
                one = random.Number(-1.4, 1.4) * std::pow(10.0, strange > 1.0 ? random.Number(-13.0, 200.0) : 0.0);
                if (strange == 0.0) one = std::round(one);
                if (random.Number(0.0, 1.0) < 0.004) one = strange;
            }
            for (std::size_t i = 0; i < n; ++i) a(i, i) += 2.0;  // no row of zeros
            Matrix ours = a, plain = a;
            Numbers expected = b;
            gsl_LinearEqnLUDSolver solver;
            ASSERT_TRUE(ours.Solve(solver, b, x));
            EXPECT_EQ(SolvePlainly(plain, expected), solver.IsNearSingular() ? 0 : solver.Parity());
            EXPECT_TRUE(Same(ours.numbers, plain.numbers) && Same(x, expected));
            for (std::size_t i = 0; strange == 1.0 && i < n; ++i) {
                long double rest = b[i], size = 1.0L;
                for (std::size_t j = 0; j < n; size += std::abs(x[j++])) rest -= 1.0L * a(i, j) * x[j];
                EXPECT_LT(std::abs(rest), size * 1e-14L);
            }
        }
}

TEST(gsl_LinearEqnLUDSolver, FailsAndForgetsAsStated) {
    const double low = std::nextafter(1e-14, 0.0);
    const std::tuple<std::array<double, 4>, bool, bool> cases[] = {
        // the matrix, whether it is solved, whether it is near singular
        {{1.0, 2.0, 0.0, 0.0}, false, true},   {{1.0, 2.0, kNaN, kNaN}, false, true},
        {{1.0, 2.0, 1.0, 2.0}, true, true},    {{kNaN, 1.0, kNaN, 2.0}, true, false},
        {{1.0, 0.0, 0.0, 1e-14}, true, false}, {{1.0, 0.0, 0.0, low}, false, true},
        {{1.0, 0.0, 1.0, 1e-14}, true, false}, {{1.0, 0.0, 1.0, low}, true, true}};
    gsl_LinearEqnLUDSolver solver;
    for (const auto& [numbers, isSolved, isNearSingular] : cases) {
        SCOPED_TRACE(testing::PrintToString(numbers));
        Matrix a(2);
        std::tie(a(0, 0), a(0, 1), a(1, 0), a(1, 1)) = std::tuple_cat(numbers);
        const Numbers before = a.numbers;
        Numbers x{7.0, 8.0};
        EXPECT_EQ(a.Solve(solver, {1.0, 1.0}, x), isSolved);
        EXPECT_EQ(solver.IsNearSingular(), isNearSingular);
        EXPECT_EQ(Same(a.numbers, before) && x[0] == 7.0, !isSolved);
        EXPECT_TRUE(solver.Parity() == 1 || !std::isnan(numbers[0]));  // nothing is greater than no number
    }
    double storage[] = {0.0, 2.0, 1.0, 1.0}, *rows[] = {storage, storage + 2}, x[] = {4.0, 5.0};
    solver.SetMatrix(rows, 2);
    EXPECT_TRUE(!solver.IsNearSingular() && solver.Solve(x, x) && x[0] == 3.0 && x[1] == 2.0);
    EXPECT_TRUE(solver.Solve(x, x) && x[0] == 0.5 && x[1] == 1.5 && solver.Parity() == -1);  // by the factors
    solver.SetMatrix(rows, 0);
    EXPECT_TRUE(solver.Solve(x, x) && solver.Parity() == 1);
    solver.SetMatrix(nullptr, 2);
    EXPECT_FALSE(solver.Solve(x, x) || gsl_LinearEqnLUDSolver().Solve(x, x));
}

TEST(gsl_ComputeCircumCircle, ThreePointsDefineCircleAreaShapeAndFrame) {
    RandomGeometry random(20513);
    for (int n = 0; n < 300; ++n) {
        const gsl_Point p1 = random.Point(), p2 = random.Point(), p3 = random.Point();
        gsl_Point center, origin;
        gsl_Vector normal, x, y, z;
        gsl_ComputeCircumCircle(p1, p2, p3, center, normal);
        const double radius = center.GetDistance(p1), area = gsl_ComputeAreaTriByPts(p1, p2, p3);
        for (const gsl_Point& p : {p1, p2, p3}) {
            EXPECT_NEAR(center.GetDistance(p), radius, 1e-11 * radius);
            EXPECT_NEAR(normal.DotProduct(p - center), 0.0, 1e-11 * radius);
        }
        EXPECT_NEAR(area, normal.TripleProduct(p2 - p1, p3 - p1) / 2.0, 1e-12 * area);
        const double shape = area / (0.75 * std::sqrt(3.0) * radius * radius);
        EXPECT_NEAR(gsl_ComputeShapeFactorTriByPnts(p1, p2, p3), shape, 1e-9);
        const auto scaled = [scale = std::array{1.0, 1e-300, 1e-82, 1e77, 1e160, 1e300}[n % 6]](const gsl_Point& p) {
            return gsl_Point(p.X() * scale, p.Y() * scale, p.Z() * scale);
        };
        EXPECT_NEAR(gsl_ComputeShapeFactorTriByPnts(scaled(p1), scaled(p2), scaled(p3)), shape, 1e-9);
        ASSERT_TRUE(gsl_Transcribe3PointsIntoOriginAndAxes(p1, p2, p3, origin, x, y, z));
        EXPECT_NEAR(x.TripleProduct(y, z), 1.0, 1e-14);
        EXPECT_LT(Difference(p2, p1 + x * p1.GetDistance(p2)) + Difference(z, normal), 1e-11);
        EXPECT_GT(y.DotProduct(p3 - p1), 0.0);
        EXPECT_NEAR(gsl_ComputeShapeFactorTriByPnts(p1 + x, p1 - x, p1 + y * std::sqrt(3.0)), 1.0, 1e-12);
        gsl_ComputeCircumCircle(p1, p2, gsl_Point(p1, p2), center, normal);  // collinear
        EXPECT_EQ(center.AsArray(), gsl_Point().AsArray());
        EXPECT_FALSE(gsl_Transcribe3PointsIntoOriginAndAxes(p1, p1, p3, origin, y, x, z) || x == y);
    }
    EXPECT_EQ(gsl_ComputeShapeFactorTriByPnts({}, {1.0, 0.0, 0.0}, {}), 0.0);
    EXPECT_NEAR(gsl_ComputeShapeFactorTriByPnts({}, {1e100, 0.0, 0.0}, {0.0, 1e90, 0.0}), 1.54e-10, 1e-12);
    EXPECT_TRUE(std::isnan(gsl_ComputeShapeFactorTriByPnts({kInfinity, 0.0, 0.0}, {}, {})));
}

TEST(gsl_MergePointsWithinAcisTol, BoundariesOfNumbersPointsAndIntervals) {
    for (const double apart : {1e-6, 1.1e-6}) {
        gsl_Point a, b(apart, 0.0, 0.0);
        EXPECT_EQ(gsl_MergePointsWithinAcisTol(a, b), apart == 1e-6);
        EXPECT_EQ((std::array{a.X(), b.X()}), apart == 1e-6 ? (std::array{5e-7, 5e-7}) : (std::array{0.0, apart}));
    }
    for (const double least : {1e-6, std::nextafter(1e-6, 0.0)}) {  // the determinant
        double x = 7.0, y = 7.0, z = 7.0;
        gsl_SolveLinearSystem(0.0, 2.0, 0.0, 0.5 * least, 0.0, 0.0, 3.0, 4.0, -1.0, 6.0, least, 1.0, x, y, z);
        EXPECT_EQ((std::array{x, y, z}), least == 1e-6 ? (std::array{2.0, 3.0, 17.0}) : (std::array{7.0, 7.0, 7.0}));
    }
    EXPECT_TRUE(gsl_RealLessEqual(1.25, 1.0, 0.25) && gsl_RealGreaterEqual(0.75, 1.0, 0.25));
    EXPECT_FALSE(gsl_RealLessEqual(std::nextafter(1.25, 2.0), 1.0, 0.25) || gsl_RealLessEqual(kNaN, 1.0, 1.0));
    EXPECT_FALSE(gsl_RealGreaterEqual(std::nextafter(0.75, 0.0), 1.0, 0.25) || gsl_RealGreaterEqual(1.0, kNaN, 1.0));
    EXPECT_EQ(gsl_Interval(2.0, -2.0).Interpolate(0.25), 1.0);
}

}  // namespace
