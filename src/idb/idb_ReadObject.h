#ifndef ORV_IDB_IDB_READOBJECT_H
#define ORV_IDB_IDB_READOBJECT_H

#include <base/bio_Ifilter.h>
#include <base/cls_ReadVisitor.h>
#include <idb/idb_MementoRead.h>

#include <memory>

/// Reads the next root as a T; where the stream carries none (class 1, or no fields) everything reads as its
/// default. Throws nex_StreamException for bytes that are no such object, a class within it that does not derive from
/// the expected one among them.
template <class T>
[[nodiscard]] T idb_ReadObject(bio_Ifilter& in, const cls_ClassRegistrar& registrar) {
    const idb_MementoRead memento(in, registrar, T::TypeId());
    if (!memento.HasValue() && !memento.HasMisfit()) return T(cls_ReadVisitor(nullptr));
    return T(cls_ReadVisitor(&cls_PartOf(memento, T::TypeId())));
}

/// Reads the next root as an object of whatever class stands there, seen as its base B; null where the stream carries
/// none. Throws nex_StreamException for a class that does not derive from B or cannot be made, and for one within the
/// object that does not derive from the expected one.
template <class B>
[[nodiscard]] std::shared_ptr<B> idb_ReadShared(bio_Ifilter& in, const cls_ClassRegistrar& registrar) {
    const idb_MementoRead memento(in, registrar, B::TypeId());
    return std::static_pointer_cast<B>(cls_MakeObject(memento, B::TypeId(), false));
}

#endif
