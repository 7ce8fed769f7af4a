// Property sheets: a window with a tab for each page, and the pages, which are dialogs.
#pragma once

#include <windef.h>
#include <winuser.h>

#define MAXPROPPAGES 100

// ---- Pages --------------------------------------------------------------------------------------

DECLARE_HANDLE(HPROPSHEETPAGE);

// PROPSHEETPAGEW::dwFlags.
#define PSP_DEFAULT 0x00000000
#define PSP_DLGINDIRECT 0x00000001 // pResource in place of pszTemplate
#define PSP_USEHICON 0x00000002
#define PSP_USEICONID 0x00000004
#define PSP_USETITLE 0x00000008 // pszTitle in place of the template's title
#define PSP_HASHELP 0x00000020  // the sheet's Help button works while the page is shown
#define PSP_USEREFPARENT 0x00000040
#define PSP_USECALLBACK 0x00000080
#define PSP_PREMATURE 0x00000400 // made with the sheet, not when it is first shown
#define PSP_USEFUSIONCONTEXT 0x00004000

struct PROPSHEETPAGEW;
typedef UINT(CALLBACK* LPFNPSPCALLBACKW)(HWND window, UINT message, struct PROPSHEETPAGEW* page);

// What the callback is told: the page's record is kept or released, the page is about to be made (0
// forbids that).
#define PSPCB_ADDREF 0
#define PSPCB_RELEASE 1
#define PSPCB_CREATE 2

typedef LPCDLGTEMPLATEW PROPSHEETPAGE_RESOURCE;

// A page. dwSize may include data of the page's own that follows; the record that WM_INITDIALOG's
// parameter points to has it too.
typedef struct PROPSHEETPAGEW {
    DWORD dwSize;
    DWORD dwFlags;
    HINSTANCE hInstance;
    union {
        LPCWSTR pszTemplate;
        PROPSHEETPAGE_RESOURCE pResource; // must stay until the sheet is closed
    };
    union {
        HICON hIcon;
        LPCWSTR pszIcon;
    };
    LPCWSTR pszTitle; // a text, or the number of a string of hInstance
    DLGPROC pfnDlgProc;
    LPARAM lParam; // the page's own
    LPFNPSPCALLBACKW pfnCallback;
    UINT* pcRefParent; // counts the pages that exist, with PSP_USEREFPARENT
    LPCWSTR pszHeaderTitle;
    LPCWSTR pszHeaderSubTitle;
    HANDLE hActCtx;
} PROPSHEETPAGEW;
typedef PROPSHEETPAGEW* LPPROPSHEETPAGEW;
typedef const PROPSHEETPAGEW* LPCPROPSHEETPAGEW;

// The sizes of older records, which end before pszHeaderTitle and before hActCtx.
#define PROPSHEETPAGEW_V1_SIZE ((DWORD)offsetof(PROPSHEETPAGEW, pszHeaderTitle))
#define PROPSHEETPAGEW_V2_SIZE ((DWORD)offsetof(PROPSHEETPAGEW, hActCtx))

// ---- Sheets -------------------------------------------------------------------------------------

// PROPSHEETHEADERW::dwFlags.
#define PSH_DEFAULT 0x00000000
#define PSH_PROPTITLE 0x00000001 // "Properties for" before the caption
#define PSH_USEHICON 0x00000002
#define PSH_USEICONID 0x00000004
#define PSH_PROPSHEETPAGE 0x00000008 // ppsp in place of phpage
#define PSH_USEPSTARTPAGE 0x00000040 // pStartPage in place of nStartPage
#define PSH_NOAPPLYNOW 0x00000080
#define PSH_USECALLBACK 0x00000100
#define PSH_HASHELP 0x00000200 // also when one of the first pages has PSP_HASHELP
#define PSH_MODELESS 0x00000400
#define PSH_NOCONTEXTHELP 0x02000000

typedef int(CALLBACK* PFNPROPSHEETCALLBACK)(HWND sheet, UINT message, LPARAM parameter);

// What the callback is told: the head of the sheet's dialog template (DLGTEMPLATE), whose styles
// and place it may change; the sheet, before its first page is made.
#define PSCB_INITIALIZED 1
#define PSCB_PRECREATE 2

typedef struct PROPSHEETHEADERW {
    DWORD dwSize;
    DWORD dwFlags;
    HWND hwndParent;
    HINSTANCE hInstance;
    union {
        HICON hIcon;
        LPCWSTR pszIcon;
    };
    LPCWSTR pszCaption; // a text, or the number of a string of hInstance
    UINT nPages;
    union {
        UINT nStartPage;
        LPCWSTR pStartPage; // the title of a page
    };
    union {
        LPCPROPSHEETPAGEW ppsp;
        HPROPSHEETPAGE* phpage; // the sheet destroys them
    };
    PFNPROPSHEETCALLBACK pfnCallback;
    HBITMAP hbmWatermark;
    HPALETTE hplWatermark;
    HBITMAP hbmHeader;
} PROPSHEETHEADERW;
typedef PROPSHEETHEADERW* LPPROPSHEETHEADERW;
typedef const PROPSHEETHEADERW* LPCPROPSHEETHEADERW;

#define PROPSHEETHEADERW_V1_SIZE ((DWORD)offsetof(PROPSHEETHEADERW, hbmWatermark))

