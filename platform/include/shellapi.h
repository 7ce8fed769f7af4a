// Opening files and programs.
#pragma once

#include <windef.h>

#define SE_ERR_FNF 2
#define SE_ERR_PNF 3
#define SE_ERR_ACCESSDENIED 5
#define SE_ERR_OOM 8
#define SE_ERR_NOASSOC 31

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// Asks the system to do something (null: "open") with a file, an address or a program. This host
// notes it (win32host/control.h, TakeSystemActs) and does no more. Answers more than 32, or
// SE_ERR_FNF for a path of a file that is not there.
HINSTANCE WINAPI ShellExecuteW(HWND owner, LPCWSTR operation, LPCWSTR file, LPCWSTR parameters,
                               LPCWSTR folder, INT show);

WIN32HOST_END_C
#pragma GCC visibility pop
