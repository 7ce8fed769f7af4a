// Up-down controls: two arrows that change a number, usually the one in an edit field, the buddy.
#pragma once

#include <commctrl/notify.h>

#define UPDOWN_CLASSW TEXT("msctls_updown32")
#define UPDOWN_CLASS UPDOWN_CLASSW

#define UDS_WRAP 0x0001
#define UDS_SETBUDDYINT 0x0002 // the number is written into the buddy and read from it
#define UDS_ALIGNRIGHT 0x0004  // stands at that edge of the buddy, which becomes narrower
#define UDS_ALIGNLEFT 0x0008
#define UDS_AUTOBUDDY 0x0010 // the buddy is the control before it
#define UDS_ARROWKEYS 0x0020 // the buddy's arrow keys count too
#define UDS_HORZ 0x0040      // arrows to the left and right
#define UDS_NOTHOUSANDS 0x0080
#define UDS_HOTTRACK 0x0100

#define UD_MAXVAL 0x7FFF
#define UD_MINVAL (-UD_MAXVAL)

typedef struct UDACCEL {
    UINT nSec; // after so many seconds an arrow that is held down
    UINT nInc; // moves by so much
} UDACCEL;
typedef UDACCEL* LPUDACCEL;

// The low word of a range is its upper end. An upper end below the lower one turns the direction.
// Positions out of the range are limited. UDM_GETPOS has 1 in its high word, and UDM_GETPOS32
// stores TRUE at its second parameter, if the buddy's text is not a number of the range.
#define UDM_SETRANGE (WM_USER + 101)
#define UDM_GETRANGE (WM_USER + 102)
#define UDM_SETPOS (WM_USER + 103)
#define UDM_GETPOS (WM_USER + 104)
#define UDM_SETBUDDY (WM_USER + 105)
#define UDM_GETBUDDY (WM_USER + 106)
#define UDM_SETACCEL (WM_USER + 107)
#define UDM_GETACCEL (WM_USER + 108)
#define UDM_SETBASE (WM_USER + 109) // 10 or 16
#define UDM_GETBASE (WM_USER + 110)
#define UDM_SETRANGE32 (WM_USER + 111)
#define UDM_GETRANGE32 (WM_USER + 112)
#define UDM_SETPOS32 (WM_USER + 113)
#define UDM_GETPOS32 (WM_USER + 114)

// The position is about to change by iDelta; an answer other than 0 leaves it. After it, and after
// a refusal as well, the parent gets WM_VSCROLL (WM_HSCROLL) with SB_THUMBPOSITION.
typedef struct NMUPDOWN {
    NMHDR hdr;
    int iPos;
    int iDelta;
} NMUPDOWN;
typedef NMUPDOWN* LPNMUPDOWN;
#define NM_UPDOWN NMUPDOWN
#define LPNM_UPDOWN LPNMUPDOWN
#define UDN_FIRST (0U - 721U)
#define UDN_DELTAPOS (UDN_FIRST - 1)

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// An up-down control with a buddy (or null), range and position. Null if it cannot be made.
HWND WINAPI CreateUpDownControl(DWORD style, int x, int y, int width, int height, HWND parent,
                                int id, HINSTANCE module, HWND buddy, int upper, int lower,
                                int position);

WIN32HOST_END_C
#pragma GCC visibility pop
