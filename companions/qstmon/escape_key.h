// How a user gives up waiting for a printer.
#pragma once

#include <windows.h>

// True if the user has pressed Esc since the thread last handled its messages. What else was typed
// at the thread's windows in that time is dropped, as it was typed at a window that does not
// answer. `parent` is the window that waits. Without one (null or the desktop) nobody can give up,
// and the thread's messages are left alone.
bool TakeEscapeKey(HWND parent);
