#ifndef ORV_BASE_COW_COW_H
#define ORV_BASE_COW_COW_H

#include <base/detail/cow_Range.h>
#include <base/detail/cow_Shared.h>

/// A value of class T that may be absent, shared by its copies until one of them writes.
///
/// A copy adds one to an atomic count; two holders of one object look like two objects. Only `Get` detaches: a shared
/// object is copied first, by the copy constructor of T, so T must be the object's own class and not a base of it. A
/// reference from `Get` must not be kept across a copy of the holder.
///
/// Threads: distinct holders may be used on distinct threads, whether they share or not; one holder is not to be
/// written while another thread uses it. To share an object that stays one, see cow_CountedHld.
template <class T>
class cow_COW {
public:
    /// Without an object; allocates nothing.
    cow_COW() noexcept = default;
    /// Holds a copy of the object.
    explicit cow_COW(const T& object) : _object(object) {}

    /// Whether there is no object.
    [[nodiscard]] bool IsNull() const noexcept { return _object.Read() == nullptr; }

    /// Throws nex_PrimException without an object, as `->` and `Get` do.
    [[nodiscard]] const T& ConstGet() const {
        if (IsNull()) cow_ThrowNull();
        return *_object.Read();
    }
    [[nodiscard]] const T* operator->() const { return &ConstGet(); }

    /// Detaches.
    [[nodiscard]] T& Get() {
        if (IsNull()) cow_ThrowNull();
        return _object.Write();
    }

private:
    cow_Shared<T> _object;
};

#endif
