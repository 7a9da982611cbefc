#include <base/atr_String.h>
#include <base/bio_Ifilter.h>
#include <base/cls_ClassRegistrar.h>
#include <base/typ_ArchCompTable.h>
#include <idb/idb_AgentBlob.h>
#include <idb/idb_Dump.h>
#include <idb/idb_MementoRead.h>

#include <charconv>
#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>

namespace {

constexpr std::size_t headerSize = 9;  // class, flag, object number
constexpr int longestListShown = 8;

constexpr std::string_view typeNames[] = {"", "char",  "signed char", "short",  "int",  "unsigned", "",     "bool",
                                          "", "float", "double",      "string", "text", "enum",     "path", "object"};

/// Text in quotes, with what would disturb a line or a terminal as \xNN.
std::string Shown(const cow_String& text) {
    std::string shown = "\"";
    for (const char c : text.str()) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\')
            (shown += '\\') += c;
        else if (byte < 32 || byte == 127)
            shown += atr("\\x%02x", byte).c_str();
        else
            shown += c;
    }
    return shown += '"';
}

template <class T>
std::string Shown(T value) {
    char buffer[64];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    return {buffer, end};
}

class Dumper {
public:
    Dumper(std::ostream& out, const cls_ClassRegistrar& registrar) : _out(out), _registrar(registrar) {}

    void Memento(const idb_MementoRead& memento, std::string_view name, int indent) {
        std::string text = ClassName(memento.ClassId());
        if (!memento.HasValue())
            text = memento.ClassId() == cls_RootClass ? "no object" : text + ", without fields";
        else if (memento.getMarker().size != 0)
            text += atr(", object %u", memento.getMarker().number).c_str();
        Line(memento.Start(), indent, name, text);
        if (!memento.HasValue()) return;

        const std::size_t block = memento.Start() + headerSize;
        if (const cls_ClassMetadata* metadata = memento.Layout())
            Fields(memento, *metadata, block, indent + 1);
        else
            Collection(memento, block, indent + 1);
    }

    void Note(std::size_t offset, std::string_view text) { Line(offset, 0, "", std::string(text)); }

private:
    void Line(std::size_t offset, int indent, std::string_view name, const std::string& text) {
        _out << atr("%08llx  ", static_cast<unsigned long long>(offset)).c_str()
             << std::string(static_cast<std::size_t>(2 * indent), ' ') << name << (name.empty() ? "" : "  ") << text
             << '\n';
    }

    [[nodiscard]] std::string ClassName(unsigned id) const {
        const cls_ClassMetadata* metadata = _registrar.Find(id);
        const char* name = metadata != nullptr ? metadata->Name().c_str() : typ_ArchCompTable::Name(id);
        const char* kind = id == cls_AgentBlobClass     ? "bytes"
                           : (id & ~0xFFU) == 0x230100U ? "collection"
                                                        : "unregistered class";
        return atr("%s 0x%08x", name != nullptr ? name : kind, id).c_str();
    }

    void Fields(const idb_MementoRead& memento, const cls_ClassMetadata& metadata, std::size_t block, int indent) {
        std::size_t string = block + static_cast<std::size_t>(metadata.BlockSize());
        for (const auto& [name, attribute] : metadata.Attributes()) {
            if (attribute.type == cls_ObjectAttribute || cls_IsStringType(attribute.type)) continue;
            Line(block + static_cast<std::size_t>(attribute.slot), indent, name,
                 TypeAndValue(attribute.type, Value(memento, name.c_str(), attribute.type)));
        }
        for (const auto& [name, attribute] : metadata.Attributes()) {
            if (!cls_IsStringType(attribute.type)) continue;
            const cow_String value = memento.Read(cow_String(name), cow_String());
            Line(string, indent, name, TypeAndValue(attribute.type, Shown(value)));
            string += 4 + static_cast<std::size_t>(value.Length());
        }
        if (const cls_MementoRead* base = memento.Base()) Child(*base, "base part", indent);
        for (const auto& [name, attribute] : metadata.Attributes())
            if (attribute.type == cls_ObjectAttribute) Child(*memento.MakeReadObj(cow_String(name)), name, indent);
    }

    void Child(const cls_MementoRead& child, std::string_view name, int indent) {
        Memento(static_cast<const idb_MementoRead&>(child), name, indent);
    }

    static std::string TypeAndValue(cls_AttributeType type, const std::string& value) {
        return std::string(typeNames[type]) + "  " + value;
    }

