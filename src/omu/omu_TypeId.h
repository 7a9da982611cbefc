#ifndef ORV_OMU_OMU_TYPEID_H
#define ORV_OMU_OMU_TYPEID_H

/// Component code of the object model in the type table: the high 16 bits of the identifiers of its types.
inline constexpr unsigned short omu_ComponentCode = 19;

/// Metadata number under which the classes of the object model are registered.
inline constexpr unsigned omu_MetadataNumber = 203;

/// Type identifier of the record `index` of the object model's type table.
[[nodiscard]] constexpr unsigned omu_TypeId(unsigned short index) noexcept {
    return (static_cast<unsigned>(omu_ComponentCode) << 16) | index;
}

#endif
