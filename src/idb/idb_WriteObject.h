#ifndef ORV_IDB_IDB_WRITEOBJECT_H
#define ORV_IDB_IDB_WRITEOBJECT_H

#include <base/bio_Ofilter.h>
#include <base/cls_WriteVisitor.h>
#include <idb/idb_MementoWrite.h>

/// Writes one object as a root, with an object number of its own, or, where an earlier root of the filter refers to it,
/// with the number that it has there. Throws nex_StreamException for a class that is not registered (it could not be
/// read back) and when the filter could not take it all; std::bad_alloc when that was for want of memory.
template <class T>
void idb_WriteObject(bio_Ofilter& out, const cls_ClassRegistrar& registrar, const T& object) {
    const unsigned classId = cls_DynTypeId(object);
    if (registrar.Find(classId) == nullptr) nex_Throw(nex_StreamException("class cannot be written to a stream"));
    idb_MementoWrite memento(out, registrar, classId, &object);
    object.DBWrite(cls_WriteVisitor(memento));
    memento.Flush();
    out.Forget(&object);
}

#endif
