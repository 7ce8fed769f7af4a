// Windows.
#pragma once

#include <windef.h>

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// A device context of the whole screen for null; there are no windows. ReleaseDC answers 1.
HDC WINAPI GetDC(HWND window);
int WINAPI ReleaseDC(HWND window, HDC dc);

// The window behind all others. Null here, as the host has no screen.
HWND WINAPI GetDesktopWindow();

WIN32HOST_END_C
#pragma GCC visibility pop
