// Tab controls.
#pragma once

#include <commctrl/notify.h>

#define WC_TABCONTROLW TEXT("SysTabControl32")
#define WC_TABCONTROL WC_TABCONTROLW

#define TCS_SCROLLOPPOSITE 0x0001
#define TCS_BOTTOM 0x0002
#define TCS_RIGHT 0x0002
#define TCS_MULTISELECT 0x0004
#define TCS_FLATBUTTONS 0x0008
#define TCS_FORCEICONLEFT 0x0010
#define TCS_FORCELABELLEFT 0x0020
#define TCS_HOTTRACK 0x0040
#define TCS_VERTICAL 0x0080
#define TCS_TABS 0x0000
#define TCS_BUTTONS 0x0100
#define TCS_SINGLELINE 0x0000
#define TCS_MULTILINE 0x0200
#define TCS_RIGHTJUSTIFY 0x0000
#define TCS_FIXEDWIDTH 0x0400
#define TCS_RAGGEDRIGHT 0x0800
#define TCS_FOCUSONBUTTONDOWN 0x1000
#define TCS_OWNERDRAWFIXED 0x2000
#define TCS_TOOLTIPS 0x4000
#define TCS_FOCUSNEVER 0x8000

#define TCM_FIRST 0x1300
#define TCM_GETITEMCOUNT (TCM_FIRST + 4)
#define TCM_DELETEITEM (TCM_FIRST + 8)
#define TCM_DELETEALLITEMS (TCM_FIRST + 9)
#define TCM_GETITEMRECT (TCM_FIRST + 10)
#define TCM_GETCURSEL (TCM_FIRST + 11)
#define TCM_SETCURSEL (TCM_FIRST + 12)
#define TCM_HITTEST (TCM_FIRST + 13)
#define TCM_ADJUSTRECT (TCM_FIRST + 40)
#define TCM_SETITEMSIZE (TCM_FIRST + 41)
#define TCM_SETPADDING (TCM_FIRST + 43)
#define TCM_GETROWCOUNT (TCM_FIRST + 44)
#define TCM_GETCURFOCUS (TCM_FIRST + 47)
#define TCM_SETCURFOCUS (TCM_FIRST + 48)
#define TCM_SETMINTABWIDTH (TCM_FIRST + 49)
#define TCM_GETITEMW (TCM_FIRST + 60)
#define TCM_SETITEMW (TCM_FIRST + 61)
#define TCM_INSERTITEMW (TCM_FIRST + 62)
#define TCM_GETITEM TCM_GETITEMW
#define TCM_SETITEM TCM_SETITEMW
#define TCM_INSERTITEM TCM_INSERTITEMW

#define TCN_KEYDOWN (TCN_FIRST - 0)
#define TCN_SELCHANGE (TCN_FIRST - 1)
#define TCN_SELCHANGING (TCN_FIRST - 2) // answering TRUE keeps the selection
#define TCN_FOCUSCHANGE (TCN_FIRST - 4)

#define TCIF_TEXT 0x0001
#define TCIF_IMAGE 0x0002
#define TCIF_PARAM 0x0008
#define TCIF_STATE 0x0010

#define TCIS_BUTTONPRESSED 0x0001
#define TCIS_HIGHLIGHTED 0x0002

#define TCHT_NOWHERE 0x0001
#define TCHT_ONITEMICON 0x0002
#define TCHT_ONITEMLABEL 0x0004
#define TCHT_ONITEM (TCHT_ONITEMICON | TCHT_ONITEMLABEL)

typedef struct TCITEMW {
    UINT mask; // TCIF_ bits: which members hold or are to get something
    DWORD dwState;
    DWORD dwStateMask;
    LPWSTR pszText;
    int cchTextMax;
    int iImage;
    LPARAM lParam;
} TCITEMW;
typedef TCITEMW TCITEM;
typedef TCITEMW* LPTCITEMW;

typedef struct TCHITTESTINFO {
    POINT pt;
    UINT flags;
} TCHITTESTINFO;
typedef TCHITTESTINFO* LPTCHITTESTINFO;

// TCN_KEYDOWN.
#pragma pack(push, 1)
typedef struct NMTCKEYDOWN {
    NMHDR hdr;
    WORD wVKey;
    UINT flags;
} NMTCKEYDOWN;
#pragma pack(pop)

// A message each. Items are counted from 0; -1 is no item, and the answer when there is none.
#define TabCtrl_GetItemCount(tab) SendControlMessage((tab), TCM_GETITEMCOUNT, 0, 0)
#define TabCtrl_GetItem(tab, item, data)                                                           \
    SendControlMessage((tab), TCM_GETITEMW, (WPARAM)(int)(item), (LPARAM)(TCITEMW*)(data))
#define TabCtrl_SetItem(tab, item, data)                                                           \
    SendControlMessage((tab), TCM_SETITEMW, (WPARAM)(int)(item), (LPARAM)(TCITEMW*)(data))
#define TabCtrl_InsertItem(tab, item, data)                                                        \
    SendControlMessage((tab), TCM_INSERTITEMW, (WPARAM)(int)(item), (LPARAM)(const TCITEMW*)(data))
#define TabCtrl_DeleteItem(tab, item)                                                              \
    SendControlMessage((tab), TCM_DELETEITEM, (WPARAM)(int)(item), 0)
#define TabCtrl_DeleteAllItems(tab) SendControlMessage((tab), TCM_DELETEALLITEMS, 0, 0)
#define TabCtrl_GetItemRect(tab, item, rect)                                                       \
    SendControlMessage((tab), TCM_GETITEMRECT, (WPARAM)(int)(item), (LPARAM)(RECT*)(rect))
#define TabCtrl_GetCurSel(tab) SendControlMessage((tab), TCM_GETCURSEL, 0, 0)
#define TabCtrl_SetCurSel(tab, item) SendControlMessage((tab), TCM_SETCURSEL, (WPARAM)(item), 0)
#define TabCtrl_HitTest(tab, info)                                                                 \
    SendControlMessage((tab), TCM_HITTEST, 0, (LPARAM)(TCHITTESTINFO*)(info))
// From the display area to the window around it (`larger`), or the other way.
#define TabCtrl_AdjustRect(tab, larger, rect)                                                      \
    SendControlMessage((tab), TCM_ADJUSTRECT, (WPARAM)(BOOL)(larger), (LPARAM)(RECT*)(rect))
#define TabCtrl_SetItemSize(tab, width, height)                                                    \
    SendControlMessage((tab), TCM_SETITEMSIZE, 0, MAKELPARAM((width), (height)))
#define TabCtrl_SetPadding(tab, width, height)                                                     \
    ((void)SendMessageW((tab), TCM_SETPADDING, 0, MAKELPARAM((width), (height))))
#define TabCtrl_GetRowCount(tab) SendControlMessage((tab), TCM_GETROWCOUNT, 0, 0)
#define TabCtrl_GetCurFocus(tab) SendControlMessage((tab), TCM_GETCURFOCUS, 0, 0)
#define TabCtrl_SetCurFocus(tab, item) ((void)SendMessageW((tab), TCM_SETCURFOCUS, (item), 0))
#define TabCtrl_SetMinTabWidth(tab, width) SendControlMessage((tab), TCM_SETMINTABWIDTH, 0, (width))
