// List views. Only the report view is there: the others' styles are known and ignored.
#pragma once

#include <commctrl/header.h>
#include <commctrl/notify.h>

#define WC_LISTVIEWW TEXT("SysListView32")
#define WC_LISTVIEW WC_LISTVIEWW

#define LVS_ICON 0x0000
#define LVS_REPORT 0x0001
#define LVS_SMALLICON 0x0002
#define LVS_LIST 0x0003
#define LVS_TYPEMASK 0x0003
#define LVS_SINGLESEL 0x0004
#define LVS_SHOWSELALWAYS 0x0008
#define LVS_SORTASCENDING 0x0010
#define LVS_SORTDESCENDING 0x0020
#define LVS_SHAREIMAGELISTS 0x0040
#define LVS_NOLABELWRAP 0x0080
#define LVS_AUTOARRANGE 0x0100
#define LVS_EDITLABELS 0x0200
#define LVS_OWNERDATA 0x1000
#define LVS_NOSCROLL 0x2000
#define LVS_OWNERDRAWFIXED 0x0400
#define LVS_NOCOLUMNHEADER 0x4000
#define LVS_NOSORTHEADER 0x8000

#define LVS_EX_GRIDLINES 0x00000001
#define LVS_EX_SUBITEMIMAGES 0x00000002
#define LVS_EX_CHECKBOXES 0x00000004
#define LVS_EX_HEADERDRAGDROP 0x00000010
#define LVS_EX_FULLROWSELECT 0x00000020
#define LVS_EX_INFOTIP 0x00000400
#define LVS_EX_LABELTIP 0x00004000
#define LVS_EX_DOUBLEBUFFER 0x00010000

#define LVM_FIRST 0x1000
#define LVM_GETBKCOLOR (LVM_FIRST + 0)
#define LVM_SETBKCOLOR (LVM_FIRST + 1)
#define LVM_GETITEMCOUNT (LVM_FIRST + 4)
#define LVM_DELETEITEM (LVM_FIRST + 8)
#define LVM_DELETEALLITEMS (LVM_FIRST + 9)
#define LVM_GETNEXTITEM (LVM_FIRST + 12)
#define LVM_GETITEMRECT (LVM_FIRST + 14)
#define LVM_HITTEST (LVM_FIRST + 18)
#define LVM_ENSUREVISIBLE (LVM_FIRST + 19)
#define LVM_SCROLL (LVM_FIRST + 20)
#define LVM_REDRAWITEMS (LVM_FIRST + 21)
#define LVM_DELETECOLUMN (LVM_FIRST + 28)
#define LVM_GETCOLUMNWIDTH (LVM_FIRST + 29)
#define LVM_SETCOLUMNWIDTH (LVM_FIRST + 30)
#define LVM_GETHEADER (LVM_FIRST + 31)
#define LVM_GETTEXTCOLOR (LVM_FIRST + 35)
#define LVM_SETTEXTCOLOR (LVM_FIRST + 36)
#define LVM_GETTEXTBKCOLOR (LVM_FIRST + 37)
#define LVM_SETTEXTBKCOLOR (LVM_FIRST + 38)
#define LVM_GETTOPINDEX (LVM_FIRST + 39)
#define LVM_GETCOUNTPERPAGE (LVM_FIRST + 40)
#define LVM_UPDATE (LVM_FIRST + 42)
#define LVM_SETITEMSTATE (LVM_FIRST + 43)
#define LVM_GETITEMSTATE (LVM_FIRST + 44)
#define LVM_SETITEMCOUNT (LVM_FIRST + 47)
#define LVM_SORTITEMS (LVM_FIRST + 48)
#define LVM_GETSELECTEDCOUNT (LVM_FIRST + 50)
#define LVM_SETEXTENDEDLISTVIEWSTYLE (LVM_FIRST + 54)
#define LVM_GETEXTENDEDLISTVIEWSTYLE (LVM_FIRST + 55)
#define LVM_GETSUBITEMRECT (LVM_FIRST + 56)
#define LVM_SUBITEMHITTEST (LVM_FIRST + 57)
#define LVM_SETCOLUMNORDERARRAY (LVM_FIRST + 58)
#define LVM_GETCOLUMNORDERARRAY (LVM_FIRST + 59)
#define LVM_GETSELECTIONMARK (LVM_FIRST + 66)
#define LVM_SETSELECTIONMARK (LVM_FIRST + 67)
#define LVM_GETITEMW (LVM_FIRST + 75)
#define LVM_SETITEMW (LVM_FIRST + 76)
#define LVM_INSERTITEMW (LVM_FIRST + 77)
#define LVM_SORTITEMSEX (LVM_FIRST + 81)
#define LVM_FINDITEMW (LVM_FIRST + 83)
#define LVM_GETSTRINGWIDTHW (LVM_FIRST + 87)
#define LVM_GETCOLUMNW (LVM_FIRST + 95)
#define LVM_SETCOLUMNW (LVM_FIRST + 96)
#define LVM_INSERTCOLUMNW (LVM_FIRST + 97)
#define LVM_GETITEMTEXTW (LVM_FIRST + 115)
#define LVM_SETITEMTEXTW (LVM_FIRST + 116)
#define LVM_GETITEM LVM_GETITEMW
#define LVM_SETITEM LVM_SETITEMW
#define LVM_INSERTITEM LVM_INSERTITEMW
#define LVM_FINDITEM LVM_FINDITEMW
#define LVM_GETCOLUMN LVM_GETCOLUMNW
#define LVM_SETCOLUMN LVM_SETCOLUMNW
#define LVM_INSERTCOLUMN LVM_INSERTCOLUMNW
#define LVM_GETITEMTEXT LVM_GETITEMTEXTW
#define LVM_SETITEMTEXT LVM_SETITEMTEXTW

