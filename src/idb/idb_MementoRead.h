#ifndef ORV_IDB_IDB_MEMENTOREAD_H
#define ORV_IDB_IDB_MEMENTOREAD_H

#include <base/cls_MementoRead.h>
#include <base/orv_Export.h>
#include <idb/detail/idb_Tree.h>
#include <idb/idb_AgentProxy.h>

#include <memory>

/// Least bytes of a memento on a stream: class identifier and flag.
inline constexpr std::size_t idb_leastMementoSize = 5;

/// Reads one memento and all below it from a filter at construction and gives its fields by name. Layout:
/// idb_MementoWrite.
///
/// A class that was read where another was expected is taken when it derives from the expected one, by the registrar
/// or by the type tables, or when both are compatible collections; otherwise it is a misfit: two lines go to standard
/// error ("Error constructing object for ..."), and reading goes on as if the expected class had come. A misfit takes 5
/// bytes of the stream or more, which bounds the lines. Expecting class 2 takes any. Strings and texts as objects
/// (cls_StringClass, cls_TextClass) have one layout, whatever the registrar tells of them.
///
/// Fields are read in place: the filter must outlive the memento. Takes any bytes: throws nex_StreamException for a
/// stream that ends early, a bad count, or more than 512 nested mementos; memory grows linearly with the bytes read.
class ORV_EXPORT idb_MementoRead final : public cls_MementoRead {
public:
    /// A root. @param collection the collection that stands behind the header; 0 for an object.
    idb_MementoRead(bio_Ifilter& in, const cls_ClassRegistrar& registrar, unsigned expectedClass,
                    cls_CollectionType collection = 0);
    /// A memento inside the tree of a root, at that depth (the root's is 1).
    idb_MementoRead(idb_ReadTree& tree, unsigned expectedClass, cls_CollectionType collection, int depth);
    ~idb_MementoRead() override;

    [[nodiscard]] char Read(const cls_FieldHandle& field, char fallback) const override;
    [[nodiscard]] short Read(const cls_FieldHandle& field, short fallback) const override;
    [[nodiscard]] int Read(const cls_FieldHandle& field, int fallback) const override;
    [[nodiscard]] float Read(const cls_FieldHandle& field, float fallback) const override;
    [[nodiscard]] double Read(const cls_FieldHandle& field, double fallback) const override;
    [[nodiscard]] cow_String Read(const cls_FieldHandle& field, const cow_String& fallback) const override;
    [[nodiscard]] int ReadEnumAsInt(const cls_FieldHandle& field, int fallback) const override;

    [[nodiscard]] const cls_MementoRead* MakeReadObj(const cls_FieldHandle& field) const override;
    /// The reader of a field that is such a collection; null for one that is not, or was not read.
    template <class T>
    [[nodiscard]] cls_ReadListPrim<T>* MakeReadListPrim(const cls_FieldHandle& field) const {
        return CollectionAt<cls_ReadListPrim<T>>(field);
    }
    [[nodiscard]] cls_ReadListObj* MakeReadListObj(const cls_FieldHandle& field) const {
        return CollectionAt<cls_ReadListObj>(field);
    }
    template <class T>
    [[nodiscard]] cls_ReadMapPrim<int, T>* MakeReadMapInt2Prim(const cls_FieldHandle& field) const {
        return CollectionAt<cls_ReadMapPrim<int, T>>(field);
    }
    template <class T>
    [[nodiscard]] cls_ReadMapPrim<cow_String, T>* MakeReadMapString2Prim(const cls_FieldHandle& field) const {
        return CollectionAt<cls_ReadMapPrim<cow_String, T>>(field);
    }
    [[nodiscard]] cls_ReadMapObj<int>* MakeReadMapInt2Obj(const cls_FieldHandle& field) const {
        return CollectionAt<cls_ReadMapObj<int>>(field);
    }
    [[nodiscard]] cls_ReadMapObj<cow_String>* MakeReadMapString2Obj(const cls_FieldHandle& field) const {
        return CollectionAt<cls_ReadMapObj<cow_String>>(field);
    }
    /// A proxy of a field that was registered as a `cow_COW<T>`; this memento must outlive its loading.
    template <class T>
    [[nodiscard]] idb_AgentProxy<T> MakeAgentProxy(const cls_FieldHandle& field) const {
        return idb_AgentProxy<T>(*this, field);
    }

    [[nodiscard]] const cls_MementoRead* Base() const override;
    [[nodiscard]] cls_Collection* Collection() const override;
    [[nodiscard]] cls_AgentBlob* AgentBlob() const override;

    [[nodiscard]] bool HasValue() const override;
    [[nodiscard]] bool HasMisfit() const override;
    [[nodiscard]] unsigned ClassId() const override;
    [[nodiscard]] bio_Marker getMarker() const override;
    [[nodiscard]] std::shared_ptr<void> getObjectPtr() const override;

    [[nodiscard]] bio_Ifilter& Filter() const override;
    [[nodiscard]] const cls_ClassRegistrar& Registrar() const override;

    /// Where on the stream the memento begins, in bytes.
    [[nodiscard]] std::size_t Start() const noexcept { return _start; }
    /// What the fields were read by; null when none were.
    [[nodiscard]] const cls_ClassMetadata* Layout() const noexcept { return _metadata; }

    /// Passes over the next memento when it is header and fixed block alone, or less, as one of any class in the tree
    /// would be read; false, and the filter where it was, when it is more.
    [[nodiscard]] static bool SkipPlain(idb_ReadTree& tree);

    /// Reads the memento that begins at `start`, one that `SkipPlain` passed, in place of this one, which must be such
    /// a one too.
    void ReadPlainAt(std::size_t start);

private:
    struct Text;
    struct Parts;

    void Read(cls_CollectionType collection, int depth);
    template <class Reader>
    [[nodiscard]] Reader* CollectionAt(const cls_FieldHandle& field) const {
        const cls_MementoRead* const holder = MakeReadObj(field);
        return holder == nullptr ? nullptr : dynamic_cast<Reader*>(holder->Collection());
    }
    [[nodiscard]] bool ReadHeader();
    void ReadFields(int depth);
    [[nodiscard]] const cls_Attribute* Find(const cls_FieldHandle& field) const;
    template <class T>
    [[nodiscard]] T Load(const cls_FieldHandle& field, T fallback) const;

    std::unique_ptr<idb_ReadTree> _ownTree;  // of a root
    idb_ReadTree* _tree;
    const cls_ClassMetadata* _metadata = nullptr;  // null: no fields were read
    const char* _block = nullptr;
    idb_Owned<Parts> _parts;
    std::size_t _start;
    unsigned _classId;
    unsigned _objectNumber = 0;
    mutable unsigned _cursor = 0;
    bool _hasValue = false;
};

#endif
