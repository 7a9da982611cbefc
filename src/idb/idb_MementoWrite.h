#ifndef ORV_IDB_IDB_MEMENTOWRITE_H
#define ORV_IDB_IDB_MEMENTOWRITE_H

#include <base/bio_Ofilter.h>
#include <base/cls_MementoWrite.h>
#include <base/orv_Export.h>
#include <idb/detail/idb_Tree.h>

#include <memory>
#include <string_view>

/// Gathers the fields of one object by name and writes them to a filter by `Flush()`:
///
///     class identifier 4 | with fields 1 | object number 4 | fixed block | strings | base part | object fields
///
/// The fixed block holds the attributes with a slot in the byte order of their names (cls_AttributeType); a value
/// takes the low bytes of its zeroed slot. Strings, then object fields, follow in name order. An object field or base
/// part that nobody made goes out as its class without fields (5 bytes). Without the flag, and for class 1, the first
/// 5 bytes are all.
///
/// A memento that is destroyed before it was flushed writes nothing.
class ORV_EXPORT idb_MementoWrite final : public cls_MementoWrite {
public:
    /// A root. `object` may be null: it gets no number then.
    idb_MementoWrite(bio_Ofilter& out, const cls_ClassRegistrar& registrar, unsigned classId,
                     const void* object = nullptr, bool withFields = true);
    /// A memento inside the tree of a root, at that depth (the root's is 1). Throws nex_StreamException ("stream
    /// nested too deeply") beyond 512.
    idb_MementoWrite(idb_WriteTree& tree, unsigned classId, const void* object, bool withFields, int depth);
    ~idb_MementoWrite() override;

    void Write(const cls_FieldHandle& field, char value) override;
    void Write(const cls_FieldHandle& field, short value) override;
    void Write(const cls_FieldHandle& field, int value) override;
    void Write(const cls_FieldHandle& field, float value) override;
    void Write(const cls_FieldHandle& field, double value) override;
    void Write(const cls_FieldHandle& field, const cow_String& value) override;
    void WriteEnumAsInt(const cls_FieldHandle& field, int value) override;

    cls_MementoWrite* MakeWriteObj(const cls_FieldHandle& field, unsigned classId,
                                   const cls_Uid& uid = cls_Uid()) override;
    cls_MementoWrite* MakeWriteObjWithPtr(const cls_FieldHandle& field, unsigned classId, const cls_Uid& uid,
                                          const void* object) override;
    cls_MementoWrite* MakeNullObj(const cls_FieldHandle& field) override;
    cls_MementoWrite* MakeBaseWriteObj(unsigned classId) override;

    cls_Collection* MakeWriteListPrim(cls_CollectionType type, int columns) override;
    cls_WriteListObj* MakeWriteListObj(int columns) override;
    cls_Collection* MakeWriteMapInt2Prim(cls_CollectionType type) override;
    cls_Collection* MakeWriteMapString2Prim(cls_CollectionType type) override;
    cls_WriteMapObj<int>* MakeWriteMapInt2Obj() override;
    cls_WriteMapObj<cow_String>* MakeWriteMapString2Obj() override;
    cls_AgentBlob* MakeAgentBlob() override;

    void CheckCollectionType(cls_CollectionType asked, const cls_FieldHandle& field) const override;

    [[nodiscard]] bio_Ofilter& Filter() const override;
    [[nodiscard]] const cls_ClassRegistrar& Registrar() const override;

    /// Writes the memento and all below it; once. The flush of a root throws nex_StreamException when the filter
    /// could not take it all; below a root the filter keeps the failure.
    void Flush();

    /// All bytes that `Flush` would write, when they depend on nothing to come: fields with slots alone, without an
    /// object number; else empty. They stay valid as long as the tree.
    [[nodiscard]] std::string_view PlainImage() noexcept;

private:
    struct Parts;

    void LayOut();
    void WriteFields();
    std::string_view Image(unsigned objectNumber) noexcept;
    template <class T>
    void Store(const cls_FieldHandle& field, T value);
    idb_MementoWrite* MakeChild(const cls_FieldHandle& field, unsigned classId, const void* object, bool withFields);
    template <class Writer, class... A>
    Writer* MakePending(A... arguments);
    template <class K>
    cls_Collection* MakeMapPrim(cls_CollectionType type);
    Parts& GetParts();

    std::unique_ptr<idb_WriteTree> _ownTree;  // of a root
    idb_WriteTree* _tree;
    const cls_ClassMetadata* _metadata = nullptr;  // null: the class has no fields here
    const void* _object;
    char* _block = nullptr;
    idb_Owned<Parts> _parts;  // made when the first string, object or collection comes
    unsigned _classId;
    mutable unsigned _cursor = 0;
    short _depth;
    bool _withFields;
};

#endif
