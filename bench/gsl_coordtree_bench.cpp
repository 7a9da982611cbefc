// The coordinate tree beside nanoflann (leaf size 10) on the same points: bulk build, nearest point, and all points in
// a radius with about ten hits. Read ratios of one run; build and radius should stay below 1, nearest too.
//
// The argument chooses the points: 0 is 1e6 uniform in the unit cube, 1 is 1e5 at 1e4 uniform places (ten at each), 2
// is 1e6 at 1e6 places of a grid, 3 is 1e5 at 8e3 places of a grid (a dozen at each).

#include <gsl/gsl_CoordTree.h>
#include <gsl/gsl_MergeCoincidentPoints.h>

#include <benchmark/benchmark.h>
#include <nanoflann.hpp>

#include <array>
#include <cmath>
#include <map>
#include <random>
#include <vector>

namespace {

struct Cloud {
    std::vector<gsl_Point> points;
    std::vector<std::array<double, 3>> coordinates;  // the peer's own layout
    std::vector<gsl_Point> queries;
    double radius = 0.0;

    [[nodiscard]] cow_List<gsl_Point> List() const { return cow_List<gsl_Point>(points); }

    // The names that the peer asks for.
    [[nodiscard]] std::size_t kdtree_get_point_count() const { return coordinates.size(); }
    [[nodiscard]] double kdtree_get_pt(std::size_t i, std::size_t axis) const { return coordinates[i][axis]; }
    template <class Box>
    bool kdtree_get_bbox(Box& /*box*/) const {
        return false;
    }
};

using Peer = nanoflann::KDTreeSingleIndexAdaptor<nanoflann::L2_Simple_Adaptor<double, Cloud>, Cloud, 3>;

Cloud Make(long kind) {
    std::mt19937_64 engine(20230 + static_cast<unsigned>(kind));
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const std::size_t count = kind % 2 == 0 ? 1000000 : 100000;
    Cloud cloud;
    cloud.points.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        if (kind == 1 && i >= count / 10) {
            cloud.points.push_back(cloud.points[engine() % (count / 10)]);
            continue;
        }
        gsl_Point p(unit(engine), unit(engine), unit(engine));
        for (unsigned axis = 0; axis < 3; ++axis) {
            if (kind == 3) p[axis] = std::floor(p[axis] * 20.0) / 20.0;
            if (kind == 2) p[axis] = std::floor(p[axis] * 100.0) / 100.0;
        }
        cloud.points.push_back(p);
    }
    for (const gsl_Point& p : cloud.points) cloud.coordinates.push_back(p.AsArray());
    for (int i = 0; i < 10000; ++i) cloud.queries.emplace_back(unit(engine), unit(engine), unit(engine));
    cloud.radius = std::cbrt(10.0 / (static_cast<double>(count) * 4.18879));
    return cloud;
}

const Cloud& Points(const benchmark::State& state) {
    static std::map<long, Cloud> clouds;
    const long kind = state.range(0);
    const auto known = clouds.find(kind);
    return known != clouds.end() ? known->second : clouds.emplace(kind, Make(kind)).first->second;
}

const nanoflann::KDTreeSingleIndexAdaptorParams kLeaf(10);

void Build(benchmark::State& state) {
    const cow_List<gsl_Point> list = Points(state).List();
    for (auto _ : state) benchmark::DoNotOptimize(gsl_CoordTree(list, 3).Size());
}

void PeerBuild(benchmark::State& state) {
    const Cloud& cloud = Points(state);
    for (auto _ : state) {
        Peer peer(3, cloud, kLeaf);
        peer.buildIndex();
        benchmark::DoNotOptimize(&peer);
    }
}

void Nearest(benchmark::State& state) {
    const Cloud& cloud = Points(state);
    const gsl_CoordTree tree(cloud.List(), 3);
    std::size_t i = 0;
    for (auto _ : state) {
        double distance = 0.0;
        benchmark::DoNotOptimize(tree.FindClosest(cloud.queries[i++ % cloud.queries.size()], &distance));
        benchmark::DoNotOptimize(distance);
    }
}

