#ifndef ORV_ANNC_ANNC_TYPEID_H
#define ORV_ANNC_ANNC_TYPEID_H

/// Component code of the annotation module in the type table: the high 16 bits of the identifiers of its types.
inline constexpr unsigned short annC_ComponentCode = 848;

/// Type identifier of the record `index` of the annotation module's type table.
[[nodiscard]] constexpr unsigned annC_TypeId(unsigned short index) noexcept {
    return (static_cast<unsigned>(annC_ComponentCode) << 16) | index;
}

#endif
