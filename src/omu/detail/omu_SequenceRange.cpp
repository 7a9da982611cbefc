#include <base/detail/cow_Range.h>
#include <base/nex_PrimException.h>
#include <base/nex_Throw.h>
#include <omu/detail/omu_SequenceRange.h>

#include <algorithm>
#include <limits>

namespace {

int CheckedLength(long long length) {
    if (length > std::numeric_limits<int>::max()) nex_Throw(nex_PrimException("Sequence too long"));
    return static_cast<int>(length);
}

}  // namespace

omu_SliceRange::omu_SliceRange(int begin, int end, int length) {
    end = std::min(end, length);
    if (end < 0) end += length;
    if (begin < 0) begin += length;
    if (begin >= end) return;
    cow_Position("slice", begin, static_cast<std::size_t>(length));
    first = begin;
    last = end;
}

int omu_RepeatedLength(int length, int count) {
    return CheckedLength(static_cast<long long>(length) * std::max(count, 0));
}

int omu_JoinedLength(int first, int second) { return CheckedLength(static_cast<long long>(first) + second); }