#define LVN_ITEMCHANGING (LVN_FIRST - 0) // answering TRUE prevents the change
#define LVN_ITEMCHANGED (LVN_FIRST - 1)
#define LVN_INSERTITEM (LVN_FIRST - 2)
#define LVN_DELETEITEM (LVN_FIRST - 3)
#define LVN_DELETEALLITEMS (LVN_FIRST - 4) // answering TRUE keeps back LVN_DELETEITEM
#define LVN_COLUMNCLICK (LVN_FIRST - 8)
#define LVN_ITEMACTIVATE (LVN_FIRST - 14)
#define LVN_KEYDOWN (LVN_FIRST - 55)
#define LVN_GETDISPINFOW (LVN_FIRST - 77)
#define LVN_SETDISPINFOW (LVN_FIRST - 78)
#define LVN_GETDISPINFO LVN_GETDISPINFOW
#define LVN_SETDISPINFO LVN_SETDISPINFOW

#define LVCF_FMT 0x0001
#define LVCF_WIDTH 0x0002
#define LVCF_TEXT 0x0004
#define LVCF_SUBITEM 0x0008
#define LVCF_IMAGE 0x0010
#define LVCF_ORDER 0x0020

#define LVCFMT_LEFT 0x0000
#define LVCFMT_RIGHT 0x0001
#define LVCFMT_CENTER 0x0002
#define LVCFMT_JUSTIFYMASK 0x0003

#define LVSCW_AUTOSIZE (-1)
#define LVSCW_AUTOSIZE_USEHEADER (-2)

#define LVIF_TEXT 0x0001
#define LVIF_IMAGE 0x0002
#define LVIF_PARAM 0x0004
#define LVIF_STATE 0x0008
#define LVIF_INDENT 0x0010
#define LVIF_NORECOMPUTE 0x0800

#define LVIS_FOCUSED 0x0001
#define LVIS_SELECTED 0x0002
#define LVIS_CUT 0x0004
#define LVIS_DROPHILITED 0x0008
#define LVIS_OVERLAYMASK 0x0F00
#define LVIS_STATEIMAGEMASK 0xF000
#define INDEXTOSTATEIMAGEMASK(image) ((image) << 12)

#define LVNI_ALL 0x0000
#define LVNI_FOCUSED 0x0001
#define LVNI_SELECTED 0x0002
#define LVNI_CUT 0x0004
#define LVNI_DROPHILITED 0x0008
#define LVNI_ABOVE 0x0100
#define LVNI_BELOW 0x0200

#define LVFI_PARAM 0x0001
#define LVFI_STRING 0x0002
#define LVFI_PARTIAL 0x0008
#define LVFI_WRAP 0x0020

#define LVIR_BOUNDS 0
#define LVIR_ICON 1
#define LVIR_LABEL 2
#define LVIR_SELECTBOUNDS 3

