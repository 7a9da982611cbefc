// Linear equations beside Eigen's PartialPivLU: decomposition and one solution, the copy of the matrix included.
// Read the ratios of one run, ours to Eigen's of the same order: at most 1 up to order 50, at most 2 at order 1000.

#include <gsl/gsl_LinearEqnLUDSolver.h>

#include <Eigen/LU>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <vector>

namespace {

/// Random numbers in [-1, 1), the same for both.
std::vector<double> Numbers(std::size_t count) {
    std::mt19937_64 generator(42);
    std::uniform_real_distribution<double> number(-1.0, 1.0);
    std::vector<double> numbers(count);
    std::generate(numbers.begin(), numbers.end(), [&] { return number(generator); });
    return numbers;
}

void Ours(benchmark::State& state) {
    const auto n = static_cast<std::size_t>(state.range(0));
    const std::vector<double> matrix = Numbers(n * n), b = Numbers(n);
    std::vector<double> work(n * n), x(n);
    std::vector<double*> rows(n);
    for (std::size_t i = 0; i < n; ++i) rows[i] = work.data() + i * n;
    gsl_LinearEqnLUDSolver solver;
    for (auto _ : state) {
        work = matrix;
        solver.SetMatrix(rows.data(), static_cast<unsigned>(n));
        solver.Solve(b.data(), x.data());
        benchmark::DoNotOptimize(x.data());
        benchmark::ClobberMemory();
    }
}

void Eigens(benchmark::State& state) {
    const auto n = static_cast<Eigen::Index>(state.range(0));
    const std::vector<double> numbers = Numbers(static_cast<std::size_t>(n * n)),
                              rightSide = Numbers(static_cast<std::size_t>(n));
    const Eigen::MatrixXd matrix = Eigen::Map<const Eigen::MatrixXd>(numbers.data(), n, n).transpose();
    const Eigen::VectorXd b = Eigen::Map<const Eigen::VectorXd>(rightSide.data(), n);
    Eigen::PartialPivLU<Eigen::MatrixXd> solver(n);
    Eigen::VectorXd x(n);
    for (auto _ : state) {
        solver.compute(matrix);
        x = solver.solve(b);
        benchmark::DoNotOptimize(x.data());
        benchmark::ClobberMemory();
    }
}

/// The order known to the compiler: what ours cannot be told.
template <int N>
void EigensFixed(benchmark::State& state) {
    constexpr std::size_t n = N;
    const std::vector<double> numbers = Numbers(n * n), rightSide = Numbers(n);
    using Matrix = Eigen::Matrix<double, N, N>;
    using Vector = Eigen::Matrix<double, N, 1>;
    const Matrix matrix = Eigen::Map<const Matrix>(numbers.data()).transpose();
    const Vector b = Eigen::Map<const Vector>(rightSide.data());
    Eigen::PartialPivLU<Matrix> solver;
    Vector x;
    for (auto _ : state) {
        solver.compute(matrix);
        x = solver.solve(b);
        benchmark::DoNotOptimize(x.data());
        benchmark::ClobberMemory();
    }
}

const int registered = [] {
    for (const int n : {3, 6, 12, 50, 200, 1000}) {
        benchmark::RegisterBenchmark("Ours", Ours)
            ->Arg(n)
            ->Unit(n < 100 ? benchmark::kNanosecond : benchmark::kMicrosecond);
        benchmark::RegisterBenchmark("Eigen", Eigens)
            ->Arg(n)
            ->Unit(n < 100 ? benchmark::kNanosecond : benchmark::kMicrosecond);
    }
    benchmark::RegisterBenchmark("EigenFixed/3", EigensFixed<3>);
    benchmark::RegisterBenchmark("EigenFixed/6", EigensFixed<6>);
    benchmark::RegisterBenchmark("EigenFixed/12", EigensFixed<12>);
    return 0;
}();

}  // namespace
