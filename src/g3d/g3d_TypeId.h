#ifndef ORV_G3D_G3D_TYPEID_H
#define ORV_G3D_G3D_TYPEID_H

/// Component code of the viewing module in the type table: the high 16 bits of the identifiers of its types.
inline constexpr unsigned short g3d_ComponentCode = 36;

/// Type identifier of the record `index` of the viewing module's type table.
[[nodiscard]] constexpr unsigned g3d_TypeId(unsigned short index) noexcept {
    return (static_cast<unsigned>(g3d_ComponentCode) << 16) | index;
}

#endif
