// A process that loads, starts and stops the library.

#include <frame/frame.h>

#include <iostream>
#include <string>

int main(int count, char**) {
    int started = 0;
    OrvLumGeom_initialize(started);
    OrvLumGeom_finalize(started);
    return std::string(static_cast<std::size_t>(count), 'x').empty() ? 1 : 0;
}
