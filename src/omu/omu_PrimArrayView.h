#ifndef ORV_OMU_OMU_PRIMARRAYVIEW_H
#define ORV_OMU_OMU_PRIMARRAYVIEW_H

#include <omu/omu_PrimNumber.h>

#include <cstddef>
#include <vector>

/// The elements of an array as they lie in memory, for a bridge that wraps them without copying. Read-only, but what
/// `SetItem` writes shows here. Valid as long as some array lives that shares the block: the one that gave the view, a
/// copy of it, or a sub-array of either.
struct omu_PrimArrayView {
    /// The first element; null for an array that was never given a shape.
    const void* data = nullptr;
    /// INT, FLOAT or DOUBLE: int, float or double in the machine's own form. -1 where `data` is null.
    omu_PrimNumber::DataTypeEnm type = static_cast<omu_PrimNumber::DataTypeEnm>(-1);
    /// The dimensions, outermost first.
    std::vector<std::ptrdiff_t> shape;
    /// From one index to the next in each dimension, in bytes; the last is the size of an element. All 0 in an array
    /// without elements.
    std::vector<std::ptrdiff_t> strides;
};

#endif
