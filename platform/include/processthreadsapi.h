// Values that every thread has for itself. processthreadsapi.h of the SDK has more.
#pragma once

#include <windef.h>

#define TLS_OUT_OF_INDEXES ((DWORD)0xFFFFFFFF)

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// Reserves an index whose value is null on every thread. TLS_OUT_OF_INDEXES if there is none left.
DWORD WINAPI TlsAlloc(void);
BOOL WINAPI TlsFree(DWORD index);
// The value of this thread. Clears the last error unless the index is not in use.
LPVOID WINAPI TlsGetValue(DWORD index);
BOOL WINAPI TlsSetValue(DWORD index, LPVOID value);

// Numbers that no two running threads or processes of the machine share.
DWORD WINAPI GetCurrentThreadId();
DWORD WINAPI GetCurrentProcessId();

WIN32HOST_END_C
#pragma GCC visibility pop
