// What starting the library adds to a process, beside a process that only loads the C++ runtime. Read the difference of
// the two in one run; it should stay under 0.25 ms.

#include <frame/frame.h>

#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

void Process(benchmark::State& state, const char* path) {
    for (auto _ : state) {
        char* arguments[] = {const_cast<char*>(path), nullptr};
        pid_t child = 0;
        int status = -1;
        if (posix_spawn(&child, path, nullptr, nullptr, arguments, environ) != 0 || waitpid(child, &status, 0) < 0 ||
            status != 0) {
            state.SkipWithError("the host did not run");
            return;
        }
    }
}

void StartAndStop(benchmark::State& state) {
    for (auto _ : state) {
        int started = 0;
        OrvLumGeom_initialize(started);
        OrvLumGeom_finalize(started);
        benchmark::DoNotOptimize(started);
    }
}

}  // namespace

BENCHMARK_CAPTURE(Process, plain, ORV_PLAIN_HOST)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK_CAPTURE(Process, started, ORV_STARTED_HOST)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(StartAndStop)->Unit(benchmark::kMicrosecond);
