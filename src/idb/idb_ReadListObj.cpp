#include <base/bio_Ifilter.h>
#include <base/nex_RangeException.h>
#include <base/nex_StreamException.h>
#include <base/nex_Throw.h>
#include <idb/idb_MementoRead.h>
#include <idb/idb_ReadListObj.h>

idb_ReadListObj::idb_ReadListObj(idb_ReadTree& tree, int depth) : _tree(tree), _depth(depth) {
    bio_Ifilter& in = tree.GetFilter();
    const int count = in.ReadCount(idb_leastMementoSize);
    in.Read(_columns);
    if (_columns < 0) nex_Throw(nex_StreamException("bad count in stream"));
    _entries.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const std::size_t start = in.Position();
        ReadCurrent();
        _entries.push_back({start, _current->IsPlain() ? nullptr : std::move(_current)});
    }
}

/// Reads the memento at the filter's position.
void idb_ReadListObj::ReadCurrent() const {
    if (_current)
        _current = idb_Owned<idb_MementoRead>(idb_Renew(_current.release(), _tree, cls_AnyClass, 0, _depth));
    else
        _current = _tree.Make<idb_MementoRead>(_tree, cls_AnyClass, 0, _depth);
}

idb_ReadListObj::~idb_ReadListObj() = default;

bool idb_ReadListObj::Next() {
    if (++_cursor < Size()) return true;
    _cursor = -1;
    return false;
}

const cls_MementoRead& idb_ReadListObj::MakeReadObj() const {
    if (_cursor < 0) nex_Throw(nex_RangeException("no current entry"));
    const Entry& entry = _entries[static_cast<std::size_t>(_cursor)];
    if (entry.kept) return *entry.kept;
    bio_Ifilter& in = _tree.GetFilter();
    const std::size_t position = in.Position();
    in.Seek(entry.start);
    ReadCurrent();
    in.Seek(position);
    return *_current;
}

int idb_ReadListObj::Size() const { return static_cast<int>(_entries.size()); }
int idb_ReadListObj::Columns() const { return _columns; }