// What PropertySheetW answers for a sheet that was closed with OK after these messages.
#define ID_PSRESTARTWINDOWS 0x2
#define ID_PSREBOOTSYSTEM (ID_PSRESTARTWINDOWS | 0x1)

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// A page for a sheet; null if the record is too small. Pages that no sheet gets must be destroyed.
HPROPSHEETPAGE WINAPI CreatePropertySheetPageW(LPCPROPSHEETPAGEW page);
BOOL WINAPI DestroyPropertySheetPage(HPROPSHEETPAGE page);

// Shows a sheet. A modal one runs until it is closed: 0 after Cancel, more after OK, -1 if it
// cannot be made. A modeless one answers its window. When PSM_GETCURRENTPAGEHWND then answers null,
// the user has closed it, and its owner destroys it.
INT_PTR WINAPI PropertySheetW(LPCPROPSHEETHEADERW header);

WIN32HOST_END_C
#pragma GCC visibility pop

// ---- Notifications to pages ---------------------------------------------------------------------

#define PSN_FIRST (0U - 200U)
#define PSN_LAST (0U - 299U)

#define PSN_SETACTIVE (PSN_FIRST - 0)  // answers -1: the next page instead; or a dialog's number
#define PSN_KILLACTIVE (PSN_FIRST - 1) // answers TRUE: the page stays
#define PSN_APPLY (PSN_FIRST - 2)      // answers PSNRET_; lParam TRUE: with OK
#define PSN_RESET (PSN_FIRST - 3)      // lParam TRUE: closed without a button
#define PSN_HELP (PSN_FIRST - 5)
#define PSN_QUERYCANCEL (PSN_FIRST - 9) // answers TRUE: the sheet stays open

typedef struct PSHNOTIFY {
    NMHDR hdr;
    LPARAM lParam;
} PSHNOTIFY;
typedef PSHNOTIFY* LPPSHNOTIFY;

#define PSNRET_NOERROR 0
#define PSNRET_INVALID 1              // stays open, and goes to this page
#define PSNRET_INVALID_NOCHANGEPAGE 2 // stays open

// ---- Messages to sheets -------------------------------------------------------------------------

// Pages are given by position and handle, one of which may be missing: a position of -1 or a null
// handle.
#define PSM_SETCURSEL (WM_USER + 101)
#define PSM_REMOVEPAGE (WM_USER + 102)
#define PSM_ADDPAGE (WM_USER + 103)
#define PSM_CHANGED (WM_USER + 104) // by a page: Apply can be pressed
#define PSM_RESTARTWINDOWS (WM_USER + 105)
#define PSM_REBOOTSYSTEM (WM_USER + 106)
#define PSM_CANCELTOCLOSE (WM_USER + 107)
// Sent on to the pages made so far, up to the first that does not answer 0.
#define PSM_QUERYSIBLINGS (WM_USER + 108)
#define PSM_UNCHANGED (WM_USER + 109)
#define PSM_APPLY (WM_USER + 110)
#define PSM_PRESSBUTTON (WM_USER + 113)
#define PSM_SETCURSELID (WM_USER + 114)
#define PSM_GETTABCONTROL (WM_USER + 116)
#define PSM_ISDIALOGMESSAGE (WM_USER + 117)
#define PSM_GETCURRENTPAGEHWND (WM_USER + 118)
// The first parameter is the position that the page gets, or the page that it follows.
#define PSM_INSERTPAGE (WM_USER + 119)
#define PSM_SETTITLEW (WM_USER + 120)
#define PSM_HWNDTOINDEX (WM_USER + 129)
#define PSM_INDEXTOHWND (WM_USER + 130)
#define PSM_PAGETOINDEX (WM_USER + 131)
#define PSM_INDEXTOPAGE (WM_USER + 132)
#define PSM_IDTOINDEX (WM_USER + 133)
#define PSM_INDEXTOID (WM_USER + 134)
#define PSM_GETRESULT (WM_USER + 135)
#define PSM_RECALCPAGESIZES (WM_USER + 136)
#define PSM_SETTITLE PSM_SETTITLEW

// PSM_PRESSBUTTON.
#define PSBTN_OK 3
#define PSBTN_APPLYNOW 4
#define PSBTN_CANCEL 5
#define PSBTN_HELP 6

#define PropSheet_SetCurSel(sheet, page, position)                                                 \
    SendMessageW(sheet, PSM_SETCURSEL, (WPARAM)(position), (LPARAM)(page))
#define PropSheet_Changed(sheet, window) SendMessageW(sheet, PSM_CHANGED, (WPARAM)(window), 0)
#define PropSheet_UnChanged(sheet, window) SendMessageW(sheet, PSM_UNCHANGED, (WPARAM)(window), 0)
#define PropSheet_QuerySiblings(sheet, first, second)                                              \
    SendMessageW(sheet, PSM_QUERYSIBLINGS, (WPARAM)(first), (LPARAM)(second))
#define PropSheet_GetTabControl(sheet) ((HWND)SendMessageW(sheet, PSM_GETTABCONTROL, 0, 0))
#define PropSheet_GetCurrentPageHwnd(sheet)                                                        \
    ((HWND)SendMessageW(sheet, PSM_GETCURRENTPAGEHWND, 0, 0))
#define PropSheet_IsDialogMessage(sheet, message)                                                  \
    ((BOOL)SendMessageW(sheet, PSM_ISDIALOGMESSAGE, 0, (LPARAM)(message)))
#define PropSheet_PressButton(sheet, button)                                                       \
    PostMessageW(sheet, PSM_PRESSBUTTON, (WPARAM)(button), 0)
