#include "qstmon/escape_key.h"

bool TakeEscapeKey(HWND parent) {
    if (!parent || parent == GetDesktopWindow()) return false;
    MSG message;
    while (PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE))
        if (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE) return true;
    return false;
}
