#ifndef ORV_FRAME_DETAIL_ORV_TYPETABLE_H
#define ORV_FRAME_DETAIL_ORV_TYPETABLE_H

#include <base/typ_Entry.h>

#include <array>
#include <cstddef>

/// A named type of a component: its index, its name, and the index of its parent in the same component, 0 when it
/// descends from the root type directly.
struct orv_TypeRow {
    unsigned short index;
    const char* name;
    unsigned short parentIndex = 0;
};

/// A component's type table with Size records: the named types, each with flags 7, at their indices; index 0 and
/// those not in use are empty (flags 0, no name) and descend from the root type, identifier 1. An index given
/// twice or beyond Size does not compile.
template <std::size_t Size, std::size_t RowCount>
[[nodiscard]] consteval std::array<typ_Entry, Size> orv_TypeTable(unsigned short component,
                                                                  const orv_TypeRow (&rows)[RowCount]) {
    constexpr unsigned root = 1;
    std::array<typ_Entry, Size> records{};
    records.fill({0, root, nullptr});
    for (const orv_TypeRow& row : rows) {
        if (row.index == 0 || row.index >= Size || records[row.index].name != nullptr) throw "index in use or beyond";
        const unsigned parent = (static_cast<unsigned>(component) << 16) | row.parentIndex;
        records[row.index] = {7, row.parentIndex == 0 ? root : parent, row.name};
    }
    return records;
}

#endif
