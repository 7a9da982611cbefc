#ifndef ORV_BASE_CLS_COLLECTIONTYPE_H
#define ORV_BASE_CLS_COLLECTIONTYPE_H

/// What a collection attribute holds, as a two-part code: the tens say which container, the units which element.
///
/// |                    | double | float | int | string | unsigned | objects | lists of float | 2-D arrays of double |
/// |--------------------|--------|-------|-----|--------|----------|---------|----------------|----------------------|
/// | list               | 52     | 53    | 54  | 55     | 57       | 1       |                |                      |
/// | map, string keys   | 62     | 63    | 64  | 65     | 66       | 2       | 93             | 112                  |
/// | map, integer keys  | 72     | 73    | 74  | 75     | 76       | 3       |                |                      |
/// | 2-D array          | 82     | 83    | 84  | 85     | 87       |         |                |                      |
///
/// 0 is no collection. Mind the unsigned: 7 in lists and arrays, 6 in maps. The codes 56 and 86 (bool) can be
/// written but not read back, so no attribute uses them.
using cls_CollectionType = int;

/// Class identifiers with a meaning of their own on a stream.
inline constexpr unsigned cls_RootClass = 1;              ///< the root of all classes; on a stream: no object
inline constexpr unsigned cls_AnyClass = 2;               ///< as an expectation only: whatever class comes
inline constexpr unsigned cls_StringClass = 0x1A0001;     ///< a string as an object, attribute "STRING"
inline constexpr unsigned cls_TextClass = 0x1A0007;       ///< a translatable text as an object, "TRSTRING"
inline constexpr unsigned cls_AgentBlobClass = 0x230005;  ///< raw bytes

/// The class identifier of the memento that holds a collection. It is never registered: a class unknown to the
/// registrar with a collection code is how reader and writer recognise a collection.
[[nodiscard]] constexpr unsigned cls_CollectionClass(cls_CollectionType code) noexcept {
    return 0x230100U + static_cast<unsigned>(code);
}

/// The reverse; for a class that is no collection's it gives no code of the table.
[[nodiscard]] constexpr cls_CollectionType cls_CollectionCode(unsigned classId) noexcept {
    return static_cast<cls_CollectionType>(classId - 0x230100U);
}

/// Whether what was declared as `a` may be stored as `b`: the same, or list and 2-D array of the same element.
[[nodiscard]] constexpr bool cls_CollectionsCompatible(cls_CollectionType a, cls_CollectionType b) noexcept {
    const auto isListOrArray = [](cls_CollectionType c) { return (c >= 50 && c <= 59) || (c >= 80 && c <= 89); };
    return a == b || (isListOrArray(a) && isListOrArray(b) && a % 10 == b % 10);
}

#endif
