# Debian's MinGW-w64, the flavour with POSIX threads, for the processor in MINGW_PROCESSOR. Programs
# and libraries carry the compiler's runtime and zlib inside: they need the system's own DLLs only.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${MINGW_PROCESSOR})

set(CMAKE_C_COMPILER ${MINGW_PROCESSOR}-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER ${MINGW_PROCESSOR}-w64-mingw32-g++-posix)
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -static)
set(CMAKE_MODULE_LINKER_FLAGS_INIT -static)
set(ZLIB_USE_STATIC_LIBS ON)

set(CMAKE_FIND_ROOT_PATH /usr/${MINGW_PROCESSOR}-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
