// The objects that a device context draws with.
#pragma once

#include <windef.h>

// ---- Pens and brushes ---------------------------------------------------------------------------

#define PS_SOLID 0
#define PS_DASH 1
#define PS_DOT 2
#define PS_DASHDOT 3
#define PS_DASHDOTDOT 4
#define PS_NULL 5
#define PS_INSIDEFRAME 6

typedef struct LOGPEN {
    UINT lopnStyle;
    POINT lopnWidth; // x
    COLORREF lopnColor;
} LOGPEN;

#define BS_SOLID 0
#define BS_NULL 1
#define BS_HOLLOW BS_NULL
#define BS_HATCHED 2
#define BS_PATTERN 3

#define HS_HORIZONTAL 0
#define HS_VERTICAL 1
#define HS_FDIAGONAL 2
#define HS_BDIAGONAL 3
#define HS_CROSS 4
#define HS_DIAGCROSS 5

typedef struct LOGBRUSH {
    UINT lbStyle;
    COLORREF lbColor;
    ULONG_PTR lbHatch; // HS_, or the bitmap of a pattern
} LOGBRUSH;

// ---- Stock objects ------------------------------------------------------------------------------

#define WHITE_BRUSH 0
#define LTGRAY_BRUSH 1
#define GRAY_BRUSH 2
#define DKGRAY_BRUSH 3
#define BLACK_BRUSH 4
#define NULL_BRUSH 5
#define HOLLOW_BRUSH NULL_BRUSH
#define WHITE_PEN 6
#define BLACK_PEN 7
#define NULL_PEN 8
#define OEM_FIXED_FONT 10
#define ANSI_FIXED_FONT 11
#define ANSI_VAR_FONT 12
#define SYSTEM_FONT 13
#define DEVICE_DEFAULT_FONT 14
#define DEFAULT_PALETTE 15
#define SYSTEM_FIXED_FONT 16
#define DEFAULT_GUI_FONT 17
#define DC_BRUSH 18
#define DC_PEN 19

// What GetCurrentObject and GetObjectType answer.
#define OBJ_PEN 1
#define OBJ_BRUSH 2
#define OBJ_DC 3
#define OBJ_PAL 5
#define OBJ_FONT 6
#define OBJ_BITMAP 7
#define OBJ_REGION 8
#define OBJ_MEMDC 10

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// Lines are one pixel wide for a width of 0 or 1. Only such lines have dashes and dots; wider ones
// are solid.
HPEN WINAPI CreatePen(int style, int width, COLORREF color);
HPEN WINAPI CreatePenIndirect(const LOGPEN* pen);
HBRUSH WINAPI CreateSolidBrush(COLORREF color);
HBRUSH WINAPI CreateHatchBrush(int hatch, COLORREF color);
// Repeats a copy of the bitmap, from the brush origin.
HBRUSH WINAPI CreatePatternBrush(HBITMAP bitmap);
HBRUSH WINAPI CreateBrushIndirect(const LOGBRUSH* brush);

// Stock objects are always there and need not be deleted. Null for a number that is not above.
HGDIOBJ WINAPI GetStockObject(int number);

// Makes a pen, brush, font or bitmap the current one and answers the previous one. A region is
// copied as the clipping region, and the answer is what it is like. Bitmaps can be selected into
// memory contexts only, and into one at a time. Printers take fonts only. Null on failure.
HGDIOBJ WINAPI SelectObject(HDC dc, HGDIOBJ object);
// The current OBJ_PEN, OBJ_BRUSH, OBJ_PAL, OBJ_FONT or OBJ_BITMAP.
HGDIOBJ WINAPI GetCurrentObject(HDC dc, UINT type);
// 0 if it is none.
DWORD WINAPI GetObjectType(HGDIOBJ object);
// A selected object is deleted once it is no longer selected; a selected bitmap stays, and the
// answer is FALSE.
BOOL WINAPI DeleteObject(HGDIOBJ object);

// Copies LOGPEN, LOGBRUSH, LOGFONTW, BITMAP (or DIBSECTION, if there is room and the bitmap has
// one), or the number of a palette's entries (a WORD). Answers the size in bytes, without a buffer
// the size that is needed; 0 on failure.
int WINAPI GetObjectW(HGDIOBJ object, int size, LPVOID buffer);

// Where patterns start, in pixels of the device. `previous` may be null.
BOOL WINAPI SetBrushOrgEx(HDC dc, int x, int y, LPPOINT previous);
// The colours of DC_BRUSH and DC_PEN. These answer the previous one.
COLORREF WINAPI SetDCBrushColor(HDC dc, COLORREF color);
COLORREF WINAPI SetDCPenColor(HDC dc, COLORREF color);

WIN32HOST_END_C
#pragma GCC visibility pop
