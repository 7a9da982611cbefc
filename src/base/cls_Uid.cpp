#include <base/cls_Uid.h>

#include <atomic>

cls_Uid cls_Uid::AllocateUid() noexcept {
    static constinit std::atomic<std::uint64_t> last = 0;
    return cls_Uid(last.fetch_add(1, std::memory_order_relaxed) + 1);
}
