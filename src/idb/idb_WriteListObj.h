#ifndef ORV_IDB_IDB_WRITELISTOBJ_H
#define ORV_IDB_IDB_WRITELISTOBJ_H

#include <base/cls_Collection.h>
#include <base/orv_Export.h>
#include <idb/detail/idb_Tree.h>

#include <vector>

class idb_MementoWrite;

/// Objects in a list. Written at destruction: count, columns, then each entry's memento in order. A null entry is a
/// memento without fields.
///
/// An entry's memento serves until the next entry is made: one without strings, objects and number is then kept as the
/// bytes that it will be, and its memento serves again. A million points need little more memory than their bytes.
class ORV_EXPORT idb_WriteListObj final : public cls_WriteListObj {
public:
    /// @param depth of the entries' mementos.
    idb_WriteListObj(idb_WriteTree* tree, int columns, int depth);
    ~idb_WriteListObj() override;

    cls_MementoWrite* MakeWriteObj(unsigned classId, const cls_Uid& uid = cls_Uid()) override;
    cls_MementoWrite* MakeWriteObjWithPtr(unsigned classId, const cls_Uid& uid, const void* object) override;
    cls_MementoWrite* MakeNullObj() override;
    void Abandon() noexcept override;

private:
    /// Entries that are plain bytes already, one after the other in the tree's memory, or one that is not.
    struct Run {
        const char* bytes = nullptr;
        std::size_t size = 0;
        idb_Owned<idb_MementoWrite> entry;
    };

    cls_MementoWrite* Append(unsigned classId, const void* object, bool withFields);
    void Settle();

    idb_WriteTree* _tree;
    int _columns;
    int _depth;
    std::size_t _count = 0;
    bool _isAbandoned = false;
    idb_Owned<idb_MementoWrite> _current;
    std::vector<Run> _runs;
};

#endif
