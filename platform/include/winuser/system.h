// The system's colours.
#pragma once

#include <windef.h>

#define COLOR_WINDOW 5
#define COLOR_WINDOWTEXT 8
#define COLOR_BTNFACE 15

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C
DWORD WINAPI GetSysColor(int index);
HBRUSH WINAPI GetSysColorBrush(int index);
int WINAPI FillRect(HDC dc, const RECT* rect, HBRUSH brush);
COLORREF WINAPI SetTextColor(HDC dc, COLORREF color);
COLORREF WINAPI SetBkColor(HDC dc, COLORREF color);
WIN32HOST_END_C
#pragma GCC visibility pop
