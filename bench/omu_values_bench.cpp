// Text of large values beside the repr of CPython for the same values, and what reading the arguments of a call costs.
// Measured in one run: the ratio Text/x to CPython/x should stay below 1, Arguments/read below 1 us without an
// allocation.

#include <omu/omu.h>

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>

namespace {

std::size_t allocations = 0;

constexpr int count = 1'000'000;

/// The generator that the Python program below has too: 53 random bits as a number in [0, 1).
class Random {
public:
    double Next() {
        _state = _state * 6364136223846793005U + 1442695040888963407U;
        return static_cast<double>(_state >> 11) * 0x1p-53;
    }

private:
    std::uint64_t _state = 20261121;
};

constexpr const char* peer = R"(python3 -c "
import time
state = 20261121
def nxt():
    global state
    state = (state * 6364136223846793005 + 1442695040888963407) & 0xFFFFFFFFFFFFFFFF
    return (state >> 11) * 1.1102230246251565e-16
kind = '%s'
if kind == 'doubles': values = tuple((nxt() - 0.5) * 2000 for _ in range(1000000))
else: values = tuple('node ' + str(int(nxt() * 1e9)) for _ in range(1000000))
best = 1e9
for _ in range(5):
    start = time.perf_counter()
    text = repr(values)
    best = min(best, time.perf_counter() - start)
print(best, len(text))
")";

std::unique_ptr<omu_PrimTuple> Values(const std::string& kind) {
    auto tuple = std::make_unique<omu_PrimTuple>('(', count);
    Random random;
    for (int i = 0; i < count; ++i) {
        if (kind == "doubles")
            tuple->Put((random.Next() - 0.5) * 2000.0);
        else
            tuple->Put(cow_String("node " + std::to_string(static_cast<long>(random.Next() * 1e9))));
    }
    return tuple;
}

void Text(benchmark::State& state, const char* kind) {
    const std::unique_ptr<omu_PrimTuple> tuple = Values(kind);
    for (auto _ : state) benchmark::DoNotOptimize(tuple->AsString());
    state.counters["bytes"] = static_cast<double>(tuple->AsString().Length());
}
BENCHMARK_CAPTURE(Text, doubles, "doubles")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Text, strings, "strings")->Unit(benchmark::kMillisecond);

/// The best of five in one interpreter.
void CPython(benchmark::State& state, const char* kind) {
    char command[1024];
    std::snprintf(command, sizeof command, peer, kind);
    for (auto _ : state) {
        double seconds = 0.0;
        long bytes = 0;
        std::FILE* const output = popen(command, "r");
        if (output == nullptr || std::fscanf(output, "%lf %ld", &seconds, &bytes) != 2)
            state.SkipWithError("python3 did not run");
        if (output != nullptr) pclose(output);
        state.SetIterationTime(seconds);
        state.counters["bytes"] = static_cast<double>(bytes);
    }
}
BENCHMARK_CAPTURE(CPython, doubles, "doubles")->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1);
BENCHMARK_CAPTURE(CPython, strings, "strings")->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1);

/// A whole reading: two positional arguments, three keywords.
void Arguments(benchmark::State& state) {
    omu_Arguments arguments;
    arguments.Put(1);
    arguments.Put(2.5);
    arguments.Put(3, "number");
    arguments.Put(4.5, "radius");
    arguments.Put(0.5, "tolerance");
    int a = 0, number = 0;
    double b = 0.0, radius = 0.0, tolerance = 0.0;
    const auto read = [&] {
        arguments.Begin();
        arguments.Get(a);
        arguments.Get(b);
        arguments.Get(number, "number");
        arguments.Get(radius, "radius");
        arguments.Optional();
        arguments.Get(tolerance, "tolerance");
        arguments.End();
        benchmark::DoNotOptimize(tolerance);
    };
    read();  // the argument object makes room for its keywords once
    const std::size_t before = allocations;
    for (auto _ : state) read();
    state.counters["allocations"] = static_cast<double>(allocations - before);
}
BENCHMARK(Arguments);

}  // namespace

// NOLINTBEGIN(cppcoreguidelines-no-malloc): what counts allocations makes them.
void* operator new(std::size_t size) {
    ++allocations;
    if (void* const memory = std::malloc(size != 0 ? size : 1)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
// NOLINTEND(cppcoreguidelines-no-malloc)
