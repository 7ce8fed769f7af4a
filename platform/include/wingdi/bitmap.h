// Bitmaps, and copying pixels.
#pragma once

#include <windef.h>

typedef struct BITMAP {
    LONG bmType; // 0
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    LPVOID bmBits; // null for those that are not DIB sections
} BITMAP;

#define BI_RGB 0
#define BI_RLE8 1
#define BI_RLE4 2
#define BI_BITFIELDS 3

// A DIB is one of these headers, the colours of 1, 4 and 8-bit pixels, and rows filled up to 32
// bits, the lowest first unless the height is negative.
typedef struct BITMAPCOREHEADER {
    DWORD bcSize;
    WORD bcWidth;
    WORD bcHeight;
    WORD bcPlanes;
    WORD bcBitCount;
} BITMAPCOREHEADER;
static_assert(sizeof(BITMAPCOREHEADER) == 12, "layout");

typedef struct BITMAPINFOHEADER {
    DWORD biSize;
    LONG biWidth;
    LONG biHeight;
    WORD biPlanes;
    WORD biBitCount;
    DWORD biCompression;
    DWORD biSizeImage;
    LONG biXPelsPerMeter;
    LONG biYPelsPerMeter;
    DWORD biClrUsed;
    DWORD biClrImportant;
} BITMAPINFOHEADER;
typedef BITMAPINFOHEADER* LPBITMAPINFOHEADER;
static_assert(sizeof(BITMAPINFOHEADER) == 40, "layout");

typedef struct RGBQUAD {
    BYTE rgbBlue;
    BYTE rgbGreen;
    BYTE rgbRed;
    BYTE rgbReserved;
} RGBQUAD;

typedef struct BITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];
} BITMAPINFO;
typedef BITMAPINFO* LPBITMAPINFO;

#pragma pack(push, 2)
typedef struct BITMAPFILEHEADER {
    WORD bfType;
    DWORD bfSize;
    WORD bfReserved1;
    WORD bfReserved2;
    DWORD bfOffBits;
} BITMAPFILEHEADER;
#pragma pack(pop)
static_assert(sizeof(BITMAPFILEHEADER) == 14, "layout");

typedef struct DIBSECTION {
    BITMAP dsBm;
    BITMAPINFOHEADER dsBmih;
    DWORD dsBitfields[3];
    HANDLE dshSection;
    DWORD dsOffset;
} DIBSECTION;

// The entries of a DIB's colour table: RGBQUADs, or WORDs, indices of the context's palette.
#define DIB_RGB_COLORS 0
#define DIB_PAL_COLORS 1
#define CBM_INIT 4 // CreateDIBitmap: with the pixels

// Raster operations: how source (S), pattern (P) and target (D) make a pixel. The third byte is the
// table of results. Any of them can be used.
#define SRCCOPY 0x00CC0020u
#define SRCPAINT 0x00EE0086u    // S | D
#define SRCAND 0x008800C6u      // S & D
#define SRCINVERT 0x00660046u   // S ^ D
#define SRCERASE 0x00440328u    // S & ~D
#define NOTSRCCOPY 0x00330008u  // ~S
#define NOTSRCERASE 0x001100A6u // ~(S | D)
#define MERGECOPY 0x00C000CAu   // S & P
#define MERGEPAINT 0x00BB0226u  // ~S | D
#define PATCOPY 0x00F00021u     // P
#define PATPAINT 0x00FB0A09u    // P | ~S | D
#define PATINVERT 0x005A0049u   // P ^ D
#define DSTINVERT 0x00550009u   // ~D
#define BLACKNESS 0x00000042u
#define WHITENESS 0x00FF0062u

// How StretchBlt makes a picture smaller.
#define BLACKONWHITE 1
#define WHITEONBLACK 2
#define COLORONCOLOR 3
#define HALFTONE 4
#define STRETCH_DELETESCANS COLORONCOLOR
#define STRETCH_HALFTONE HALFTONE

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// ---- Bitmaps ------------------------------------------------------------------------------------

