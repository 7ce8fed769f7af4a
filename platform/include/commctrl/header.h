// Header controls: the column titles of list views.
#pragma once

#include <commctrl/notify.h>

#define WC_HEADERW TEXT("SysHeader32")
#define WC_HEADER WC_HEADERW

#define HDS_HORZ 0x0000
#define HDS_BUTTONS 0x0002
#define HDS_HOTTRACK 0x0004
#define HDS_HIDDEN 0x0008
#define HDS_DRAGDROP 0x0040
#define HDS_FULLDRAG 0x0080

#define HDI_WIDTH 0x0001
#define HDI_HEIGHT HDI_WIDTH
#define HDI_TEXT 0x0002
#define HDI_FORMAT 0x0004
#define HDI_LPARAM 0x0008
#define HDI_BITMAP 0x0010
#define HDI_IMAGE 0x0020
#define HDI_ORDER 0x0080

#define HDF_LEFT 0x0000
#define HDF_RIGHT 0x0001
#define HDF_CENTER 0x0002
#define HDF_JUSTIFYMASK 0x0003
#define HDF_SORTDOWN 0x0200
#define HDF_SORTUP 0x0400
#define HDF_STRING 0x4000

#define HDM_FIRST 0x1200
#define HDM_GETITEMCOUNT (HDM_FIRST + 0)
#define HDM_DELETEITEM (HDM_FIRST + 2)
#define HDM_LAYOUT (HDM_FIRST + 5)
#define HDM_HITTEST (HDM_FIRST + 6)
#define HDM_GETITEMRECT (HDM_FIRST + 7)
#define HDM_INSERTITEMW (HDM_FIRST + 10)
#define HDM_GETITEMW (HDM_FIRST + 11)
#define HDM_SETITEMW (HDM_FIRST + 12)
#define HDM_ORDERTOINDEX (HDM_FIRST + 15)
#define HDM_GETORDERARRAY (HDM_FIRST + 17)
#define HDM_SETORDERARRAY (HDM_FIRST + 18)
#define HDM_INSERTITEM HDM_INSERTITEMW
#define HDM_GETITEM HDM_GETITEMW
#define HDM_SETITEM HDM_SETITEMW

#define HHT_NOWHERE 0x0001
#define HHT_ONHEADER 0x0002
#define HHT_ONDIVIDER 0x0004
#define HHT_ONDIVOPEN 0x0008
#define HHT_TORIGHT 0x0400
#define HHT_TOLEFT 0x0800

// HDN_ITEMCHANGING, HDN_BEGINTRACK and HDN_TRACK answered with TRUE stop what they announce.
#define HDN_ITEMCHANGINGW (HDN_FIRST - 20)
#define HDN_ITEMCHANGEDW (HDN_FIRST - 21)
#define HDN_ITEMCLICKW (HDN_FIRST - 22)
#define HDN_ITEMDBLCLICKW (HDN_FIRST - 23)
#define HDN_DIVIDERDBLCLICKW (HDN_FIRST - 25)
#define HDN_BEGINTRACKW (HDN_FIRST - 26)
#define HDN_ENDTRACKW (HDN_FIRST - 27)
#define HDN_TRACKW (HDN_FIRST - 28)
#define HDN_ITEMCHANGING HDN_ITEMCHANGINGW
#define HDN_ITEMCHANGED HDN_ITEMCHANGEDW
#define HDN_ITEMCLICK HDN_ITEMCLICKW
#define HDN_ITEMDBLCLICK HDN_ITEMDBLCLICKW
#define HDN_DIVIDERDBLCLICK HDN_DIVIDERDBLCLICKW
#define HDN_BEGINTRACK HDN_BEGINTRACKW
#define HDN_ENDTRACK HDN_ENDTRACKW
#define HDN_TRACK HDN_TRACKW

typedef struct HDITEMW {
    UINT mask; // HDI_ bits
    int cxy;
    LPWSTR pszText;
    HBITMAP hbm;
    int cchTextMax;
    int fmt; // HDF_ bits
    LPARAM lParam;
    int iImage;
    int iOrder;
    UINT type;
    void* pvFilter;
    UINT state;
} HDITEMW;
typedef HDITEMW HDITEM;
typedef HDITEMW* LPHDITEMW;

typedef struct HDHITTESTINFO {
    POINT pt;
    UINT flags;
    int iItem;
} HDHITTESTINFO;
typedef HDHITTESTINFO* LPHDHITTESTINFO;

// HDM_LAYOUT: where the header lies inside `prc`, which is reduced to what is left below it.
typedef struct HDLAYOUT {
    RECT* prc;
    WINDOWPOS* pwpos;
} HDLAYOUT;
typedef HDLAYOUT* LPHDLAYOUT;

typedef struct NMHEADERW {
    NMHDR hdr;
    int iItem;
    int iButton; // 0: the left one
    HDITEMW* pitem;
} NMHEADERW;
typedef NMHEADERW NMHEADER;
typedef NMHEADERW* LPNMHEADERW;

#define Header_GetItemCount(header) SendControlMessage((header), HDM_GETITEMCOUNT, 0, 0)
#define Header_InsertItem(header, item, data)                                                      \
    SendControlMessage((header), HDM_INSERTITEMW, (WPARAM)(int)(item),                             \
                       (LPARAM)(const HDITEMW*)(data))
#define Header_DeleteItem(header, item)                                                            \
    SendControlMessage((header), HDM_DELETEITEM, (WPARAM)(int)(item), 0)
#define Header_GetItem(header, item, data)                                                         \
    SendControlMessage((header), HDM_GETITEMW, (WPARAM)(int)(item), (LPARAM)(HDITEMW*)(data))
#define Header_SetItem(header, item, data)                                                         \
    SendControlMessage((header), HDM_SETITEMW, (WPARAM)(int)(item), (LPARAM)(const HDITEMW*)(data))
#define Header_GetItemRect(header, item, rect)                                                     \
    SendControlMessage((header), HDM_GETITEMRECT, (WPARAM)(int)(item), (LPARAM)(RECT*)(rect))
#define Header_Layout(header, layout)                                                              \
    SendControlMessage((header), HDM_LAYOUT, 0, (LPARAM)(HDLAYOUT*)(layout))
#define Header_OrderToIndex(header, place)                                                         \
    SendControlMessage((header), HDM_ORDERTOINDEX, (WPARAM)(place), 0)
#define Header_GetOrderArray(header, count, items)                                                 \
    SendControlMessage((header), HDM_GETORDERARRAY, (WPARAM)(count), (LPARAM)(int*)(items))
#define Header_SetOrderArray(header, count, items)                                                 \
    SendControlMessage((header), HDM_SETORDERARRAY, (WPARAM)(count), (LPARAM)(const int*)(items))
