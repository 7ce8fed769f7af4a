// Memory that a caller frees.
#pragma once

#include <windef.h>

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C
// Memory at an address that suits any type; null if there is none left. Null may be freed.
LPVOID WINAPI CoTaskMemAlloc(SIZE_T size);
void WINAPI CoTaskMemFree(LPVOID memory);
WIN32HOST_END_C
#pragma GCC visibility pop
