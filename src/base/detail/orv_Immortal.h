#ifndef ORV_BASE_DETAIL_ORV_IMMORTAL_H
#define ORV_BASE_DETAIL_ORV_IMMORTAL_H

#include <new>

/// Holds the value of a function-local static that is never destroyed, so that the destructor of a host's global
/// object may still call the library (stop it, for example) whatever the order of destruction.
template <class T>
class orv_Immortal {
public:
    orv_Immortal() { ::new (_storage) T(); }
    orv_Immortal(const orv_Immortal&) = delete;
    orv_Immortal& operator=(const orv_Immortal&) = delete;

    [[nodiscard]] T& Value() noexcept { return *std::launder(reinterpret_cast<T*>(_storage)); }

private:
    alignas(T) unsigned char _storage[sizeof(T)];
};

#endif
