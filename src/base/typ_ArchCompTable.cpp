#include <base/detail/orv_Immortal.h>
#include <base/typ_ArchCompTable.h>

#include <map>

namespace {

using Table = std::map<unsigned short, typ_ArchCompEntry>;

Table& TheTable() {
    static orv_Immortal<Table> table;
    return table.Value();
}

const typ_Entry* FindRecord(unsigned id) {
    const typ_ArchCompEntry* const entry = typ_ArchCompTable::FindEntry(static_cast<unsigned short>(id >> 16));
    const auto index = static_cast<int>(id & 0xFFFFu);
    return entry != nullptr && index < entry->Count() ? &entry->Record(index) : nullptr;
}

}  // namespace

void typ_ArchCompTable::InsertEntry(unsigned short code, typ_ArchCompEntry entry) {
    TheTable().insert_or_assign(code, entry);
}

const typ_ArchCompEntry* typ_ArchCompTable::FindEntry(unsigned short code) {
    const auto found = TheTable().find(code);
    return found != TheTable().end() ? &found->second : nullptr;
}

const char* typ_ArchCompTable::Name(unsigned id) {
    const typ_Entry* const record = FindRecord(id);
    return record != nullptr ? record->name : nullptr;
}

bool typ_ArchCompTable::IsDerived(unsigned id, unsigned ancestor) {
    for (int steps = 0; id != ancestor; ++steps) {
        const typ_Entry* const record = FindRecord(id);
        if (record == nullptr || steps == 64) return false;
        id = record->parent;
    }
    return true;
}

void typ_ArchCompTable::Clear() noexcept { TheTable().clear(); }
