// Menus.
#pragma once

#include <windef.h>

#include <winuser/window.h>

// ---- Flags of the older functions: how an item is named, its type and its state
// ------------------

#define MF_BYCOMMAND 0x00000000 // by identifier, also in the sub-menus
#define MF_BYPOSITION 0x00000400

#define MF_STRING 0x00000000
#define MF_BITMAP 0x00000004
#define MF_OWNERDRAW 0x00000100
#define MF_POPUP 0x00000010 // the identifier is the sub-menu's handle
#define MF_MENUBARBREAK 0x00000020
#define MF_MENUBREAK 0x00000040
#define MF_SEPARATOR 0x00000800
#define MF_RIGHTJUSTIFY 0x00004000

#define MF_ENABLED 0x00000000
#define MF_GRAYED 0x00000001
#define MF_DISABLED 0x00000002
#define MF_UNCHECKED 0x00000000
#define MF_CHECKED 0x00000008
#define MF_HILITE 0x00000080
#define MF_DEFAULT 0x00001000
#define MF_SYSMENU 0x00002000
#define MF_MOUSESELECT 0x00008000
#define MF_END 0x00000080 // of the last item in a template

// ---- MENUITEMINFOW ------------------------------------------------------------------------------

#define MIIM_STATE 0x00000001
#define MIIM_ID 0x00000002
#define MIIM_SUBMENU 0x00000004
#define MIIM_CHECKMARKS 0x00000008
#define MIIM_TYPE 0x00000010 // type and text in the fields of both
#define MIIM_DATA 0x00000020
#define MIIM_STRING 0x00000040
#define MIIM_BITMAP 0x00000080
#define MIIM_FTYPE 0x00000100

#define MFT_STRING MF_STRING
#define MFT_BITMAP MF_BITMAP
#define MFT_MENUBARBREAK MF_MENUBARBREAK
#define MFT_MENUBREAK MF_MENUBREAK
#define MFT_OWNERDRAW MF_OWNERDRAW
#define MFT_RADIOCHECK 0x00000200
#define MFT_SEPARATOR MF_SEPARATOR
#define MFT_RIGHTJUSTIFY MF_RIGHTJUSTIFY

#define MFS_GRAYED 0x00000003
#define MFS_DISABLED MFS_GRAYED
#define MFS_CHECKED MF_CHECKED
#define MFS_HILITE MF_HILITE
#define MFS_ENABLED MF_ENABLED
#define MFS_UNCHECKED MF_UNCHECKED
#define MFS_DEFAULT MF_DEFAULT

// An item. `fMask` (MIIM_) says which of the other fields count.
typedef struct MENUITEMINFOW {
    UINT cbSize;
    UINT fMask;
    UINT fType;
    UINT fState;
    UINT wID;
    HMENU hSubMenu;
    HBITMAP hbmpChecked;
    HBITMAP hbmpUnchecked;
    ULONG_PTR dwItemData;
    LPWSTR dwTypeData; // the text, or room for it
    UINT cch;          // units of the text without terminator; before asking, of the room with it
    HBITMAP hbmpItem;
} MENUITEMINFOW;
typedef MENUITEMINFOW* LPMENUITEMINFOW;
typedef const MENUITEMINFOW* LPCMENUITEMINFOW;

// ---- Tracking -----------------------------------------------------------------------------------

#define TPM_LEFTBUTTON 0x0000
#define TPM_RIGHTBUTTON 0x0002
#define TPM_LEFTALIGN 0x0000
#define TPM_CENTERALIGN 0x0004
#define TPM_RIGHTALIGN 0x0008
#define TPM_TOPALIGN 0x0000
#define TPM_VCENTERALIGN 0x0010
#define TPM_BOTTOMALIGN 0x0020
#define TPM_HORIZONTAL 0x0000
#define TPM_VERTICAL 0x0040
#define TPM_NONOTIFY 0x0080
#define TPM_RETURNCMD 0x0100

typedef struct TPMPARAMS {
    UINT cbSize;
    RECT rcExclude; // what the menu must not cover, on the screen
} TPMPARAMS;
typedef TPMPARAMS* LPTPMPARAMS;

// What WM_MENUCHAR answers in the upper word.
#define MNC_IGNORE 0
#define MNC_CLOSE 1
#define MNC_EXECUTE 2
#define MNC_SELECT 3

// To the window of an open menu, which is of the class "#32768": the menu's handle.
#define MN_GETHMENU 0x01E1

