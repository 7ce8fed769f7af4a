// Device modes and device capabilities of printers.
#pragma once

#include <windef.h>

#define CCHDEVICENAME 32
#define CCHFORMNAME 32

// The public part of a printer's document settings. A driver's private bytes (dmDriverExtra of
// them) follow directly after the first dmSize bytes. Lengths are in tenths of a millimetre.
typedef struct DEVMODEW {
    WCHAR dmDeviceName[CCHDEVICENAME];
    WORD dmSpecVersion;
    WORD dmDriverVersion;
    WORD dmSize;
    WORD dmDriverExtra;
    DWORD dmFields;
    union {
        struct {
            SHORT dmOrientation;
            SHORT dmPaperSize;
            SHORT dmPaperLength;
            SHORT dmPaperWidth;
            SHORT dmScale;
            SHORT dmCopies;
            SHORT dmDefaultSource;
            SHORT dmPrintQuality;
        };
        struct {
            POINTL dmPosition;
            DWORD dmDisplayOrientation;
            DWORD dmDisplayFixedOutput;
        };
    };
    SHORT dmColor;
    SHORT dmDuplex;
    SHORT dmYResolution;
    SHORT dmTTOption;
    SHORT dmCollate;
    WCHAR dmFormName[CCHFORMNAME];
    WORD dmLogPixels;
    DWORD dmBitsPerPel;
    DWORD dmPelsWidth;
    DWORD dmPelsHeight;
    union {
        DWORD dmDisplayFlags;
        DWORD dmNup;
    };
    DWORD dmDisplayFrequency;
    DWORD dmICMMethod;
    DWORD dmICMIntent;
    DWORD dmMediaType;
    DWORD dmDitherType;
    DWORD dmReserved1;
    DWORD dmReserved2;
    DWORD dmPanningWidth;
    DWORD dmPanningHeight;
} DEVMODEW;
typedef DEVMODEW* PDEVMODEW;
typedef DEVMODEW* LPDEVMODEW;
static_assert(sizeof(DEVMODEW) == 220, "layout");
static_assert(offsetof(DEVMODEW, dmFields) == 72, "layout");
static_assert(offsetof(DEVMODEW, dmFormName) == 102, "layout");

// The same in the ANSI form that old programs use.
typedef struct DEVMODEA {
    BYTE dmDeviceName[CCHDEVICENAME];
    WORD dmSpecVersion;
    WORD dmDriverVersion;
    WORD dmSize;
    WORD dmDriverExtra;
    DWORD dmFields;
    SHORT dmOrientation;
    SHORT dmPaperSize;
    SHORT dmPaperLength;
    SHORT dmPaperWidth;
    SHORT dmScale;
    SHORT dmCopies;
    SHORT dmDefaultSource;
    SHORT dmPrintQuality;
    SHORT dmColor;
    SHORT dmDuplex;
    SHORT dmYResolution;
    SHORT dmTTOption;
    SHORT dmCollate;
    BYTE dmFormName[CCHFORMNAME];
    WORD dmLogPixels;
    DWORD dmBitsPerPel;
    DWORD dmPelsWidth;
    DWORD dmPelsHeight;
    DWORD dmDisplayFlags;
    DWORD dmDisplayFrequency;
    DWORD dmICMMethod;
    DWORD dmICMIntent;
    DWORD dmMediaType;
    DWORD dmDitherType;
    DWORD dmReserved1;
    DWORD dmReserved2;
    DWORD dmPanningWidth;
    DWORD dmPanningHeight;
} DEVMODEA;
static_assert(sizeof(DEVMODEA) == 156, "layout");

// How halftones adjust colours. Gammas and references are in ten-thousandths.
typedef struct COLORADJUSTMENT {
    WORD caSize;
    WORD caFlags;
    WORD caIlluminantIndex;
    WORD caRedGamma;
    WORD caGreenGamma;
    WORD caBlueGamma;
    WORD caReferenceBlack;
    WORD caReferenceWhite;
    SHORT caContrast;
    SHORT caBrightness;
    SHORT caColorfulness;
    SHORT caRedGreenTint;
} COLORADJUSTMENT;
static_assert(sizeof(COLORADJUSTMENT) == 24, "layout");

