// The mouse and the keyboard, as messages to windows of this thread. They are posted, so that they
// come in the order in which a person's would; what they cause has happened when the thread's loops
// are idle again.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

// Presses and releases the left button at a place of the window's client area; twice for a double
// click. The keys in `held` (HELD_) are down until ReleaseHeldKeys.
void PostClick(HWND window, POINT place, uint32_t held = 0);
void PostDoubleClick(HWND window, POINT place);
// In the middle of the window.
void PostClick(HWND window, uint32_t held = 0);

// Presses a key in the window; `key` is a virtual key.
void PostKey(HWND window, int key, uint32_t held = 0);

// Nothing is held any more. Call it when the loops are idle after an act.
void ReleaseHeldKeys();

// Moves the focus to a control of the dialog, as the Tab key does.
void GoTo(HWND dialog, HWND control);

// Tells the parent of a control what has happened in it.
void SendCommand(HWND control, int code);
