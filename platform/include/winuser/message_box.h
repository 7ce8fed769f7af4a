// Message boxes.
#pragma once

#include <windef.h>

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
#define MB_DEFMASK 0x00000F00
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

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// Shows a box and answers the button that was chosen; 0 on failure. Esc chooses Cancel, or OK where
// that is the only button, and nothing in other boxes. A thread without a user (win32host/user.h)
// shows nothing: the box is noted and answered as win32host/control.h describes.
int WINAPI MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);

WIN32HOST_END_C
#pragma GCC visibility pop
