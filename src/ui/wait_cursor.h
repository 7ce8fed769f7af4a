// The pointer that tells the user to wait.
#pragma once

#include <windows.h>

// Shown while the object lives, around work that takes more than a moment.
class WaitCursor {
public:
    WaitCursor()
        : before_(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}
    ~WaitCursor() { SetCursor(before_); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

private:
    HCURSOR before_;
};
