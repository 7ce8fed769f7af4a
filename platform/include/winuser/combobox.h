// Combo boxes: an edit field or a text, with a list that is always there (CBS_SIMPLE) or drops
// down.
#pragma once

#include <winuser/owner_draw.h>
#include <winuser/window.h>

#define CBS_SIMPLE 0x0001
#define CBS_DROPDOWN 0x0002
#define CBS_DROPDOWNLIST 0x0003
#define CBS_OWNERDRAWFIXED 0x0010
#define CBS_OWNERDRAWVARIABLE 0x0020
#define CBS_AUTOHSCROLL 0x0040
#define CBS_SORT 0x0100
#define CBS_HASSTRINGS 0x0200
#define CBS_NOINTEGRALHEIGHT 0x0400
#define CBS_DISABLENOSCROLL 0x0800
#define CBS_UPPERCASE 0x2000
#define CBS_LOWERCASE 0x4000

#define CB_OKAY 0
#define CB_ERR (-1)
#define CB_ERRSPACE (-2)

// Sent with WM_COMMAND to the parent, for what the user does only. Dropping down and closing are
// also told of when the program does it.
#define CBN_ERRSPACE (-1)
#define CBN_SELCHANGE 1
#define CBN_DBLCLK 2
#define CBN_SETFOCUS 3
#define CBN_KILLFOCUS 4
#define CBN_EDITCHANGE 5
#define CBN_EDITUPDATE 6
#define CBN_DROPDOWN 7
#define CBN_CLOSEUP 8
#define CBN_SELENDOK 9
#define CBN_SELENDCANCEL 10

#define CB_GETEDITSEL 0x0140
#define CB_LIMITTEXT 0x0141
#define CB_SETEDITSEL 0x0142
#define CB_ADDSTRING 0x0143
#define CB_DELETESTRING 0x0144
#define CB_GETCOUNT 0x0146
#define CB_GETCURSEL 0x0147
#define CB_GETLBTEXT 0x0148
#define CB_GETLBTEXTLEN 0x0149
#define CB_INSERTSTRING 0x014A
#define CB_RESETCONTENT 0x014B
#define CB_FINDSTRING 0x014C
#define CB_SELECTSTRING 0x014D
#define CB_SETCURSEL 0x014E
#define CB_SHOWDROPDOWN 0x014F
#define CB_GETITEMDATA 0x0150
#define CB_SETITEMDATA 0x0151
#define CB_GETDROPPEDCONTROLRECT 0x0152
#define CB_SETITEMHEIGHT 0x0153
#define CB_GETITEMHEIGHT 0x0154
#define CB_SETEXTENDEDUI 0x0155
#define CB_GETEXTENDEDUI 0x0156
#define CB_GETDROPPEDSTATE 0x0157
#define CB_FINDSTRINGEXACT 0x0158
#define CB_GETTOPINDEX 0x015B
#define CB_SETTOPINDEX 0x015C
#define CB_GETHORIZONTALEXTENT 0x015D
#define CB_SETHORIZONTALEXTENT 0x015E
#define CB_GETDROPPEDWIDTH 0x015F
#define CB_SETDROPPEDWIDTH 0x0160
#define CB_INITSTORAGE 0x0161
#define CB_GETCOMBOBOXINFO 0x0164

// COMBOBOXINFO.stateButton, besides 0: not pressed.
#define STATE_SYSTEM_PRESSED 0x00000008
#define STATE_SYSTEM_INVISIBLE 0x00008000

typedef struct COMBOBOXINFO {
    DWORD cbSize;
    RECT rcItem; // the edit field or text, in the combo box
    RECT rcButton;
    DWORD stateButton;
    HWND hwndCombo;
    HWND hwndItem; // the edit field, or the combo box itself
    HWND hwndList;
} COMBOBOXINFO;
typedef COMBOBOXINFO* PCOMBOBOXINFO;
typedef COMBOBOXINFO* LPCOMBOBOXINFO;

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// FALSE if it is no combo box, or `cbSize` is not set.
BOOL WINAPI GetComboBoxInfo(HWND combo, PCOMBOBOXINFO info);

WIN32HOST_END_C
#pragma GCC visibility pop
