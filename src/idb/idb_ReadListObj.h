#ifndef ORV_IDB_IDB_READLISTOBJ_H
#define ORV_IDB_IDB_READLISTOBJ_H

#include <base/cls_Collection.h>
#include <base/orv_Export.h>
#include <idb/detail/idb_Tree.h>

#include <vector>

class idb_MementoRead;

/// Objects in a list, read whole at construction, whatever classes they are. The current entry's memento serves until
/// the next one is asked for.
class ORV_EXPORT idb_ReadListObj final : public cls_ReadListObj {
public:
    /// @param depth of the entries' mementos.
    idb_ReadListObj(idb_ReadTree& tree, int depth);
    ~idb_ReadListObj() override;

    bool Next() override;
    [[nodiscard]] const cls_MementoRead& MakeReadObj() const override;
    [[nodiscard]] int Size() const override;
    [[nodiscard]] int Columns() const override;

private:
    /// An entry whose fields all lie in its fixed block is read again in place when it is asked for; others are kept.
    struct Entry {
        std::size_t start;
        idb_Owned<idb_MementoRead> kept;
    };

    idb_ReadTree& _tree;
    int _depth;
    std::vector<Entry> _entries;
    mutable idb_Owned<idb_MementoRead> _current;  // of the entry under the cursor, when it is not kept
    int _columns = 1;
    int _cursor = -1;
};

#endif
