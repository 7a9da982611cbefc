// Tensor measures beside Eigen's closed-form eigensolver, its matrix product and a plain copy of the same bytes. Read
// the ratios of one run.

#include <utf/utf_Quaternion.h>
#include <utf/utf_Tensor.h>
#include <utf/utf_TensorBatch.h>

#include <Eigen/Eigenvalues>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <vector>

namespace {

constexpr std::size_t tensorCount = 1000000;

/// Full tensors, packed.
const std::vector<double>& Stresses() {
    static const std::vector<double> stresses = [] {
        std::mt19937_64 generator(42);
        std::uniform_real_distribution<double> number(-100.0, 100.0);
        std::vector<double> all(6 * tensorCount);
        for (double& component : all) component = number(generator);
        return all;
    }();
    return stresses;
}

utf_TensorBatch<double> Batch() { return {res_TENSOR_3D_FULL, Stresses()}; }

utf_Quaternion<double> Turn() {
    const double components[] = {0.1, 0.5, -0.1, 0.8544003745317531};
    return {res_QUATERNION_3D, components};
}

Eigen::Matrix3d Matrix(const double* t) {
    Eigen::Matrix3d matrix;
    matrix << t[0], t[3], t[4], t[3], t[1], t[5], t[4], t[5], t[2];
    return matrix;
}

/// Times `act(out)`, which fills `perTensor` numbers a tensor.
template <class Act>
void Run(benchmark::State& state, std::size_t perTensor, const Act& act) {
    std::vector<double> out(perTensor * tensorCount);
    Stresses();  // made before the clock runs
    for (auto _ : state) {
        act(out);
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(tensorCount));
}

/// The same where `act(t, p)` treats one tensor.
template <class Act>
void RunEach(benchmark::State& state, std::size_t perTensor, const Act& act) {
    Run(state, perTensor, [&](std::vector<double>& out) {
        const double* const in = Stresses().data();
        for (std::size_t i = 0; i < tensorCount; ++i) act(in + 6 * i, out.data() + perTensor * i);
    });
}

void PrincipalEigen(benchmark::State& state) {
    Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d> solver;
    RunEach(state, 3, [&solver](const double* t, double* p) {
        solver.computeDirect(Matrix(t), Eigen::EigenvaluesOnly);
        std::copy_n(solver.eigenvalues().data(), 3, p);
    });
}
void PrincipalBatch(benchmark::State& state) {
    Run(state, 3, [](std::vector<double>& out) { Batch().principleValues(out); });
}
void PrincipalOneByOne(benchmark::State& state) {
    RunEach(state, 3, [](const double* t, double* p) {
        utf_Tensor<double>(res_TENSOR_3D_FULL, const_cast<double*>(t)).principleValues(p);
    });
}

void DirectionsEigen(benchmark::State& state) {
    Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d> solver;
    RunEach(state, 12, [&solver](const double* t, double* p) {
        solver.computeDirect(Matrix(t));
        std::copy_n(solver.eigenvalues().data(), 3, p);
        std::copy_n(solver.eigenvectors().data(), 9, p + 3);
    });
}
void DirectionsBatch(benchmark::State& state) {
    std::vector<double> quaternions(4 * tensorCount);
    Run(state, 3, [&](std::vector<double>& out) { Batch().tensorAsPrincipalAndQuaternions(out, quaternions); });
}

void Copy(benchmark::State& state) {
    Run(state, 6, [](std::vector<double>& out) { std::copy(Stresses().begin(), Stresses().end(), out.begin()); });
}
void MisesBatch(benchmark::State& state) {
    Run(state, 1, [](std::vector<double>& out) { Batch().mises(out); });
}
void TrescaBatch(benchmark::State& state) {
    Run(state, 1, [](std::vector<double>& out) { Batch().tresca(out); });
}

void RotationEigen(benchmark::State& state) {
    const utf_Quaternion<double> q = Turn();
    const cow_2DArray<double> cosines = q.cosines();
    const Eigen::Matrix3d r = Eigen::Map<const Eigen::Matrix<double, 3, 3, Eigen::RowMajor>>(cosines.Span().data());
    RunEach(state, 6, [&](const double* t, double* p) {
        const Eigen::Matrix3d turned = r.transpose() * Matrix(t) * r;
        p[0] = turned(0, 0), p[1] = turned(1, 1), p[2] = turned(2, 2);
        p[3] = turned(0, 1), p[4] = turned(0, 2), p[5] = turned(1, 2);
    });
}
void RotationBatch(benchmark::State& state) {
    Run(state, 6, [q = Turn()](std::vector<double>& out) { Batch().transform(q, false, out); });
}
void RotationOneByOne(benchmark::State& state) {
    RunEach(state, 6, [q = Turn()](const double* t, double* p) {
        std::copy_n(t, 6, p);
        utf_Tensor<double>(res_TENSOR_3D_FULL, p).transform(q, false);
    });
}

BENCHMARK(PrincipalEigen)->Unit(benchmark::kMillisecond);
BENCHMARK(PrincipalBatch)->Unit(benchmark::kMillisecond);
BENCHMARK(PrincipalOneByOne)->Unit(benchmark::kMillisecond);
BENCHMARK(DirectionsEigen)->Unit(benchmark::kMillisecond);
BENCHMARK(DirectionsBatch)->Unit(benchmark::kMillisecond);
BENCHMARK(Copy)->Unit(benchmark::kMillisecond);
BENCHMARK(MisesBatch)->Unit(benchmark::kMillisecond);
BENCHMARK(TrescaBatch)->Unit(benchmark::kMillisecond);
BENCHMARK(RotationEigen)->Unit(benchmark::kMillisecond);
BENCHMARK(RotationBatch)->Unit(benchmark::kMillisecond);
BENCHMARK(RotationOneByOne)->Unit(benchmark::kMillisecond);

}  // namespace