#define LVHT_NOWHERE 0x0001
#define LVHT_ONITEMICON 0x0002
#define LVHT_ONITEMLABEL 0x0004
#define LVHT_ONITEMSTATEICON 0x0008
#define LVHT_ONITEM (LVHT_ONITEMICON | LVHT_ONITEMLABEL | LVHT_ONITEMSTATEICON)
#define LVHT_ABOVE 0x0008
#define LVHT_BELOW 0x0010
#define LVHT_TORIGHT 0x0020
#define LVHT_TOLEFT 0x0040

#define CLR_NONE 0xFFFFFFFF
#define CLR_DEFAULT 0xFF000000

typedef struct LVITEMW {
    UINT mask; // LVIF_ bits: which members hold or are to get something
    int iItem;
    int iSubItem;
    UINT state;
    UINT stateMask;
    LPWSTR pszText;
    int cchTextMax;
    int iImage;
    LPARAM lParam;
    int iIndent;
    int iGroupId;
    UINT cColumns;
    UINT* puColumns;
    int* piColFmt;
    int iGroup;
} LVITEMW;
typedef LVITEMW LVITEM;
typedef LVITEMW* LPLVITEMW;

typedef struct LVCOLUMNW {
    UINT mask; // LVCF_ bits
    int fmt;
    int cx;
    LPWSTR pszText;
    int cchTextMax;
    int iSubItem;
    int iImage;
    int iOrder;
    int cxMin;
    int cxDefault;
    int cxIdeal;
} LVCOLUMNW;
typedef LVCOLUMNW LVCOLUMN;
typedef LVCOLUMNW* LPLVCOLUMNW;

typedef struct LVFINDINFOW {
    UINT flags; // LVFI_ bits
    LPCWSTR psz;
    LPARAM lParam;
    POINT pt;
    UINT vkDirection;
} LVFINDINFOW;
typedef LVFINDINFOW LVFINDINFO;
typedef LVFINDINFOW* LPLVFINDINFOW;

typedef struct LVHITTESTINFO {
    POINT pt;
    UINT flags;
    int iItem;
    int iSubItem;
    int iGroup;
} LVHITTESTINFO;
typedef LVHITTESTINFO* LPLVHITTESTINFO;

typedef struct NMLISTVIEW {
    NMHDR hdr;
    int iItem; // -1: all
    int iSubItem;
    UINT uNewState;
    UINT uOldState;
    UINT uChanged; // LVIF_ bits
    POINT ptAction;
    LPARAM lParam;
} NMLISTVIEW;
typedef NMLISTVIEW* LPNMLISTVIEW;

// NM_CLICK, NM_DBLCLK, NM_RCLICK, NM_RDBLCLK and LVN_ITEMACTIVATE.
typedef struct NMITEMACTIVATE {
    NMHDR hdr;
    int iItem;
    int iSubItem;
    UINT uNewState;
    UINT uOldState;
    UINT uChanged;
    POINT ptAction;
    LPARAM lParam;
    UINT uKeyFlags; // LVKF_ bits
} NMITEMACTIVATE;
typedef NMITEMACTIVATE* LPNMITEMACTIVATE;

#define LVKF_ALT 0x0001
#define LVKF_CONTROL 0x0002
#define LVKF_SHIFT 0x0004

typedef struct NMLVDISPINFOW {
    NMHDR hdr;
    LVITEMW item;
} NMLVDISPINFOW;
typedef NMLVDISPINFOW NMLVDISPINFO;
typedef NMLVDISPINFOW* LPNMLVDISPINFOW;

#pragma pack(push, 1)
typedef struct NMLVKEYDOWN {
    NMHDR hdr;
    WORD wVKey;
    UINT flags;
} NMLVKEYDOWN;
#pragma pack(pop)
typedef NMLVKEYDOWN* LPNMLVKEYDOWN;

// Less than 0 if the first comes before the second, by their item data (LVM_SORTITEMS) or by their
// numbers (LVM_SORTITEMSEX).
typedef int(CALLBACK* PFNLVCOMPARE)(LPARAM first, LPARAM second, LPARAM parameter);

// A message each. Items and columns are counted from 0; -1 is no item, and for states all items.
#define ListView_GetBkColor(view) ((COLORREF)SendMessageW((view), LVM_GETBKCOLOR, 0, 0))
#define ListView_SetBkColor(view, color)                                                           \
    SendControlMessage((view), LVM_SETBKCOLOR, 0, (LPARAM)(COLORREF)(color))
