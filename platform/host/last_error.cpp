#include <windows.h>

namespace {
thread_local DWORD t_last_error = 0;
}

extern "C" DWORD WINAPI GetLastError() {
    return t_last_error;
}

extern "C" void WINAPI SetLastError(DWORD code) {
    t_last_error = code;
}
