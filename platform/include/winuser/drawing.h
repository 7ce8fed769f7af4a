// Drawing for windows and controls.
#pragma once

#include <windef.h>
#include <winuser/resources.h>

// DrawTextW.
#define DT_TOP 0x00000000
#define DT_LEFT 0x00000000
#define DT_CENTER 0x00000001
#define DT_RIGHT 0x00000002
#define DT_VCENTER 0x00000004 // of a single line
#define DT_BOTTOM 0x00000008  // of a single line
#define DT_WORDBREAK 0x00000010
#define DT_SINGLELINE 0x00000020
#define DT_EXPANDTABS 0x00000040 // tabs are 8 average characters apart
#define DT_TABSTOP 0x00000080    // or as many as the second byte of the format says
#define DT_NOCLIP 0x00000100
#define DT_EXTERNALLEADING 0x00000200
#define DT_CALCRECT 0x00000400 // only sets the rectangle to what the text takes
#define DT_NOPREFIX 0x00000800 // '&' is a character like others
#define DT_EDITCONTROL 0x00002000
#define DT_PATH_ELLIPSIS 0x00004000 // the middle of a path is left out if it is too long
#define DT_END_ELLIPSIS 0x00008000  // the end of a line is
#define DT_WORD_ELLIPSIS 0x00040000 // the end of each line is
#define DT_HIDEPREFIX 0x00100000    // '&' is left out, and no line is drawn below the next one
#define DT_PREFIXONLY 0x00200000

// DrawEdge.
#define BDR_RAISEDOUTER 0x0001
#define BDR_SUNKENOUTER 0x0002
#define BDR_RAISEDINNER 0x0004
#define BDR_SUNKENINNER 0x0008
#define EDGE_RAISED (BDR_RAISEDOUTER | BDR_RAISEDINNER)
#define EDGE_SUNKEN (BDR_SUNKENOUTER | BDR_SUNKENINNER)
#define EDGE_ETCHED (BDR_SUNKENOUTER | BDR_RAISEDINNER)
#define EDGE_BUMP (BDR_RAISEDOUTER | BDR_SUNKENINNER)
#define BF_LEFT 0x0001
#define BF_TOP 0x0002
#define BF_RIGHT 0x0004
#define BF_BOTTOM 0x0008
#define BF_RECT (BF_LEFT | BF_TOP | BF_RIGHT | BF_BOTTOM)
#define BF_MIDDLE 0x0800
#define BF_SOFT 0x1000
#define BF_ADJUST 0x2000 // the rectangle becomes what is inside
#define BF_FLAT 0x4000
#define BF_MONO 0x8000

// DrawFrameControl.
#define DFC_CAPTION 1
#define DFC_MENU 2
#define DFC_SCROLL 3
#define DFC_BUTTON 4
#define DFCS_SCROLLUP 0x0000
#define DFCS_SCROLLDOWN 0x0001
#define DFCS_SCROLLLEFT 0x0002
#define DFCS_SCROLLRIGHT 0x0003
#define DFCS_SCROLLCOMBOBOX 0x0005
#define DFCS_BUTTONCHECK 0x0000
#define DFCS_BUTTONRADIO 0x0004
#define DFCS_BUTTON3STATE 0x0008
#define DFCS_BUTTONPUSH 0x0010
#define DFCS_INACTIVE 0x0100
#define DFCS_PUSHED 0x0200
#define DFCS_CHECKED 0x0400
#define DFCS_ADJUSTRECT 0x2000
#define DFCS_FLAT 0x4000
#define DFCS_MONO 0x8000

// LoadImageW.
#define IMAGE_BITMAP 0
#define IMAGE_ICON 1
#define IMAGE_CURSOR 2
#define LR_DEFAULTCOLOR 0x0000
#define LR_MONOCHROME 0x0001
#define LR_LOADFROMFILE 0x0010
#define LR_LOADTRANSPARENT 0x0020
#define LR_DEFAULTSIZE 0x0040
#define LR_LOADMAP3DCOLORS 0x1000
#define LR_CREATEDIBSECTION 0x2000
#define LR_SHARED 0x8000

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// ---- Rectangles ---------------------------------------------------------------------------------

// The number of a system colour plus 1 does for a brush.
int WINAPI FillRect(HDC dc, const RECT* rect, HBRUSH brush);
// A border one pixel wide.
int WINAPI FrameRect(HDC dc, const RECT* rect, HBRUSH brush);
BOOL WINAPI InvertRect(HDC dc, const RECT* rect);
// Every second pixel of the border, inverted: drawn twice it is gone.
BOOL WINAPI DrawFocusRect(HDC dc, const RECT* rect);
// In the flat look of this host.
BOOL WINAPI DrawEdge(HDC dc, LPRECT rect, UINT edge, UINT flags);
BOOL WINAPI DrawFrameControl(HDC dc, LPRECT rect, UINT type, UINT state);

// ---- Text ---------------------------------------------------------------------------------------

// Draws text in a rectangle, in lines; `length` -1 is up to the terminator. '&' marks an access
// key,
// "&&" is one '&'. Answers the height of the text; 0 on failure.
int WINAPI DrawTextW(HDC dc, LPCWSTR text, int length, LPRECT rect, UINT format);

// ---- Bitmaps ------------------------------------------------------------------------------------

// A bitmap resource in the colours of the screen. Null if there is none.
HBITMAP WINAPI LoadBitmapW(HINSTANCE module, LPCWSTR name);
// A bitmap from a resource or a .bmp file. A width or height of 0 is the bitmap's own; otherwise it
// is scaled. With LR_CREATEDIBSECTION it keeps its colours. Icons and cursors are answered by
// LoadIconW and LoadCursorW.
HANDLE WINAPI LoadImageW(HINSTANCE module, LPCWSTR name, UINT type, int width, int height,
                         UINT flags);

WIN32HOST_END_C
#pragma GCC visibility pop