// The version of DEVMODEW that has all of the fields above.
#define DM_SPECVERSION 0x0401

#define DM_ORIENTATION 0x00000001
#define DM_PAPERSIZE 0x00000002
#define DM_PAPERLENGTH 0x00000004
#define DM_PAPERWIDTH 0x00000008
#define DM_SCALE 0x00000010
#define DM_COPIES 0x00000100
#define DM_DEFAULTSOURCE 0x00000200
#define DM_PRINTQUALITY 0x00000400
#define DM_COLOR 0x00000800
#define DM_DUPLEX 0x00001000
#define DM_YRESOLUTION 0x00002000
#define DM_TTOPTION 0x00004000
#define DM_COLLATE 0x00008000
#define DM_FORMNAME 0x00010000
#define DM_LOGPIXELS 0x00020000
#define DM_NUP 0x00000040
#define DM_ICMMETHOD 0x00800000
#define DM_ICMINTENT 0x01000000
#define DM_MEDIATYPE 0x02000000
#define DM_DITHERTYPE 0x04000000

#define DM_UPDATE 1
#define DM_COPY 2
#define DM_PROMPT 4
#define DM_MODIFY 8
#define DM_OUT_BUFFER DM_COPY
#define DM_IN_PROMPT DM_PROMPT
#define DM_IN_BUFFER DM_MODIFY

#define DMORIENT_PORTRAIT 1
#define DMORIENT_LANDSCAPE 2
#define DMPAPER_USER 256
#define DMBIN_USER 256
#define DMCOLOR_MONOCHROME 1
#define DMCOLOR_COLOR 2
#define DMDUP_SIMPLEX 1
#define DMTT_BITMAP 1
#define DMCOLLATE_FALSE 0
#define DMICMMETHOD_SYSTEM 2
#define DMICM_SATURATE 1
#define DMMEDIA_STANDARD 1
#define DMDITHER_USER 256

#define DC_FIELDS 1
#define DC_PAPERS 2
#define DC_PAPERSIZE 3
#define DC_MINEXTENT 4
#define DC_MAXEXTENT 5
#define DC_BINS 6
#define DC_DUPLEX 7
#define DC_SIZE 8
#define DC_EXTRA 9
#define DC_VERSION 10
#define DC_DRIVER 11
#define DC_BINNAMES 12
#define DC_ENUMRESOLUTIONS 13
#define DC_FILEDEPENDENCIES 14
#define DC_TRUETYPE 15
#define DC_PAPERNAMES 16
#define DC_ORIENTATION 17
#define DC_COPIES 18
#define DC_BINADJUST 19
#define DC_EMF_COMPLIANT 20
#define DC_DATATYPE_PRODUCED 21
#define DC_COLLATE 22
#define DC_MANUFACTURER 23
#define DC_MODEL 24
#define DC_PERSONALITY 25
#define DC_PRINTRATE 26
#define DC_PRINTRATEUNIT 27
#define DC_PRINTERMEM 28
#define DC_MEDIAREADY 29
#define DC_STAPLE 30
#define DC_PRINTRATEPPM 31
#define DC_COLORDEVICE 32
#define DC_NUP 33

// ---- Fonts --------------------------------------------------------------------------------------

#define LF_FACESIZE 32

typedef struct LOGFONTW {
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    WCHAR lfFaceName[LF_FACESIZE];
} LOGFONTW;
static_assert(sizeof(LOGFONTW) == 92, "layout");

#define FW_DONTCARE 0
#define FW_NORMAL 400
#define FW_BOLD 700

