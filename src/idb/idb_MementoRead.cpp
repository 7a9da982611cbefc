#include <base/bio_Ifilter.h>
#include <base/cls_ClassRegistrar.h>
#include <base/detail/bio_Encoding.h>
#include <base/nex_StreamException.h>
#include <base/nex_Throw.h>
#include <base/typ_ArchCompTable.h>
#include <idb/idb_AgentBlob.h>
#include <idb/idb_MementoRead.h>
#include <idb/idb_ReadListObj.h>
#include <idb/idb_ReadListPrim.h>
#include <idb/idb_ReadMapObj.h>
#include <idb/idb_ReadMapPrim.h>

#include <cstdio>
#include <string>
#include <vector>

/// A string field where it stands on the stream.
struct idb_MementoRead::Text {
    const char* bytes;
    int length;
};

/// What most small objects do not have.
struct idb_MementoRead::Parts {
    std::vector<Text> strings;
    std::vector<idb_Owned<idb_MementoRead>> objects;
    idb_Owned<idb_MementoRead> base;
    idb_Owned<cls_Collection> collection;
};

namespace {

std::string TypeName(unsigned classId, const cls_ClassRegistrar& registrar) {
    if (const char* name = typ_ArchCompTable::Name(classId)) return name;
    const cls_ClassMetadata* metadata = registrar.Find(classId);
    return metadata == nullptr ? "unknown class" : metadata->Name().str();
}

const cls_ClassMetadata& StringLayout(unsigned classId) {
    struct Layouts {
        cls_ClassMetadata string{"", cls_StringClass, 0, cls_RootClass};
        cls_ClassMetadata text{"", cls_TextClass, 0, cls_RootClass};
        Layouts() {
            string.Attribute("STRING", cls_StringAttribute);
            text.Attribute("TRSTRING", cls_TextAttribute);
        }
    };
    static const Layouts layouts;
    return classId == cls_StringClass ? layouts.string : layouts.text;
}

/// Null for what has no fields: class 1, raw bytes, collections, and classes that nobody knows.
const cls_ClassMetadata* LayoutOf(idb_ReadTree& tree, unsigned classId, cls_CollectionType collection) {
    if (classId == cls_RootClass || classId == cls_AgentBlobClass) return nullptr;
    const cls_ClassMetadata* known = tree.Find(classId);
    const bool isString = classId == cls_StringClass || classId == cls_TextClass;
    return isString && (known != nullptr || collection != 0) ? &StringLayout(classId) : known;
}

template <class Reader, class... A>
idb_Owned<cls_Collection> MakeReader(idb_ReadTree& tree, A&&... arguments) {
    return idb_Owned<cls_Collection>(tree.Make<Reader>(std::forward<A>(arguments)...).release());
}

/// The reader for a collection code; null for a code without one.
idb_Owned<cls_Collection> MakeCollectionReader(idb_ReadTree& tree, cls_CollectionType collection, int depth) {
    bio_Ifilter& in = tree.GetFilter();
    switch (collection) {
        case 52:
        case 82:
            return MakeReader<idb_ReadListPrim<double>>(tree, in);
        case 53:
        case 83:
            return MakeReader<idb_ReadListPrim<float>>(tree, in);
        case 54:
        case 84:
            return MakeReader<idb_ReadListPrim<int>>(tree, in);
        case 55:
        case 85:
            return MakeReader<idb_ReadListPrim<cow_String>>(tree, in);
        case 57:
        case 87:
            return MakeReader<idb_ReadListPrim<unsigned>>(tree, in);
        case 62:
            return MakeReader<idb_ReadMapString2Prim<double>>(tree, in);
        case 63:
            return MakeReader<idb_ReadMapString2Prim<float>>(tree, in);
        case 64:
            return MakeReader<idb_ReadMapString2Prim<int>>(tree, in);
        case 65:
            return MakeReader<idb_ReadMapString2Prim<cow_String>>(tree, in);
        case 66:
            return MakeReader<idb_ReadMapString2Prim<unsigned>>(tree, in);
        case 72:
            return MakeReader<idb_ReadMapInt2Prim<double>>(tree, in);
        case 73:
            return MakeReader<idb_ReadMapInt2Prim<float>>(tree, in);
        case 74:
            return MakeReader<idb_ReadMapInt2Prim<int>>(tree, in);
        case 75:
            return MakeReader<idb_ReadMapInt2Prim<cow_String>>(tree, in);
        case 76:
            return MakeReader<idb_ReadMapInt2Prim<unsigned>>(tree, in);
        case 1:
            return MakeReader<idb_ReadListObj>(tree, tree, depth);
        case 2:
            return MakeReader<idb_ReadMapString2Obj>(tree, tree, 0, depth);
        case 3:
            return MakeReader<idb_ReadMapInt2Obj>(tree, tree, 0, depth);
        case 93:
            return MakeReader<idb_ReadMapString2Obj>(tree, tree, 53, depth);
        case 112:
            return MakeReader<idb_ReadMapString2Obj>(tree, tree, 82, depth);
        default:
            return nullptr;
    }
}

}  // namespace

