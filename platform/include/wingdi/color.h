// Colours.
#pragma once

#include <windef.h>

#define RGB(red, green, blue)                                                                      \
    ((COLORREF)(((BYTE)(red) | ((WORD)((BYTE)(green)) << 8)) | (((DWORD)(BYTE)(blue)) << 16)))
#define GetRValue(color) ((BYTE)(color))
#define GetGValue(color) ((BYTE)((WORD)(color) >> 8))
#define GetBValue(color) ((BYTE)((color) >> 16))
// An entry of the context's palette, and the colour of it that is nearest.
#define PALETTEINDEX(index) ((COLORREF)(0x01000000 | (DWORD)(WORD)(index)))
#define PALETTERGB(red, green, blue) (0x02000000 | RGB(red, green, blue))

#define CLR_INVALID 0xFFFFFFFF
