// Scroll bars: those of windows with WS_VSCROLL or WS_HSCROLL, and scroll bar controls.
#pragma once

#include <winuser/window.h>

#define SB_HORZ 0
#define SB_VERT 1
#define SB_CTL 2
#define SB_BOTH 3

// The low word of WM_HSCROLL's and WM_VSCROLL's first parameter. The high word is the position for
// SB_THUMBPOSITION and SB_THUMBTRACK.
#define SB_LINEUP 0
#define SB_LINELEFT 0
#define SB_LINEDOWN 1
#define SB_LINERIGHT 1
#define SB_PAGEUP 2
#define SB_PAGELEFT 2
#define SB_PAGEDOWN 3
#define SB_PAGERIGHT 3
#define SB_THUMBPOSITION 4
#define SB_THUMBTRACK 5
#define SB_TOP 6
#define SB_LEFT 6
#define SB_BOTTOM 7
#define SB_RIGHT 7
#define SB_ENDSCROLL 8

#define SIF_RANGE 0x0001
#define SIF_PAGE 0x0002
#define SIF_POS 0x0004
#define SIF_DISABLENOSCROLL 0x0008
#define SIF_TRACKPOS 0x0010
#define SIF_ALL (SIF_RANGE | SIF_PAGE | SIF_POS | SIF_TRACKPOS)

#define ESB_ENABLE_BOTH 0x0000
#define ESB_DISABLE_BOTH 0x0003

#define SBS_HORZ 0x0000
#define SBS_VERT 0x0001

#define SBM_SETPOS 0x00E0
#define SBM_GETPOS 0x00E1
#define SBM_SETRANGE 0x00E2
#define SBM_GETRANGE 0x00E3
#define SBM_ENABLE_ARROWS 0x00E4
#define SBM_SETRANGEREDRAW 0x00E6
#define SBM_SETSCROLLINFO 0x00E9
#define SBM_GETSCROLLINFO 0x00EA

// Positions go from nMin to nMax - nPage + 1, or to nMax without a page.
typedef struct SCROLLINFO {
    UINT cbSize;
    UINT fMask; // SIF_ bits
    int nMin;
    int nMax;
    UINT nPage;
    int nPos;
    int nTrackPos;
} SCROLLINFO;
typedef SCROLLINFO* LPSCROLLINFO;
typedef const SCROLLINFO* LPCSCROLLINFO;

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// `bar`: SB_HORZ or SB_VERT of the window itself, SB_CTL of a scroll bar control. A window's own
// bar is hidden when its range fits into its page, and shown when it does not; with
// SIF_DISABLENOSCROLL it is disabled in place of that. Answers the position.
int WINAPI SetScrollInfo(HWND window, int bar, LPCSCROLLINFO info, BOOL redraw);
// FALSE with ERROR_NO_SCROLLBARS if the window never had that bar.
BOOL WINAPI GetScrollInfo(HWND window, int bar, LPSCROLLINFO info);
int WINAPI SetScrollPos(HWND window, int bar, int position, BOOL redraw); // answers the old one
int WINAPI GetScrollPos(HWND window, int bar);
BOOL WINAPI SetScrollRange(HWND window, int bar, int least, int most, BOOL redraw);
BOOL WINAPI GetScrollRange(HWND window, int bar, LPINT least, LPINT most);
BOOL WINAPI ShowScrollBar(HWND window, int bar, BOOL show);
// `arrows`: ESB_ENABLE_BOTH or ESB_DISABLE_BOTH.
BOOL WINAPI EnableScrollBar(HWND window, UINT bar, UINT arrows);

WIN32HOST_END_C
#pragma GCC visibility pop