idb_MementoRead::idb_MementoRead(bio_Ifilter& in, const cls_ClassRegistrar& registrar, unsigned expectedClass,
                                 cls_CollectionType collection)
    : _ownTree(std::make_unique<idb_ReadTree>(in, registrar)),
      _tree(_ownTree.get()),
      _start(in.Position()),
      _classId(expectedClass) {
    Read(collection, 1);
}

idb_MementoRead::idb_MementoRead(idb_ReadTree& tree, unsigned expectedClass, cls_CollectionType collection, int depth)
    : _tree(&tree), _start(tree.GetFilter().Position()), _classId(expectedClass) {
    if (depth > idb_deepestMemento) nex_Throw(nex_StreamException("stream nested too deeply"));
    Read(collection, depth);
}

idb_MementoRead::~idb_MementoRead() = default;

/// Settles which class this is. True when fields or a collection may follow.
bool idb_MementoRead::ReadHeader() {
    unsigned readClass = 0;
    bool withFields = false;
    Filter().Read(readClass);
    Filter().Read(withFields);
    const bool isTaken = readClass == _classId || readClass == cls_RootClass || _classId == cls_AnyClass ||
                         Registrar().Inherits(readClass, _classId) ||
                         typ_ArchCompTable::IsDerived(readClass, _classId) ||
                         cls_CollectionsCompatible(cls_CollectionCode(_classId), cls_CollectionCode(readClass));
    if (isTaken) {
        _classId = readClass;
    } else {
        _tree->SetMisfit();
        std::fprintf(stderr, "Error constructing object for %x does not inherit from %x\n", readClass, _classId);
        std::fprintf(stderr, "Error constructing object for %s does not inherit from %s\n",
                     TypeName(readClass, Registrar()).c_str(), TypeName(_classId, Registrar()).c_str());
    }
    return withFields && readClass != cls_RootClass;
}

void idb_MementoRead::Read(cls_CollectionType collection, int depth) {
    bio_Ifilter& in = Filter();
    if (!ReadHeader()) return;

    const cls_ClassMetadata* metadata = LayoutOf(*_tree, _classId, collection);
    const bool isKnown = metadata != nullptr || _classId == cls_RootClass || _classId == cls_AgentBlobClass;
    if (!isKnown && collection == 0) return;

    _hasValue = true;
    const bio_Marker marker = in.LookUpMarker();
    _objectNumber = marker.number;
    if (marker.size != 0) in.EnterMarker(marker);

    if (metadata != nullptr) {
        _metadata = metadata;
        ReadFields(depth);
    } else {
        _parts = _tree->Make<Parts>();
        _parts->collection = _classId == cls_AgentBlobClass ? MakeReader<idb_AgentBlob>(*_tree, in)
                                                            : MakeCollectionReader(*_tree, collection, depth + 1);
    }
}

bool idb_MementoRead::SkipPlain(idb_ReadTree& tree) {
    bio_Ifilter& in = tree.GetFilter();
    const std::size_t start = in.Position();
    unsigned classId = 0;
    bool withFields = false;
    in.Read(classId);
    in.Read(withFields);
    if (!withFields || classId == cls_RootClass) return true;
    const cls_ClassMetadata* metadata = LayoutOf(tree, classId, 0);
    if (metadata == nullptr ? classId == cls_AgentBlobClass : !metadata->IsPlain()) {
        in.Seek(start);
        return false;
    }
    if (metadata != nullptr) {
        const bio_Marker marker = in.LookUpMarker();
        if (marker.size != 0) in.EnterMarker(marker);
        (void)in.Take(static_cast<std::size_t>(metadata->BlockSize()));
    }
    return true;
}

