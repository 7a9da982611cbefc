#include <base/bio_Ifilter.h>
#include <base/cls_ClassRegistrar.h>
#include <base/cls_MementoRead.h>
#include <base/cls_ReadVisitor.h>
#include <base/nex_StreamException.h>
#include <base/nex_Throw.h>

#include <string>

namespace {
[[noreturn]] void ThrowCannotBeMade() { nex_Throw(nex_StreamException("class cannot be made from a stream")); }
}  // namespace

cls_MementoRead::~cls_MementoRead() = default;

std::shared_ptr<void> cls_MementoRead::ReadObjPtr(const cls_FieldHandle& field, unsigned asClass) const {
    return ReadObj(field, asClass, false);
}

std::shared_ptr<void> cls_MementoRead::ReadObjCow(const cls_FieldHandle& field, unsigned asClass) const {
    return ReadObj(field, asClass, true);
}

std::shared_ptr<void> cls_MementoRead::ReadObj(const cls_FieldHandle& field, unsigned asClass, bool shared) const {
    const cls_MementoRead* child = MakeReadObj(field);
    if (child == nullptr) return nullptr;
    if (asClass == 0) asClass = Registrar().Find(ClassId())->Attributes().at(std::string(field.Name())).classId;
    return cls_MakeObject(*child, asClass, shared);
}

std::shared_ptr<void> cls_MakeObject(const cls_MementoRead& memento, unsigned asClass, bool shared) {
    if (memento.HasMisfit()) ThrowCannotBeMade();
    if (!memento.HasValue()) return nullptr;

    const unsigned classId = memento.ClassId();
    const cls_ClassMetadata* metadata = memento.Registrar().Find(classId);
    if (metadata == nullptr || metadata->make == nullptr || !memento.Registrar().Inherits(classId, asClass))
        ThrowCannotBeMade();

    const bio_Marker marker = memento.getMarker();
    std::shared_ptr<void> object;
    if (shared && marker.size != 0) object = memento.Filter().FindObject(marker, classId);
    if (!object) {
        object = metadata->make(cls_ReadVisitor(&memento));
        if (shared && marker.size != 0) memento.Filter().SetObject(marker, classId, object);
    }

    void* part = object.get();
    while (metadata->Id() != asClass) {
        if (metadata->toBase == nullptr) ThrowCannotBeMade();
        part = metadata->toBase(part);
        metadata = memento.Registrar().Find(metadata->BaseId());
        if (metadata == nullptr) ThrowCannotBeMade();
    }
    return {object, part};
}

const cls_MementoRead& cls_PartOf(const cls_MementoRead& memento, unsigned classId) {
    const cls_MementoRead* part = &memento;
    while (part != nullptr && part->ClassId() != classId) part = part->Base();
    if (part == nullptr) ThrowCannotBeMade();
    return *part;
}
