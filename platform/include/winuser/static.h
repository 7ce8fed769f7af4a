// Static controls: labels, lines, frames and pictures.
#pragma once

#include <winuser/drawing.h> // IMAGE_
#include <winuser/window.h>

// The kinds; SS_USERITEM and SS_ENHMETAFILE show nothing here.
#define SS_LEFT 0x00000000
#define SS_CENTER 0x00000001
#define SS_RIGHT 0x00000002
#define SS_ICON 0x00000003
#define SS_BLACKRECT 0x00000004
#define SS_GRAYRECT 0x00000005
#define SS_WHITERECT 0x00000006
#define SS_BLACKFRAME 0x00000007
#define SS_GRAYFRAME 0x00000008
#define SS_WHITEFRAME 0x00000009
#define SS_USERITEM 0x0000000A
#define SS_SIMPLE 0x0000000B
#define SS_LEFTNOWORDWRAP 0x0000000C
#define SS_OWNERDRAW 0x0000000D
#define SS_BITMAP 0x0000000E
#define SS_ENHMETAFILE 0x0000000F
#define SS_ETCHEDHORZ 0x00000010
#define SS_ETCHEDVERT 0x00000011
#define SS_ETCHEDFRAME 0x00000012
#define SS_TYPEMASK 0x0000001F

#define SS_REALSIZECONTROL 0x00000040 // the picture takes the control's size
#define SS_NOPREFIX 0x00000080        // "&" is a character like others
#define SS_NOTIFY 0x00000100          // tells of clicks; without it the mouse passes through
#define SS_CENTERIMAGE 0x00000200     // the control keeps its size, what it shows is centred
#define SS_RIGHTJUST 0x00000400
#define SS_REALSIZEIMAGE 0x00000800 // pictures are not stretched
#define SS_SUNKEN 0x00001000
#define SS_EDITCONTROL 0x00002000
#define SS_ENDELLIPSIS 0x00004000
#define SS_PATHELLIPSIS 0x00008000
#define SS_WORDELLIPSIS 0x0000C000
#define SS_ELLIPSISMASK 0x0000C000

// Setting answers the picture before it. Pictures belong to those who set them; one that comes from
// the dialog template belongs to the control. 0 if the control does not show pictures of this kind.
#define STM_SETICON 0x0170
#define STM_GETICON 0x0171
#define STM_SETIMAGE 0x0172
#define STM_GETIMAGE 0x0173

#define STN_CLICKED 0
#define STN_DBLCLK 1
#define STN_ENABLE 2
#define STN_DISABLE 3
