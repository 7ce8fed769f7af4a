// Track bars: sliders with a thumb on a range of numbers.
#pragma once

#include <commctrl/notify.h>

#define TRACKBAR_CLASSW TEXT("msctls_trackbar32")
#define TRACKBAR_CLASS TRACKBAR_CLASSW

#define TBS_AUTOTICKS 0x0001
#define TBS_VERT 0x0002
#define TBS_HORZ 0x0000
#define TBS_TOP 0x0004 // the side of the ticks
#define TBS_BOTTOM 0x0000
#define TBS_LEFT 0x0004
#define TBS_RIGHT 0x0000
#define TBS_BOTH 0x0008
#define TBS_NOTICKS 0x0010
#define TBS_ENABLESELRANGE 0x0020
#define TBS_FIXEDLENGTH 0x0040
#define TBS_NOTHUMB 0x0080

// Messages that set take TRUE first to redraw. Positions out of the range are limited.
#define TBM_GETPOS (WM_USER)
#define TBM_GETRANGEMIN (WM_USER + 1)
#define TBM_GETRANGEMAX (WM_USER + 2)
#define TBM_GETTIC (WM_USER + 3) // the ticks between the ends, by number; -1 outside
#define TBM_SETTIC (WM_USER + 4)
#define TBM_SETPOS (WM_USER + 5)
#define TBM_SETRANGE (WM_USER + 6) // low word: the least, high word: the greatest
#define TBM_SETRANGEMIN (WM_USER + 7)
#define TBM_SETRANGEMAX (WM_USER + 8)
#define TBM_CLEARTICS (WM_USER + 9)
#define TBM_SETSEL (WM_USER + 10)
#define TBM_SETSELSTART (WM_USER + 11)
#define TBM_SETSELEND (WM_USER + 12)
#define TBM_GETNUMTICS (WM_USER + 16) // those at both ends count
#define TBM_GETSELSTART (WM_USER + 17)
#define TBM_GETSELEND (WM_USER + 18)
#define TBM_CLEARSEL (WM_USER + 19)
#define TBM_SETTICFREQ (WM_USER + 20) // with TBS_AUTOTICKS
#define TBM_SETPAGESIZE (WM_USER + 21)
#define TBM_GETPAGESIZE (WM_USER + 22) // a fifth of the range if it was not set
#define TBM_SETLINESIZE (WM_USER + 23)
#define TBM_GETLINESIZE (WM_USER + 24)
#define TBM_GETTHUMBRECT (WM_USER + 25)
#define TBM_GETCHANNELRECT (WM_USER + 26)
#define TBM_SETTHUMBLENGTH (WM_USER + 27)
#define TBM_GETTHUMBLENGTH (WM_USER + 28)
#define TBM_SETBUDDY (WM_USER + 32)
#define TBM_GETBUDDY (WM_USER + 33)

// The low word of WM_HSCROLL's and WM_VSCROLL's first parameter, when a person moves the thumb. The
// high word is the position for TB_THUMBPOSITION and TB_THUMBTRACK.
#define TB_LINEUP 0
#define TB_LINEDOWN 1
#define TB_PAGEUP 2
#define TB_PAGEDOWN 3
#define TB_THUMBPOSITION 4
#define TB_THUMBTRACK 5
#define TB_TOP 6
#define TB_BOTTOM 7
#define TB_ENDTRACK 8
