#ifndef ORV_MDL_MDL_TYPEID_H
#define ORV_MDL_MDL_TYPEID_H

/// Component code of model attributes in the type table: the high 16 bits of the identifiers of its types.
inline constexpr unsigned short mdl_ComponentCode = 10;

/// Metadata number under which the classes of model attributes are registered.
inline constexpr unsigned mdl_MetadataNumber = 203;

/// Type identifier of the record `index` of the type table of model attributes.
[[nodiscard]] constexpr unsigned mdl_TypeId(unsigned short index) noexcept {
    return (static_cast<unsigned>(mdl_ComponentCode) << 16) | index;
}

#endif
