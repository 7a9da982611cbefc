#include <base/detail/orv_Immortal.h>
#include <base/thr_ThrSingletonRegistry.h>

#include <algorithm>
#include <functional>
#include <mutex>
#include <utility>
#include <vector>

namespace {

using Finalizer = std::pair<int, void (*)()>;  // level, function

struct Registry {
    std::mutex mutex;
    std::vector<Finalizer> finalizers;  // in order of registration
};

Registry& TheRegistry() {
    static orv_Immortal<Registry> registry;
    return registry.Value();
}

}  // namespace

void thr_ThrSingletonRegistry::Register(int level, void (*finalize)()) {
    Registry& registry = TheRegistry();
    const std::scoped_lock lock(registry.mutex);
    const Finalizer entry(level, finalize);
    if (finalize == nullptr || std::ranges::find(registry.finalizers, entry) != registry.finalizers.end()) return;
    registry.finalizers.push_back(entry);
}

void thr_ThrSingletonRegistry::Finalize() {
    std::vector<Finalizer> finalizers;
    {
        Registry& registry = TheRegistry();
        const std::scoped_lock lock(registry.mutex);
        finalizers.swap(registry.finalizers);
    }
    std::ranges::reverse(finalizers);
    std::ranges::stable_sort(finalizers, std::greater(), &Finalizer::first);
    for (const Finalizer& entry : finalizers) entry.second();
}
