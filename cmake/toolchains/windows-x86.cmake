set(MINGW_PROCESSOR i686)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)

# Callers align the stack to 4 bytes; code that uses vector registers needs 16.
set(CMAKE_C_FLAGS_INIT -mstackrealign)
set(CMAKE_CXX_FLAGS_INIT -mstackrealign)
