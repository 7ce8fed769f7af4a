// What common controls share: their classes and the notifications that all of them send.
#pragma once

#include <winuser/window.h>

// Codes of NMHDR. Each kind of control has a range of its own.
#define NM_FIRST (0U - 0U)
#define LVN_FIRST (0U - 100U)
#define HDN_FIRST (0U - 300U)
#define TCN_FIRST (0U - 550U)

#define NM_OUTOFMEMORY (NM_FIRST - 1)
#define NM_CLICK (NM_FIRST - 2)
#define NM_DBLCLK (NM_FIRST - 3)
#define NM_RETURN (NM_FIRST - 4)
#define NM_RCLICK (NM_FIRST - 5)
#define NM_RDBLCLK (NM_FIRST - 6)
#define NM_SETFOCUS (NM_FIRST - 7)
#define NM_KILLFOCUS (NM_FIRST - 8)
#define NM_CUSTOMDRAW (NM_FIRST - 12)
#define NM_RELEASEDCAPTURE (NM_FIRST - 16)

#define CCM_FIRST 0x2000
#define CCM_SETUNICODEFORMAT (CCM_FIRST + 5)
#define CCM_GETUNICODEFORMAT (CCM_FIRST + 6)

// Styles of all common controls.
#define CCS_TOP 0x0001
#define CCS_NOMOVEY 0x0002
#define CCS_BOTTOM 0x0003
#define CCS_NORESIZE 0x0004
#define CCS_NOPARENTALIGN 0x0008

// In place of a text: the parent is asked for it whenever it is needed.
#define LPSTR_TEXTCALLBACKW ((LPWSTR)(INT_PTR)(-1))

// INITCOMMONCONTROLSEX.dwICC.
#define ICC_LISTVIEW_CLASSES 0x0001
#define ICC_TREEVIEW_CLASSES 0x0002
#define ICC_BAR_CLASSES 0x0004
#define ICC_TAB_CLASSES 0x0008
#define ICC_UPDOWN_CLASS 0x0010
#define ICC_PROGRESS_CLASS 0x0020
#define ICC_WIN95_CLASSES 0x00FF
#define ICC_STANDARD_CLASSES 0x4000

typedef struct INITCOMMONCONTROLSEX {
    DWORD dwSize;
    DWORD dwICC;
} INITCOMMONCONTROLSEX;
typedef INITCOMMONCONTROLSEX* LPINITCOMMONCONTROLSEX;

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// The classes of all controls exist from the start; these only check what they are given. FALSE for
// a null pointer or another size.
BOOL WINAPI InitCommonControlsEx(const INITCOMMONCONTROLSEX* wanted);
void WINAPI InitCommonControls();

// Sends a message whose answer is an int, which may be ignored. For the macros of controls.
static inline int SendControlMessage(HWND control, UINT message, WPARAM first, LPARAM second) {
    return (int)SendMessageW(control, message, first, second); // NOLINT
}

WIN32HOST_END_C
#pragma GCC visibility pop
