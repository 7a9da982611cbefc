#ifndef ORV_BASE_CLS_ATTRIBUTETYPE_H
#define ORV_BASE_CLS_ATTRIBUTETYPE_H

/// What an attribute of a persistent class is, as a code that decides its place in a stored object:
///
/// | code                                   | place                                                   |
/// |----------------------------------------|---------------------------------------------------------|
/// | 1, 2, 3, 4, 5, 7, 9, 13                | a 4-byte slot, the value in its low bytes               |
/// | 10                                     | an 8-byte slot                                          |
/// | 11, 12, 14                             | a string: length and bytes                              |
/// | 15                                     | an object of its own: embedded, shared, or a collection |
///
/// 0, 6, 8 and codes above 15 have no place that a reader and a writer would agree on; registering one is refused.
enum cls_AttributeType : int {
    cls_CharAttribute = 1,
    cls_SignedCharAttribute = 2,
    cls_ShortAttribute = 3,
    cls_IntAttribute = 4,
    cls_UnsignedAttribute = 5,  ///< bit for bit as an int
    cls_BoolAttribute = 7,      ///< a char, 0 or 1
    cls_FloatAttribute = 9,
    cls_DoubleAttribute = 10,
    cls_StringAttribute = 11,
    cls_TextAttribute = 12,  ///< translatable text
    cls_EnumAttribute = 13,  ///< as an int
    cls_FilePathAttribute = 14,
    cls_ObjectAttribute = 15
};

/// Bytes of the attribute's slot in the fixed block: 4, 8, or 0 for types without one.
[[nodiscard]] constexpr int cls_SlotSize(cls_AttributeType type) noexcept {
    switch (type) {
        case cls_CharAttribute:
        case cls_SignedCharAttribute:
        case cls_ShortAttribute:
        case cls_IntAttribute:
        case cls_UnsignedAttribute:
        case cls_BoolAttribute:
        case cls_FloatAttribute:
        case cls_EnumAttribute:
            return 4;
        case cls_DoubleAttribute:
            return 8;
        default:
            return 0;
    }
}

/// Whether values of the type are stored as a string.
[[nodiscard]] constexpr bool cls_IsStringType(cls_AttributeType type) noexcept {
    return type == cls_StringAttribute || type == cls_TextAttribute || type == cls_FilePathAttribute;
}

#endif
