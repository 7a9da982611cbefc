#include <base/cls_ClassRegistrar.h>

namespace {
/// No class tree is deeper; bounds the walk should registrations ever form a ring.
constexpr int longestLineage = 64;
}  // namespace

cls_ClassMetadata& cls_ClassRegistrar::AddClass(const char* name, unsigned id, unsigned number, unsigned baseId) {
    std::unique_ptr<cls_ClassMetadata>& entry = _classes[id];
    // Re-filled in place: whoever keeps the address of a class's metadata keeps a valid one.
    if (entry)
        *entry = cls_ClassMetadata(name, id, number, baseId);
    else
        entry = std::make_unique<cls_ClassMetadata>(name, id, number, baseId);
    _last = entry.get();
    _arrivals.push_back(entry.get());
    return *entry;
}

const cls_ClassMetadata* cls_ClassRegistrar::Find(unsigned id) const {
    const auto found = _classes.find(id);
    return found == _classes.end() ? nullptr : found->second.get();
}

bool cls_ClassRegistrar::Inherits(unsigned id, unsigned ancestor) const {
    for (int step = 0; step < longestLineage; ++step) {
        if (id == ancestor) return true;
        const cls_ClassMetadata* metadata = Find(id);
        if (metadata == nullptr) return false;
        id = metadata->BaseId();
    }
    return false;
}

cow_List<cow_String> cls_ClassRegistrar::AttributeNames() const {
    return _last == nullptr ? cow_List<cow_String>() : _last->AttributeNames();
}
