// Who has the keyboard and the mouse.
#pragma once

#include <windows.h>

namespace win32host {

// Gives up focus, activation and capture of a window that is hidden or ends, and of everything in
// it.
void LeaveWindow(HWND window);

// Makes the window at the top that `window` is in the active one.
void Activate(HWND window);

} // namespace win32host