    static std::string Value(const idb_MementoRead& memento, const char* name, cls_AttributeType type) {
        switch (type) {
            case cls_DoubleAttribute:
                return Shown(memento.Read(name, 0.0));
            case cls_FloatAttribute:
                return Shown(memento.Read(name, 0.0F));
            case cls_UnsignedAttribute:
                return Shown(static_cast<unsigned>(memento.Read(name, 0)));
            case cls_BoolAttribute:
                return memento.Read(name, static_cast<char>(0)) != 0 ? "true" : "false";
            case cls_CharAttribute:
            case cls_SignedCharAttribute:
                return Shown(static_cast<int>(static_cast<signed char>(memento.Read(name, static_cast<char>(0)))));
            case cls_ShortAttribute:
                return Shown(memento.Read(name, static_cast<short>(0)));
            default:
                return Shown(memento.Read(name, 0));
        }
    }

    void Collection(const idb_MementoRead& memento, std::size_t offset, int indent) {
        cls_Collection* collection = memento.Collection();
        if (const auto* blob = dynamic_cast<const idb_AgentBlob*>(collection))
            return Line(offset, indent, "", atr("%u bytes", blob->Length()).c_str());
        if (auto* list = dynamic_cast<cls_ReadListObj*>(collection)) {
            Line(offset, indent, "", atr("list of %d objects, %d columns", list->Size(), list->Columns()).c_str());
            while (list->Next()) Child(list->MakeReadObj(), "", indent + 1);
            return;
        }
        const bool isShown = Lists<double, float, int, unsigned, cow_String>(collection, offset, indent) ||
                             Maps<double, float, int, unsigned, cow_String>(collection, offset, indent) ||
                             ObjectMap<int>(collection, offset, indent) ||
                             ObjectMap<cow_String>(collection, offset, indent);
        if (!isShown) Line(offset, indent, "", "nothing that can be read");
    }

    template <class... T>
    bool Lists(cls_Collection* collection, std::size_t offset, int indent) {
        return (List<T>(collection, offset, indent) || ...);
    }
    template <class... T>
    bool Maps(cls_Collection* collection, std::size_t offset, int indent) {
        return (Map<int, T>(collection, offset, indent) || ...) ||
               (Map<cow_String, T>(collection, offset, indent) || ...);
    }

    /// Up to eight of `shown(i)`, comma-separated.
    template <class ShownAt>
    static std::string Some(int size, ShownAt shownAt) {
        std::string text;
        for (int i = 0; i < size && i < longestListShown; ++i) text += (i == 0 ? " " : ", ") + shownAt(i);
        return size > longestListShown ? text + ", ..." : text;
    }

    template <class T>
    bool List(cls_Collection* collection, std::size_t offset, int indent) {
        const auto* list = dynamic_cast<const cls_ReadListPrim<T>*>(collection);
        if (list == nullptr) return false;
        Line(offset, indent, "",
             atr("%d values, %d columns:", list->Size(), list->Columns()).c_str() +
                 Some(list->Size(), [list](int i) { return Shown(list->Values().ConstGet(i)); }));
        return true;
    }

    template <class K, class T>
    bool Map(cls_Collection* collection, std::size_t offset, int indent) {
        auto* map = dynamic_cast<cls_ReadMapPrim<K, T>*>(collection);
        if (map == nullptr) return false;
        Line(offset, indent, "",
             atr("%d entries:", map->Size()).c_str() + Some(map->Size(), [entry = map->Values().begin()](int) mutable {
                 const auto& [key, value] = *entry++;
                 return Shown(key) + ": " + Shown(value);
             }));
        return true;
    }

    template <class K>
    bool ObjectMap(cls_Collection* collection, std::size_t offset, int indent) {
        auto* map = dynamic_cast<cls_ReadMapObj<K>*>(collection);
        if (map == nullptr) return false;
        Line(offset, indent, "", atr("map of %d objects", map->Size()).c_str());
        while (map->Next()) Child(map->MakeReadObj(), Shown(map->ReadKey()), indent + 1);
        return true;
    }

    std::ostream& _out;
    const cls_ClassRegistrar& _registrar;
};

}  // namespace

int idb_Dump(std::ostream& out, bio_Ifilter& in, const cls_ClassRegistrar& registrar, int maxRoots) {
    Dumper dumper(out, registrar);
    int roots = 0;
    while (in.Remaining() > 0 && roots != maxRoots) {
        const idb_MementoRead root(in, registrar, cls_AnyClass);
        dumper.Memento(root, "", 0);
        ++roots;
        const bool isUnknown = root.ClassId() != cls_RootClass && root.ClassId() != cls_AgentBlobClass &&
                               registrar.Find(root.ClassId()) == nullptr;
        if (isUnknown) {
            dumper.Note(in.Position(), "what follows an unregistered class cannot be told apart");
            break;
        }
    }
    return roots;
}
