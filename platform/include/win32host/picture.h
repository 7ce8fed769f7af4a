// Pictures of windows, and the resolution of the screen.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

#pragma GCC visibility push(default)
namespace win32host {

// The dots per inch of the screen, 96 by default (and for 0 or less). Set it before windows are
// made: those that exist keep their sizes.
void SetScreenDpi(int dpi);

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<uint8_t> rgb; // rows from top to bottom, three bytes for each pixel, no gaps
};

// A window of this thread as a person would see it, with its frame and everything that is in it, at
// their true positions. Windows that lie over it are not shown. Hidden windows inside are left out;
// the window itself is shown in any case. Empty (width 0) if there is no such window.
Picture PictureOf(HWND window);

} // namespace win32host
#pragma GCC visibility pop
