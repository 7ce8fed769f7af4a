// Controls whose owner measures, draws and compares their items.
#pragma once

#include <windef.h>

#define ODT_MENU 1
#define ODT_LISTBOX 2
#define ODT_COMBOBOX 3
#define ODT_BUTTON 4
#define ODT_STATIC 5
#define ODT_HEADER 100
#define ODT_TAB 101
#define ODT_LISTVIEW 102

#define ODA_DRAWENTIRE 0x0001
#define ODA_SELECT 0x0002
#define ODA_FOCUS 0x0004

#define ODS_SELECTED 0x0001
#define ODS_GRAYED 0x0002
#define ODS_DISABLED 0x0004
#define ODS_CHECKED 0x0008
#define ODS_FOCUS 0x0010
#define ODS_DEFAULT 0x0020
#define ODS_COMBOBOXEDIT 0x1000
#define ODS_NOACCEL 0x0100
#define ODS_NOFOCUSRECT 0x0200

// WM_MEASUREITEM: the owner stores the size.
typedef struct MEASUREITEMSTRUCT {
    UINT CtlType; // ODT_
    UINT CtlID;
    UINT itemID;
    UINT itemWidth;
    UINT itemHeight;
    ULONG_PTR itemData;
} MEASUREITEMSTRUCT;
typedef MEASUREITEMSTRUCT* LPMEASUREITEMSTRUCT;

// WM_DRAWITEM.
typedef struct DRAWITEMSTRUCT {
    UINT CtlType; // ODT_
    UINT CtlID;
    UINT itemID;     // (UINT)-1: only the focus of a control without items
    UINT itemAction; // ODA_ bits
    UINT itemState;  // ODS_ bits
    HWND hwndItem;
    HDC hDC;
    RECT rcItem;
    ULONG_PTR itemData;
} DRAWITEMSTRUCT;
typedef DRAWITEMSTRUCT* LPDRAWITEMSTRUCT;

// WM_DELETEITEM.
typedef struct DELETEITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    HWND hwndItem;
    ULONG_PTR itemData;
} DELETEITEMSTRUCT;
typedef DELETEITEMSTRUCT* LPDELETEITEMSTRUCT;

// WM_COMPAREITEM: -1, 0 or 1 as the first item comes before, with or after the second.
typedef struct COMPAREITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    HWND hwndItem;
    UINT itemID1;
    ULONG_PTR itemData1;
    UINT itemID2;
    ULONG_PTR itemData2;
    DWORD dwLocaleId;
} COMPAREITEMSTRUCT;
typedef COMPAREITEMSTRUCT* LPCOMPAREITEMSTRUCT;
