#ifndef ORV_FRAME_ORVLUMWIP_H
#define ORV_FRAME_ORVLUMWIP_H

#include <base/orv_Export.h>

/// Start-up and shutdown of progress reporting, by the counted pattern of orv_StartUpCounter.
/// Enters no types: starting it only counts. Last stop: releases the progress of the process and the
/// calling thread's message hub, so that a reporter has to be attached again.
ORV_EXPORT void OrvLumWip_initialize(int& count);
ORV_EXPORT void OrvLumWip_finalize(int& count);

#endif
