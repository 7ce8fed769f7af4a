// The name of the system that the host runs on. Windows has no such function, so programs for both
// look it up by its name in kernel32.dll.
#pragma once

#include <windows.h>

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// The distribution with its version, "Debian GNU/Linux 12 (bookworm)", and the kernel with its,
// "Linux 6.1.0-18-amd64", both cut to the sizes in characters. A buffer may be null. Always TRUE,
// unless memory is short.
BOOL WINAPI GetHostSystemName(LPWSTR name, DWORD name_size, LPWSTR kernel, DWORD kernel_size);

WIN32HOST_END_C
#pragma GCC visibility pop
