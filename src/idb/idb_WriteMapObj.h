#ifndef ORV_IDB_IDB_WRITEMAPOBJ_H
#define ORV_IDB_IDB_WRITEMAPOBJ_H

#include <base/bio_Ofilter.h>
#include <base/cls_Collection.h>
#include <idb/detail/idb_Tree.h>
#include <idb/idb_MementoWrite.h>

#include <map>

/// Objects by key. Written at destruction: count, count again, then for each key in order the key and its memento.
template <class K>
class idb_WriteMapObj final : public cls_WriteMapObj<K> {
public:
    /// @param depth of the entries' mementos.
    idb_WriteMapObj(idb_WriteTree* tree, int depth) : _tree(tree), _depth(depth) {}
    ~idb_WriteMapObj() override {
        if (_isAbandoned) return;
        bio_Ofilter& out = _tree->GetFilter();
        out.WriteCount(_entries.size());
        out.WriteCount(_entries.size());
        for (const auto& [key, entry] : _entries) {
            out.Write(key);
            entry->Flush();
        }
    }

    cls_MementoWrite* MakeWriteObj(const K& key, unsigned classId, const cls_Uid& = cls_Uid()) override {
        return Enter(key, classId, nullptr, true);
    }
    cls_MementoWrite* MakeWriteObjWithPtr(const K& key, unsigned classId, const cls_Uid&, const void* object) override {
        return Enter(key, classId, object, true);
    }
    cls_MementoWrite* MakeNullObj(const K& key) override { return Enter(key, cls_RootClass, nullptr, false); }
    void Abandon() noexcept override { _isAbandoned = true; }

private:
    cls_MementoWrite* Enter(const K& key, unsigned classId, const void* object, bool withFields) {
        if (_entries.contains(key)) return nullptr;
        idb_Owned<idb_MementoWrite> memento =
            _tree->Make<idb_MementoWrite>(*_tree, classId, object, withFields, _depth);
        return _entries.emplace(key, std::move(memento)).first->second.get();
    }

    idb_WriteTree* _tree;
    int _depth;
    bool _isAbandoned = false;
    std::map<K, idb_Owned<idb_MementoWrite>> _entries;
};

/// By the type of the key.
using idb_WriteMapInt2Obj = idb_WriteMapObj<int>;
using idb_WriteMapString2Obj = idb_WriteMapObj<cow_String>;

#endif
