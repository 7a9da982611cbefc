#include <base/detail/cow_Range.h>
#include <base/typ_ArchCompEntry.h>

typ_ArchCompEntry::typ_ArchCompEntry(const typ_Entry* records, int count) noexcept
    : _records(records), _count(records != nullptr && count > 0 ? count : 0) {}

const typ_Entry& typ_ArchCompEntry::Record(int index) const {
    return _records[cow_Position("typ_ArchCompEntry", index, static_cast<std::size_t>(_count))];
}
