#ifndef ORV_BASE_DETAIL_COW_SHARED_H
#define ORV_BASE_DETAIL_COW_SHARED_H

#include <atomic>
#include <memory>
#include <utility>

/// The holder under the copy-on-write types: a counted share of a T, or of nothing.
///
/// A copy adds one to an atomic count. `Write` hands out the T itself while this is its only share, and otherwise
/// leaves the others behind with a copy of it ("detaches"). A default-constructed holder allocates nothing until it is
/// written.
///
/// Threads: distinct holders of one T may be used on distinct threads at the same time, since a T that two hold is
/// never written. One holder is like any plain object: no thread may touch it while another writes or assigns it.
template <class T>
class cow_Shared {
public:
    cow_Shared() noexcept = default;
    explicit cow_Shared(T value) : _data(std::make_shared<T>(std::move(value))) {}

    /// Null when nothing is held.
    [[nodiscard]] const T* Read() const noexcept { return _data.get(); }

    /// Makes a default T first when nothing is held. The T that is left behind may be gone at once, when the thread
    /// that shares it drops it: the caller must hold nothing that refers into it.
    [[nodiscard]] T& Write() {
        if (!_data) {
            _data = std::make_shared<T>();
        } else if (_data.use_count() == 1) {
            // The count is read relaxed. The fence orders what follows after the last use by a thread that has
            // dropped its share.
#if defined(__SANITIZE_THREAD__)
            const std::shared_ptr<T> acquired = _data;  // the thread sanitizer does not know fences
#else
            std::atomic_thread_fence(std::memory_order_acquire);
#endif
        } else {
            _data = std::make_shared<T>(std::as_const(*_data));
        }
        return *_data;
    }

    void Reset() noexcept { _data.reset(); }

private:
    std::shared_ptr<T> _data;
};

#endif
