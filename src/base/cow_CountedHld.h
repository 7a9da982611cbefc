#ifndef ORV_BASE_COW_COUNTEDHLD_H
#define ORV_BASE_COW_COUNTEDHLD_H

#include <base/detail/cow_Range.h>

#include <memory>
#include <utility>

/// A counted handle of an object that stays one: copies of the handle share it, nothing ever copies it, and what is
/// written through one handle all the others see. The last handle deletes it. The handle does not add `const`: a const
/// handle still gives a T that can be written.
///
/// Threads: the count is atomic, so distinct handles may be copied and dropped on distinct threads; the object itself
/// is shared and guarded by nobody.
template <class T>
class cow_CountedHld {
public:
    cow_CountedHld() noexcept = default;

    /// Takes the ownership of `owned`, which may be null.
    explicit cow_CountedHld(T* owned) : _object(owned) {}
    /// Shares the object, which may be null.
    explicit cow_CountedHld(std::shared_ptr<T> object) noexcept : _object(std::move(object)) {}

    /// Whether there is no object.
    [[nodiscard]] bool IsNull() const noexcept { return _object == nullptr; }

    /// Null without an object.
    [[nodiscard]] T* Get() const noexcept { return _object.get(); }
    /// The object with a share in it.
    [[nodiscard]] const std::shared_ptr<T>& Share() const noexcept { return _object; }

    /// Throws nex_PrimException without an object, as `->` does.
    [[nodiscard]] T& operator*() const {
        if (IsNull()) cow_ThrowNull();
        return *_object;
    }
    [[nodiscard]] T* operator->() const { return &**this; }

    /// The same object, not equal ones; two handles without an object are equal.
    friend bool operator==(const cow_CountedHld& a, const cow_CountedHld& b) noexcept { return a._object == b._object; }

private:
    std::shared_ptr<T> _object;
};

#endif
