#include <base/cls_ClassRegistrar.h>
#include <base/detail/bio_Encoding.h>
#include <base/nex_StreamException.h>
#include <base/nex_Throw.h>
#include <idb/idb_AgentBlob.h>
#include <idb/idb_MementoWrite.h>
#include <idb/idb_WriteListObj.h>
#include <idb/idb_WriteListPrim.h>
#include <idb/idb_WriteMapObj.h>
#include <idb/idb_WriteMapPrim.h>

#include <cstdio>
#include <cstring>
#include <new>
#include <string>
#include <vector>

namespace {
constexpr const char* tooDeep = "stream nested too deeply";
/// Class identifier, flag, object number. Room for it is kept before the fixed block, so that both go out in one piece.
constexpr std::size_t headerSize = 9;

/// The element's digit of a code that begins with one of two containers; 0 for another.
constexpr int ElementOf(cls_CollectionType type, int container, int other) {
    const int element = type % 10;
    return type - element == container || type - element == other ? element : 0;
}
}  // namespace

/// What most small objects do not have.
struct idb_MementoWrite::Parts {
    std::vector<cow_String> strings;
    std::vector<idb_Owned<idb_MementoWrite>> objects;
    idb_Owned<idb_MementoWrite> base;
    idb_Owned<cls_Collection> pending;
};

idb_MementoWrite::idb_MementoWrite(bio_Ofilter& out, const cls_ClassRegistrar& registrar, unsigned classId,
                                   const void* object, bool withFields)
    : _ownTree(std::make_unique<idb_WriteTree>(out, registrar)),
      _tree(_ownTree.get()),
      _object(object),
      _classId(classId),
      _depth(1),
      _withFields(withFields) {
    LayOut();
}

idb_MementoWrite::idb_MementoWrite(idb_WriteTree& tree, unsigned classId, const void* object, bool withFields,
                                   int depth)
    : _tree(&tree), _object(object), _classId(classId), _depth(static_cast<short>(depth)), _withFields(withFields) {
    if (depth > idb_deepestMemento) {
        Filter().Fail(tooDeep);
        nex_Throw(nex_StreamException(tooDeep));
    }
    LayOut();
}

void idb_MementoWrite::LayOut() {
    if (!_withFields || _classId == cls_RootClass) return;
    _metadata = _tree->Find(_classId);
    if (_metadata == nullptr) return;
    const std::size_t size = headerSize + static_cast<std::size_t>(_metadata->BlockSize());
    char* image = _tree->Allocate(size);
    std::memset(image, 0, size);
    _block = image + headerSize;
}

idb_MementoWrite::~idb_MementoWrite() {
    if (_parts && _parts->pending) _parts->pending->Abandon();
}

idb_MementoWrite::Parts& idb_MementoWrite::GetParts() {
    if (!_parts) _parts = _tree->Make<Parts>();
    return *_parts;
}

bio_Ofilter& idb_MementoWrite::Filter() const { return _tree->GetFilter(); }
const cls_ClassRegistrar& idb_MementoWrite::Registrar() const { return _tree->Registrar(); }

template <class T>
void idb_MementoWrite::Store(const cls_FieldHandle& field, T value) {
    const cls_Attribute* attribute = _metadata == nullptr ? nullptr : _metadata->Find(field.Name(), _cursor);
    if (attribute == nullptr || attribute->slotSize < static_cast<int>(sizeof(T))) return;
    char* slot = _block + attribute->slot;
    std::memset(slot, 0, static_cast<std::size_t>(attribute->slotSize));
    bio_Store(slot, value);
}

void idb_MementoWrite::Write(const cls_FieldHandle& field, char value) { Store(field, value); }
void idb_MementoWrite::Write(const cls_FieldHandle& field, short value) { Store(field, value); }
void idb_MementoWrite::Write(const cls_FieldHandle& field, int value) { Store(field, value); }
void idb_MementoWrite::Write(const cls_FieldHandle& field, float value) { Store(field, value); }
void idb_MementoWrite::Write(const cls_FieldHandle& field, double value) { Store(field, value); }
void idb_MementoWrite::WriteEnumAsInt(const cls_FieldHandle& field, int value) { Store(field, value); }