// `bits` holds rows of pixels from top to bottom, the leftmost pixel in the highest bits, each row
// filled up to 16 bits. If it is null the bitmap is black. There is one plane. A width or height of
// 0 gives a bitmap of one pixel in two colours.
HBITMAP WINAPI CreateBitmap(int width, int height, UINT planes, UINT bits_per_pixel,
                            const void* bits);
// With the colours of the device; on a memory context with those of its bitmap.
HBITMAP WINAPI CreateCompatibleBitmap(HDC dc, int width, int height);
// Copies the rows, at most `size` bytes. Answers the number of bytes copied or, without a buffer,
// of those there are.
LONG WINAPI GetBitmapBits(HBITMAP bitmap, LONG size, LPVOID bits);

// A bitmap whose pixels the caller can reach at `*bits`, in the layout that `info` describes.
// Sections of files are not supported: `section` must be null. Null on failure.
HBITMAP WINAPI CreateDIBSection(HDC dc, const BITMAPINFO* info, UINT usage, LPVOID* bits,
                                HANDLE section, DWORD offset);
// A bitmap with the colours of the device, of the size in `header`; with CBM_INIT it gets the
// pixels of the DIB that `bits` and `info` describe.
HBITMAP WINAPI CreateDIBitmap(HDC dc, const BITMAPINFOHEADER* header, DWORD flags, const void* bits,
                              const BITMAPINFO* info, UINT usage);
// Converts `count` rows from `first` (0 is the lowest) to the layout that `info` asks for, and
// fills in its colours. Without `bits` it fills in the header; with a bit count of 0 with that of
// the bitmap. Answers the number of rows, or what is not 0 without `bits`; 0 on failure.
int WINAPI GetDIBits(HDC dc, HBITMAP bitmap, UINT first, UINT count, LPVOID bits, LPBITMAPINFO info,
                     UINT usage);
int WINAPI SetDIBits(HDC dc, HBITMAP bitmap, UINT first, UINT count, const void* bits,
                     const BITMAPINFO* info, UINT usage);
// The colour table of the DIB section that is selected. Answer the number of colours.
UINT WINAPI SetDIBColorTable(HDC dc, UINT first, UINT count, const RGBQUAD* colors);
UINT WINAPI GetDIBColorTable(HDC dc, UINT first, UINT count, RGBQUAD* colors);

// ---- Copying ------------------------------------------------------------------------------------

// From a bitmap in two colours to one in more, clear pixels become the target's text colour and set
// ones its background colour. The other way, pixels of the source's background colour become set.
BOOL WINAPI BitBlt(HDC dc, int x, int y, int width, int height, HDC source, int source_x,
                   int source_y, DWORD operation);
// Negative extents mirror.
BOOL WINAPI StretchBlt(HDC dc, int x, int y, int width, int height, HDC source, int source_x,
                       int source_y, int source_width, int source_height, DWORD operation);
// Answers the previous mode. HALFTONE averages the pixels that become one, the others leave out.
int WINAPI SetStretchBltMode(HDC dc, int mode);
// A part of a DIB, whose y counts from the lowest row. Answers the number of rows, 0 on failure.
int WINAPI StretchDIBits(HDC dc, int x, int y, int width, int height, int source_x, int source_y,
                         int source_width, int source_height, const void* bits,
                         const BITMAPINFO* info, UINT usage, DWORD operation);
// `bits` holds `count` rows of the DIB, from row `first`.
int WINAPI SetDIBitsToDevice(HDC dc, int x, int y, DWORD width, DWORD height, int source_x,
                             int source_y, UINT first, UINT count, const void* bits,
                             const BITMAPINFO* info, UINT usage);
// Fills a rectangle with the brush; a negative extent lies to the left of or above the start. On a
// printer what extends beyond the page is cut off, and only BLACKNESS and WHITENESS are supported.
BOOL WINAPI PatBlt(HDC dc, int x, int y, int width, int height, DWORD operation);

WIN32HOST_END_C
#pragma GCC visibility pop
