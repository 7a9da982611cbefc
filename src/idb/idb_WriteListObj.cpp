#include <base/bio_Ofilter.h>
#include <idb/idb_MementoWrite.h>
#include <idb/idb_WriteListObj.h>

#include <string_view>
#include <utility>

idb_WriteListObj::idb_WriteListObj(idb_WriteTree* tree, int columns, int depth)
    : _tree(tree), _columns(columns), _depth(depth) {}

idb_WriteListObj::~idb_WriteListObj() {
    if (_isAbandoned) return;
    bio_Ofilter& out = _tree->GetFilter();
    out.WriteCount(_count);
    out.Write(_columns);
    std::size_t plainSize = 0;
    for (const Run& run : _runs) plainSize += run.size;
    out.Reserve(plainSize);
    for (const Run& run : _runs) {
        if (run.entry)
            run.entry->Flush();
        else
            out.WriteRaw(run.bytes, run.size);
    }
    if (_current) _current->Flush();
}

/// Files the current entry behind the others.
void idb_WriteListObj::Settle() {
    const std::string_view image = _current->PlainImage();
    if (image.empty())
        _runs.push_back({nullptr, 0, std::move(_current)});
    else if (!_runs.empty() && _runs.back().bytes + _runs.back().size == image.data())
        _runs.back().size += image.size();
    else
        _runs.push_back({image.data(), image.size(), nullptr});
}

cls_MementoWrite* idb_WriteListObj::Append(unsigned classId, const void* object, bool withFields) {
    if (_current) Settle();
    if (_current)
        _current =
            idb_Owned<idb_MementoWrite>(idb_Renew(_current.release(), *_tree, classId, object, withFields, _depth));
    else
        _current = _tree->Make<idb_MementoWrite>(*_tree, classId, object, withFields, _depth);
    ++_count;
    return _current.get();
}

cls_MementoWrite* idb_WriteListObj::MakeWriteObj(unsigned classId, const cls_Uid&) {
    return Append(classId, nullptr, true);
}
cls_MementoWrite* idb_WriteListObj::MakeWriteObjWithPtr(unsigned classId, const cls_Uid&, const void* object) {
    return Append(classId, object, true);
}
cls_MementoWrite* idb_WriteListObj::MakeNullObj() { return Append(cls_RootClass, nullptr, false); }

void idb_WriteListObj::Abandon() noexcept { _isAbandoned = true; }
