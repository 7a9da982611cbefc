#ifndef ORV_IDB_IDB_READMAPOBJ_H
#define ORV_IDB_IDB_READMAPOBJ_H

#include <base/bio_Ifilter.h>
#include <base/cls_Collection.h>
#include <idb/detail/idb_Tree.h>
#include <idb/idb_MementoRead.h>
#include <idb/idb_ReadMapPrim.h>

#include <map>

/// Objects by key, read whole at construction, whatever classes they are; a repeated key replaces.
template <class K>
class idb_ReadMapObj final : public cls_ReadMapObj<K> {
public:
    /// @param elements the collection code of entries that are collections themselves, else 0.
    /// @param depth of the entries' mementos.
    idb_ReadMapObj(idb_ReadTree& tree, cls_CollectionType elements, int depth) {
        bio_Ifilter& in = tree.GetFilter();
        for (int left = idb_ReadMapCount(in, idb_LeastSize<K> + idb_leastMementoSize); left > 0; --left) {
            K key{};
            in.Read(key);
            _entries[key] = tree.Make<idb_MementoRead>(tree, cls_AnyClass, elements, depth);
        }
    }

    bool Next() override { return _cursor.Next(_entries); }
    [[nodiscard]] K ReadKey() const override { return _cursor.Current().first; }
    [[nodiscard]] const cls_MementoRead& MakeReadObj() const override { return *_cursor.Current().second; }
    [[nodiscard]] int Size() const override { return static_cast<int>(_entries.size()); }

private:
    using Entries = std::map<K, idb_Owned<idb_MementoRead>>;
    Entries _entries;
    idb_MapCursor<Entries> _cursor;
};

/// By the type of the key.
using idb_ReadMapInt2Obj = idb_ReadMapObj<int>;
using idb_ReadMapString2Obj = idb_ReadMapObj<cow_String>;

#endif
