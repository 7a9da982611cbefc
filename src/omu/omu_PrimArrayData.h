#ifndef ORV_OMU_OMU_PRIMARRAYDATA_H
#define ORV_OMU_OMU_PRIMARRAYDATA_H

#include <base/orv_Export.h>

#include <cstddef>
#include <memory>

/// The block of memory that an array shares with its copies and sub-arrays. Aligned for any number.
class ORV_EXPORT omu_PrimArrayData {
public:
    /// `count` bytes, all 0. Memory that is never written is left to the system to give.
    explicit omu_PrimArrayData(std::size_t count);

    /// Null when there was no memory for them.
    [[nodiscard]] void* Bytes() noexcept { return _bytes.get(); }
    [[nodiscard]] const void* Bytes() const noexcept { return _bytes.get(); }

    /// Number of bytes.
    [[nodiscard]] std::size_t Count() const noexcept { return _count; }

private:
    struct Free {
        void operator()(void* bytes) const noexcept;
    };

    std::unique_ptr<void, Free> _bytes;
    std::size_t _count;
};

#endif
