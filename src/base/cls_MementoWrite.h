#ifndef ORV_BASE_CLS_MEMENTOWRITE_H
#define ORV_BASE_CLS_MEMENTOWRITE_H

#include <base/cls_Collection.h>
#include <base/cls_CollectionType.h>
#include <base/cls_FieldHandle.h>
#include <base/cls_Uid.h>
#include <base/orv_Export.h>

class bio_Ofilter;
class cls_ClassRegistrar;

/// Where an object puts its fields by name while it is being written. Objects write through cls_WriteVisitor; this
/// is what stands behind it.
///
/// A field that the class does not declare lands nowhere, and so does a value wider than the field's slot. The
/// pointers that the `Make` calls give do not own; each is null when the field is not declared as an object or is
/// there already. Identities are taken for the caller's convenience and never reach the stream.
class ORV_EXPORT cls_MementoWrite {
public:
    cls_MementoWrite() = default;
    cls_MementoWrite(const cls_MementoWrite&) = delete;
    cls_MementoWrite& operator=(const cls_MementoWrite&) = delete;
    virtual ~cls_MementoWrite();

    /// Sets the value of the field.
    virtual void Write(const cls_FieldHandle& field, char value) = 0;
    virtual void Write(const cls_FieldHandle& field, short value) = 0;
    virtual void Write(const cls_FieldHandle& field, int value) = 0;
    virtual void Write(const cls_FieldHandle& field, float value) = 0;
    virtual void Write(const cls_FieldHandle& field, double value) = 0;
    virtual void Write(const cls_FieldHandle& field, const cow_String& value) = 0;
    virtual void WriteEnumAsInt(const cls_FieldHandle& field, int value) = 0;

    /// An embedded object. Throws nex_StreamException beyond 512 nested mementos, as the other `Make` calls do.
    virtual cls_MementoWrite* MakeWriteObj(const cls_FieldHandle& field, unsigned classId,
                                           const cls_Uid& uid = cls_Uid()) = 0;
    /// A shared object: its address becomes its number on the stream.
    virtual cls_MementoWrite* MakeWriteObjWithPtr(const cls_FieldHandle& field, unsigned classId, const cls_Uid& uid,
                                                  const void* object) = 0;
    /// No object.
    virtual cls_MementoWrite* MakeNullObj(const cls_FieldHandle& field) = 0;
    /// The part of the base class; null when the class declares another base or none.
    virtual cls_MementoWrite* MakeBaseWriteObj(unsigned classId) = 0;

    /// The collection behind this memento's header, one at most (the first stays). `type` is the code of a list or 2-D
    /// array of primitive values, of a map of them by whichever key, and tells which T the `cls_WriteListPrim<T>` or
    /// `cls_WriteMapPrim<K, T>` has; null for any other code.
    virtual cls_Collection* MakeWriteListPrim(cls_CollectionType type, int columns) = 0;
    virtual cls_WriteListObj* MakeWriteListObj(int columns) = 0;
    virtual cls_Collection* MakeWriteMapInt2Prim(cls_CollectionType type) = 0;
    virtual cls_Collection* MakeWriteMapString2Prim(cls_CollectionType type) = 0;
    virtual cls_WriteMapObj<int>* MakeWriteMapInt2Obj() = 0;
    virtual cls_WriteMapObj<cow_String>* MakeWriteMapString2Obj() = 0;
    virtual cls_AgentBlob* MakeAgentBlob() = 0;

    /// Says on standard error when the field is declared as another, not compatible, collection; goes on.
    virtual void CheckCollectionType(cls_CollectionType asked, const cls_FieldHandle& field) const = 0;

    /// Where the memento writes to, and the classes it goes by.
    [[nodiscard]] virtual bio_Ofilter& Filter() const = 0;
    [[nodiscard]] virtual const cls_ClassRegistrar& Registrar() const = 0;
};

#endif
