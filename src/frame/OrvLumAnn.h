#ifndef ORV_FRAME_ORVLUMANN_H
#define ORV_FRAME_ORVLUMANN_H

#include <base/orv_Export.h>
#include <base/typ_ArchCompEntry.h>

/// The type table of annotations, component 848.
[[nodiscard]] ORV_EXPORT typ_ArchCompEntry annC_ArchEntry();

/// Start-up and shutdown of annotations, by the counted pattern of orv_StartUpCounter.
/// First start: enters the type table and registers the persistent classes.
ORV_EXPORT void OrvLumAnn_initialize(int& count);
ORV_EXPORT void OrvLumAnn_finalize(int& count);

#endif
