// The loop that runs while a menu is open.
#pragma once

#include <windows.h>

namespace win32host {

// Takes the input that a menu's window gets by itself. False if no menu is open on this thread or
// if the message is not input.
bool HandleMenuInput(const MSG& message);

// Ends the loop because a menu's window was destroyed by others.
void ForgetMenuWindow(HWND window);

} // namespace win32host
