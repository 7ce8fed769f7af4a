// The system's dialogs for files and fonts.
#pragma once

#include <windows.h>

// ---- Files --------------------------------------------------------------------------------------

#define OFN_READONLY 0x00000001
#define OFN_OVERWRITEPROMPT 0x00000002
#define OFN_HIDEREADONLY 0x00000004
#define OFN_NOCHANGEDIR 0x00000008
#define OFN_NOVALIDATE 0x00000100
#define OFN_ALLOWMULTISELECT 0x00000200
#define OFN_EXTENSIONDIFFERENT 0x00000400
#define OFN_PATHMUSTEXIST 0x00000800
#define OFN_FILEMUSTEXIST 0x00001000
#define OFN_EXPLORER 0x00080000

typedef UINT_PTR(CALLBACK* LPOFNHOOKPROC)(HWND dialog, UINT message, WPARAM first, LPARAM second);

// What a file dialog is asked for. Hooks, templates and custom filters are not supported.
typedef struct OPENFILENAMEW {
    DWORD lStructSize;
    HWND hwndOwner;
    HINSTANCE hInstance;
    LPCWSTR lpstrFilter; // pairs of a shown text and its patterns ("*.a;*.b"); ends with two zeros
    LPWSTR lpstrCustomFilter;
    DWORD nMaxCustFilter;
    DWORD nFilterIndex;      // from 1; the chosen one afterwards
    LPWSTR lpstrFile;        // the name proposed, then the full path chosen
    DWORD nMaxFile;          // units in it
    LPWSTR lpstrFileTitle;   // receives the name without the folder; may be null
    DWORD nMaxFileTitle;     // units in it
    LPCWSTR lpstrInitialDir; // null: the proposed name's folder, or the current one
    LPCWSTR lpstrTitle;      // null: "Open" or "Save As"
    DWORD Flags;             // OFN_
    WORD nFileOffset;        // of the name in lpstrFile
    WORD nFileExtension;     // of what follows its last full stop; 0 without one
    LPCWSTR lpstrDefExt;     // added to a name without an extension
    LPARAM lCustData;
    LPOFNHOOKPROC lpfnHook;
    LPCWSTR lpTemplateName;
    void* pvReserved;
    DWORD dwReserved;
    DWORD FlagsEx;
} OPENFILENAMEW;
typedef OPENFILENAMEW* LPOPENFILENAMEW;

// To a file dialog: the name in its field, the full path of it, or the folder that is shown. The
// first parameter is the room in the second, in units; the answer is the room that is needed.
#define CDM_FIRST (WM_USER + 100)
#define CDM_GETSPEC (CDM_FIRST + 0)
#define CDM_GETFILEPATH (CDM_FIRST + 1)
#define CDM_GETFOLDERPATH (CDM_FIRST + 2)

// ---- Fonts --------------------------------------------------------------------------------------

#define CF_SCREENFONTS 0x00000001
#define CF_SHOWHELP 0x00000004
#define CF_ENABLEHOOK 0x00000008
#define CF_ENABLETEMPLATE 0x00000010
#define CF_ENABLETEMPLATEHANDLE 0x00000020
#define CF_INITTOLOGFONTSTRUCT 0x00000040
#define CF_NOSIMULATIONS 0x00001000
#define CF_LIMITSIZE 0x00002000
#define CF_FORCEFONTEXIST 0x00010000
#define CF_TTONLY 0x00040000
#define CF_NOSCRIPTSEL 0x00800000

#define BOLD_FONTTYPE 0x0100
#define ITALIC_FONTTYPE 0x0200
#define REGULAR_FONTTYPE 0x0400
#define SCREEN_FONTTYPE 0x2000

// To the dialog: the chosen font into the LOGFONTW that the second parameter points to.
#define WM_CHOOSEFONT_GETLOGFONT (WM_USER + 1)

typedef UINT_PTR(CALLBACK* LPCFHOOKPROC)(HWND dialog, UINT message, WPARAM first, LPARAM second);

// What the font dialog is asked for.
typedef struct CHOOSEFONTW {
    DWORD lStructSize;
    HWND hwndOwner;
    HDC hDC;
    LOGFONTW* lpLogFont; // the font to start with, if the flags say so; then the chosen one
    INT iPointSize;      // receives tenths of a point
    DWORD Flags;         // CF_
    COLORREF rgbColors;
    LPARAM lCustData;
    LPCFHOOKPROC lpfnHook;
    LPCWSTR lpTemplateName;
    HINSTANCE hInstance; // the template's module, or the template itself
    LPWSTR lpszStyle;
    WORD nFontType; // receives _FONTTYPE bits
    INT nSizeMin;   // points, with CF_LIMITSIZE
    INT nSizeMax;
} CHOOSEFONTW;
typedef CHOOSEFONTW* LPCHOOSEFONTW;

// ---- Answers ------------------------------------------------------------------------------------

#define CDERR_STRUCTSIZE 0x0001
#define CDERR_INITIALIZATION 0x0002
#define CDERR_NOTEMPLATE 0x0003
#define CDERR_FINDRESFAILURE 0x0006
#define CDERR_NOHOOK 0x000B
#define CFERR_NOFONTS 0x2001
#define CFERR_MAXLESSTHANMIN 0x2002
#define FNERR_BUFFERTOOSMALL 0x3003

// A registered message, by which the help button of a dialog tells its owner.
#define HELPMSGSTRINGW TEXT("commdlg_help")

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// Show a dialog and answer whether the user chose something. A thread without a user
// (win32host/user.h) cancels. With OFN_ALLOWMULTISELECT several files are the folder and each name,
// every one with its terminator, and one more at the end.
BOOL WINAPI GetOpenFileNameW(LPOPENFILENAMEW request);
BOOL WINAPI GetSaveFileNameW(LPOPENFILENAMEW request);
BOOL WINAPI ChooseFontW(LPCHOOSEFONTW request);
// Why the last of them on this thread answered FALSE; 0 if the user cancelled.
DWORD WINAPI CommDlgExtendedError();

WIN32HOST_END_C
#pragma GCC visibility pop

// Identifiers of the controls in the dialogs.
#include <dlgs.h>
