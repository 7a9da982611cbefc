#ifndef ORV_FRAME_ORVLUMGEOM_VERSION_H
#define ORV_FRAME_ORVLUMGEOM_VERSION_H

#include <base/orv_Export.h>

/// The version of the headers a host was compiled with. These three lines are where the version stands; the build, the
/// packages and OrvLumGeom_version() read it here. Libraries of one major version stand in for each other, later for
/// earlier.
inline constexpr int OrvLumGeom_versionMajor = 0;
inline constexpr int OrvLumGeom_versionMinor = 1;
inline constexpr int OrvLumGeom_versionPatch = 0;

/// The version of the library that is loaded, "major.minor.patch" in decimal digits. May be called before the start.
[[nodiscard]] ORV_EXPORT const char* OrvLumGeom_version() noexcept;

#endif
