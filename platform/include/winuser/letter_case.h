// Capital and small letters.
#pragma once

#include <windef.h>

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// Changes a text in place and answers it. A pointer below 0x10000 is a character, which is answered
// changed.
LPWSTR WINAPI CharUpperW(LPWSTR text);

WIN32HOST_END_C
#pragma GCC visibility pop
