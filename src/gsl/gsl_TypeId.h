#ifndef ORV_GSL_GSL_TYPEID_H
#define ORV_GSL_GSL_TYPEID_H

/// Component code of the geometry module in the type table: the high 16 bits of the identifiers of its types.
inline constexpr unsigned short gsl_ComponentCode = 778;

/// Type identifier of the record `index` of the geometry module's type table.
[[nodiscard]] constexpr unsigned gsl_TypeId(unsigned short index) noexcept {
    return (static_cast<unsigned>(gsl_ComponentCode) << 16) | index;
}

#endif
