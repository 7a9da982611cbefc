// Directional distance of two closed surfaces, and how its time grows with the number of triangles, beside FCL's
// continuous collision (conservative advancement) on the same meshes and the same travel.
//
// `Search` walks trees that stand, `WithTrees` is the convenience that builds them each time, FCL searches hierarchies
// that stand. Read the growth of one run: ten times the triangles in about ten to fifteen times the time.
#include <gsl/gsl_DirectionalContact.h>
#include <gsl/gsl_TriOctree.h>
#include <gsl/gsl_TriTriDirDist.h>

#include <benchmark/benchmark.h>
#include <fcl/geometry/bvh/BVH_model.h>
#include <fcl/narrowphase/continuous_collision.h>

#include <cmath>
#include <cstdint>
#include <memory>
#include <numbers>

namespace {

enum Shape : std::int64_t { Spheres, Bumps, Nested };

/// A closed bumpy ball of about `count` triangles around (0, 0, height); a negative scale turns the bumps over.
cow_List<gsl_Triangle> Ball(std::int64_t count, double radius, double bump, double height) {
    const int rings = static_cast<int>(std::sqrt(static_cast<double>(count) / 4.0)), sectors = 2 * rings;
    const auto point = [&](int ring, int sector) {
        const double polar = std::numbers::pi * ring / rings,
                     around = 2.0 * std::numbers::pi * (sector % sectors) / sectors;
        const double r = radius + bump * std::sin(9.0 * polar) * std::cos(7.0 * around) * std::sin(polar);
        const double across = ring % rings == 0 ? 0.0 : r * std::sin(polar);
        return gsl_Point(across * std::cos(around), across * std::sin(around), height + r * std::cos(polar));
    };
    cow_List<gsl_Triangle> triangles;
    for (int ring = 0; ring < rings; ++ring) {
        for (int sector = 0; sector < sectors; ++sector) {
            const gsl_Point a = point(ring, sector), b = point(ring + 1, sector), c = point(ring + 1, sector + 1);
            if (ring + 1 < rings) triangles.Append(gsl_Triangle(a, b, c));
            if (ring > 0) triangles.Append(gsl_Triangle(a, c, point(ring, sector + 1)));
        }
    }
    return triangles;
}

/// Balls above each other; bumpy ones; one within another, where no bound spares the whole inner surface.
struct Sets {
    Sets(std::int64_t count, std::int64_t shape)
        : fixed(Ball(count, shape == Nested ? 1.5 : 1.0, shape == Spheres ? 0.0 : 0.05, 0.0)),
          movable(Ball(count, 1.0, shape == Spheres ? 0.0 : 0.04, shape == Nested ? 0.0 : 3.0)) {}

    cow_List<gsl_Triangle> fixed, movable;
    gsl_Vector direction{0.05, 0.02, -1.0};
};

std::unique_ptr<gsl_TriOctree> Tree(const cow_List<gsl_Triangle>& triangles, int depth) {
    gsl_BBox box;
    for (const gsl_Triangle& triangle : triangles) box.Add(triangle.GetBBox());
    auto tree = std::make_unique<gsl_TriOctree>(box, "", gsl_TriOctree::TRI_OCTREE_NODE, depth);
    int index = 0;
    for (const gsl_Triangle& t : triangles) tree->GetRoot()->Add(t.GetPoint(0), t.GetPoint(1), t.GetPoint(2), index++);
    return tree;
}

void Search(benchmark::State& state) {
    const Sets sets(state.range(0), state.range(1));
    const int depth = static_cast<int>(state.range(2));
    const auto fixed = Tree(sets.fixed, depth), movable = Tree(sets.movable, depth);
    gsl_TriTriDirDist search(depth);
    search.SetTriangles(sets.fixed, sets.movable);
    search.SetDirection(sets.direction);
    double distance = 0.0;
    for (auto _ : state) {
        distance = 1e30;
        if (!search.FindDirectionalDistance(fixed->GetRoot(), movable->GetRoot(), distance))
            state.SkipWithError("none");
    }
    state.counters["distance"] = distance;
    state.counters["triangles"] = sets.fixed.Length();
    state.counters["boxPairs"] = static_cast<double>(search.GetBoxPairCount());
    state.counters["trianglePairs"] = static_cast<double>(search.GetTrianglePairCount());
}

void WithTrees(benchmark::State& state) {
    const Sets sets(state.range(0), state.range(1));
    double distance = 0.0;
    for (auto _ : state)
        distance = gsl_FindDirectionalContact(sets.fixed, sets.movable, sets.direction).value().distance;
    state.counters["distance"] = distance;
}

using Model = fcl::BVHModel<fcl::OBBRSSd>;

std::shared_ptr<Model> FclModel(const cow_List<gsl_Triangle>& triangles) {
    const auto corner = [](const gsl_Point& p) { return fcl::Vector3d(p.X(), p.Y(), p.Z()); };
    auto model = std::make_shared<Model>();
    model->beginModel(triangles.Length(), 3 * triangles.Length());
    for (const gsl_Triangle& t : triangles)
        model->addTriangle(corner(t.GetPoint(0)), corner(t.GetPoint(1)), corner(t.GetPoint(2)));
    model->endModel();
    return model;
}

void Fcl(benchmark::State& state) {
    const Sets sets(state.range(0), state.range(1));
    const auto fixed = FclModel(sets.fixed), movable = FclModel(sets.movable);
    constexpr double travel = 3.0;  // as far as it looks
    const gsl_Vector way = sets.direction.NormalizedCopy() * travel;
    fcl::Transform3d start = fcl::Transform3d::Identity(), end = start;
    end.translation() = fcl::Vector3d(way.X(), way.Y(), way.Z());
    fcl::ContinuousCollisionRequestd request;
    request.ccd_motion_type = fcl::CCDM_TRANS;
    request.ccd_solver_type = fcl::CCDC_CONSERVATIVE_ADVANCEMENT;
    request.toc_err = 1e-6;
    fcl::ContinuousCollisionResultd result;
    for (auto _ : state) {
        result = fcl::ContinuousCollisionResultd();
        fcl::continuousCollide(movable.get(), start, end, fixed.get(), start, start, request, result);
    }
    state.counters["distance"] = result.is_collide ? result.time_of_contact * travel : -1.0;
}

void Counts(benchmark::internal::Benchmark* bench) {
    for (const Shape shape : {Spheres, Bumps, Nested})
        for (const int count : {2000, 20000, 200000}) bench->Args({count, shape});
    bench->Unit(benchmark::kMillisecond);
}

void CountsAndDepths(benchmark::internal::Benchmark* bench) {
    constexpr std::int64_t countsAndDepths[][2] = {{2000, 3}, {20000, 5}, {200000, 6}};  // as the convenience chooses
    for (const Shape shape : {Spheres, Bumps, Nested})
        for (const auto& [count, depth] : countsAndDepths) bench->Args({count, shape, depth});
    bench->Unit(benchmark::kMillisecond);
}

BENCHMARK(Search)->Apply(CountsAndDepths);
BENCHMARK(WithTrees)->Apply(Counts);
BENCHMARK(Fcl)->Apply(Counts);

}  // namespace
