// Help files. The function is bound at run time: it is in the library "hhctrl.ocx".
#pragma once

#include <windef.h>

#define HH_DISPLAY_TOPIC 0x0000
#define HH_HELP_FINDER 0x0000
#define HH_DISPLAY_TOC 0x0001
#define HH_DISPLAY_INDEX 0x0002
#define HH_HELP_CONTEXT 0x000F
#define HH_CLOSE_ALL 0x0012

#define ATOM_HTMLHELP_API_ANSI ((LPCSTR)(ULONG_PTR)(WORD)14)
#define ATOM_HTMLHELP_API_UNICODE ((LPCSTR)(ULONG_PTR)(WORD)15)

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// Shows a topic: `file` is a help file, with "::" and a topic after it. This host notes it
// (win32host/control.h, TakeSystemActs) and answers null.
HWND WINAPI HtmlHelpW(HWND caller, LPCWSTR file, UINT command, DWORD_PTR data);

WIN32HOST_END_C
#pragma GCC visibility pop
