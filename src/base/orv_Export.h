#ifndef ORV_BASE_ORV_EXPORT_H
#define ORV_BASE_ORV_EXPORT_H

/// The one export macro. The library is built with hidden visibility, so only what bears this macro can be linked
/// to. It stands on classes (their type information must be one for the library and its host, or exceptions would
/// not be caught across the border) and on free functions.
#if defined(_WIN32) && defined(ORVLUMGEOM_BUILDING)
#define ORV_EXPORT __declspec(dllexport)
#elif defined(_WIN32)
#define ORV_EXPORT __declspec(dllimport)
#else
#define ORV_EXPORT __attribute__((visibility("default")))
#endif

#endif
