// Rich edit controls: text with formats over ranges.
//
// Positions count characters of the control, where a line break is one. The class exists after
// LoadLibraryW("riched20.dll").
#pragma once

#include <windows.h>

#define RICHEDIT_CLASSW TEXT("RichEdit20W")

// ---- Messages -----------------------------------------------------------------------------------

#define EM_EXGETSEL (WM_USER + 52)
#define EM_EXLIMITTEXT (WM_USER + 53)
#define EM_EXLINEFROMCHAR (WM_USER + 54)
#define EM_EXSETSEL (WM_USER + 55)
#define EM_GETCHARFORMAT (WM_USER + 58)
#define EM_GETEVENTMASK (WM_USER + 59)
#define EM_GETPARAFORMAT (WM_USER + 61)
#define EM_GETSELTEXT (WM_USER + 62)
#define EM_HIDESELECTION (WM_USER + 63)
#define EM_SELECTIONTYPE (WM_USER + 66)
#define EM_SETBKGNDCOLOR (WM_USER + 67)
#define EM_SETCHARFORMAT (WM_USER + 68)
#define EM_SETEVENTMASK (WM_USER + 69)
#define EM_SETPARAFORMAT (WM_USER + 71)
#define EM_GETTEXTRANGE (WM_USER + 75)
#define EM_SETUNDOLIMIT (WM_USER + 82)
#define EM_REDO (WM_USER + 84)
#define EM_CANREDO (WM_USER + 85)
#define EM_STOPGROUPTYPING (WM_USER + 88)
#define EM_GETTEXTEX (WM_USER + 94)
#define EM_GETTEXTLENGTHEX (WM_USER + 95)
#define EM_GETSCROLLPOS (WM_USER + 221)
#define EM_SETSCROLLPOS (WM_USER + 222)

// ---- Notifications ------------------------------------------------------------------------------

#define EN_SELCHANGE 0x0702
#define EN_PROTECTED 0x0704

// The event mask, 0 at first.
#define ENM_NONE 0x00000000
#define ENM_CHANGE 0x00000001
#define ENM_UPDATE 0x00000002
#define ENM_SELCHANGE 0x00080000
#define ENM_PROTECTED 0x00200000

// ---- Ranges -------------------------------------------------------------------------------------

typedef struct CHARRANGE {
    LONG cpMin;
    LONG cpMax; // -1: the end
} CHARRANGE;

typedef struct TEXTRANGEW {
    CHARRANGE chrg;
    LPWSTR lpstrText; // receives the text with a terminator
} TEXTRANGEW;

// EM_SELECTIONTYPE.
#define SEL_EMPTY 0x0000
#define SEL_TEXT 0x0001
#define SEL_MULTICHAR 0x0004

// EM_GETTEXTEX and EM_GETTEXTLENGTHEX.
#define GT_DEFAULT 0
#define GT_USECRLF 1
#define GT_SELECTION 2
#define GTL_DEFAULT 0
#define GTL_USECRLF 1
#define GTL_PRECISE 2
#define GTL_NUMCHARS 8 // as without GTL_NUMBYTES
#define GTL_NUMBYTES 16

#pragma pack(push, 4)
typedef struct GETTEXTEX {
    DWORD cb; // bytes in the buffer
    DWORD flags;
    UINT codepage; // 1200 for UTF-16
    LPCSTR lpDefaultChar;
    BOOL* lpUsedDefChar;
} GETTEXTEX;
#pragma pack(pop)

typedef struct GETTEXTLENGTHEX {
    DWORD flags;
    UINT codepage;
} GETTEXTLENGTHEX;

// ---- Formats of characters ----------------------------------------------------------------------

// What EM_SETCHARFORMAT is for.
#define SCF_DEFAULT 0x0000
#define SCF_SELECTION 0x0001
#define SCF_ALL 0x0004

#define CFM_BOLD 0x00000001
#define CFM_ITALIC 0x00000002
#define CFM_UNDERLINE 0x00000004
#define CFM_STRIKEOUT 0x00000008
#define CFM_PROTECTED 0x00000010
#define CFM_BACKCOLOR 0x04000000
#define CFM_CHARSET 0x08000000
#define CFM_OFFSET 0x10000000
#define CFM_FACE 0x20000000
#define CFM_COLOR 0x40000000
#define CFM_SIZE 0x80000000
#define CFM_WEIGHT 0x00400000

