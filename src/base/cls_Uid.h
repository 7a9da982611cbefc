#ifndef ORV_BASE_CLS_UID_H
#define ORV_BASE_CLS_UID_H

#include <base/orv_Export.h>

#include <cstdint>

/// The identity of an object within one process run. It is never stored: an object that is read from a stream gets a
/// fresh one.
class ORV_EXPORT cls_Uid {
public:
    /// The value 0: no identity given.
    constexpr cls_Uid() noexcept = default;

    /// A number no other call has given; 1 is the first. May be called from any thread.
    [[nodiscard]] static cls_Uid AllocateUid() noexcept;

    /// 0 for the default identity.
    [[nodiscard]] constexpr std::uint64_t Value() const noexcept { return _value; }

    friend constexpr bool operator==(const cls_Uid&, const cls_Uid&) noexcept = default;

private:
    constexpr explicit cls_Uid(std::uint64_t value) noexcept : _value(value) {}

    std::uint64_t _value = 0;
};

#endif
