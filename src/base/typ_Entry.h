#ifndef ORV_BASE_TYP_ENTRY_H
#define ORV_BASE_TYP_ENTRY_H

/// One record of a component's type table. The identifier of a type is its component's code in the high 16 bits and the
/// index of its record in the low 16; the identifier 1 is the root of all types.
struct typ_Entry {
    /// 7 for a named type, 0 for an empty record.
    unsigned flags;
    unsigned parent;   ///< type identifier
    const char* name;  ///< static text; null for a record that stands for no type
};

#endif
