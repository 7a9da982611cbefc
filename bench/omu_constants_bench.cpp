// Looking up symbolic constants by name beside std::unordered_map<std::string, unsigned>. Read the ratio of one run at
// one size: it should stay below 1.6, the questions being cow_String, whose bytes are one step further away. Both look
// up in constant time, which grows only by what misses the caches.

#include <omu/omu_SymbolicConstantTable.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

namespace {

std::vector<std::string> Names(std::int64_t count) {
    std::vector<std::string> names;
    for (std::int64_t i = 0; i < count; ++i) names.push_back("CONSTANT_" + std::to_string(i));
    return names;
}

/// The names in the order in which they are asked for, which is not that of their registration. Made anew, so that
/// no name is the very string that was registered.
template <class Text>
std::vector<Text> Questions(std::vector<std::string> names) {
    std::shuffle(names.begin(), names.end(), std::mt19937_64(1));
    return std::vector<Text>(names.begin(), names.end());
}

void TableLookUp(benchmark::State& state) {
    omi_Singleton<omu_SymbolicConstantTable>::Finalize();
    const std::vector<std::string> names = Names(state.range(0));
    for (const std::string& name : names) omu_SymbolicConstantData(name, 0, true);
    const omu_SymbolicConstantTable& table = omu_SymbolicConstantTable::Instance();
    const std::vector<cow_String> questions = Questions<cow_String>(names);
    for (auto _ : state)
        for (const cow_String& name : questions) benchmark::DoNotOptimize(table.GetId(name));
    state.SetItemsProcessed(state.iterations() * state.range(0));
    omi_Singleton<omu_SymbolicConstantTable>::Finalize();
}

void PeerLookUp(benchmark::State& state) {
    const std::vector<std::string> names = Names(state.range(0));
    std::unordered_map<std::string, unsigned> table;
    for (const std::string& name : names) table.emplace(name, static_cast<unsigned>(table.size() + 1));
    const std::vector<std::string> questions = Questions<std::string>(names);
    for (auto _ : state)
        for (const std::string& name : questions) benchmark::DoNotOptimize(table.find(name)->second);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

}  // namespace

BENCHMARK(TableLookUp)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(PeerLookUp)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);
