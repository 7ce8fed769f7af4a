// Strings, resources and message boxes.
#pragma once

#include <windef.h>

#include <stdarg.h>

#define MB_OK 0x00000000
#define MB_OKCANCEL 0x00000001
#define MB_ABORTRETRYIGNORE 0x00000002
#define MB_YESNOCANCEL 0x00000003
#define MB_YESNO 0x00000004
#define MB_RETRYCANCEL 0x00000005
#define MB_TYPEMASK 0x0000000F
#define MB_ICONHAND 0x00000010
#define MB_ICONQUESTION 0x00000020
#define MB_ICONEXCLAMATION 0x00000030
#define MB_ICONASTERISK 0x00000040
#define MB_ICONERROR MB_ICONHAND
#define MB_ICONSTOP MB_ICONHAND
#define MB_ICONWARNING MB_ICONEXCLAMATION
#define MB_ICONINFORMATION MB_ICONASTERISK
#define MB_ICONMASK 0x000000F0
#define MB_DEFBUTTON1 0x00000000
#define MB_DEFBUTTON2 0x00000100
#define MB_DEFBUTTON3 0x00000200
#define MB_APPLMODAL 0x00000000
#define MB_SYSTEMMODAL 0x00001000
#define MB_TASKMODAL 0x00002000
#define MB_SETFOREGROUND 0x00010000
#define MB_TOPMOST 0x00040000

#define IDOK 1
#define IDCANCEL 2
#define IDABORT 3
#define IDRETRY 4
#define IDIGNORE 5
#define IDYES 6
#define IDNO 7

// ---- Resources ----------------------------------------------------------------------------------

// A number in place of a resource's name or type.
#define MAKEINTRESOURCEW(id) ((LPWSTR)(ULONG_PTR)(WORD)(id))
#define IS_INTRESOURCE(name) (((ULONG_PTR)(name) >> 16) == 0)

#define RT_CURSOR MAKEINTRESOURCEW(1)
#define RT_BITMAP MAKEINTRESOURCEW(2)
#define RT_ICON MAKEINTRESOURCEW(3)
#define RT_MENU MAKEINTRESOURCEW(4)
#define RT_DIALOG MAKEINTRESOURCEW(5)
#define RT_STRING MAKEINTRESOURCEW(6)
#define RT_RCDATA MAKEINTRESOURCEW(10)
#define RT_GROUP_ICON MAKEINTRESOURCEW(14)
#define RT_VERSION MAKEINTRESOURCEW(16)

#define MF_BYCOMMAND 0x00000000
#define MF_BYPOSITION 0x00000400

typedef void MENUTEMPLATEW; // either form; the functions tell them apart

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// Copies a text from a module's string tables, cut to `size` units with its terminator. Answers the
// number of units before the terminator, or 0 if there is no such text. With size 0, `buffer` is an
// LPCWSTR* that receives the address of the text itself, which has no terminator.
int WINAPI LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int size);

// ---- Menus --------------------------------------------------------------------------------------

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

// The system's own formatter: %c %C %d %hc %hd %hs %hu %i %lc %ld %li %ls %lu %lx %lX %p %s %S %u
// %x %X and the 64-bit %I64d %I64i %I64u %I64x %I64X, with the flags '-', '0' and '#', a width and
// a precision (no '*'). %s and %c are UTF-16, %S, %hs, %C and %hc are of the ANSI code page.
// Anything else after a '%' is copied. Writes at most 1024 units with the terminator; answers the
// number before the terminator.
int WINAPI wvsprintfW(LPWSTR buffer, LPCWSTR format, va_list arguments);
int wsprintfW(LPWSTR buffer, LPCWSTR format, ...);

// A device context of the whole screen for null; there are no windows. ReleaseDC answers 1.
HDC WINAPI GetDC(HWND window);
int WINAPI ReleaseDC(HWND window, HDC dc);

// The window behind all others. Null here, as the host has no screen.
HWND WINAPI GetDesktopWindow();

// Shows a box and answers the button that was chosen. As the host has no screen, the box is
// recorded and answered as win32host/control.h describes.
int WINAPI MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);

WIN32HOST_END_C
#pragma GCC visibility pop
