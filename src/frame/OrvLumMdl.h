#ifndef ORV_FRAME_ORVLUMMDL_H
#define ORV_FRAME_ORVLUMMDL_H

#include <base/orv_Export.h>
#include <base/typ_ArchCompEntry.h>

/// The type table of model attributes, component 10.
[[nodiscard]] ORV_EXPORT typ_ArchCompEntry mdl_ArchEntry();

/// Start-up and shutdown of model attributes, by the counted pattern of orv_StartUpCounter.
/// First start: enters the type table and registers the persistent classes.
ORV_EXPORT void OrvLumMdl_initialize(int& count);
ORV_EXPORT void OrvLumMdl_finalize(int& count);

#endif