typedef void MENUTEMPLATEW; // either form; the functions tell them apart

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// ---- Life ---------------------------------------------------------------------------------------

HMENU WINAPI CreateMenu();
HMENU WINAPI CreatePopupMenu();
// Makes a menu from a menu resource; null if there is none or its bytes are not a menu.
HMENU WINAPI LoadMenuW(HINSTANCE module, LPCWSTR name);
HMENU WINAPI LoadMenuIndirectW(const MENUTEMPLATEW* menu_template);
// Destroys the menu and everything below it.
BOOL WINAPI DestroyMenu(HMENU menu);
BOOL WINAPI IsMenu(HMENU menu);

// ---- Items --------------------------------------------------------------------------------------

// Functions with `item` and `flags` name an item by its position (MF_BYPOSITION) or by its
// identifier, which is looked for in the menu and below. They fail if there is none, with
// ERROR_MENU_ITEM_NOT_FOUND if they answer a BOOL.

// Adds an item at the end, or before another one; at the end too if there is no such item.
BOOL WINAPI AppendMenuW(HMENU menu, UINT flags, UINT_PTR id, LPCWSTR text);
BOOL WINAPI InsertMenuW(HMENU menu, UINT item, UINT flags, UINT_PTR id, LPCWSTR text);
BOOL WINAPI InsertMenuItemW(HMENU menu, UINT item, BOOL by_position, LPCMENUITEMINFOW info);
// Replaces the item, whose sub-menu is destroyed.
BOOL WINAPI ModifyMenuW(HMENU menu, UINT item, UINT flags, UINT_PTR id, LPCWSTR text);
// The first also destroys the item's sub-menu.
BOOL WINAPI DeleteMenu(HMENU menu, UINT item, UINT flags);
BOOL WINAPI RemoveMenu(HMENU menu, UINT item, UINT flags);

// Both answer the state before (MF_CHECKED; MF_GRAYED, MF_DISABLED), or 0xFFFFFFFF.
DWORD WINAPI CheckMenuItem(HMENU menu, UINT item, UINT flags);
BOOL WINAPI EnableMenuItem(HMENU menu, UINT item, UINT flags);
// Checks one item of the range as a radio button and clears the others.
BOOL WINAPI CheckMenuRadioItem(HMENU menu, UINT first, UINT last, UINT item, UINT flags);
// The menu's only default item; 0xFFFFFFFF for none.
BOOL WINAPI SetMenuDefaultItem(HMENU menu, UINT item, UINT by_position);

BOOL WINAPI GetMenuItemInfoW(HMENU menu, UINT item, BOOL by_position, LPMENUITEMINFOW info);
BOOL WINAPI SetMenuItemInfoW(HMENU menu, UINT item, BOOL by_position, LPCMENUITEMINFOW info);
// Type and state, and in the upper byte of the lower word the number of items in a sub-menu.
// 0xFFFFFFFF if there is no such item.
UINT WINAPI GetMenuState(HMENU menu, UINT item, UINT flags);

int WINAPI GetMenuItemCount(HMENU menu); // -1 if it is not a menu
HMENU WINAPI GetSubMenu(HMENU menu, int position);
// 0xFFFFFFFF for a sub-menu, or if there is no such item.
UINT WINAPI GetMenuItemID(HMENU menu, int position);
// The item's text, cut to `size` units with its terminator; without a buffer, only its length.
int WINAPI GetMenuStringW(HMENU menu, UINT item, LPWSTR buffer, int size, UINT flags);

// ---- Tracking -----------------------------------------------------------------------------------

// Shows the menu at a point of the screen and lets the user choose. The chosen item's identifier is
// posted to `owner` as WM_COMMAND, or answered with TPM_RETURNCMD, where 0 is no choice. Answers
// FALSE at once if a menu is open on this thread.
BOOL WINAPI TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int reserved, HWND owner,
                           const RECT* rect);
BOOL WINAPI TrackPopupMenuEx(HMENU menu, UINT flags, int x, int y, HWND owner,
                             LPTPMPARAMS parameters);
// Closes the menu that is open on this thread.
BOOL WINAPI EndMenu();
// Where an item of an open menu is, on the screen. `window` may be null.
BOOL WINAPI GetMenuItemRect(HWND window, HMENU menu, UINT item, LPRECT rect);

WIN32HOST_END_C
#pragma GCC visibility pop
