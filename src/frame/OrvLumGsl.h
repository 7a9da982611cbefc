#ifndef ORV_FRAME_ORVLUMGSL_H
#define ORV_FRAME_ORVLUMGSL_H

#include <base/orv_Export.h>
#include <base/typ_ArchCompEntry.h>

/// The type table of geometry, component 778: gsl_Point has identifier 0x30A0001, gsl_BBox 0x30A0007, ...
/// It says that a gsl_Vector may stand for a gsl_Point, which is no relation of the C++ classes.
[[nodiscard]] ORV_EXPORT typ_ArchCompEntry gsl_ArchEntry();

/// Start-up and shutdown of geometry, by the counted pattern of orv_StartUpCounter.
/// First start: enters the type table, makes the tolerances (gsl_Util), registers the twelve persistent classes.
ORV_EXPORT void OrvLumGsl_initialize(int& count);
/// Last stop: releases the tolerances. They are made again when they are asked for: never keep their address.
ORV_EXPORT void OrvLumGsl_finalize(int& count);

#endif
