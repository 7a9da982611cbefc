#ifndef ORV_BASE_DETAIL_THR_THREADPOINTER_H
#define ORV_BASE_DETAIL_THR_THREADPOINTER_H

#if defined(_WIN32)
#include <pthread.h>

#include <new>
#else
#include <utility>
#endif

/// A plain pointer that each thread has for its own, null at first. A thread that ends with another passes it to
/// `atEnd`. The pointer stays good after the thread's own destructors, when those of a host's global objects run.
template <class T, void (*atEnd)(T* last)>
class thr_ThreadPointer {
public:
#if defined(_WIN32)

    [[nodiscard]] static T* Get() { return static_cast<T*>(pthread_getspecific(TheKey())); }
    static void Set(T* pointer) {
        if (pthread_setspecific(TheKey(), pointer) != 0) throw std::bad_alloc();
    }

private:
    // There the destructors of a thread's objects run when the memory of these objects is gone already.
    struct Key {
        Key() {
            if (pthread_key_create(&value, AtThreadEnd) != 0) throw std::bad_alloc();
        }
        ~Key() { pthread_key_delete(value); }
        /// Called for null, too.
        static void AtThreadEnd(void* last) {
            if (last != nullptr) atEnd(static_cast<T*>(last));
        }
        pthread_key_t value = 0;
    };
    static pthread_key_t TheKey() {
        static const Key key;
        return key.value;
    }

#else

    [[nodiscard]] static T* Get() noexcept { return Own(); }
    static void Set(T* pointer) noexcept {
        // Null may come when the guard is gone already, whose definition must not be passed again then.
        if (pointer != nullptr) {
            static thread_local const AtThreadEnd atThreadEnd;
        }
        Own() = pointer;
    }

private:
    struct AtThreadEnd {
        ~AtThreadEnd() {
            if (T* const last = std::exchange(Own(), nullptr); last != nullptr) atEnd(last);
        }
    };
    static T*& Own() noexcept {
        static thread_local constinit T* own = nullptr;
        return own;
    }

#endif
};

#endif