#define ANSI_CHARSET 0
#define DEFAULT_CHARSET 1
#define SYMBOL_CHARSET 2
#define SHIFTJIS_CHARSET 128
#define HANGUL_CHARSET 129
#define JOHAB_CHARSET 130
#define GB2312_CHARSET 134
#define CHINESEBIG5_CHARSET 136
#define GREEK_CHARSET 161
#define TURKISH_CHARSET 162
#define VIETNAMESE_CHARSET 163
#define HEBREW_CHARSET 177
#define ARABIC_CHARSET 178
#define BALTIC_CHARSET 186
#define RUSSIAN_CHARSET 204
#define THAI_CHARSET 222
#define EASTEUROPE_CHARSET 238
#define OEM_CHARSET 255

// lfPitchAndFamily: a pitch and a family.
#define DEFAULT_PITCH 0
#define FIXED_PITCH 1
#define VARIABLE_PITCH 2
#define FF_DONTCARE 0x00
#define FF_ROMAN 0x10
#define FF_SWISS 0x20
#define FF_MODERN 0x30
#define FF_SCRIPT 0x40
#define FF_DECORATIVE 0x50

// tmPitchAndFamily. The first is set for fonts of variable pitch.
#define TMPF_FIXED_PITCH 0x01
#define TMPF_VECTOR 0x02
#define TMPF_TRUETYPE 0x04

// The measures of a font as it is selected, in pixels.
typedef struct TEXTMETRICW {
    LONG tmHeight; // ascent and descent
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading; // the part of the height above the em square
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    WCHAR tmFirstChar;
    WCHAR tmLastChar;
    WCHAR tmDefaultChar;
    WCHAR tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
} TEXTMETRICW;
typedef TEXTMETRICW* LPTEXTMETRICW;
static_assert(sizeof(TEXTMETRICW) == 60, "layout");

#define GDI_ERROR 0xFFFFFFFF

// ---- Device contexts ----------------------------------------------------------------------------

// Indices of GetDeviceCaps. Sizes are in pixels unless they say otherwise.
#define DRIVERVERSION 0
#define TECHNOLOGY 2
#define HORZSIZE 4 // millimetres
#define VERTSIZE 6
#define HORZRES 8 // the printable area
#define VERTRES 10
#define BITSPIXEL 12
#define PLANES 14
#define NUMCOLORS 24
#define RASTERCAPS 38
#define ASPECTX 40
#define ASPECTY 42
#define ASPECTXY 44
#define LOGPIXELSX 88 // per inch
#define LOGPIXELSY 90
#define PHYSICALWIDTH 110 // the paper
#define PHYSICALHEIGHT 111
#define PHYSICALOFFSETX 112 // of the printable area on it
#define PHYSICALOFFSETY 113

#define DT_RASDISPLAY 1
#define DT_RASPRINTER 2

// An escape that every rendering module answers: it asks whether the module knows another one,
// whose number is the input.
#define QUERYESCSUPPORT 8

#define SP_ERROR (-1)

typedef struct DOCINFOW {
    int cbSize;
    LPCWSTR lpszDocName;
    LPCWSTR lpszOutput;   // null: the printer's port
    LPCWSTR lpszDatatype; // null: RAW
    DWORD fwType;
} DOCINFOW;
typedef DOCINFOW* LPDOCINFOW;

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// A device context on the printer `device` with the settings in `dev_mode`, or its default ones for
// null. `driver` is "WINSPOOL" or null. `output` is null or the printer's port, and is ignored.
// Null with an error if there is no such printer or no rendering module for it.
HDC WINAPI CreateDCW(LPCWSTR driver, LPCWSTR device, LPCWSTR output, const DEVMODEW* dev_mode);
// The same for questions only: documents cannot be started on it.
HDC WINAPI CreateICW(LPCWSTR driver, LPCWSTR device, LPCWSTR output, const DEVMODEW* dev_mode);
// A document that is not ended is dropped.
BOOL WINAPI DeleteDC(HDC dc);

