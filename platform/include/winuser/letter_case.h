// Capital and small letters.
#pragma once

#include <windef.h>

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// These change a text in place and answer it. A pointer below 0x10000 is a character, which is
// answered changed.
LPWSTR WINAPI CharUpperW(LPWSTR text);
LPWSTR WINAPI CharLowerW(LPWSTR text);

WIN32HOST_END_C
#pragma GCC visibility pop
