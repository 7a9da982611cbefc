#ifndef ORV_BASE_ORVLUMBASICUTILS_H
#define ORV_BASE_ORVLUMBASICUTILS_H

#include <base/orv_Export.h>

// Start-up and shutdown of the four base libraries, by the counted pattern of orv_StartUpCounter: the first start
// adds 1 to the caller's `count`, the last stop takes 1 from it, others only count.

/// First start: registers the classes of stored texts, "cow_String" (0x1A0001, one attribute "STRING") and
/// "atr_String" (0x1A0007, "TRSTRING"). They have a layout but no C++ type: reading meets them inside other
/// objects. And nex_CommandException (0x1A0002), the base of the command exceptions.
ORV_EXPORT void OrvLumBasicUtils_initialize(int& count);
/// Last stop: releases the class registry and empties the type table, also under a module that is still started by
/// itself; such a module registers again only when it has been stopped and started.
ORV_EXPORT void OrvLumBasicUtils_finalize(int& count);

/// The others have no work of their own and only count.
ORV_EXPORT void OrvBasShared_initialize(int& count);
ORV_EXPORT void OrvBasShared_finalize(int& count);
ORV_EXPORT void OrvBasCoreUtils_initialize(int& count);
ORV_EXPORT void OrvBasCoreUtils_finalize(int& count);
ORV_EXPORT void OrvBasAlloc_initialize(int& count);
ORV_EXPORT void OrvBasAlloc_finalize(int& count);

#endif
