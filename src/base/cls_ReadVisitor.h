#ifndef ORV_BASE_CLS_READVISITOR_H
#define ORV_BASE_CLS_READVISITOR_H

#include <base/cls_AttributeOf.h>
#include <base/cls_MementoRead.h>
#include <base/nex_StreamException.h>
#include <base/nex_Throw.h>
#include <base/orv_Export.h>

#include <bit>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

/// Through which a reading constructor takes its fields, by name and C++ type, in the order of `DBWrite`:
///
///     annC_Arrow::annC_Arrow(const cls_ReadVisitor& v)
///         : annC_Annotation(v.Base()), _startPointX(v.Read("startPointX", 0.0)) {}
///
/// What the stream did not carry reads as the fallback; a visitor of null reads everything so. Never pass a member
/// that is being initialised as its own fallback: it is not born yet.
///
/// Throws nex_StreamException for an object of a wrong, unknown or abstract class and for an array whose values do
/// not fill its rows. A stored enumeration comes back as the number stood, listed or not. An array of n x 0 comes back
/// as 0 x 0, since a stream tells the number of values and of columns; one of 0 x n keeps its shape.
class ORV_EXPORT cls_ReadVisitor {
public:
    /// Reads from a memento that must outlive it; from null everything reads as its fallback. Throws
    /// nex_StreamException for a memento below a root with a misfit.
    explicit cls_ReadVisitor(const cls_MementoRead* memento) : _memento(memento) {
        if (memento != nullptr && memento->HasMisfit())
            nex_Throw(nex_StreamException("class cannot be made from a stream"));
    }

    /// The field, which was registered as a V.
    template <class V>
    [[nodiscard]] V Read(const char* field, const V& fallback) const;

    /// The visitor of the base part.
    [[nodiscard]] cls_ReadVisitor Base() const {
        return cls_ReadVisitor(_memento == nullptr ? nullptr : _memento->Base());
    }

private:
    template <class V>
    static V ReadObject(const cls_MementoRead& child, const V& fallback);
    template <class V>
    static V ReadCollection(const cls_MementoRead& child, const V& fallback);
    template <class V>
    static V ReadEntry(const cls_MementoRead& entry);

    const cls_MementoRead* _memento;
};

template <class V>
V cls_ReadVisitor::Read(const char* field, const V& fallback) const {
    if (_memento == nullptr) return fallback;
    if constexpr (std::is_same_v<V, bool>) {
        return _memento->Read(field, static_cast<char>(fallback ? 1 : 0)) != 0;
    } else if constexpr (std::is_enum_v<V>) {
        return static_cast<V>(_memento->ReadEnumAsInt(field, static_cast<int>(fallback)));
    } else if constexpr (std::is_same_v<V, signed char>) {
        return static_cast<signed char>(_memento->Read(field, static_cast<char>(fallback)));
    } else if constexpr (std::is_same_v<V, unsigned>) {
        return std::bit_cast<unsigned>(_memento->Read(field, std::bit_cast<int>(fallback)));
    } else if constexpr (std::is_arithmetic_v<V> || std::is_same_v<V, cow_String>) {
        return _memento->Read(field, fallback);
    } else if constexpr (std::is_same_v<V, atr_String>) {
        return V(_memento->Read(field, fallback.Text()));
    } else if constexpr (std::is_same_v<V, OrvBasUtlFilePath>) {
        return V(_memento->Read(field, fallback.Path()));
    } else {
        const cls_MementoRead* child = _memento->MakeReadObj(field);
        return child == nullptr ? fallback : ReadObject(*child, fallback);
    }
}

template <class V>
V cls_ReadVisitor::ReadObject(const cls_MementoRead& child, const V& fallback) {
    if constexpr (cls_CollectionValue<V>) {
        return ReadCollection(child, fallback);
    } else if constexpr (cls_Holder<V>) {
        using Held = typename cls_HeldBy<V>::Type;
        if (child.ClassId() == cls_RootClass) return V();
        const auto object = std::static_pointer_cast<Held>(cls_MakeObject(child, Held::TypeId(), true));
        if (!object) return fallback;
        if constexpr (std::is_constructible_v<V, std::shared_ptr<Held>>)
            return V(object);
        else
            return V(*object);
    } else {
        static_assert(cls_Persistent<V>, "this type cannot be a persistent attribute");
        return child.HasValue() ? V(cls_ReadVisitor(&cls_PartOf(child, V::TypeId()))) : fallback;
    }
}

/// An entry of a collection. Objects by value are never null: an entry without one is refused.
template <class V>
V cls_ReadVisitor::ReadEntry(const cls_MementoRead& entry) {
    if constexpr (cls_Holder<V> || cls_CollectionValue<V>)
        return ReadObject(entry, V());
    else
        return V(cls_ReadVisitor(&cls_PartOf(entry, V::TypeId())));
}

template <class V>
V cls_ReadVisitor::ReadCollection(const cls_MementoRead& child, const V& fallback) {
    constexpr cls_CollectionType code = cls_CollectionOf<V>::code;
    cls_Collection* const collection = child.Collection();
    if constexpr (requires { fallback.Cols(); }) {
        using Element = std::remove_cvref_t<decltype(fallback.ConstGet(0, 0))>;
        const auto* reader = dynamic_cast<const cls_ReadListPrim<Element>*>(collection);
        if (reader == nullptr) return fallback;
        const int columns = reader->Columns();
        if (columns == 0 ? reader->Size() != 0 : reader->Size() % columns != 0)
            nex_Throw(nex_StreamException("bad count in stream"));
        const auto values = reader->Values().Span();
        return V(columns == 0 ? 0 : reader->Size() / columns, columns, {values.begin(), values.end()});
    } else if constexpr (requires { fallback.Keys(); }) {
        using Key = std::remove_cvref_t<decltype(fallback.begin()->first)>;
        using Element = std::remove_cvref_t<decltype(fallback.begin()->second)>;
        if constexpr (code >= 60 && code < 80) {
            const auto* reader = dynamic_cast<const cls_ReadMapPrim<Key, Element>*>(collection);
            return reader == nullptr ? fallback : reader->Values();
        } else {
            auto* reader = dynamic_cast<cls_ReadMapObj<Key>*>(collection);
            if (reader == nullptr) return fallback;
            V map;
            while (reader->Next()) map.Insert(reader->ReadKey(), ReadEntry<Element>(reader->MakeReadObj()));
            return map;
        }
    } else {
        using Element = std::remove_cvref_t<decltype(fallback.ConstGet(0))>;
        if constexpr (code != 1) {
            const auto* reader = dynamic_cast<const cls_ReadListPrim<Element>*>(collection);
            return reader == nullptr ? fallback : reader->Values();
        } else {
            auto* reader = dynamic_cast<cls_ReadListObj*>(collection);
            if (reader == nullptr) return fallback;
            std::vector<Element> elements;
            elements.reserve(static_cast<std::size_t>(reader->Size()));
            while (reader->Next()) elements.push_back(ReadEntry<Element>(reader->MakeReadObj()));
            return V(std::move(elements));
        }
    }
}

#endif
