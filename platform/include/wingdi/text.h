// Text: its extent, and drawing it.
#pragma once

#include <windef.h>

// Background modes: whether the cells behind text and the gaps of lines are filled.
#define TRANSPARENT 1
#define OPAQUE 2

// Text alignment: what of the text lies at the point that is given.
#define TA_NOUPDATECP 0
#define TA_UPDATECP 1 // the current position is used, and moved after the text
#define TA_LEFT 0
#define TA_RIGHT 2
#define TA_CENTER 6
#define TA_TOP 0
#define TA_BOTTOM 8
#define TA_BASELINE 24

// ExtTextOutW.
#define ETO_OPAQUE 0x0002  // the rectangle is filled with the background colour
#define ETO_CLIPPED 0x0004 // nothing is drawn outside of it

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// Colours start black on white, opaque. These answer the previous value; CLR_INVALID, 0 or
// GDI_ERROR (alignment) if there is no such context.
COLORREF WINAPI SetTextColor(HDC dc, COLORREF color);
COLORREF WINAPI GetTextColor(HDC dc);
COLORREF WINAPI SetBkColor(HDC dc, COLORREF color);
COLORREF WINAPI GetBkColor(HDC dc);
int WINAPI SetBkMode(HDC dc, int mode);
int WINAPI GetBkMode(HDC dc);
UINT WINAPI SetTextAlign(HDC dc, UINT align);
UINT WINAPI GetTextAlign(HDC dc);

// The width of all characters and the height of the font's cell. The functions for 8-bit text take
// it in the code page of the font's character set.
BOOL WINAPI GetTextExtentPointA(HDC dc, LPCSTR text, int length, LPSIZE size);
BOOL WINAPI GetTextExtentPointW(HDC dc, LPCWSTR text, int length, LPSIZE size);
BOOL WINAPI GetTextExtentPoint32A(HDC dc, LPCSTR text, int length, LPSIZE size);
BOOL WINAPI GetTextExtentPoint32W(HDC dc, LPCWSTR text, int length, LPSIZE size);
// The same, and how many characters fit into `width` (`fit`), and the width up to and with each
// (`widths`); both may be null.
BOOL WINAPI GetTextExtentExPointW(HDC dc, LPCWSTR text, int length, int width, LPINT fit,
                                  LPINT widths, LPSIZE size);
// The widths of the characters `first` to `last`.
BOOL WINAPI GetCharWidth32W(HDC dc, UINT first, UINT last, LPINT widths);

// Draws the text in its cell, whose place the alignment says. Smooth, except on bitmaps in two
// colours. On printers, for which there is only TextOutW, it is black on white and begins at the
// point.
BOOL WINAPI TextOutA(HDC dc, int x, int y, LPCSTR text, int length);
BOOL WINAPI TextOutW(HDC dc, int x, int y, LPCWSTR text, int length);
// `distances`, if not null, has the width of each character's cell.
BOOL WINAPI ExtTextOutW(HDC dc, int x, int y, UINT options, const RECT* rect, LPCWSTR text,
                        UINT length, const INT* distances);

WIN32HOST_END_C
#pragma GCC visibility pop
