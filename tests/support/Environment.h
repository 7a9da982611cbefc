#ifndef ORV_SUPPORT_ENVIRONMENT_H
#define ORV_SUPPORT_ENVIRONMENT_H

#include <cstdlib>

#if defined(_WIN32)
// Not <windows.h>, whose macros are words like near and TRANSPARENT.
extern "C" __declspec(dllimport) int __stdcall SetEnvironmentVariableA(const char* name, const char* value);
#endif

/// Sets a variable of this process's environment, the empty text too, or removes it for null.
inline void SetVariable(const char* name, const char* value) {
#if defined(_WIN32)
    // The C library takes an empty text for removal: there a value is made and cut off. Children see the system's copy.
    const bool empty = value != nullptr && *value == '\0';
    _putenv_s(name, value == nullptr ? "" : empty ? "x" : value);
    if (!empty) return;
    *std::getenv(name) = '\0';
    SetEnvironmentVariableA(name, "");
#else
    value == nullptr ? unsetenv(name) : setenv(name, value, 1);
#endif
}

#endif
