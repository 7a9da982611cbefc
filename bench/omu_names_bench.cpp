// Checking names beside std::regex and, where it is found, RE2. They are given only the two patterns (each kind also
// has rules on length, ends and other characters), compiled beforehand. Read the ratios of one run: the check should
// take a fifth of std::regex's time at most, and no more than RE2's.

#include <omu/omu_VelmorName.h>

#include <benchmark/benchmark.h>
#ifdef ORV_WITH_RE2
#include <re2/re2.h>
#endif

#include <regex>
#include <string>
#include <vector>

namespace {

constexpr int size = 1000000;

std::vector<std::string> Texts() {
    std::vector<std::string> texts;
    texts.reserve(size);
    for (int i = 0; i < size; ++i)
        texts.push_back("Job-" + std::to_string(i) + std::string("_rib").substr(0, static_cast<std::size_t>(i) % 5));
    for (int i = 0; i < size; i += 5) texts[static_cast<std::size_t>(i)] += "-left-hand-side";
    return texts;
}

void BM_Names(benchmark::State& state) {
    std::vector<cow_String> texts;
    for (std::string& text : Texts()) texts.emplace_back(std::move(text));
    const auto kind = static_cast<omu_VelmorNameEnum>(state.range(0));
    for (auto _ : state)
        for (const cow_String& text : texts) benchmark::DoNotOptimize(omu_VelmorName(text, kind));
    state.SetItemsProcessed(state.iterations() * size);
}
BENCHMARK(BM_Names)->Arg(omu_KernelJobName)->Arg(omu_KernelName)->Unit(benchmark::kMillisecond);

void BM_NamesPeerRegex(benchmark::State& state) {
    const std::vector<std::string> texts = Texts();
    const std::regex first(omu_VelmorName::firstCharacterPattern, std::regex::optimize);
    const std::regex job(omu_VelmorName::jobNamePattern, std::regex::optimize);
    for (auto _ : state)
        for (const std::string& text : texts)
            benchmark::DoNotOptimize(std::regex_search(text, first) && !std::regex_search(text, job));
    state.SetItemsProcessed(state.iterations() * size);
}
BENCHMARK(BM_NamesPeerRegex)->Unit(benchmark::kMillisecond);

#ifdef ORV_WITH_RE2
void BM_NamesPeerRe2(benchmark::State& state) {
    const std::vector<std::string> texts = Texts();
    RE2::Options asBytes;
    asBytes.set_encoding(RE2::Options::EncodingLatin1);
    const RE2 first(omu_VelmorName::firstCharacterPattern, asBytes);
    const RE2 job(omu_VelmorName::jobNamePattern, asBytes);
    if (!first.ok() || !job.ok()) state.SkipWithError("a pattern is refused");
    for (auto _ : state)
        for (const std::string& text : texts)
            benchmark::DoNotOptimize(RE2::PartialMatch(text, first) && !RE2::PartialMatch(text, job));
    state.SetItemsProcessed(state.iterations() * size);
}
BENCHMARK(BM_NamesPeerRe2)->Unit(benchmark::kMillisecond);
#endif

}  // namespace
