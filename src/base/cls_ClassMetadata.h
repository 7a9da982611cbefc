#ifndef ORV_BASE_CLS_CLASSMETADATA_H
#define ORV_BASE_CLS_CLASSMETADATA_H

#include <base/cls_AttributeOf.h>
#include <base/cow_List.h>
#include <base/cow_String.h>
#include <base/orv_Export.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class cls_ReadVisitor;

/// One attribute of a persistent class with its place in a stored object.
struct cls_Attribute {
    cls_AttributeType type;         ///< which also gives the size of the slot
    unsigned classId;               ///< type 15: the class of the object; else 0
    cls_CollectionType collection;  ///< 0 when it is no collection
    int slotSize = 0;               ///< bytes in the fixed block; 0 for strings and objects
    int slot = 0;                   ///< offset in the fixed block; index among the strings; index among the objects
};

/// What is known of a persistent class: its names and numbers, its attributes with their layout, and how to make an
/// object of it from a stream. The layout is worked out as attributes are added and is shared by every memento of
/// the class.
///
/// Order everywhere on a stream is the unsigned byte order of the attribute names; the order of registration is kept
/// for asking only.
class ORV_EXPORT cls_ClassMetadata {
public:
    cls_ClassMetadata() = default;
    /// @param baseId the class of the base part, 1 for none.
    cls_ClassMetadata(const char* name, unsigned id, unsigned number, unsigned baseId);
    cls_ClassMetadata(const cls_ClassMetadata&) = delete;
    cls_ClassMetadata& operator=(const cls_ClassMetadata&) = delete;
    cls_ClassMetadata(cls_ClassMetadata&&) = default;
    cls_ClassMetadata& operator=(cls_ClassMetadata&&) = default;

    /// Declares an attribute; one of the same name is replaced. Throws nex_PrimException for a type that has no
    /// place in a stored object (0, 6, 8, above 15, negative).
    cls_ClassMetadata& Attribute(const char* name, cls_AttributeType type, unsigned classId = 0,
                                 cls_CollectionType collection = 0);

    /// Declares an attribute held in a member of type V.
    template <class V>
    cls_ClassMetadata& Add(const char* name) {
        const cls_AttributeKind kind = cls_AttributeOf<V>();
        return Attribute(name, kind.type, kind.classId, kind.collection);
    }

    /// As registered.
    [[nodiscard]] const cow_String& Name() const noexcept { return _name; }
    [[nodiscard]] unsigned Id() const noexcept { return _id; }
    [[nodiscard]] unsigned Number() const noexcept { return _number; }
    [[nodiscard]] unsigned Flags() const noexcept { return _flags; }
    /// Replaces the flags.
    void SetFlags(unsigned flags) noexcept { _flags = flags; }
    /// Type identifier of the base's class, `cls_RootClass` for none.
    [[nodiscard]] unsigned BaseId() const noexcept { return _baseId; }
    [[nodiscard]] bool HasBasePart() const noexcept { return _baseId != cls_RootClass && _storesBase; }
    /// Derived from the base's class, but all that is stored are its own attributes.
    cls_ClassMetadata& WithoutBasePart() noexcept {
        _storesBase = false;
        return *this;
    }

    /// By name: the order of every layout.
    [[nodiscard]] const std::map<std::string, cls_Attribute>& Attributes() const noexcept { return _attributes; }
    /// In order of registration.
    [[nodiscard]] cow_List<cow_String> AttributeNames() const;

    /// The attribute of that name or null. `cursor` is the caller's guess at the place in registration order and is
    /// moved behind what was found: fields asked for in registration order are found at the first comparison.
    [[nodiscard]] const cls_Attribute* Find(std::string_view name, unsigned& cursor) const;

    /// Bytes of the fixed block, and how many strings follow it.
    [[nodiscard]] int BlockSize() const noexcept { return _blockSize; }
    [[nodiscard]] int StringCount() const noexcept { return _stringCount; }
    /// Whether a stored object is header and fixed block alone.
    [[nodiscard]] bool IsPlain() const noexcept { return _stringCount == 0 && _objects.empty() && !HasBasePart(); }
    /// Type-15 attributes, by name.
    [[nodiscard]] const std::vector<const cls_Attribute*>& Objects() const noexcept { return _objects; }

    /// Makes an object from its stored fields; null for an abstract class and for one without a C++ type.
    std::shared_ptr<void> (*make)(const cls_ReadVisitor&) = nullptr;
    /// From the object to its base part (`T*` to `B*`); null without a base.
    void* (*toBase)(void*) = nullptr;
    /// Destroys an object made with `new` of which the untyped address is known; null unless the class registers it.
    /// For copy-on-write holders of a host that keep untyped addresses: this library's own know their types.
    void (*cowDtor)(void*) = nullptr;

private:
    using Node = std::map<std::string, cls_Attribute>::value_type;

    cow_String _name;
    unsigned _id = 0;
    unsigned _number = 0;
    unsigned _flags = 0;
    unsigned _baseId = cls_RootClass;
    bool _storesBase = true;
    std::map<std::string, cls_Attribute> _attributes;
    std::vector<const Node*> _registered;  // in order of registration
    std::vector<const cls_Attribute*> _objects;
    int _blockSize = 0;
    int _stringCount = 0;
};

inline const cls_Attribute* cls_ClassMetadata::Find(std::string_view name, unsigned& cursor) const {
    // Names are short: comparing them here costs less than calling the C library for it.
    const auto isNamed = [name](const Node* node) noexcept {
        if (node->first.size() != name.size()) return false;
        for (std::size_t i = 0; i < name.size(); ++i)
            if (node->first[i] != name[i]) return false;
        return true;
    };
    if (cursor < _registered.size() && isNamed(_registered[cursor])) return &_registered[cursor++]->second;
    for (unsigned i = 0; i < _registered.size(); ++i) {
        if (isNamed(_registered[i])) {
            cursor = i + 1;
            return &_registered[i]->second;
        }
    }
    return nullptr;
}

#endif