void idb_MementoRead::ReadPlainAt(std::size_t start) {
    bio_Ifilter& in = Filter();
    const std::size_t position = in.Position();
    in.Seek(start);
    _start = start;
    _classId = cls_AnyClass;
    _metadata = nullptr;
    _objectNumber = 0;
    _hasValue = false;
    Read(0, 1);
    in.Seek(position);
}

void idb_MementoRead::ReadFields(int depth) {
    bio_Ifilter& in = Filter();
    _block = in.Take(static_cast<std::size_t>(_metadata->BlockSize()));

    const auto stringCount = static_cast<std::size_t>(_metadata->StringCount());
    const std::vector<const cls_Attribute*>& declared = _metadata->Objects();
    if (stringCount == 0 && declared.empty() && !_metadata->HasBasePart()) return;
    _parts = _tree->Make<Parts>();

    _parts->strings.reserve(stringCount);
    for (std::size_t i = 0; i < stringCount; ++i) {
        const int length = in.ReadCount(1);
        _parts->strings.push_back({in.Take(static_cast<std::size_t>(length)), length});
    }
    if (_metadata->HasBasePart())
        _parts->base = _tree->Make<idb_MementoRead>(*_tree, _metadata->BaseId(), 0, depth + 1);
    _parts->objects.reserve(declared.size());
    for (const cls_Attribute* attribute : declared)
        _parts->objects.push_back(
            _tree->Make<idb_MementoRead>(*_tree, attribute->classId, attribute->collection, depth + 1));
}

const cls_Attribute* idb_MementoRead::Find(const cls_FieldHandle& field) const {
    return _metadata == nullptr ? nullptr : _metadata->Find(field.Name(), _cursor);
}

template <class T>
T idb_MementoRead::Load(const cls_FieldHandle& field, T fallback) const {
    const cls_Attribute* attribute = Find(field);
    if (attribute == nullptr || attribute->slotSize < static_cast<int>(sizeof(T))) return fallback;
    return bio_Load<T>(_block + attribute->slot);
}

char idb_MementoRead::Read(const cls_FieldHandle& field, char fallback) const { return Load(field, fallback); }
short idb_MementoRead::Read(const cls_FieldHandle& field, short fallback) const { return Load(field, fallback); }
int idb_MementoRead::Read(const cls_FieldHandle& field, int fallback) const { return Load(field, fallback); }
float idb_MementoRead::Read(const cls_FieldHandle& field, float fallback) const { return Load(field, fallback); }
double idb_MementoRead::Read(const cls_FieldHandle& field, double fallback) const { return Load(field, fallback); }
int idb_MementoRead::ReadEnumAsInt(const cls_FieldHandle& field, int fallback) const { return Load(field, fallback); }

cow_String idb_MementoRead::Read(const cls_FieldHandle& field, const cow_String& fallback) const {
    const cls_Attribute* attribute = Find(field);
    if (attribute == nullptr || !cls_IsStringType(attribute->type)) return fallback;
    const Text& text = _parts->strings[static_cast<std::size_t>(attribute->slot)];
    return cow_String(std::string(text.bytes, static_cast<std::size_t>(text.length)));
}

const cls_MementoRead* idb_MementoRead::MakeReadObj(const cls_FieldHandle& field) const {
    const cls_Attribute* attribute = Find(field);
    if (attribute == nullptr || attribute->type != cls_ObjectAttribute) return nullptr;
    return _parts->objects[static_cast<std::size_t>(attribute->slot)].get();
}

const cls_MementoRead* idb_MementoRead::Base() const { return _parts ? _parts->base.get() : nullptr; }

cls_Collection* idb_MementoRead::Collection() const { return _parts ? _parts->collection.get() : nullptr; }

cls_AgentBlob* idb_MementoRead::AgentBlob() const { return dynamic_cast<cls_AgentBlob*>(Collection()); }

bool idb_MementoRead::HasValue() const { return _hasValue; }
bool idb_MementoRead::HasMisfit() const { return _tree->HasMisfit(); }
unsigned idb_MementoRead::ClassId() const { return _classId; }

bio_Marker idb_MementoRead::getMarker() const {
    return {_objectNumber, _objectNumber == 0 ? 0U : static_cast<unsigned>(sizeof _objectNumber)};
}

std::shared_ptr<void> idb_MementoRead::getObjectPtr() const { return Filter().FindObject(getMarker(), _classId); }

bio_Ifilter& idb_MementoRead::Filter() const { return _tree->GetFilter(); }
const cls_ClassRegistrar& idb_MementoRead::Registrar() const { return _tree->Registrar(); }
