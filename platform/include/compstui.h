// The common property sheets of printers and how they call the function that adds a driver's pages.
#pragma once

#include <windef.h>

#include <winuser.h>

// Asks the property sheets `sheet` to do `function` (CPSFUNC_ numbers).
typedef LONG_PTR(CALLBACK* PFNCOMPROPSHEET)(HANDLE sheet, UINT function, LPARAM first,
                                            LPARAM second);

// Why a page function is called.
#define PROPSHEETUI_REASON_INIT 0
#define PROPSHEETUI_REASON_GET_INFO_HEADER 1
#define PROPSHEETUI_REASON_DESTROY 2
#define PROPSHEETUI_REASON_SET_RESULT 3
#define PROPSHEETUI_REASON_GET_ICON 4

#define PROPSHEETUI_INFO_VERSION 0x0100

// One use of a page function, from INIT to DESTROY.
typedef struct PROPSHEETUI_INFO {
    WORD cbSize;
    WORD Version;
    WORD Flags;
    WORD Reason;
    HANDLE hComPropSheet;
    PFNCOMPROPSHEET pfnComPropSheet;
    LPARAM lParamInit;
    ULONG_PTR UserData; // the page function's own
    ULONG_PTR Result;
} PROPSHEETUI_INFO;
typedef PROPSHEETUI_INFO* PPROPSHEETUI_INFO;

typedef LONG(CALLBACK* PFNPROPSHEETUI)(PPROPSHEETUI_INFO info, LPARAM parameter);

// Title and icon of the sheets, asked with GET_INFO_HEADER.
#define PSUIHDRF_OBSOLETE 0x0001
#define PSUIHDRF_NOAPPLYNOW 0x0002
#define PSUIHDRF_PROPTITLE 0x0004 // "... Properties" after the title
#define PSUIHDRF_USEHICON 0x0008
#define PSUIHDRF_DEFTITLE 0x0010
#define PSUIHDRF_EXACT_PTITLE 0x0020

typedef struct PROPSHEETUI_INFO_HEADER {
    WORD cbSize;
    WORD Flags; // PSUIHDRF_ bits
    LPWSTR pTitle;
    HWND hWndParent;
    HINSTANCE hInst;
    union {
        HICON hIcon;
        ULONG_PTR IconID;
    };
} PROPSHEETUI_INFO_HEADER;
typedef PROPSHEETUI_INFO_HEADER* PPROPSHEETUI_INFO_HEADER;

// What the user's answer was, given with SET_RESULT.
typedef struct SETRESULT_INFO {
    WORD cbSize;
    WORD wReserved;
    HANDLE hSetResult;
    LRESULT Result; // CPSUI_OK or CPSUI_CANCEL
} SETRESULT_INFO;
typedef SETRESULT_INFO* PSETRESULT_INFO;

// ---- What CommonPropertySheetUIW answers --------------------------------------------------------

#define CPSUI_CANCEL 0
#define CPSUI_OK 1
#define CPSUI_RESTARTWINDOWS 2
#define CPSUI_REBOOTSYSTEM 3

#define ERR_CPSUI_GETLASTERROR (-1)
#define ERR_CPSUI_ALLOCMEM_FAILED (-2)
#define ERR_CPSUI_INVALID_PDATA (-3)
#define ERR_CPSUI_NO_PROPSHEETPAGE (-8)
#define ERR_CPSUI_FUNCTION_NOT_IMPLEMENTED (-9999)

// ---- Functions of PFNCOMPROPSHEET ---------------------------------------------------------------

