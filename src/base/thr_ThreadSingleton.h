#ifndef ORV_BASE_THR_THREADSINGLETON_H
#define ORV_BASE_THR_THREADSINGLETON_H

#include <base/detail/thr_ThreadPointer.h>
#include <base/thr_ThrSingletonRegistry.h>

#include <atomic>
#include <memory>

/// The one T of each thread, made by the thread's first `Instance()`. It goes when the thread calls `Finalize()` or
/// ends; after `Finalize()` the thread's next `Instance()` makes a fresh one.
///
/// Making an instance registers `Finalize` with thr_ThrSingletonRegistry, at `Level`: the higher, the sooner it is
/// finalised there.
///
/// T has a default constructor, which may be private to the friend `thr_ThreadSingleton<T>`, and a public destructor.
/// For library and host to see one T, an exported class declares and makes the template as omi_Singleton shows.
template <class T, int Level = 15>
class thr_ThreadSingleton {
public:
    /// This thread's object; made on use.
    [[nodiscard]] static T& Instance();

    /// Deletes the calling thread's instance; false when it has none.
    static bool Finalize();

    /// Number of instances in all threads together.
    [[nodiscard]] static int LiveCount() noexcept;

private:
    static void Delete(T* instance) {
        const std::unique_ptr<T> last(instance);
        --_live;
    }

    /// Owns the instance.
    using Own = thr_ThreadPointer<T, Delete>;

    static std::atomic<int> _live;
};

template <class T, int Level>
constinit std::atomic<int> thr_ThreadSingleton<T, Level>::_live = 0;

template <class T, int Level>
T& thr_ThreadSingleton<T, Level>::Instance() {
    if (T* const instance = Own::Get(); instance != nullptr) return *instance;
    thr_ThrSingletonRegistry::Register(Level, [] { Finalize(); });
    std::unique_ptr<T> made(new T);
    Own::Set(made.get());
    ++_live;
    return *made.release();
}

template <class T, int Level>
bool thr_ThreadSingleton<T, Level>::Finalize() {
    T* const last = Own::Get();
    if (last == nullptr) return false;
    Own::Set(nullptr);
    Delete(last);
    return true;
}

template <class T, int Level>
int thr_ThreadSingleton<T, Level>::LiveCount() noexcept {
    return _live;
}

#endif
