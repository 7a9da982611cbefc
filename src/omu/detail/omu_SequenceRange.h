#ifndef ORV_OMU_DETAIL_OMU_SEQUENCERANGE_H
#define ORV_OMU_DETAIL_OMU_SEQUENCERANGE_H

/// First and last + 1 of the elements that `Slice(begin, end)` takes from `length` ones; both 0 when there are none.
/// Throws nex_RangeException as `Slice`.
struct omu_SliceRange {
    omu_SliceRange(int begin, int end, int length);

    int first = 0;
    int last = 0;
};

/// `length` * `count`, 0 for a negative count. Throws nex_PrimException beyond 2^31 - 1.
[[nodiscard]] int omu_RepeatedLength(int length, int count);

/// `first` + `second`. Throws nex_PrimException beyond 2^31 - 1.
[[nodiscard]] int omu_JoinedLength(int first, int second);

#endif
