// Edit fields, of one line or several. Positions count UTF-16 units from 0; lines end with "\r\n".
#pragma once

#include <winuser/window.h>

#define ES_LEFT 0x0000
#define ES_CENTER 0x0001
#define ES_RIGHT 0x0002
#define ES_MULTILINE 0x0004
#define ES_UPPERCASE 0x0008
#define ES_LOWERCASE 0x0010
#define ES_PASSWORD 0x0020
#define ES_AUTOVSCROLL 0x0040
#define ES_AUTOHSCROLL 0x0080 // without it, a line holds what is visible; several lines are wrapped
#define ES_NOHIDESEL 0x0100
#define ES_OEMCONVERT 0x0400
#define ES_READONLY 0x0800
#define ES_WANTRETURN 0x1000 // Enter starts a line, also in a dialog
#define ES_NUMBER 0x2000     // only digits can be typed

// Notifications by WM_COMMAND. EN_UPDATE and EN_CHANGE come when the text changes, also when a
// program sets it, but not when WM_SETTEXT reaches a field of several lines. EN_MAXTEXT comes when
// text is cut because of the limit.
#define EN_SETFOCUS 0x0100
#define EN_KILLFOCUS 0x0200
#define EN_CHANGE 0x0300
#define EN_UPDATE 0x0400
#define EN_ERRSPACE 0x0500
#define EN_MAXTEXT 0x0501
#define EN_HSCROLL 0x0601
#define EN_VSCROLL 0x0602

// EM_SETMARGINS: which ones, in pixels.
#define EC_LEFTMARGIN 0x0001
#define EC_RIGHTMARGIN 0x0002
#define EC_USEFONTINFO 0xFFFF

#define EM_GETSEL 0x00B0
#define EM_SETSEL 0x00B1 // 0, -1: everything; -1: nothing
#define EM_GETRECT 0x00B2
#define EM_SETRECT 0x00B3
#define EM_SETRECTNP 0x00B4
#define EM_SCROLL 0x00B5
#define EM_LINESCROLL 0x00B6
#define EM_SCROLLCARET 0x00B7
#define EM_GETMODIFY 0x00B8
#define EM_SETMODIFY 0x00B9
#define EM_GETLINECOUNT 0x00BA
#define EM_LINEINDEX 0x00BB
#define EM_LINELENGTH 0x00C1
#define EM_REPLACESEL 0x00C2
#define EM_GETLINE 0x00C4 // the buffer's first unit is its size; no terminator is stored
#define EM_LIMITTEXT 0x00C5
#define EM_SETLIMITTEXT EM_LIMITTEXT
#define EM_CANUNDO 0x00C6
#define EM_UNDO 0x00C7
#define EM_LINEFROMCHAR 0x00C9
#define EM_SETTABSTOPS 0x00CB // in dialog units
#define EM_SETPASSWORDCHAR 0x00CC
#define EM_EMPTYUNDOBUFFER 0x00CD
#define EM_GETFIRSTVISIBLELINE 0x00CE
#define EM_SETREADONLY 0x00CF
#define EM_GETPASSWORDCHAR 0x00D2
#define EM_SETMARGINS 0x00D3
#define EM_GETMARGINS 0x00D4
#define EM_GETLIMITTEXT 0x00D5
#define EM_POSFROMCHAR 0x00D6
#define EM_CHARFROMPOS 0x00D7
