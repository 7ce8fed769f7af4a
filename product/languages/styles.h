// The styles of dialogs and controls that the language libraries use, with the system's names and
// values. The resource compiler reads only definitions.
#pragma once

#define IDOK 1
#define IDCANCEL 2
#define IDHELP 9
// Of texts, frames and labels that no page addresses.
#define NO_ID -1

#define WS_POPUP 0x80000000
#define WS_CHILD 0x40000000
#define WS_VISIBLE 0x10000000
#define WS_CLIPSIBLINGS 0x04000000
#define WS_CAPTION 0x00C00000
#define WS_BORDER 0x00800000
#define WS_VSCROLL 0x00200000
#define WS_SYSMENU 0x00080000
#define WS_GROUP 0x00020000
#define WS_TABSTOP 0x00010000


#define DS_FIXEDSYS 0x0008
#define DS_SETFONT 0x0040
#define DS_MODALFRAME 0x0080
#define DS_CONTROL 0x0400

// A page of a property sheet, and a dialog.
#define PAGE_STYLE (DS_SETFONT | DS_FIXEDSYS | WS_CHILD | WS_CAPTION)
#define DIALOG_STYLE                                                                               \
    (DS_SETFONT | DS_FIXEDSYS | DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU)

// A page inside a dialog, with a title.
#define OPTIONS_STYLE (DS_SETFONT | DS_FIXEDSYS | DS_CONTROL | WS_CHILD | WS_CAPTION)

#define SS_NOPREFIX 0x0080

#define BS_AUTOCHECKBOX 0x0003
#define BS_AUTORADIOBUTTON 0x0009
#define BS_OWNERDRAW 0x000B

#define ES_MULTILINE 0x0004
#define ES_AUTOVSCROLL 0x0040
#define ES_AUTOHSCROLL 0x0080
#define ES_READONLY 0x0800
#define ES_WANTRETURN 0x1000

#define CBS_SIMPLE 0x0001
#define CBS_DROPDOWNLIST 0x0003
#define CBS_OWNERDRAWFIXED 0x0010
#define CBS_AUTOHSCROLL 0x0040
#define CBS_SORT 0x0100
#define CBS_HASSTRINGS 0x0200
#define CBS_DISABLENOSCROLL 0x0800

#define LBS_NOTIFY 0x0001
#define LBS_NOINTEGRALHEIGHT 0x0100
#define LBS_EXTENDEDSEL 0x0800

#define LVS_REPORT 0x0001
#define LVS_SINGLESEL 0x0004
#define LVS_SHOWSELALWAYS 0x0008

#define TBS_AUTOTICKS 0x0001

#define UDS_SETBUDDYINT 0x0002
#define UDS_ALIGNRIGHT 0x0004
#define UDS_AUTOBUDDY 0x0010
#define UDS_ARROWKEYS 0x0020
#define UDS_NOTHOUSANDS 0x0080

// Lists that drop down, of fixed items.
#define LIST (CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP)