#define ListView_GetTextColor(view) ((COLORREF)SendMessageW((view), LVM_GETTEXTCOLOR, 0, 0))
#define ListView_SetTextColor(view, color)                                                         \
    SendControlMessage((view), LVM_SETTEXTCOLOR, 0, (LPARAM)(COLORREF)(color))
#define ListView_SetTextBkColor(view, color)                                                       \
    SendControlMessage((view), LVM_SETTEXTBKCOLOR, 0, (LPARAM)(COLORREF)(color))
#define ListView_GetItemCount(view) SendControlMessage((view), LVM_GETITEMCOUNT, 0, 0)
#define ListView_GetItem(view, item)                                                               \
    SendControlMessage((view), LVM_GETITEMW, 0, (LPARAM)(LVITEMW*)(item))
#define ListView_SetItem(view, item)                                                               \
    SendControlMessage((view), LVM_SETITEMW, 0, (LPARAM)(const LVITEMW*)(item))
#define ListView_InsertItem(view, item)                                                            \
    SendControlMessage((view), LVM_INSERTITEMW, 0, (LPARAM)(const LVITEMW*)(item))
#define ListView_DeleteItem(view, item)                                                            \
    SendControlMessage((view), LVM_DELETEITEM, (WPARAM)(int)(item), 0)
#define ListView_DeleteAllItems(view) SendControlMessage((view), LVM_DELETEALLITEMS, 0, 0)
#define ListView_GetNextItem(view, item, flags)                                                    \
    SendControlMessage((view), LVM_GETNEXTITEM, (WPARAM)(int)(item), MAKELPARAM((flags), 0))
#define ListView_FindItem(view, start, info)                                                       \
    SendControlMessage((view), LVM_FINDITEMW, (WPARAM)(int)(start),                                \
                       (LPARAM)(const LVFINDINFOW*)(info))
#define ListView_GetItemRect(view, item, rect, part)                                               \
    SendControlMessage((view), LVM_GETITEMRECT, (WPARAM)(int)(item),                               \
                       ((rect) ? (((RECT*)(rect))->left = (part), (LPARAM)(RECT*)(rect)) : 0))
#define ListView_GetSubItemRect(view, item, sub_item, part, rect)                                  \
    SendControlMessage((view), LVM_GETSUBITEMRECT, (WPARAM)(int)(item),                            \
                       ((rect) ? (((RECT*)(rect))->top = (sub_item),                               \
                                  ((RECT*)(rect))->left = (part), (LPARAM)(RECT*)(rect))           \
                               : 0))
#define ListView_HitTest(view, info)                                                               \
    SendControlMessage((view), LVM_HITTEST, 0, (LPARAM)(LVHITTESTINFO*)(info))
#define ListView_SubItemHitTest(view, info)                                                        \
    SendControlMessage((view), LVM_SUBITEMHITTEST, 0, (LPARAM)(LVHITTESTINFO*)(info))
#define ListView_EnsureVisible(view, item, partly)                                                 \
    SendControlMessage((view), LVM_ENSUREVISIBLE, (WPARAM)(int)(item), MAKELPARAM((partly), 0))
#define ListView_RedrawItems(view, first, last)                                                    \
    SendControlMessage((view), LVM_REDRAWITEMS, (WPARAM)(int)(first), (LPARAM)(int)(last))
#define ListView_GetColumn(view, column, data)                                                     \
    SendControlMessage((view), LVM_GETCOLUMNW, (WPARAM)(int)(column), (LPARAM)(LVCOLUMNW*)(data))
#define ListView_SetColumn(view, column, data)                                                     \
    SendControlMessage((view), LVM_SETCOLUMNW, (WPARAM)(int)(column),                              \
                       (LPARAM)(const LVCOLUMNW*)(data))
#define ListView_InsertColumn(view, column, data)                                                  \
    SendControlMessage((view), LVM_INSERTCOLUMNW, (WPARAM)(int)(column),                           \
                       (LPARAM)(const LVCOLUMNW*)(data))
#define ListView_DeleteColumn(view, column)                                                        \
    SendControlMessage((view), LVM_DELETECOLUMN, (WPARAM)(int)(column), 0)
#define ListView_GetColumnWidth(view, column)                                                      \
    SendControlMessage((view), LVM_GETCOLUMNWIDTH, (WPARAM)(int)(column), 0)
#define ListView_SetColumnWidth(view, column, width)                                               \
    SendControlMessage((view), LVM_SETCOLUMNWIDTH, (WPARAM)(int)(column), MAKELPARAM((width), 0))
