#ifndef ORV_BASE_DETAIL_COW_RANGE_H
#define ORV_BASE_DETAIL_COW_RANGE_H

#include <base/orv_Export.h>

#include <cstddef>
#include <type_traits>

/// Throws nex_RangeException with a message that names the container, the index and the bounds.
[[noreturn]] ORV_EXPORT void cow_ThrowIndex(const char* container, long long index, std::size_t length);

/// Throws nex_RangeException: the key is absent.
[[noreturn]] ORV_EXPORT void cow_ThrowKey();

/// Throws nex_PrimException: a holder without an object was dereferenced.
[[noreturn]] ORV_EXPORT void cow_ThrowNull();

/// `index` as a position in a container of `length` elements; nex_RangeException outside 0..length-1.
inline std::size_t cow_Position(const char* container, int index, std::size_t length) {
    const auto position = static_cast<std::size_t>(index);  // a negative index becomes larger than any length
    if (position >= length) cow_ThrowIndex(container, index, length);
    return position;
}

/// What a container keeps for an element: the element itself, but a byte for a bool, so that each element is an object
/// of its own which can be referred to.
template <class T>
using cow_Stored = std::conditional_t<std::is_same_v<T, bool>, unsigned char, T>;

#endif
