#ifndef ORV_BASE_ORV_EXPORT_H
#define ORV_BASE_ORV_EXPORT_H

/// The one export macro. The library is built with hidden visibility, so only what bears this macro can be linked
/// to. It stands on classes (their type information must be one for the library and its host, or exceptions would
/// not be caught across the border) and on free functions.
///
/// Class templates that hosts instantiate too bear the bare visibility attribute: with the macro, a host on Windows
/// would look for its own instantiations in the DLL. Type information is compared by name there, so that what each
/// side makes is one type.
#if defined(_WIN32) && defined(ORVLUMGEOM_BUILDING)
#define ORV_EXPORT __declspec(dllexport)
#elif defined(_WIN32)
#define ORV_EXPORT __declspec(dllimport)
#else
#define ORV_EXPORT __attribute__((visibility("default")))
#endif

/// `ORV_EXTERN_TEMPLATE(mdl_PropAttr<int>);` tells hosts that the library has this instantiation, exported. GCC does
/// not export what such a class defines within its body, so hosts on Windows make that themselves; the rest is found
/// all the same. A template that holds state (omi_Singleton) defines nothing within its body and says it in full.
#if defined(_WIN32) && !defined(ORVLUMGEOM_BUILDING)
#define ORV_EXTERN_TEMPLATE(...) static_assert(true)
#else
#define ORV_EXTERN_TEMPLATE(...) extern template class ORV_EXPORT __VA_ARGS__
#endif

#endif
