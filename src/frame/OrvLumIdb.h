#ifndef ORV_FRAME_ORVLUMIDB_H
#define ORV_FRAME_ORVLUMIDB_H

#include <base/orv_Export.h>

/// Start-up and shutdown of persistence mementos, by the counted pattern of orv_StartUpCounter.
/// Enters no types: starting and stopping it only counts.
ORV_EXPORT void OrvLumIdb_initialize(int& count);
ORV_EXPORT void OrvLumIdb_finalize(int& count);

#endif
