#include <omu/detail/omu_Dismantling.h>

#include <new>
#include <utility>

namespace {

constexpr int deepestRecursion = 32;

struct State {
    int depth = 0;
    std::vector<cow_CountedHld<omu_Primitive>>* aside = nullptr;
};
thread_local State state;

}  // namespace

omu_Dismantling::omu_Dismantling() noexcept {
    if (state.depth++ == 0) state.aside = &_aside;
}

omu_Dismantling::~omu_Dismantling() {
    while (state.depth == 1 && !_aside.empty()) {
        const cow_CountedHld<omu_Primitive> last = std::move(_aside.back());
        _aside.pop_back();
    }
    --state.depth;
}

void omu_Dismantling::PutAside(const cow_CountedHld<omu_Primitive>& value) noexcept {
    if (state.depth < deepestRecursion) return;
    try {
        state.aside->push_back(value);
    } catch (const std::bad_alloc&) {
    }
}
