#ifndef ORV_BASE_CLS_WRITEVISITOR_H
#define ORV_BASE_CLS_WRITEVISITOR_H

#include <base/bio_Ofilter.h>
#include <base/cls_AttributeOf.h>
#include <base/cls_ClassRegistrar.h>
#include <base/cls_MementoWrite.h>
#include <base/nex_StreamException.h>
#include <base/nex_Throw.h>
#include <base/orv_Export.h>

#include <bit>
#include <memory>
#include <type_traits>

/// Through which an object writes its fields, by name and C++ type:
///
///     void annC_Arrow::DBWrite(const cls_WriteVisitor& v) const {
///         annC_Annotation::DBWrite(v.Base(annC_Annotation::TypeId()));
///         v.Write("startPointX", _startPointX);
///         v.Write("startAnchor", _startAnchor);
///     }
///
/// How a type is stored is decided by `cls_AttributeOf`, the same for declaring, writing and reading. A visitor is a
/// handle on a memento and as cheap to copy as a pointer; one without a memento writes nowhere.
class ORV_EXPORT cls_WriteVisitor {
public:
    /// Writes into a memento that must outlive it.
    explicit cls_WriteVisitor(cls_MementoWrite& memento) noexcept : _memento(&memento) {}
    explicit cls_WriteVisitor(cls_MementoWrite* memento) noexcept : _memento(memento) {}

    /// Throws nex_StreamException for a held object of a class that is not registered: it could not be read back.
    template <class V>
    void Write(const char* field, const V& value) const;

    /// The visitor of the base part; first of all calls in `DBWrite`.
    [[nodiscard]] cls_WriteVisitor Base(unsigned baseId) const {
        return cls_WriteVisitor(_memento == nullptr ? nullptr : _memento->MakeBaseWriteObj(baseId));
    }

private:
    template <class V, class Make>
    void WriteObject(const V& value, const Make& make) const;
    template <class V>
    static void WriteCollection(cls_MementoWrite& holder, const V& collection);

    cls_MementoWrite* _memento;
};

/// The class of an object: the dynamic one where the class tells.
template <class T>
[[nodiscard]] unsigned cls_DynTypeId(const T& object) {
    if constexpr (requires { object.DynTypeId(); })
        return object.DynTypeId();
    else
        return T::TypeId();
}

template <class V>
void cls_WriteVisitor::Write(const char* field, const V& value) const {
    if (_memento == nullptr) return;
    if constexpr (std::is_same_v<V, bool>) {
        _memento->Write(field, static_cast<char>(value ? 1 : 0));
    } else if constexpr (std::is_enum_v<V>) {
        _memento->WriteEnumAsInt(field, static_cast<int>(value));
    } else if constexpr (std::is_same_v<V, signed char>) {
        _memento->Write(field, static_cast<char>(value));
    } else if constexpr (std::is_same_v<V, unsigned>) {
        _memento->Write(field, std::bit_cast<int>(value));
    } else if constexpr (std::is_arithmetic_v<V> || std::is_same_v<V, cow_String>) {
        _memento->Write(field, value);
    } else if constexpr (std::is_same_v<V, atr_String>) {
        _memento->Write(field, value.Text());
    } else if constexpr (std::is_same_v<V, OrvBasUtlFilePath>) {
        _memento->Write(field, value.Path());
    } else {
        if constexpr (cls_CollectionValue<V>) _memento->CheckCollectionType(cls_CollectionOf<V>::code, field);
        WriteObject(value, [&](unsigned classId, const void* object) {
            if (classId == cls_RootClass) return _memento->MakeNullObj(field);
            return object == nullptr ? _memento->MakeWriteObj(field, classId)
                                     : _memento->MakeWriteObjWithPtr(field, classId, cls_Uid(), object);
        });
    }
}

