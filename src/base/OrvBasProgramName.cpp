#include <base/OrvBasProgramName.h>

#include <cstdlib>
#include <string_view>

#if defined(__linux__)
#include <cerrno>
#endif

namespace {

/// Argument 0 as the C library keeps it, with or without folders; may be null.
const char* Argument0() {
#if defined(__linux__)
    return program_invocation_name;
#elif defined(_WIN32)
    return __argv != nullptr ? __argv[0] : nullptr;
#elif defined(__APPLE__) || defined(__FreeBSD__)
    return getprogname();
#else
    return nullptr;
#endif
}

}  // namespace

cow_String OrvBasProgramName() {
    const char* const started = Argument0();
    const std::string_view path = started != nullptr ? started : "";
    return cow_String(path.substr(path.find_last_of("/\\") + 1));  // npos + 1 is 0
}
