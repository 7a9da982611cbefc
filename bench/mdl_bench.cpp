// What it costs to read a property attribute by keyword beside reading the bare value. Measured in one run: the ratio
// Attribute/x to Plain/x should stay below 1.5.

#include <mdl/mdl_PropAttributeGet.h>
#include <omu/omu.h>

#include <benchmark/benchmark.h>

namespace {

/// Reads the keyword "pressure", and nothing else, from one argument object over and over.
template <class Value, class Read>
void Measure(benchmark::State& state, const Value& value, const Read& read) {
    omu_Arguments arguments;
    arguments.Put(value, "pressure");
    for (auto _ : state) {
        arguments.Begin();
        arguments.Optional();
        read(arguments);
        arguments.End();
    }
}

template <class T>
void Plain(benchmark::State& state, const T& value) {
    T target{};
    Measure(state, value, [&](omu_Arguments& arguments) {
        arguments.Get(target, "pressure");
        benchmark::DoNotOptimize(target);
    });
}

template <class T>
void Attribute(benchmark::State& state, const T& value, bool allowNone) {
    mdl_PropAttr<T> target;
    Measure(state, value, [&](omu_Arguments& arguments) {
        mdl_PropAttributeGet<T>::Get(arguments, target, "pressure", false, allowNone);
        benchmark::DoNotOptimize(target);
    });
}

BENCHMARK_CAPTURE(Plain, double, 2.5);
BENCHMARK_CAPTURE(Attribute, double, 2.5, false);
BENCHMARK_CAPTURE(Attribute, doubleOrNone, 2.5, true);
BENCHMARK_CAPTURE(Plain, bool, true);
BENCHMARK_CAPTURE(Attribute, bool, true, false);
BENCHMARK_CAPTURE(Plain, int, 3);
BENCHMARK_CAPTURE(Attribute, int, 3, false);
BENCHMARK_CAPTURE(Plain, list, cow_List<int>{1, 2, 3});
BENCHMARK_CAPTURE(Attribute, list, cow_List<int>{1, 2, 3}, false);

}  // namespace