/// `make(class, object)` gives the memento to fill: of a field, or of an entry of a collection.
template <class V, class Make>
void cls_WriteVisitor::WriteObject(const V& value, const Make& make) const {
    if constexpr (cls_Holder<V>) {
        if (value.IsNull()) {
            make(cls_RootClass, nullptr);
            return;
        }
        const auto* object = [&value] {
            if constexpr (requires { value.Share(); })
                return value.Get();
            else
                return &value.ConstGet();
        }();
        const unsigned classId = cls_DynTypeId(*object);
        if (_memento->Registrar().Find(classId) == nullptr)
            nex_Throw(nex_StreamException("class cannot be written to a stream"));
        if constexpr (requires { value.Share(); })
            _memento->Filter().Hold(value.Share());
        else
            _memento->Filter().Hold({std::make_shared<V>(value), object});
        if (cls_MementoWrite* child = make(classId, object)) object->DBWrite(cls_WriteVisitor(*child));
    } else if constexpr (cls_CollectionValue<V>) {
        if (cls_MementoWrite* child = make(cls_CollectionClass(cls_CollectionOf<V>::code), nullptr))
            WriteCollection(*child, value);
    } else {
        static_assert(cls_Persistent<V>, "this type cannot be a persistent attribute");
        if (cls_MementoWrite* child = make(V::TypeId(), nullptr)) value.DBWrite(cls_WriteVisitor(*child));
    }
}

template <class V>
void cls_WriteVisitor::WriteCollection(cls_MementoWrite& holder, const V& collection) {
    constexpr cls_CollectionType code = cls_CollectionOf<V>::code;
    const auto writeElement = [&holder](const auto& element, const auto& make) {
        cls_WriteVisitor(holder).WriteObject(element, make);
    };
    if constexpr (requires { collection.Cols(); }) {
        using Element = std::remove_cvref_t<decltype(collection.ConstGet(0, 0))>;
        auto* writer = static_cast<cls_WriteListPrim<Element>*>(holder.MakeWriteListPrim(code, collection.Cols()));
        writer->Write(collection.Span().data(), collection.Rows() * collection.Cols());
    } else if constexpr (requires { collection.Keys(); }) {
        using Key = std::remove_cvref_t<decltype(collection.begin()->first)>;
        using Element = std::remove_cvref_t<decltype(collection.begin()->second)>;
        constexpr bool byString = std::is_same_v<Key, cow_String>;
        if constexpr (code >= 60 && code < 80) {
            auto* writer = static_cast<cls_WriteMapPrim<Key, Element>*>(byString ? holder.MakeWriteMapString2Prim(code)
                                                                                 : holder.MakeWriteMapInt2Prim(code));
            writer->Write(collection);
        } else {
            cls_WriteMapObj<Key>* writer = nullptr;
            if constexpr (byString)
                writer = holder.MakeWriteMapString2Obj();
            else
                writer = holder.MakeWriteMapInt2Obj();
            for (const auto& [key, element] : collection) {
                writeElement(element, [writer, &key = key](unsigned classId, const void* object) {
                    if (classId == cls_RootClass) return writer->MakeNullObj(key);
                    return object == nullptr ? writer->MakeWriteObj(key, classId)
                                             : writer->MakeWriteObjWithPtr(key, classId, cls_Uid(), object);
                });
            }
        }
    } else if constexpr (code != 1) {
        using Element = std::remove_cvref_t<decltype(collection.ConstGet(0))>;
        static_cast<cls_WriteListPrim<Element>*>(holder.MakeWriteListPrim(code, 1))->Write(collection);
    } else {
        cls_WriteListObj* writer = holder.MakeWriteListObj(1);
        for (const auto& element : collection) {
            writeElement(element, [writer](unsigned classId, const void* object) {
                if (classId == cls_RootClass) return writer->MakeNullObj();
                return object == nullptr ? writer->MakeWriteObj(classId)
                                         : writer->MakeWriteObjWithPtr(classId, cls_Uid(), object);
            });
        }
    }
}

#endif
