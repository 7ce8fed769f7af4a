// How an entry point fails.
#pragma once

#include <windows.h>

// Sets the last error; always FALSE, to be returned.
inline BOOL Fail(DWORD error) {
    SetLastError(error);
    return FALSE;
}
