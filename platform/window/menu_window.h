// The window that shows an open menu, of the class "#32768".
#pragma once

#include <windows.h>

namespace win32host {

// Makes the window for a menu, as large as its items need, at 0, 0 and not yet visible. Null with
// the last error set.
HWND CreateMenuWindow(HMENU menu, HWND owner);

// The position of the item at a point of the window, or -1.
int MenuItemAt(HWND window, POINT point);

// Lights up the item at a position and none else; -1 for none.
void HighlightMenuItem(HWND window, int position);

} // namespace win32host
