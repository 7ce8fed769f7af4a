// Menus.
#pragma once

#include <windef.h>

#define MF_BYCOMMAND 0x00000000
#define MF_BYPOSITION 0x00000400

typedef void MENUTEMPLATEW; // either form; the functions tell them apart

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// Makes a menu from the bytes of a menu resource; null if they are not a menu.
HMENU WINAPI LoadMenuIndirectW(const MENUTEMPLATEW* menu_template);
// Destroys the menu and everything below it.
BOOL WINAPI DestroyMenu(HMENU menu);
int WINAPI GetMenuItemCount(HMENU menu); // -1 if it is not a menu
HMENU WINAPI GetSubMenu(HMENU menu, int position);
// 0xFFFFFFFF for a popup, or if there is no such item.
UINT WINAPI GetMenuItemID(HMENU menu, int position);
// The text of the item at a position (MF_BYPOSITION) or of a command anywhere below, cut to `size`
// units with its terminator; without a buffer, only its length.
int WINAPI GetMenuStringW(HMENU menu, UINT item, LPWSTR buffer, int size, UINT flags);

WIN32HOST_END_C
#pragma GCC visibility pop
