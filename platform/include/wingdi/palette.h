// Palettes. The screen has all colours, so that realizing a palette changes nothing on it; what a
// palette is for is DIB_PAL_COLORS and the colours PALETTEINDEX and PALETTERGB.
#pragma once

#include <windef.h>

typedef struct PALETTEENTRY {
    BYTE peRed;
    BYTE peGreen;
    BYTE peBlue;
    BYTE peFlags;
} PALETTEENTRY;
typedef PALETTEENTRY* LPPALETTEENTRY;

typedef struct LOGPALETTE {
    WORD palVersion; // 0x300
    WORD palNumEntries;
    PALETTEENTRY palPalEntry[1];
} LOGPALETTE;
typedef LOGPALETTE* LPLOGPALETTE;

#define PC_RESERVED 0x01
#define PC_EXPLICIT 0x02
#define PC_NOCOLLAPSE 0x04
#define RC_PALETTE 0x0100 // RASTERCAPS of devices that have a palette

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

HPALETTE WINAPI CreatePalette(const LOGPALETTE* palette);
// Answers the previous palette; null on failure.
HPALETTE WINAPI SelectPalette(HDC dc, HPALETTE palette, BOOL background);
// Answers how many entries of the device changed: none.
UINT WINAPI RealizePalette(HDC dc);
// Copies entries; without a buffer, answers how many there are.
UINT WINAPI GetPaletteEntries(HPALETTE palette, UINT first, UINT count, LPPALETTEENTRY entries);
UINT WINAPI SetPaletteEntries(HPALETTE palette, UINT first, UINT count,
                              const PALETTEENTRY* entries);
UINT WINAPI GetNearestPaletteIndex(HPALETTE palette, COLORREF color);
// The device's own entries: 0, as the screen has none.
UINT WINAPI GetSystemPaletteEntries(HDC dc, UINT first, UINT count, LPPALETTEENTRY entries);
COLORREF WINAPI GetNearestColor(HDC dc, COLORREF color);

WIN32HOST_END_C
#pragma GCC visibility pop
