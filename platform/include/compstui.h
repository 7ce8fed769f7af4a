// The common property sheets of printers and how they call the function that adds a driver's pages.
#pragma once

#include <windef.h>

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

#define CPSUI_CANCEL 0
#define CPSUI_OK 1

#define CPSFUNC_ADD_HPROPSHEETPAGE 0
#define CPSFUNC_GET_PAGECOUNT 8
#define CPSFUNC_SET_RESULT 9
#define CPSFUNC_GET_HPSUIPAGES 10
