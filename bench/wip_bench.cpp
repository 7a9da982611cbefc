// What reporting progress costs the job that does it, with a reporter that does nothing: an update should take less
// than 100 ns.

#include <wip/wip.h>

#include <benchmark/benchmark.h>

namespace {

/// Takes nothing and answers no.
class SilentReporter : public wip_WipReporter {
public:
    void Error(const atr_String&, wip_errorLevelEnm, OrvBasStringMode) override {}
    void Warning(const atr_String&, OrvBasStringMode) override {}
    void ErrorList(const cow_List<atr_String>&, wip_errorLevelEnm, OrvBasStringMode) override {}
    void WarningList(const cow_List<atr_String>&, OrvBasStringMode) override {}
    void Verbose(const atr_String&, OrvBasStringMode) override {}
    void Milestone(const atr_String&, int percent, OrvBasStringMode) override { benchmark::DoNotOptimize(percent); }
    void Milestone(const atr_String&, const atr_String&, int, int, OrvBasStringMode) override {}
    void Milestone(const atr_String&, OrvBasStringMode) override {}
    void Landmark(const atr_String&, OrvBasStringMode) override {}
    void Print(const atr_String&, OrvBasStringMode) override {}
    void Display(const atr_String&, OrvBasStringMode) override {}
    int Interrupted() override { return 0; }
    void CommandDone() override {}
    void InterruptedThrow() override {}
};

void BM_Update(benchmark::State& state) {
    SilentReporter reporter;
    const wip_ScopedReporter attached(reporter);
    const wip_ProgressObj progress("Meshing the rib");
    wip_Progress& tracker = wip_Progress::Instance();
    constexpr int count = 1 << 20;
    int done = 0;
    for (auto _ : state) benchmark::DoNotOptimize(tracker.Update(done = (done + 1) % count, count));
}
BENCHMARK(BM_Update);

void BM_PushUpdatePop(benchmark::State& state) {
    SilentReporter reporter;
    const wip_ScopedReporter attached(reporter);
    wip_ProgressObj progress("Meshing the rib");
    wip_Progress& tracker = wip_Progress::Instance();
    for (auto _ : state) {
        progress.Push(0.0F);
        benchmark::DoNotOptimize(tracker.Update(0.5F));
        progress.Pop(1);
    }
}
BENCHMARK(BM_PushUpdatePop);

/// A step that is a part of a job: its object made and destroyed.
void BM_NestedObject(benchmark::State& state) {
    SilentReporter reporter;
    const wip_ScopedReporter attached(reporter);
    const wip_ProgressObj progress("Meshing the rib");
    const atr_String message("Meshing an edge");
    for (auto _ : state) wip_ProgressObj step(message);
}
BENCHMARK(BM_NestedObject);

}  // namespace