void idb_MementoWrite::Write(const cls_FieldHandle& field, const cow_String& value) {
    const cls_Attribute* attribute = _metadata == nullptr ? nullptr : _metadata->Find(field.Name(), _cursor);
    if (attribute == nullptr || !cls_IsStringType(attribute->type)) return;
    std::vector<cow_String>& strings = GetParts().strings;
    strings.resize(static_cast<std::size_t>(_metadata->StringCount()));
    strings[static_cast<std::size_t>(attribute->slot)] = value;
}

idb_MementoWrite* idb_MementoWrite::MakeChild(const cls_FieldHandle& field, unsigned classId, const void* object,
                                              bool withFields) {
    const cls_Attribute* attribute = _metadata == nullptr ? nullptr : _metadata->Find(field.Name(), _cursor);
    if (attribute == nullptr || attribute->type != cls_ObjectAttribute) return nullptr;
    std::vector<idb_Owned<idb_MementoWrite>>& objects = GetParts().objects;
    objects.resize(_metadata->Objects().size());
    idb_Owned<idb_MementoWrite>& child = objects[static_cast<std::size_t>(attribute->slot)];
    if (child) return nullptr;
    child = _tree->Make<idb_MementoWrite>(*_tree, classId, object, withFields, _depth + 1);
    return child.get();
}

cls_MementoWrite* idb_MementoWrite::MakeWriteObj(const cls_FieldHandle& field, unsigned classId, const cls_Uid&) {
    return MakeChild(field, classId, nullptr, true);
}
cls_MementoWrite* idb_MementoWrite::MakeWriteObjWithPtr(const cls_FieldHandle& field, unsigned classId, const cls_Uid&,
                                                        const void* object) {
    return MakeChild(field, classId, object, true);
}
cls_MementoWrite* idb_MementoWrite::MakeNullObj(const cls_FieldHandle& field) {
    return MakeChild(field, cls_RootClass, nullptr, false);
}

cls_MementoWrite* idb_MementoWrite::MakeBaseWriteObj(unsigned classId) {
    if (_metadata == nullptr || !_metadata->HasBasePart() || _metadata->BaseId() != classId) return nullptr;
    idb_Owned<idb_MementoWrite>& base = GetParts().base;
    if (base) return nullptr;
    base = _tree->Make<idb_MementoWrite>(*_tree, classId, nullptr, true, _depth + 1);
    return base.get();
}

template <class Writer, class... A>
Writer* idb_MementoWrite::MakePending(A... arguments) {
    idb_Owned<cls_Collection>& pending = GetParts().pending;
    if (pending) return nullptr;
    idb_Owned<Writer> writer = _tree->Make<Writer>(arguments...);
    Writer* made = writer.get();
    pending.reset(writer.release());
    return made;
}

cls_Collection* idb_MementoWrite::MakeWriteListPrim(cls_CollectionType type, int columns) {
    switch (ElementOf(type, 50, 80)) {
        case 2:
            return MakePending<idb_WriteListPrim<double>>(&Filter(), columns);
        case 3:
            return MakePending<idb_WriteListPrim<float>>(&Filter(), columns);
        case 4:
            return MakePending<idb_WriteListPrim<int>>(&Filter(), columns);
        case 5:
            return MakePending<idb_WriteListPrim<cow_String>>(&Filter(), columns);
        case 6:
            return MakePending<idb_WriteListPrim<bool>>(&Filter(), columns);
        case 7:
            return MakePending<idb_WriteListPrim<unsigned>>(&Filter(), columns);
        default:
            return nullptr;
    }
}

template <class K>
cls_Collection* idb_MementoWrite::MakeMapPrim(cls_CollectionType type) {
    switch (ElementOf(type, 60, 70)) {
        case 2:
            return MakePending<idb_WriteMapPrim<K, double>>(&Filter());
        case 3:
            return MakePending<idb_WriteMapPrim<K, float>>(&Filter());
        case 4:
            return MakePending<idb_WriteMapPrim<K, int>>(&Filter());
        case 5:
            return MakePending<idb_WriteMapPrim<K, cow_String>>(&Filter());
        case 6:
            return MakePending<idb_WriteMapPrim<K, unsigned>>(&Filter());
        default:
            return nullptr;
    }
}

