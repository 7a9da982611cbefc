#ifndef ORV_BASE_CLS_COLLECTION_H
#define ORV_BASE_CLS_COLLECTION_H

#include <base/cls_Uid.h>
#include <base/cow_List.h>
#include <base/cow_Map.h>
#include <base/cow_String.h>
#include <base/orv_Export.h>

#include <cstddef>
#include <memory>

class cls_MementoWrite;
class cls_MementoRead;

/// What `ReadObjPtr` (`shared` false) and `ReadObjCow` (true) do, for a memento at hand: an entry of a collection,
/// or a root.
[[nodiscard]] ORV_EXPORT std::shared_ptr<void> cls_MakeObject(const cls_MementoRead& memento, unsigned asClass,
                                                              bool shared);

/// Root of what stands behind the header of a collection's memento: the writers and readers of lists and maps, and
/// the agent blob.
///
/// Writers collect in memory and write everything in their destructor, which `Flush` of the owning memento runs at
/// the right moment. The memento owns them; the pointers that it gives out do not.
///
/// Readers have a cursor that starts before the first element. `Next()` moves it and tells whether there is a current
/// element; at the end it answers false and goes back before the first. `Read()` and `ReadKey()` do not move;
/// without a current element they throw nex_RangeException.
class ORV_EXPORT cls_Collection {
public:
    cls_Collection() = default;
    cls_Collection(const cls_Collection&) = delete;
    cls_Collection& operator=(const cls_Collection&) = delete;
    virtual ~cls_Collection();

    /// Forgets what was collected, so that the destructor writes nothing.
    virtual void Abandon() noexcept;
};

/// Writes a list of primitive values.
template <class T>
class cls_WriteListPrim : public cls_Collection {
public:
    /// Appends one value, or `n` values.
    virtual void Write(const T& value) = 0;
    virtual void Write(const T* values, int n) = 0;
    /// The whole list at once; shares its elements.
    virtual void Write(const cow_List<T>& values) = 0;
};

/// Writes a map of primitive values.
template <class K, class T>
class cls_WriteMapPrim : public cls_Collection {
public:
    /// A repeated key replaces.
    virtual void Write(const K& key, const T& value) = 0;
    virtual void Write(const cow_Map<K, T>& values) = 0;
};

/// Objects in a list. Each call appends one entry and returns its memento, to be filled before the next call: the same
/// memento may then serve the next entry.
class ORV_EXPORT cls_WriteListObj : public cls_Collection {
public:
    /// An object of class `classId`; a shared one, with its address, which gives its number; no object.
    virtual cls_MementoWrite* MakeWriteObj(unsigned classId, const cls_Uid& uid = cls_Uid()) = 0;
    virtual cls_MementoWrite* MakeWriteObjWithPtr(unsigned classId, const cls_Uid& uid, const void* object) = 0;
    virtual cls_MementoWrite* MakeNullObj() = 0;
};

/// Objects by key. Null is returned, and nothing entered, when the key is there already.
template <class K>
class cls_WriteMapObj : public cls_Collection {
public:
    /// An object of class `classId`; a shared one, with its address, which gives its number; no object.
    virtual cls_MementoWrite* MakeWriteObj(const K& key, unsigned classId, const cls_Uid& uid = cls_Uid()) = 0;
    virtual cls_MementoWrite* MakeWriteObjWithPtr(const K& key, unsigned classId, const cls_Uid& uid,
                                                  const void* object) = 0;
    virtual cls_MementoWrite* MakeNullObj(const K& key) = 0;
};

/// Reads a list of primitive values.
template <class T>
class cls_ReadListPrim : public cls_Collection {
public:
    /// See cls_Collection.
    virtual bool Next() = 0;
    [[nodiscard]] virtual T Read() const = 0;
    /// Reads up to n values behind the cursor, moves it onto the last of them; gives the number read.
    virtual int Read(T* values, int n) = 0;
    /// Number of elements.
    [[nodiscard]] virtual int Size() const = 0;
    /// 1 for a list, the number of columns for a 2-D array.
    [[nodiscard]] virtual int Columns() const = 0;
    /// All values, independent of the cursor.
    [[nodiscard]] virtual const cow_List<T>& Values() const = 0;
};

/// Reads a map of primitive values.
template <class K, class T>
class cls_ReadMapPrim : public cls_Collection {
public:
    /// See cls_Collection.
    virtual bool Next() = 0;
    [[nodiscard]] virtual K ReadKey() const = 0;
    [[nodiscard]] virtual T Read() const = 0;
    /// Number of entries.
    [[nodiscard]] virtual int Size() const = 0;
    /// All entries, independent of the cursor.
    [[nodiscard]] virtual const cow_Map<K, T>& Values() const = 0;
};

/// Reads a list of objects.
class ORV_EXPORT cls_ReadListObj : public cls_Collection {
public:
    /// See cls_Collection.
    virtual bool Next() = 0;
    /// The current entry; owned by the reader.
    [[nodiscard]] virtual const cls_MementoRead& MakeReadObj() const = 0;
    /// The object of the current entry, as cls_MementoRead::ReadObjPtr and ReadObjCow give that of a field.
    [[nodiscard]] std::shared_ptr<void> ReadObjPtr(unsigned asClass) const {
        return cls_MakeObject(MakeReadObj(), asClass, false);
    }
    [[nodiscard]] std::shared_ptr<void> ReadObjCow(unsigned asClass) const {
        return cls_MakeObject(MakeReadObj(), asClass, true);
    }
    /// Number of entries; 1 for a list, the number of columns for a 2-D array.
    [[nodiscard]] virtual int Size() const = 0;
    [[nodiscard]] virtual int Columns() const = 0;
};

/// Reads a map of objects.
template <class K>
class cls_ReadMapObj : public cls_Collection {
public:
    /// See cls_Collection.
    virtual bool Next() = 0;
    [[nodiscard]] virtual K ReadKey() const = 0;
    /// The current entry; owned by the reader.
    [[nodiscard]] virtual const cls_MementoRead& MakeReadObj() const = 0;
    /// The object of the current entry, as cls_MementoRead::ReadObjPtr and ReadObjCow give that of a field.
    [[nodiscard]] std::shared_ptr<void> ReadObjPtr(unsigned asClass) const {
        return cls_MakeObject(MakeReadObj(), asClass, false);
    }
    [[nodiscard]] std::shared_ptr<void> ReadObjCow(unsigned asClass) const {
        return cls_MakeObject(MakeReadObj(), asClass, true);
    }
    /// Number of entries.
    [[nodiscard]] virtual int Size() const = 0;
};

/// Bytes with a position: what a class stores that has a format of its own.
class ORV_EXPORT cls_AgentBlob : public cls_Collection {
public:
    /// Writes `n` elements at the position and moves it behind them.
    virtual void Write(const void* bytes, unsigned n) = 0;
    virtual void WriteIntArray(const int* values, unsigned n) = 0;
    virtual void WriteDoubleArray(const double* values, unsigned n) = 0;
    /// Each gives the number of elements read: n, or 0 and nothing is read when they do not all lie within the
    /// capacity.
    virtual unsigned Read(void* bytes, unsigned n) = 0;
    virtual unsigned ReadIntArray(int* values, unsigned n) = 0;
    virtual unsigned ReadDoubleArray(double* values, unsigned n) = 0;

    /// Number of bytes.
    [[nodiscard]] virtual unsigned Length() const = 0;
    /// True for a blob that is being written: its destruction is what writes it.
    [[nodiscard]] virtual bool NeedsDeletion() const = 0;
    /// Moves the position.
    virtual void Seek(unsigned position) = 0;
};

#endif
