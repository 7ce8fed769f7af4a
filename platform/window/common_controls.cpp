#include "host/guarded.h"

#include <commctrl.h>

extern "C" BOOL WINAPI InitCommonControlsEx(const INITCOMMONCONTROLSEX* wanted) {
    if (!wanted || wanted->dwSize != sizeof(*wanted))
        return win32host::Fail(ERROR_INVALID_PARAMETER);
    return TRUE;
}

extern "C" void WINAPI InitCommonControls() {}
