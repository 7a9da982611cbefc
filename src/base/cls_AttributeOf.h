#ifndef ORV_BASE_CLS_ATTRIBUTEOF_H
#define ORV_BASE_CLS_ATTRIBUTEOF_H

#include <base/OrvBasUtlFilePath.h>
#include <base/atr_String.h>
#include <base/cls_AttributeType.h>
#include <base/cls_CollectionType.h>
#include <base/cow_2DArray.h>
#include <base/cow_COW.h>
#include <base/cow_CountedHld.h>
#include <base/cow_List.h>
#include <base/cow_Map.h>
#include <base/cow_String.h>

#include <type_traits>

class cls_WriteVisitor;

/// How a C++ type is stored: its attribute type, for objects the class, for collections the collection code.
struct cls_AttributeKind {
    /// As `cls_ClassMetadata::Attribute` takes them.
    cls_AttributeType type;
    unsigned classId = 0;
    cls_CollectionType collection = 0;
};

/// A class that writes itself field by field.
template <class T>
concept cls_Persistent = requires(const T& object, const cls_WriteVisitor& visitor) {
    T::TypeId();
    object.DBWrite(visitor);
};

/// Units digit of a primitive element in a list or an array; 0 for anything else.
template <class T>
inline constexpr int cls_ElementCode = std::is_same_v<T, double>       ? 2
                                       : std::is_same_v<T, float>      ? 3
                                       : std::is_same_v<T, int>        ? 4
                                       : std::is_same_v<T, cow_String> ? 5
                                       : std::is_same_v<T, unsigned>   ? 7
                                                                       : 0;

/// The object that a holder holds; `void` for a type that is no holder.
template <class V>
struct cls_HeldBy {
    /// The class of the object.
    using Type = void;
};
template <class T>
struct cls_HeldBy<cow_CountedHld<T>> {
    using Type = T;
};
template <class T>
struct cls_HeldBy<cow_COW<T>> {
    using Type = T;
};
template <class V>
concept cls_Holder = !std::is_void_v<typename cls_HeldBy<V>::Type>;

/// The collection code of a container type; 0 for a type that is no collection.
template <class V>
struct cls_CollectionOf {
    /// See `cls_CollectionType`.
    static constexpr cls_CollectionType code = 0;
};
template <class T>
struct cls_CollectionOf<cow_List<T>> {
    static constexpr cls_CollectionType code = cls_ElementCode<T> != 0 ? 50 + cls_ElementCode<T> : 1;
};
template <class T>
struct cls_CollectionOf<cow_2DArray<T>> {
    static_assert(cls_ElementCode<T> != 0, "only arrays of double, float, int, unsigned and cow_String persist");
    static constexpr cls_CollectionType code = 80 + cls_ElementCode<T>;
};
template <class K, class T>
struct cls_CollectionOf<cow_Map<K, T>> {
    static constexpr bool byString = std::is_same_v<K, cow_String>;
    static_assert(byString || std::is_same_v<K, int>, "only maps keyed by cow_String or int persist");
    static constexpr bool isListOfFloat = std::is_same_v<T, cow_List<float>>;
    static constexpr bool isArrayOfDouble = std::is_same_v<T, cow_2DArray<double>>;
    static_assert(byString || !(isListOfFloat || isArrayOfDouble), "collections persist only in maps keyed by string");
    static constexpr int element = std::is_same_v<T, unsigned> ? 6 : cls_ElementCode<T>;
    static constexpr cls_CollectionType code = isListOfFloat     ? 93
                                               : isArrayOfDouble ? 112
                                               : element != 0    ? (byString ? 60 : 70) + element
                                                                 : (byString ? 2 : 3);
};
template <class V>
concept cls_CollectionValue = cls_CollectionOf<V>::code != 0;

/// The one place that decides how a C++ type is stored; declaring, writing and reading all follow it.
template <class V>
[[nodiscard]] cls_AttributeKind cls_AttributeOf() {
    if constexpr (std::is_same_v<V, bool>) {
        return {cls_BoolAttribute};
    } else if constexpr (std::is_enum_v<V>) {
        return {cls_EnumAttribute};
    } else if constexpr (std::is_same_v<V, char>) {
        return {cls_CharAttribute};
    } else if constexpr (std::is_same_v<V, signed char>) {
        return {cls_SignedCharAttribute};
    } else if constexpr (std::is_same_v<V, short>) {
        return {cls_ShortAttribute};
    } else if constexpr (std::is_same_v<V, int>) {
        return {cls_IntAttribute};
    } else if constexpr (std::is_same_v<V, unsigned>) {
        return {cls_UnsignedAttribute};
    } else if constexpr (std::is_same_v<V, float>) {
        return {cls_FloatAttribute};
    } else if constexpr (std::is_same_v<V, double>) {
        return {cls_DoubleAttribute};
    } else if constexpr (std::is_same_v<V, cow_String>) {
        return {cls_StringAttribute};
    } else if constexpr (std::is_same_v<V, atr_String>) {
        return {cls_TextAttribute};
    } else if constexpr (std::is_same_v<V, OrvBasUtlFilePath>) {
        return {cls_FilePathAttribute};
    } else if constexpr (cls_Holder<V>) {
        return {cls_ObjectAttribute, cls_HeldBy<V>::Type::TypeId()};
    } else if constexpr (cls_CollectionValue<V>) {
        return {cls_ObjectAttribute, cls_CollectionClass(cls_CollectionOf<V>::code), cls_CollectionOf<V>::code};
    } else {
        static_assert(cls_Persistent<V>, "this type cannot be a persistent attribute");
        return {cls_ObjectAttribute, V::TypeId()};
    }
}

#endif
