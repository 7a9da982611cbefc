// Quaternions through the views beside Eigen's, over a million of them in arrays, where memory is the bound. Read the
// ratios of one run: product and cosines should stay within 1.05 times Eigen. ByValue is the product of quaternions
// that are returned by value: it should not tell of a heap.

#include <utf/utf_Quaternion.h>

#include <Eigen/Geometry>
#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace {

constexpr std::size_t count = 1000000;

template <class T>
struct Arrays {
    std::vector<T> a, b, out;

    explicit Arrays(std::size_t outWidth) : a(4 * count), b(4 * count), out(outWidth * count) {
        std::mt19937_64 random(42);
        std::uniform_real_distribution<T> number(T(-1), T(1));
        for (T& component : a) component = number(random);
        for (T& component : b) component = number(random);
    }
};

/// operate(pointers to a, b and out of one item), for all items, again and again.
template <class T, class Operate>
void Run(benchmark::State& state, std::size_t outWidth, Operate operate) {
    Arrays<T> arrays(outWidth);
    for (auto _ : state) {
        T *a = arrays.a.data(), *b = arrays.b.data(), *out = arrays.out.data();
        for (std::size_t i = 0; i < count; ++i, a += 4, b += 4, out += outWidth) operate(a, b, out);
        benchmark::DoNotOptimize(out);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(count));
}

template <class T>
void Product(benchmark::State& state) {
    Run<T>(state, 4, [](T* a, T* b, T* out) { utf_Quat3dBase<T>(a).mult(b, out); });
}
template <class T>
void PeerProduct(benchmark::State& state) {
    using Map = Eigen::Map<Eigen::Quaternion<T>>;
    Run<T>(state, 4, [](T* a, T* b, T* out) { Map{out} = Map(a) * Map(b); });
}
template <class T>
void Cosines(benchmark::State& state) {
    Run<T>(state, 9, [](T* a, T*, T* out) { utf_Quat3dBase<T>(a).cosines(reinterpret_cast<T(*)[3]>(out)); });
}
template <class T>
void PeerCosines(benchmark::State& state) {
    using Map = Eigen::Map<Eigen::Quaternion<T>>;
    Run<T>(state, 9, [](T* a, T*, T* out) {
        Eigen::Map<Eigen::Matrix<T, 3, 3, Eigen::RowMajor>>{out} = Map(a).toRotationMatrix();
    });
}

/// One product of quaternions held by value, returned by value.
void ByValue(benchmark::State& state) {
    Run<double>(state, 4, [](double* a, double* b, double* out) {
        const utf_Quaternion<double> product =
            utf_Quaternion<double>(res_QUATERNION_3D, a).mult(utf_Quaternion<double>(res_QUATERNION_3D, b));
        *out = product.W();
    });
}

}  // namespace

BENCHMARK(Product<double>)->Unit(benchmark::kMillisecond);
BENCHMARK(PeerProduct<double>)->Unit(benchmark::kMillisecond);
BENCHMARK(Product<float>)->Unit(benchmark::kMillisecond);
BENCHMARK(PeerProduct<float>)->Unit(benchmark::kMillisecond);
BENCHMARK(Cosines<double>)->Unit(benchmark::kMillisecond);
BENCHMARK(PeerCosines<double>)->Unit(benchmark::kMillisecond);
BENCHMARK(Cosines<float>)->Unit(benchmark::kMillisecond);
BENCHMARK(PeerCosines<float>)->Unit(benchmark::kMillisecond);
BENCHMARK(ByValue)->Unit(benchmark::kMillisecond);