// Those that add answer a handle, or 0: of a page the HPROPSHEETPAGE, of a page function the handle
// that it is called with. The handle with which the functions are called names the page function
// that pages are added to.
#define CPSFUNC_ADD_HPROPSHEETPAGE 0   // HPROPSHEETPAGE
#define CPSFUNC_ADD_PROPSHEETPAGEW 1   // PROPSHEETPAGEW*
#define CPSFUNC_ADD_PFNPROPSHEETUIW 5  // PFNPROPSHEETUI, its lParamInit
#define CPSFUNC_DELETE_HCOMPROPSHEET 6 // handle
// A page, or 0 and a position or title, or a page function and a position among its pages.
#define CPSFUNC_SET_HSTARTPAGE 7
#define CPSFUNC_GET_PAGECOUNT 8            // of the whole sheet
#define CPSFUNC_SET_RESULT 9               // handle or 0, CPSUI_
#define CPSFUNC_GET_HPSUIPAGES 10          // HANDLE*, how many it has room for; of the whole sheet
#define CPSFUNC_LOAD_CPSUI_STRINGW 12      // LPWSTR, MAKELONG(units, IDS_CPSUI_)
#define CPSFUNC_GET_PFNPROPSHEETUI_ICON 14 // handle, MAKELONG(width, height)
#define CPSFUNC_INSERT_PSUIPAGEW 17        // where, INSERTPSUIPAGE_INFO*
#define CPSFUNC_SET_PSUIPAGE_TITLEW 19     // page, LPCWSTR
#define CPSFUNC_SET_DATABLOCK 21           // CPSUIDATABLOCK*
#define CPSFUNC_QUERY_DATABLOCK 22         // CPSUIDATABLOCK*
#define CPSFUNC_IGNORE_CPSUI_PSN_APPLY 24  // BOOL

// INSERTPSUIPAGE_INFO::Type and what dwData1 to dwData3 then are.
#define PSUIPAGEINSERT_GROUP_PARENT 0
#define PSUIPAGEINSERT_PFNPROPSHEETUI 2 // PFNPROPSHEETUI, its lParamInit
#define PSUIPAGEINSERT_PROPSHEETPAGE 3  // PROPSHEETPAGEW*
#define PSUIPAGEINSERT_HPROPSHEETPAGE 4 // HPROPSHEETPAGE
#define PSUIPAGEINSERT_DLL 5            // LPCWSTR file, LPCSTR function, its lParamInit

// INSERTPSUIPAGE_INFO::Mode and what the place then is. Without a place the calling page function's
// own pages are meant.
#define INSPSUIPAGE_MODE_BEFORE 0      // a page or page function
#define INSPSUIPAGE_MODE_AFTER 1       // a page or page function
#define INSPSUIPAGE_MODE_FIRST_CHILD 2 // a page function
#define INSPSUIPAGE_MODE_LAST_CHILD 3  // a page function
#define INSPSUIPAGE_MODE_INDEX 4       // HINSPSUIPAGE_INDEX

#define HINSPSUIPAGE_FIRST ((HANDLE)(ULONG_PTR)0xFFFFFFFE)
#define HINSPSUIPAGE_LAST ((HANDLE)(ULONG_PTR)0xFFFFFFFF)
#define HINSPSUIPAGE_INDEX(position) ((HANDLE)(ULONG_PTR)MAKELONG(position, 0))

typedef struct INSERTPSUIPAGE_INFO {
    WORD cbSize;
    BYTE Type;
    BYTE Mode;
    ULONG_PTR dwData1;
    ULONG_PTR dwData2;
    ULONG_PTR dwData3;
} INSERTPSUIPAGE_INFO;
typedef INSERTPSUIPAGE_INFO* PINSERTPSUIPAGE_INFO;

// Asked with GET_ICON.
typedef struct PROPSHEETUI_GETICON_INFO {
    WORD cbSize;
    WORD Flags;
    WORD cxIcon;
    WORD cyIcon;
    HICON hIcon;
} PROPSHEETUI_GETICON_INFO;
typedef PROPSHEETUI_GETICON_INFO* PPROPSHEETUI_GETICON_INFO;

// Data that a page function keeps with the sheet.
typedef struct CPSUIDATABLOCK {
    DWORD cbData;
    LPBYTE pbData;
} CPSUIDATABLOCK;
typedef CPSUIDATABLOCK* PCPSUIDATABLOCK;

#define IDS_CPSUI_STRID_FIRST 64700
#define IDS_CPSUI_STRID_LAST 64873

// Of compstui.dll, which programs link with or load.
WIN32HOST_BEGIN_C

// Asks `function` for pages, shows them in a sheet, and lets it free what it has. `result` receives
// what the function made of the user's answer (CPSUI_). 1, or an error (ERR_CPSUI_).
LONG APIENTRY CommonPropertySheetUIW(HWND owner, PFNPROPSHEETUI function, LPARAM parameter,
                                     LPDWORD result);
// A value that a page keeps with its window.
ULONG_PTR APIENTRY GetCPSUIUserData(HWND page);
BOOL APIENTRY SetCPSUIUserData(HWND page, ULONG_PTR data);

WIN32HOST_END_C
