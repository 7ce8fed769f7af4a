// Dialogs made from templates.
#pragma once

#include <windef.h>

#include <winuser/window.h>

typedef INT_PTR(CALLBACK* DLGPROC)(HWND dialog, UINT message, WPARAM first, LPARAM second);

#define WC_DIALOG MAKEINTRESOURCEW(0x8002)

#define DS_ABSALIGN 0x0001
#define DS_SYSMODAL 0x0002
#define DS_3DLOOK 0x0004
#define DS_FIXEDSYS 0x0008
#define DS_NOFAILCREATE 0x0010
#define DS_SETFONT 0x0040
#define DS_MODALFRAME 0x0080
#define DS_NOIDLEMSG 0x0100
#define DS_SETFOREGROUND 0x0200
#define DS_CONTROL 0x0400
#define DS_CENTER 0x0800
#define DS_CONTEXTHELP 0x2000
#define DS_SHELLFONT (DS_SETFONT | DS_FIXEDSYS)

#define IDCLOSE 8
#define IDHELP 9
#define IDC_STATIC (-1)

// Extra bytes of every dialog.
#define DWLP_MSGRESULT 0
#define DWLP_DLGPROC (DWLP_MSGRESULT + sizeof(LRESULT))
#define DWLP_USER (DWLP_DLGPROC + sizeof(DLGPROC))
#define DLGWINDOWEXTRA 30

#define DM_GETDEFID (WM_USER + 0)
#define DM_SETDEFID (WM_USER + 1)
#define DM_REPOSITION (WM_USER + 2)
#define DC_HASDEFID 0x534B

// The head of a template of the standard form; menu, class, title, font and items follow.
#pragma pack(push, 2)
typedef struct DLGTEMPLATE {
    DWORD style;
    DWORD dwExtendedStyle;
    WORD cdit;
    SHORT x;
    SHORT y;
    SHORT cx;
    SHORT cy;
} DLGTEMPLATE;
typedef DLGTEMPLATE* LPDLGTEMPLATEW;
typedef const DLGTEMPLATE* LPCDLGTEMPLATEW;
typedef struct DLGITEMTEMPLATE {
    DWORD style;
    DWORD dwExtendedStyle;
    SHORT x;
    SHORT y;
    SHORT cx;
    SHORT cy;
    WORD id;
} DLGITEMTEMPLATE;
#pragma pack(pop)
static_assert(sizeof(DLGTEMPLATE) == 18, "layout");
static_assert(sizeof(DLGITEMTEMPLATE) == 18, "layout");

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// A dialog from a template of either form, with its controls, after WM_SETFONT and WM_INITDIALOG.
// The modal forms run until EndDialog and answer its result; -1 if the dialog cannot be made. The
// modeless forms answer the window.
HWND WINAPI CreateDialogParamW(HINSTANCE module, LPCWSTR name, HWND parent, DLGPROC procedure,
                               LPARAM parameter);
HWND WINAPI CreateDialogIndirectParamW(HINSTANCE module, LPCDLGTEMPLATEW dialog_template,
                                       HWND parent, DLGPROC procedure, LPARAM parameter);
INT_PTR WINAPI DialogBoxParamW(HINSTANCE module, LPCWSTR name, HWND parent, DLGPROC procedure,
                               LPARAM parameter);
INT_PTR WINAPI DialogBoxIndirectParamW(HINSTANCE module, LPCDLGTEMPLATEW dialog_template,
                                       HWND parent, DLGPROC procedure, LPARAM parameter);
#define CreateDialogW(module, name, parent, procedure)                                             \
    CreateDialogParamW(module, name, parent, procedure, 0)
#define CreateDialogIndirectW(module, dialog_template, parent, procedure)                          \
    CreateDialogIndirectParamW(module, dialog_template, parent, procedure, 0)
#define DialogBoxW(module, name, parent, procedure)                                                \
    DialogBoxParamW(module, name, parent, procedure, 0)
#define DialogBoxIndirectW(module, dialog_template, parent, procedure)                             \
    DialogBoxIndirectParamW(module, dialog_template, parent, procedure, 0)
// Hides a modal dialog and lets its loop end when it next runs.
BOOL WINAPI EndDialog(HWND dialog, INT_PTR result);
LRESULT WINAPI DefDlgProcW(HWND dialog, UINT message, WPARAM first, LPARAM second);
// Handles keys that move in a dialog or press its buttons; dispatches other messages for it. FALSE
// for messages of other windows.
BOOL WINAPI IsDialogMessageW(HWND dialog, LPMSG message);

HWND WINAPI GetDlgItem(HWND dialog, int id);
int WINAPI GetDlgCtrlID(HWND control);
LRESULT WINAPI SendDlgItemMessageW(HWND dialog, int id, UINT message, WPARAM first, LPARAM second);
BOOL WINAPI SetDlgItemTextW(HWND dialog, int id, LPCWSTR text);
UINT WINAPI GetDlgItemTextW(HWND dialog, int id, LPWSTR buffer, int size);
BOOL WINAPI SetDlgItemInt(HWND dialog, int id, UINT value, BOOL is_signed);
UINT WINAPI GetDlgItemInt(HWND dialog, int id, LPBOOL done, BOOL is_signed);
// The next control with WS_TABSTOP, or the next of the same group, that can be used; in a circle.
HWND WINAPI GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous);
HWND WINAPI GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous);

// Dialog units to pixels: a quarter of the average width and an eighth of the height of a character
// in the dialog's font. The base units are those of the system's font.
BOOL WINAPI MapDialogRect(HWND dialog, LPRECT rect);
LONG WINAPI GetDialogBaseUnits();

WIN32HOST_END_C
#pragma GCC visibility pop