#define CFE_BOLD 0x00000001
#define CFE_ITALIC 0x00000002
#define CFE_UNDERLINE 0x00000004
#define CFE_STRIKEOUT 0x00000008
#define CFE_PROTECTED 0x00000010
#define CFE_AUTOBACKCOLOR 0x04000000
#define CFE_AUTOCOLOR 0x40000000 // the window's text colour

typedef struct CHARFORMATW {
    UINT cbSize;
    DWORD dwMask;    // CFM_: what counts; when asked, what is the same in all of the range
    DWORD dwEffects; // CFE_
    LONG yHeight;    // twentieths of a point
    LONG yOffset;
    COLORREF crTextColor;
    BYTE bCharSet;
    BYTE bPitchAndFamily;
    WCHAR szFaceName[LF_FACESIZE];
} CHARFORMATW;
static_assert(sizeof(CHARFORMATW) == 92, "layout");

typedef struct CHARFORMAT2W {
    UINT cbSize;
    DWORD dwMask;
    DWORD dwEffects;
    LONG yHeight;
    LONG yOffset;
    COLORREF crTextColor;
    BYTE bCharSet;
    BYTE bPitchAndFamily;
    WCHAR szFaceName[LF_FACESIZE];
    WORD wWeight;
    SHORT sSpacing;
    COLORREF crBackColor;
    DWORD lcid;
    DWORD dwReserved;
    SHORT sStyle;
    WORD wKerning;
    BYTE bUnderlineType;
    BYTE bAnimation;
    BYTE bRevAuthor;
    BYTE bReserved1;
} CHARFORMAT2W;
static_assert(sizeof(CHARFORMAT2W) == 116, "layout");

// ---- Formats of paragraphs ----------------------------------------------------------------------

#define MAX_TAB_STOPS 32

#define PFM_STARTINDENT 0x00000001
#define PFM_RIGHTINDENT 0x00000002
#define PFM_OFFSET 0x00000004
#define PFM_ALIGNMENT 0x00000008
#define PFM_TABSTOPS 0x00000010

#define PFA_LEFT 1

typedef struct PARAFORMAT {
    UINT cbSize;
    DWORD dwMask; // PFM_
    WORD wNumbering;
    WORD wEffects;
    LONG dxStartIndent; // twips, as all measures here
    LONG dxRightIndent;
    LONG dxOffset;
    WORD wAlignment;
    SHORT cTabCount;
    LONG rgxTabs[MAX_TAB_STOPS];
} PARAFORMAT;
static_assert(sizeof(PARAFORMAT) == 156, "layout");

typedef struct PARAFORMAT2 {
    UINT cbSize;
    DWORD dwMask;
    WORD wNumbering;
    WORD wEffects;
    LONG dxStartIndent;
    LONG dxRightIndent;
    LONG dxOffset;
    WORD wAlignment;
    SHORT cTabCount;
    LONG rgxTabs[MAX_TAB_STOPS];
    LONG dySpaceBefore;
    LONG dySpaceAfter;
    LONG dyLineSpacing;
    SHORT sStyle;
    BYTE bLineSpacingRule;
    BYTE bOutlineLevel;
    WORD wShadingWeight;
    WORD wShadingStyle;
    WORD wNumberingStart;
    WORD wNumberingStyle;
    WORD wNumberingTab;
    WORD wBorderSpace;
    WORD wBorderWidth;
    WORD wBorders;
} PARAFORMAT2;
static_assert(sizeof(PARAFORMAT2) == 188, "layout");

// ---- What notifications carry -------------------------------------------------------------------

#pragma pack(push, 4)
// EN_SELCHANGE.
typedef struct SELCHANGE {
    NMHDR nmhdr;
    CHARRANGE chrg;
    WORD seltyp;
} SELCHANGE;

// EN_PROTECTED: a message that would change protected text. An answer other than 0 keeps the text.
typedef struct ENPROTECTED {
    NMHDR nmhdr;
    UINT msg;
    WPARAM wParam;
    LPARAM lParam;
    CHARRANGE chrg;
} ENPROTECTED;
#pragma pack(pop)