#define ListView_GetHeader(view) ((HWND)SendMessageW((view), LVM_GETHEADER, 0, 0))
#define ListView_GetTopIndex(view) SendControlMessage((view), LVM_GETTOPINDEX, 0, 0)
#define ListView_GetCountPerPage(view) SendControlMessage((view), LVM_GETCOUNTPERPAGE, 0, 0)
#define ListView_Update(view, item) SendControlMessage((view), LVM_UPDATE, (WPARAM)(item), 0)
#define ListView_SetItemState(view, item, bits, mask)                                              \
    do {                                                                                           \
        LVITEMW list_view_item = {};                                                               \
        list_view_item.stateMask = (mask);                                                         \
        list_view_item.state = (bits);                                                             \
        SendMessageW((view), LVM_SETITEMSTATE, (WPARAM)(item), (LPARAM)&list_view_item);           \
    } while (0)
#define ListView_GetItemState(view, item, mask)                                                    \
    ((UINT)SendMessageW((view), LVM_GETITEMSTATE, (WPARAM)(item), (LPARAM)(mask)))
#define ListView_SetCheckState(view, item, check)                                                  \
    ListView_SetItemState(view, item, INDEXTOSTATEIMAGEMASK((check) ? 2 : 1), LVIS_STATEIMAGEMASK)
#define ListView_GetCheckState(view, item)                                                         \
    ((((UINT)SendMessageW((view), LVM_GETITEMSTATE, (WPARAM)(item), LVIS_STATEIMAGEMASK)) >> 12) - \
     1)
#define ListView_GetItemText(view, item, sub_item, text, size)                                     \
    do {                                                                                           \
        LVITEMW list_view_item = {};                                                               \
        list_view_item.iSubItem = (sub_item);                                                      \
        list_view_item.cchTextMax = (size);                                                        \
        list_view_item.pszText = (text);                                                           \
        SendMessageW((view), LVM_GETITEMTEXTW, (WPARAM)(item), (LPARAM)&list_view_item);           \
    } while (0)
#define ListView_SetItemText(view, item, sub_item, text)                                           \
    do {                                                                                           \
        LVITEMW list_view_item = {};                                                               \
        list_view_item.iSubItem = (sub_item);                                                      \
        list_view_item.pszText = (text);                                                           \
        SendMessageW((view), LVM_SETITEMTEXTW, (WPARAM)(item), (LPARAM)&list_view_item);           \
    } while (0)
#define ListView_SetItemCount(view, count)                                                         \
    SendMessageW((view), LVM_SETITEMCOUNT, (WPARAM)(int)(count), 0)
#define ListView_SortItems(view, compare, parameter)                                               \
    SendControlMessage((view), LVM_SORTITEMS, (WPARAM)(LPARAM)(parameter),                         \
                       (LPARAM)(PFNLVCOMPARE)(compare))
#define ListView_SortItemsEx(view, compare, parameter)                                             \
    SendControlMessage((view), LVM_SORTITEMSEX, (WPARAM)(LPARAM)(parameter),                       \
                       (LPARAM)(PFNLVCOMPARE)(compare))
#define ListView_GetSelectedCount(view) ((UINT)SendMessageW((view), LVM_GETSELECTEDCOUNT, 0, 0))
#define ListView_GetSelectionMark(view) SendControlMessage((view), LVM_GETSELECTIONMARK, 0, 0)
#define ListView_SetSelectionMark(view, item)                                                      \
    SendControlMessage((view), LVM_SETSELECTIONMARK, 0, (LPARAM)(item))
#define ListView_SetExtendedListViewStyle(view, styles)                                            \
    SendControlMessage((view), LVM_SETEXTENDEDLISTVIEWSTYLE, 0, (styles))
#define ListView_SetExtendedListViewStyleEx(view, mask, styles)                                    \
    SendControlMessage((view), LVM_SETEXTENDEDLISTVIEWSTYLE, (mask), (styles))
#define ListView_GetExtendedListViewStyle(view)                                                    \
    ((DWORD)SendMessageW((view), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0))
#define ListView_SetColumnOrderArray(view, count, columns)                                         \
    SendControlMessage((view), LVM_SETCOLUMNORDERARRAY, (WPARAM)(count), (LPARAM)(int*)(columns))
#define ListView_GetColumnOrderArray(view, count, columns)                                         \
    SendControlMessage((view), LVM_GETCOLUMNORDERARRAY, (WPARAM)(count), (LPARAM)(int*)(columns))
