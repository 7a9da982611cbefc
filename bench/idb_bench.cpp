// Writing and reading through mementos beside cereal's binary archive, which writes the same numbers without names,
// classes or versions. Read the ratios of one run: objects should stay within 2.5 (writing) and 4 (reading) times
// cereal, lists of numbers within 0.4.

#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <gsl/gsl_Point.h>
#include <idb/idb_ReadObject.h>
#include <idb/idb_WriteObject.h>

#include <benchmark/benchmark.h>
#include <cereal/archives/binary.hpp>
#include <cereal/types/vector.hpp>

#include <sstream>
#include <utility>
#include <vector>

namespace {

constexpr int size = 1000000;

/// Holds a list of T, ours by mementos and the peer's by cereal.
template <class T>
struct Holder {
    cow_List<T> values;

    Holder() = default;
    static unsigned TypeId() { return 0x7F0001; }
    static void InitializeMetadata(cls_ClassRegistrar& r) {
        r.Class<Holder>("Holder", 1).template Add<cow_List<T>>("values");
    }
    void DBWrite(const cls_WriteVisitor& v) const { v.Write("values", values); }
    explicit Holder(const cls_ReadVisitor& v) : values(v.Read("values", cow_List<T>())) {}
};

struct PeerPoint {
    double x, y, z;
    template <class Archive>
    void serialize(Archive& archive) {
        archive(x, y, z);
    }
};

template <class T>
cls_ClassRegistrar& Registrar() {
    static cls_ClassRegistrar registrar;
    gsl_Point::InitializeMetadata(registrar);
    Holder<T>::InitializeMetadata(registrar);
    return registrar;
}

Holder<gsl_Point> Points() {
    std::vector<gsl_Point> points;
    points.reserve(size);
    for (int i = 0; i < size; ++i) points.emplace_back(i, 0.5 * i, -i);
    Holder<gsl_Point> holder;
    holder.values = cow_List<gsl_Point>(std::move(points));
    return holder;
}
std::vector<PeerPoint> PeerPoints() {
    std::vector<PeerPoint> points;
    points.reserve(size);
    for (int i = 0; i < size; ++i) points.push_back({1.0 * i, 0.5 * i, -1.0 * i});
    return points;
}
Holder<double> Doubles() {
    Holder<double> holder;
    holder.values = cow_List<double>(std::vector<double>(size, 0.1));
    return holder;
}
std::vector<double> PeerDoubles() { return std::vector<double>(size, 0.1); }

template <class T>
std::string Written(const Holder<T>& holder, const cls_ClassRegistrar& registrar) {
    bio_Ofilter out;
    idb_WriteObject(out, registrar, holder);
    return out.Bytes();
}

template <class T>
void Write(benchmark::State& state, Holder<T> (*make)()) {
    const cls_ClassRegistrar& registrar = Registrar<T>();
    const Holder<T> holder = make();
    for (auto _ : state) {
        bio_Ofilter out;
        idb_WriteObject(out, registrar, holder);
        benchmark::DoNotOptimize(out.Bytes().data());
    }
}

template <class T>
void Read(benchmark::State& state, Holder<T> (*make)()) {
    const cls_ClassRegistrar& registrar = Registrar<T>();
    const std::string bytes = Written(make(), registrar);
    for (auto _ : state) {
        state.PauseTiming();
        std::string copy = bytes;
        state.ResumeTiming();
        bio_Ifilter in(std::move(copy));
        const auto holder = idb_ReadObject<Holder<T>>(in, registrar);
        benchmark::DoNotOptimize(holder.values.ConstGet(size - 1));
    }
}

template <class T>
void PeerWrite(benchmark::State& state, std::vector<T> (*make)()) {
    const std::vector<T> values = make();
    for (auto _ : state) {
        std::ostringstream out;
        cereal::BinaryOutputArchive archive(out);
        archive(values);
        benchmark::DoNotOptimize(out.tellp());
    }
}

template <class T>
void PeerRead(benchmark::State& state, std::vector<T> (*make)()) {
    std::ostringstream out;
    {
        cereal::BinaryOutputArchive archive(out);
        archive(make());
    }
    const std::string bytes = out.str();
    for (auto _ : state) {
        state.PauseTiming();
        std::string copy = bytes;
        state.ResumeTiming();
        std::istringstream in(std::move(copy));
        cereal::BinaryInputArchive archive(in);
        std::vector<T> values;
        archive(values);
        benchmark::DoNotOptimize(values.back());
    }
}

}  // namespace

BENCHMARK_CAPTURE(Write, points, Points)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PeerWrite, points, PeerPoints)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Read, points, Points)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PeerRead, points, PeerPoints)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Write, doubles, Doubles)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PeerWrite, doubles, PeerDoubles)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Read, doubles, Doubles)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PeerRead, doubles, PeerDoubles)->Unit(benchmark::kMillisecond);
