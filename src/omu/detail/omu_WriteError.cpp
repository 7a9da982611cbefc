#include <omu/detail/omu_WriteError.h>

#include <cstdarg>
#include <cstdio>

void omu_WriteError(const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    std::vfprintf(stderr, format, arguments);
    va_end(arguments);
    std::fflush(stderr);
}
