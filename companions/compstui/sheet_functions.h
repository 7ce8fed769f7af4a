// What page functions can ask of the sheet that their pages are in.
#pragma once

#include <windows.h>

#include <compstui.h>

namespace compstui {

// PFNCOMPROPSHEET. `sheet` is the handle that the page function was called with.
LONG_PTR CALLBACK SheetFunction(HANDLE sheet, UINT function, LPARAM first, LPARAM second);

// The text with this number (IDS_CPSUI_), or null.
LPCWSTR StandardText(UINT number);

} // namespace compstui