cls_Collection* idb_MementoWrite::MakeWriteMapInt2Prim(cls_CollectionType type) { return MakeMapPrim<int>(type); }
cls_Collection* idb_MementoWrite::MakeWriteMapString2Prim(cls_CollectionType type) {
    return MakeMapPrim<cow_String>(type);
}
cls_WriteListObj* idb_MementoWrite::MakeWriteListObj(int columns) {
    return MakePending<idb_WriteListObj>(_tree, columns, _depth + 1);
}
cls_WriteMapObj<int>* idb_MementoWrite::MakeWriteMapInt2Obj() {
    return MakePending<idb_WriteMapInt2Obj>(_tree, _depth + 1);
}
cls_WriteMapObj<cow_String>* idb_MementoWrite::MakeWriteMapString2Obj() {
    return MakePending<idb_WriteMapString2Obj>(_tree, _depth + 1);
}
cls_AgentBlob* idb_MementoWrite::MakeAgentBlob() { return MakePending<idb_AgentBlob>(&Filter()); }

void idb_MementoWrite::CheckCollectionType(cls_CollectionType asked, const cls_FieldHandle& field) const {
    const cls_Attribute* attribute = _metadata == nullptr ? nullptr : _metadata->Find(field.Name(), _cursor);
    const cls_CollectionType declared = attribute == nullptr ? 0 : attribute->collection;
    if (cls_CollectionsCompatible(declared, asked)) return;
    std::fprintf(stderr, "Error in collections types have: %d looking for: %d %s\n", declared, asked,
                 std::string(field.Name()).c_str());
}

void idb_MementoWrite::Flush() {
    bio_Ofilter& out = Filter();
    const bool hasPending = _parts && _parts->pending;
    if (_metadata != nullptr) {
        WriteFields();
    } else {
        out.Write(_classId);
        out.Write(_withFields);
        if (_withFields && _classId != cls_RootClass && (_object != nullptr || hasPending)) {
            out.WritePointer(_object);
            if (hasPending) _parts->pending.reset();
        }
    }
    if (!_ownTree || out.Good()) return;
    if (std::string_view(out.Failure()) == bio_outOfMemory) throw std::bad_alloc();
    nex_Throw(nex_StreamException(out.Failure()));
}

/// Header and fixed block of a memento with fields.
std::string_view idb_MementoWrite::Image(unsigned objectNumber) noexcept {
    char* const image = _block - headerSize;
    bio_Store(image, _classId);
    image[4] = 1;
    bio_Store(image + 5, objectNumber);
    return {image, headerSize + static_cast<std::size_t>(_metadata->BlockSize())};
}

std::string_view idb_MementoWrite::PlainImage() noexcept {
    const bool isPlain = _metadata != nullptr && _object == nullptr && !_parts && _metadata->IsPlain();
    return isPlain ? Image(0) : std::string_view();
}

void idb_MementoWrite::WriteFields() {
    bio_Ofilter& out = Filter();
    const std::string_view image = Image(out.NumberOf(_object));
    if (_parts && _parts->pending) {
        out.WriteRaw(image.data(), headerSize);
        _parts->pending.reset();
        out.WriteRaw(_block, image.size() - headerSize);
    } else {
        out.WriteRaw(image.data(), image.size());
    }

    for (std::size_t i = 0; i < static_cast<std::size_t>(_metadata->StringCount()); ++i)
        out.Write(_parts && i < _parts->strings.size() ? _parts->strings[i] : cow_String());

    const auto flush = [&](const idb_Owned<idb_MementoWrite>* made, unsigned classId) {
        if (_depth >= idb_deepestMemento) out.Fail(tooDeep);
        if (made != nullptr && *made)
            (*made)->Flush();
        else {
            out.Write(classId);
            out.Write(false);
        }
    };
    if (_metadata->HasBasePart()) flush(_parts ? &_parts->base : nullptr, _metadata->BaseId());
    const std::vector<const cls_Attribute*>& declared = _metadata->Objects();
    for (std::size_t i = 0; i < declared.size(); ++i)
        flush(_parts && i < _parts->objects.size() ? &_parts->objects[i] : nullptr, declared[i]->classId);
}
