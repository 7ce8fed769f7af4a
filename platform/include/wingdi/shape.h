// Lines, shapes and single pixels, with the current pen and brush.
#pragma once

#include <windef.h>

// Drawing modes: how lines and fillings combine with what is there.
#define R2_BLACK 1
#define R2_NOT 6
#define R2_XORPEN 7
#define R2_NOP 11
#define R2_COPYPEN 13
#define R2_WHITE 16

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

int WINAPI SetROP2(HDC dc, int mode); // answers the previous one

BOOL WINAPI MoveToEx(HDC dc, int x, int y, LPPOINT previous);
// A line from the current position, which it moves, without its last point.
BOOL WINAPI LineTo(HDC dc, int x, int y);
BOOL WINAPI Polyline(HDC dc, const POINT* points, int count);
// Right and lower edges lie outside.
BOOL WINAPI Rectangle(HDC dc, int left, int top, int right, int bottom);
BOOL WINAPI RoundRect(HDC dc, int left, int top, int right, int bottom, int width, int height);
BOOL WINAPI Ellipse(HDC dc, int left, int top, int right, int bottom);
// Filled by alternation.
BOOL WINAPI Polygon(HDC dc, const POINT* points, int count);
// The colour that was set; CLR_INVALID outside and where drawing goes nowhere.
COLORREF WINAPI SetPixel(HDC dc, int x, int y, COLORREF color);
BOOL WINAPI SetPixelV(HDC dc, int x, int y, COLORREF color);
COLORREF WINAPI GetPixel(HDC dc, int x, int y);

WIN32HOST_END_C
#pragma GCC visibility pop
