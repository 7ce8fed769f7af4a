// Progress bars.
#pragma once

#include <commctrl/notify.h>

#define PROGRESS_CLASSW TEXT("msctls_progress32")
#define PROGRESS_CLASS PROGRESS_CLASSW

#define PBS_SMOOTH 0x01
#define PBS_VERTICAL 0x04

typedef struct PBRANGE {
    int iLow;
    int iHigh;
} PBRANGE;
typedef PBRANGE* PPBRANGE;

// Those that set answer what was before: the position, the step, or for ranges the low words of
// both ends. Positions out of the range are limited; a step beyond its end starts again from the
// other end. PBM_GETRANGE answers the least for TRUE, the greatest for FALSE, and stores both.
#define PBM_SETRANGE (WM_USER + 1)
#define PBM_SETPOS (WM_USER + 2)
#define PBM_DELTAPOS (WM_USER + 3)
#define PBM_SETSTEP (WM_USER + 4)
#define PBM_STEPIT (WM_USER + 5)
#define PBM_SETRANGE32 (WM_USER + 6)
#define PBM_GETRANGE (WM_USER + 7)
#define PBM_GETPOS (WM_USER + 8)
