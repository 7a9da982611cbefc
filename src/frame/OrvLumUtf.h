#ifndef ORV_FRAME_ORVLUMUTF_H
#define ORV_FRAME_ORVLUMUTF_H

#include <base/orv_Export.h>

/// Start-up and shutdown of the tensor, quaternion and flat array routines, by the counted pattern of
/// orv_StartUpCounter. Enters no types. First start: the processor-level override, OrvBasOmniSetSSELevel().
ORV_EXPORT void OrvLumUtf_initialize(int& count);
/// A forced processor level stays.
ORV_EXPORT void OrvLumUtf_finalize(int& count);

#endif
