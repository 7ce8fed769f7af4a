// Arithmetic of rectangles. Right and lower edges lie outside; a rectangle that is not wider or not
// higher than 0 is empty.
#pragma once

#include <windef.h>

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

BOOL WINAPI SetRect(LPRECT rect, int left, int top, int right, int bottom);
BOOL WINAPI SetRectEmpty(LPRECT rect);
BOOL WINAPI CopyRect(LPRECT to, const RECT* from);
BOOL WINAPI InflateRect(LPRECT rect, int x, int y); // on each side
BOOL WINAPI OffsetRect(LPRECT rect, int x, int y);
// These answer whether the result has any area; it is all 0 if not.
BOOL WINAPI IntersectRect(LPRECT to, const RECT* first, const RECT* second);
BOOL WINAPI UnionRect(LPRECT to, const RECT* first, const RECT* second);
// The part of `first` without `second`, where that is a rectangle; otherwise all of `first`.
BOOL WINAPI SubtractRect(LPRECT to, const RECT* first, const RECT* second);
BOOL WINAPI IsRectEmpty(const RECT* rect);
BOOL WINAPI EqualRect(const RECT* first, const RECT* second);
BOOL WINAPI PtInRect(const RECT* rect, POINT point);

WIN32HOST_END_C
#pragma GCC visibility pop
