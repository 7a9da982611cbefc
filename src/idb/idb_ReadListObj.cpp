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
        idb_Owned<idb_MementoRead> kept;
        if (!idb_MementoRead::SkipPlain(tree)) kept = tree.Make<idb_MementoRead>(tree, cls_AnyClass, 0, depth);
        _entries.push_back({start, std::move(kept)});
    }
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
    if (!_current) {
        bio_Ifilter& in = _tree.GetFilter();
        const std::size_t position = in.Position();
        in.Seek(entry.start);
        _current = _tree.Make<idb_MementoRead>(_tree, cls_AnyClass, 0, _depth);
        in.Seek(position);
    } else if (_current->Start() != entry.start) {
        _current->ReadPlainAt(entry.start);
    }
    return *_current;
}

int idb_ReadListObj::Size() const { return static_cast<int>(_entries.size()); }
int idb_ReadListObj::Columns() const { return _columns; }
