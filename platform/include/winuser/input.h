// Keyboard, mouse and focus.
#pragma once

#include <windef.h>

#define MK_LBUTTON 0x0001
#define MK_RBUTTON 0x0002
#define MK_SHIFT 0x0004
#define MK_CONTROL 0x0008

#define VK_LBUTTON 0x01
#define VK_RBUTTON 0x02
#define VK_BACK 0x08
#define VK_TAB 0x09
#define VK_RETURN 0x0D
#define VK_SHIFT 0x10
#define VK_CONTROL 0x11
#define VK_MENU 0x12
#define VK_ESCAPE 0x1B
#define VK_SPACE 0x20
#define VK_PRIOR 0x21
#define VK_NEXT 0x22
#define VK_END 0x23
#define VK_HOME 0x24
#define VK_LEFT 0x25
#define VK_UP 0x26
#define VK_RIGHT 0x27
#define VK_DOWN 0x28
#define VK_INSERT 0x2D
#define VK_DELETE 0x2E
#define VK_F1 0x70
#define VK_F4 0x73
#define VK_F10 0x79

#define WHEEL_DELTA 120

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// The window of this thread that has the keyboard; SetFocus answers the one that had it. Windows of
// other threads are refused with null.
HWND WINAPI GetFocus();
HWND WINAPI SetFocus(HWND window);
HWND WINAPI GetActiveWindow();
HWND WINAPI SetActiveWindow(HWND window);
HWND WINAPI GetForegroundWindow();
// Makes it the active one of its thread.
BOOL WINAPI SetForegroundWindow(HWND window);
HWND WINAPI GetCapture();
HWND WINAPI SetCapture(HWND window);
BOOL WINAPI ReleaseCapture();

// The highest bit tells that the key is down, the lowest that it is switched on.
SHORT WINAPI GetKeyState(int key);
SHORT WINAPI GetAsyncKeyState(int key);
BOOL WINAPI GetKeyboardState(PBYTE keys);
// 256 bytes: 0x80 for a key that is down. Of this thread.
BOOL WINAPI SetKeyboardState(LPBYTE keys);

// Where the pointer is, in screen coordinates.
BOOL WINAPI GetCursorPos(LPPOINT point);
BOOL WINAPI SetCursorPos(int x, int y);

WIN32HOST_END_C
#pragma GCC visibility pop
