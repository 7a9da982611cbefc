// Single-precision transforms beside glm, whose aligned types use SSE intrinsics and whose packed types are scalar.
// Read the ratios of one run: none of ours should be slower than the faster of the two.

// glm wants these before its headers, of which the plain one comes first.
#define GLM_FORCE_INTRINSICS
#include <g3d/g3d_XForm.h>

#include <benchmark/benchmark.h>
#include <glm/glm.hpp>
#include <glm/gtc/type_aligned.hpp>

#include <random>
#include <vector>

namespace {

constexpr int pointCount = 1000000;
constexpr int matrixCount = 512;  // three arrays of them stay in the second level cache

std::mt19937_64& Generator() {
    static std::mt19937_64 generator(42);
    return generator;
}

float Number() { return std::uniform_real_distribution<float>(-1.0F, 1.0F)(Generator()); }

/// Close to the identity: repeated use neither overflows nor sinks into subnormal numbers.
template <class Matrix>
Matrix NearIdentity() {
    Matrix matrix(1.0F);
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) matrix[i][j] += 1e-7F * Number();
    return matrix;
}
template <>
g3d_XForm NearIdentity<g3d_XForm>() {
    g3d_XForm matrix;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) matrix.M(i, j) += 1e-7F * Number();
    return matrix;
}

void Transform(const g3d_XForm& matrix, std::vector<g3d_Point>& points) {
    matrix.XForm(points.data(), static_cast<int>(points.size()));
}
template <class Matrix, class Point>
void Transform(const Matrix& matrix, std::vector<Point>& points) {
    for (Point& point : points) point = matrix * point;
}

void Invert(g3d_XForm& matrix) { matrix.Invert(); }
template <class Matrix>
void Invert(Matrix& matrix) {
    matrix = glm::inverse(matrix);
}

template <class Matrix, class Point>
void Points(benchmark::State& state) {
    std::vector<Point> points;
    points.reserve(pointCount);
    for (int n = 0; n < pointCount; ++n) points.emplace_back(Number(), Number(), Number(), 1.0F);
    const auto matrix = NearIdentity<Matrix>();
    for (auto _ : state) {
        Transform(matrix, points);
        benchmark::ClobberMemory();
    }
}

template <class Matrix>
struct Matrices {
    std::vector<Matrix> a, b, result = std::vector<Matrix>(matrixCount);

    Matrices() {
        for (int n = 0; n < matrixCount; ++n) {
            a.push_back(NearIdentity<Matrix>());
            b.push_back(NearIdentity<Matrix>());
        }
    }
};

template <class Matrix>
void Product(benchmark::State& state) {
    Matrices<Matrix> m;
    for (auto _ : state) {
        for (std::size_t n = 0; n < matrixCount; ++n) m.result[n] = m.a[n] * m.b[n];
        benchmark::ClobberMemory();
    }
}

template <class Matrix>
void Inverse(benchmark::State& state) {
    Matrices<Matrix> m;
    for (auto _ : state) {
        for (Matrix& matrix : m.a) Invert(matrix);
        benchmark::ClobberMemory();
    }
}

}  // namespace

BENCHMARK_TEMPLATE(Points, g3d_XForm, g3d_Point)->Unit(benchmark::kMicrosecond);
BENCHMARK_TEMPLATE(Points, glm::aligned_mat4, glm::aligned_vec4)->Unit(benchmark::kMicrosecond);
BENCHMARK_TEMPLATE(Points, glm::mat4, glm::vec4)->Unit(benchmark::kMicrosecond);
BENCHMARK_TEMPLATE(Product, g3d_XForm)->Unit(benchmark::kMicrosecond);
BENCHMARK_TEMPLATE(Product, glm::aligned_mat4)->Unit(benchmark::kMicrosecond);
BENCHMARK_TEMPLATE(Product, glm::mat4)->Unit(benchmark::kMicrosecond);
BENCHMARK_TEMPLATE(Inverse, g3d_XForm)->Unit(benchmark::kMicrosecond);
BENCHMARK_TEMPLATE(Inverse, glm::aligned_mat4)->Unit(benchmark::kMicrosecond);
BENCHMARK_TEMPLATE(Inverse, glm::mat4)->Unit(benchmark::kMicrosecond);
