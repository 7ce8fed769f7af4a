set(MINGW_PROCESSOR x86_64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)

# 64-bit programs run under Wine, with a prefix of the build's own.
set(CMAKE_CROSSCOMPILING_EMULATOR
    ${CMAKE_CURRENT_LIST_DIR}/../../scripts/wine ${CMAKE_BINARY_DIR}/wine)
