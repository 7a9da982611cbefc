#ifndef ORV_BASE_TYP_ARCHCOMPENTRY_H
#define ORV_BASE_TYP_ARCHCOMPENTRY_H

#include <base/orv_Export.h>
#include <base/typ_Entry.h>

/// A component's table of type records. It views the records, which must outlive it (they are static tables).
class ORV_EXPORT typ_ArchCompEntry {
public:
    /// A null `records` or a negative `count` gives an empty table.
    typ_ArchCompEntry(const typ_Entry* records, int count) noexcept;

    /// Number of records.
    [[nodiscard]] int Count() const noexcept { return _count; }

    /// Throws nex_RangeException outside 0..Count-1.
    [[nodiscard]] const typ_Entry& Record(int index) const;

private:
    const typ_Entry* _records;
    int _count;
};

#endif
