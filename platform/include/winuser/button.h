// Buttons: push buttons, check boxes, radio buttons and group boxes.
#pragma once

#include <winuser/window.h>

// The kinds. Those with AUTO change their state when they are clicked.
#define BS_PUSHBUTTON 0x00000000
#define BS_DEFPUSHBUTTON 0x00000001
#define BS_CHECKBOX 0x00000002
#define BS_AUTOCHECKBOX 0x00000003
#define BS_RADIOBUTTON 0x00000004
#define BS_3STATE 0x00000005
#define BS_AUTO3STATE 0x00000006
#define BS_GROUPBOX 0x00000007
#define BS_USERBUTTON 0x00000008
#define BS_AUTORADIOBUTTON 0x00000009
#define BS_OWNERDRAW 0x0000000B
#define BS_TYPEMASK 0x0000000F

#define BS_LEFTTEXT 0x00000020 // the mark is at the right
#define BS_RIGHTBUTTON BS_LEFTTEXT
#define BS_TEXT 0x00000000
#define BS_ICON 0x00000040
#define BS_BITMAP 0x00000080
#define BS_LEFT 0x00000100
#define BS_RIGHT 0x00000200
#define BS_CENTER 0x00000300
#define BS_TOP 0x00000400
#define BS_BOTTOM 0x00000800
#define BS_VCENTER 0x00000C00
#define BS_PUSHLIKE 0x00001000  // a check box or radio button that looks like a push button
#define BS_MULTILINE 0x00002000 // the text is broken into lines
#define BS_NOTIFY 0x00004000    // tells of double clicks and of the focus too
#define BS_FLAT 0x00008000

// Notifications by WM_COMMAND.
#define BN_CLICKED 0
#define BN_DISABLE 4
#define BN_DOUBLECLICKED 5
#define BN_DBLCLK BN_DOUBLECLICKED
#define BN_SETFOCUS 6
#define BN_KILLFOCUS 7

#define BST_UNCHECKED 0x0000
#define BST_CHECKED 0x0001
#define BST_INDETERMINATE 0x0002
#define BST_PUSHED 0x0004
#define BST_FOCUS 0x0008

// BM_SETCHECK changes nothing for push buttons and group boxes. BM_SETSTYLE takes the low word of
// the new style, and redraws if the second parameter is not 0. BM_CLICK does what a click does.
// BM_SETIMAGE answers the picture before it; pictures belong to those who set them.
#define BM_GETCHECK 0x00F0
#define BM_SETCHECK 0x00F1
#define BM_GETSTATE 0x00F2
#define BM_SETSTATE 0x00F3
#define BM_SETSTYLE 0x00F4
#define BM_CLICK 0x00F5
#define BM_GETIMAGE 0x00F6
#define BM_SETIMAGE 0x00F7

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// A button's BST_ state by its identifier in a dialog; 0 if there is no such control.
UINT WINAPI IsDlgButtonChecked(HWND dialog, int id);
BOOL WINAPI CheckDlgButton(HWND dialog, int id, UINT check);
// Checks one radio button and takes the check from all other buttons with identifiers from `first`
// to `last`.
BOOL WINAPI CheckRadioButton(HWND dialog, int first, int last, int check);

WIN32HOST_END_C
#pragma GCC visibility pop
