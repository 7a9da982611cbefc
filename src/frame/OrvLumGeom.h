#ifndef ORV_FRAME_ORVLUMGEOM_H
#define ORV_FRAME_ORVLUMGEOM_H

#include <base/orv_Export.h>

/// Starts the library: call it once before anything else, and OrvLumGeom_finalize with the same count at the end.
/// Starts and stops nest; only the first and the last do work (orv_StartUpCounter has the pattern). `count` is the
/// caller's: it grows by one for each library and module that this call really started, 14 on a fresh process.
///
/// First start, in this order: the base libraries BasicUtils, Shared, CoreUtils, Alloc; the modules Wip, Idb, G3d,
/// Omu, Mdl, Gsl, Ann, Utf; the library's specific part. No errors are reported; an exception of a registration
/// passes to the caller, with everything up to it stopped again and `count` as it was.
/// Not for several threads at once.
ORV_EXPORT void OrvLumGeom_initialize(int& count);

/// Stops the library; the last stop undoes the start in exactly the reverse order. Stopping more often than starting
/// does nothing but to cancel as many later starts.
ORV_EXPORT void OrvLumGeom_finalize(int& count);

/// The library's own part alone, without base libraries and modules; it only counts.
ORV_EXPORT void OrvLumGeom_specific_initialize(int& count);
ORV_EXPORT void OrvLumGeom_specific_finalize(int& count);

/// The operating system's entry: reason 1 (process attach) starts the library with a count of its own, reason 0
/// (process detach) stops it with the same count, any other does nothing. Always 1. On Windows the loader calls it, and
/// it is nobody else's to see: a host's own DLL has a function of that name, or would be given ours. Elsewhere a loaded
/// library is unstarted, and this is a function like any other.
#if !defined(_WIN32)
extern "C" ORV_EXPORT int DllMain(void* module, unsigned long reason, void* reserved);
#endif

#endif
