# Builds for 64-bit Windows on another system, by GCC with POSIX threads (Debian: g++-mingw-w64-x86-64-posix), and runs
# what it built under Wine, without a display, in a prefix of the build's own.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(triple x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triple}-g++-posix)
set(CMAKE_RC_COMPILER ${triple}-windres)
set(CMAKE_Fortran_COMPILER NOTFOUND)  # Debian has none; the one of this system must not be taken for it

# Programs are those of this system, everything else is the other's.
set(CMAKE_FIND_ROOT_PATH /usr/${triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_CROSSCOMPILING_EMULATOR
    env WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml= "WINEPREFIX=${CMAKE_BINARY_DIR}/wine" wine)
