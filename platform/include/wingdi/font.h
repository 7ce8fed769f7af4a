// Fonts: the one that fits a description, its measures and its file.
#pragma once

#include <windef.h>

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

#define FW_THIN 100
#define FW_LIGHT 300
#define FW_MEDIUM 500
#define FW_SEMIBOLD 600
#define FW_EXTRABOLD 800
#define FW_HEAVY 900

#define OUT_DEFAULT_PRECIS 0
#define OUT_TT_PRECIS 4
#define OUT_TT_ONLY_PRECIS 7
#define CLIP_DEFAULT_PRECIS 0
#define DEFAULT_QUALITY 0
#define PROOF_QUALITY 2
#define NONANTIALIASED_QUALITY 3
#define ANTIALIASED_QUALITY 4
#define CLEARTYPE_QUALITY 5

#define GDI_ERROR 0xFFFFFFFF

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// The font among the host's that fits the description best. A positive height is that of the cell,
// a negative one that of the em square, and 0 means a cell of 16 pixels. Weight and italic are
// imitated where the family lacks them; rotation is not supported.
HFONT WINAPI CreateFontIndirectW(const LOGFONTW* description);
HFONT WINAPI CreateFontW(int height, int width, int escapement, int orientation, int weight,
                         DWORD italic, DWORD underline, DWORD strike_out, DWORD charset,
                         DWORD out_precision, DWORD clip_precision, DWORD quality,
                         DWORD pitch_and_family, LPCWSTR face);

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

WIN32HOST_END_C
#pragma GCC visibility pop
