#ifndef ORV_IDB_IDB_AGENTPROXY_H
#define ORV_IDB_IDB_AGENTPROXY_H

#include <base/cls_FieldHandle.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_Uid.h>
#include <base/cow_COW.h>

#include <string>

/// An object of a stream that is made when it is first asked for, with an identity of its own from the start.
///
/// A copy has the same identity; it shares the object when that was made before, else it makes one for itself. What is
/// not asked for is not made, so that what is wrong with it does not show. For the calls of one thread.
template <class T>
class idb_AgentProxy {
public:
    /// Of a field of the memento, which must outlive the first call of `Value`. The name is copied.
    idb_AgentProxy(const cls_MementoRead& memento, const cls_FieldHandle& field)
        : _memento(&memento), _field(field.Name()), _uid(cls_Uid::AllocateUid()) {}

    /// The identity.
    [[nodiscard]] const cls_Uid& Uid() const noexcept { return _uid; }
    /// Whether `Value` was called.
    [[nodiscard]] bool IsLoaded() const noexcept { return _memento == nullptr; }

    /// The object; null where the stream carried none. The first call reads it, and throws as cls_ReadVisitor does, or
    /// what the object's reading constructor throws; then nothing is loaded.
    [[nodiscard]] const cow_COW<T>& Value() const {
        if (!IsLoaded()) {
            _value = cls_ReadVisitor(_memento).Read(_field.c_str(), cow_COW<T>());
            _memento = nullptr;
        }
        return _value;
    }

private:
    mutable const cls_MementoRead* _memento;  // null once the object is made
    std::string _field;
    cls_Uid _uid;
    mutable cow_COW<T> _value;
};

#endif