void PeerNearest(benchmark::State& state) {
    const Cloud& cloud = Points(state);
    Peer peer(3, cloud, kLeaf);
    peer.buildIndex();
    std::size_t i = 0;
    for (auto _ : state) {
        std::uint32_t index = 0;
        double squared = 0.0;
        peer.knnSearch(cloud.queries[i++ % cloud.queries.size()].AsArray().data(), 1, &index, &squared);
        benchmark::DoNotOptimize(index);
        benchmark::DoNotOptimize(squared);
    }
}

void Nearest10(benchmark::State& state) {
    const Cloud& cloud = Points(state);
    const gsl_CoordTree tree(cloud.List(), 3);
    std::size_t i = 0;
    cow_List<double> distances;
    for (auto _ : state)
        benchmark::DoNotOptimize(tree.FindClosest(cloud.queries[i++ % cloud.queries.size()], 10, &distances));
}

void PeerNearest10(benchmark::State& state) {
    const Cloud& cloud = Points(state);
    Peer peer(3, cloud, kLeaf);
    peer.buildIndex();
    std::size_t i = 0;
    std::array<std::uint32_t, 10> indices{};
    std::array<double, 10> squared{};
    for (auto _ : state) {
        peer.knnSearch(cloud.queries[i++ % cloud.queries.size()].AsArray().data(), 10, indices.data(), squared.data());
        benchmark::DoNotOptimize(indices);
    }
}

void Radius(benchmark::State& state) {
    const Cloud& cloud = Points(state);
    const gsl_CoordTree tree(cloud.List(), 3);
    std::size_t i = 0, hits = 0;
    cow_List<double> distances;
    for (auto _ : state)
        hits += static_cast<std::size_t>(
            tree.FindInRadius(cloud.queries[i++ % cloud.queries.size()], cloud.radius, &distances).Length());
    state.counters["hits"] = static_cast<double>(hits) / static_cast<double>(i);
}

void RadiusUnsorted(benchmark::State& state) {
    const Cloud& cloud = Points(state);
    const gsl_CoordTree tree(cloud.List(), 3);
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(tree.FindAll(cloud.queries[i++ % cloud.queries.size()], cloud.radius));
}

void PeerRadiusOf(benchmark::State& state, bool sorted) {
    const Cloud& cloud = Points(state);
    Peer peer(3, cloud, kLeaf);
    peer.buildIndex();
    std::vector<std::pair<std::uint32_t, double>> found;
    const nanoflann::SearchParams parameters(32, 0.0F, sorted);
    std::size_t i = 0, hits = 0;
    for (auto _ : state)
        hits += peer.radiusSearch(cloud.queries[i++ % cloud.queries.size()].AsArray().data(),
                                  cloud.radius * cloud.radius, found, parameters);
    state.counters["hits"] = static_cast<double>(hits) / static_cast<double>(i);
}

void PeerRadius(benchmark::State& state) { PeerRadiusOf(state, true); }
void PeerRadiusUnsorted(benchmark::State& state) { PeerRadiusOf(state, false); }

void BuildOfEqualPoints(benchmark::State& state) {
    const cow_List<gsl_Point> list(std::vector<gsl_Point>(static_cast<std::size_t>(state.range(0))));
    for (auto _ : state) benchmark::DoNotOptimize(gsl_CoordTree(list, 3).Size());
}

void Merge(benchmark::State& state) {
    const Cloud& cloud = Points(state);
    for (auto _ : state) benchmark::DoNotOptimize(gsl_MergeCoincidentPoints(cloud.points, 1e-6).Length());
}

}  // namespace

BENCHMARK(Build)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);
BENCHMARK(PeerBuild)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);
BENCHMARK(Nearest)->DenseRange(0, 3);
BENCHMARK(PeerNearest)->DenseRange(0, 3);
BENCHMARK(Nearest10)->DenseRange(0, 3);
BENCHMARK(PeerNearest10)->DenseRange(0, 3);
BENCHMARK(Radius)->DenseRange(0, 3);
BENCHMARK(PeerRadius)->DenseRange(0, 3);
BENCHMARK(RadiusUnsorted)->DenseRange(0, 3);
BENCHMARK(PeerRadiusUnsorted)->DenseRange(0, 3);
BENCHMARK(BuildOfEqualPoints)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(Merge)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);
