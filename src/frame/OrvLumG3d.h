#ifndef ORV_FRAME_ORVLUMG3D_H
#define ORV_FRAME_ORVLUMG3D_H

#include <base/orv_Export.h>
#include <base/typ_ArchCompEntry.h>

/// The type table of 3D viewing and colour, component 36.
[[nodiscard]] ORV_EXPORT typ_ArchCompEntry g3d_ArchEntry();

/// Start-up and shutdown of 3D viewing and colour, by the counted pattern of orv_StartUpCounter.
/// First start: enters the type table and registers the persistent classes.
/// Last stop: releases the named colours.
ORV_EXPORT void OrvLumG3d_initialize(int& count);
ORV_EXPORT void OrvLumG3d_finalize(int& count);

#endif
