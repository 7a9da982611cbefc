#ifndef ORV_BASE_THR_THRSINGLETONREGISTRY_H
#define ORV_BASE_THR_THRSINGLETONREGISTRY_H

#include <base/orv_Export.h>

/// The functions that finalise the per-thread singletons of the process, each at a level. May be called from any
/// thread; a lock guards the registry, and is not held while the functions run.
class ORV_EXPORT thr_ThrSingletonRegistry {
public:
    /// A function that is registered at that level already, or a null one, is not entered again.
    static void Register(int level, void (*finalize)());

    /// Calls every function once, from the highest level down, within a level the one registered last first, and
    /// forgets them. What a function registers meanwhile stays for the next time. A function finalises the instance of
    /// the calling thread; those of other threads go when these end.
    static void Finalize();
};

#endif
