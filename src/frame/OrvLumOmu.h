#ifndef ORV_FRAME_ORVLUMOMU_H
#define ORV_FRAME_ORVLUMOMU_H

#include <base/orv_Export.h>
#include <base/typ_ArchCompEntry.h>

/// The type table of the object model's values and exceptions, component 19.
[[nodiscard]] ORV_EXPORT typ_ArchCompEntry omu_ArchEntry();

/// Start-up and shutdown of the object model's values and exceptions, by the counted pattern of orv_StartUpCounter.
/// First start: enters the type table and registers the persistent classes.
/// Last stop: releases the symbolic constants and the printing settings.
ORV_EXPORT void OrvLumOmu_initialize(int& count);
ORV_EXPORT void OrvLumOmu_finalize(int& count);

#endif
