// What surrounds a window's client area: borders, a caption, scroll bars. In pixels of the screen.
#pragma once

#include "window/window.h"

namespace win32host {

struct FrameWidths {
    int border;  // on every side
    int caption; // above, in addition
    int right;   // scroll bars, in addition
    int bottom;
};

FrameWidths FrameOf(DWORD style, DWORD extended_style);

// A size of 96 dots per inch in pixels of the screen.
int ScreenPixels(int size);

// Asks the window for its client area (WM_NCCALCSIZE) and keeps it.
void UpdateClient(Window& window);

} // namespace win32host