// 0 for an index that is not listed above, and if there is no such device context.
int WINAPI GetDeviceCaps(HDC dc, int index);

// Documents. The answer is greater than 0 on success; StartDocW answers the number of the job.
// Pages belong to documents, and an open page ends with its document. Output to files is not
// supported.
int WINAPI StartDocW(HDC dc, const DOCINFOW* info);
int WINAPI StartPage(HDC dc);
int WINAPI EndPage(HDC dc);
int WINAPI EndDoc(HDC dc);
int WINAPI AbortDoc(HDC dc);

// Passes the input to the rendering module and answers what it answers: greater than 0 on success,
// 0 if it does not know the escape, less than 0 on failure.
int WINAPI ExtEscape(HDC dc, int escape, int input_size, LPCSTR input, int output_size,
                     LPSTR output);

// The units of the coordinates that drawing functions take. Contexts start with MM_TEXT, one pixel
// with y growing downwards, and have no other here. Answers the previous mode, or 0 if it cannot be
// set.
#define MM_TEXT 1
int WINAPI SetMapMode(HDC dc, int mode);

// Fills a rectangle of a printer's page; a negative extent lies to the left of or above the start.
// What extends beyond the page is cut off. Only BLACKNESS and WHITENESS are supported.
#define BLACKNESS 0x00000042u
#define WHITENESS 0x00FF0062u
BOOL WINAPI PatBlt(HDC dc, int x, int y, int width, int height, DWORD operation);

// ---- Drawing in memory --------------------------------------------------------------------------

// A context for drawing on a bitmap. It answers GetDeviceCaps like `dc`, or like the screen for
// null. It starts with a bitmap of one black pixel and with the system's font. Text is black on
// white cells; one unit is one pixel.
HDC WINAPI CreateCompatibleDC(HDC dc);

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

// The font among the host's that fits the description best. A positive height is that of the cell,
// a negative one that of the em square, and 0 means a cell of 16 pixels. Weight and italic are
// imitated where the family lacks them; lines under and through text and rotation are not
// supported.
HFONT WINAPI CreateFontIndirectW(const LOGFONTW* description);

// Makes a font or a bitmap the current one and answers the previous one. Bitmaps can be selected
// into memory contexts only, and into one at a time. Null on failure.
HGDIOBJ WINAPI SelectObject(HDC dc, HGDIOBJ object);
// A selected font is deleted once it is no longer selected; a selected bitmap stays, and the answer
// is FALSE.
BOOL WINAPI DeleteObject(HGDIOBJ object);

// Copies bytes of a table of the current font's file, or of the file itself for table 0. A table's
// name is four characters, the first in the lowest byte. Answers the total size without a buffer or
// with size 0, else the number of bytes copied, which ends with the table. GDI_ERROR if there are
// no bytes.
DWORD WINAPI GetFontData(HDC dc, DWORD table, DWORD offset, LPVOID buffer, DWORD size);

BOOL WINAPI GetTextMetricsW(HDC dc, LPTEXTMETRICW metrics);
// The family of the current font as it is shown: the one that was asked for, or the one that
// replaces it. `count` is the room in `name`. Answers the number of units stored or, without
// `name`, needed, with the terminator. 0 on failure.
int WINAPI GetTextFaceW(HDC dc, int count, LPWSTR name);
// Takes 8-bit text in the code page of the font's character set.
BOOL WINAPI GetTextExtentPointA(HDC dc, LPCSTR text, int length, LPSIZE size);
BOOL WINAPI GetTextExtentPointW(HDC dc, LPCWSTR text, int length, LPSIZE size);
// Draws the text in its cell, whose upper left corner is given. Text on the screen is not visible.
BOOL WINAPI TextOutA(HDC dc, int x, int y, LPCSTR text, int length);
BOOL WINAPI TextOutW(HDC dc, int x, int y, LPCWSTR text, int length);

WIN32HOST_END_C
#pragma GCC visibility pop
