// The numbers of a scroll bar, of a window's own or of a control.
#pragma once

#include <windows.h>

namespace win32host {

struct ScrollBar {
    bool used = false; // something was set
    bool disabled = false;
    int least = 0;
    int most = 100;
    int page = 0; // 0: none
    int position = 0;

    bool Fits() const;
    // Takes what the mask names, and limits page and position. False if the mask names nothing.
    bool Take(const SCROLLINFO& info);
    // Stores what the mask names.
    void Tell(SCROLLINFO& info) const;
    // Where a bar of `length` pixels has its thumb, between arrows of `arrow` pixels; equal for
    // none.
    void Thumb(int length, int arrow, int& start, int& end) const;
};

// What a WM_HSCROLL or WM_VSCROLL asks for: the new position, moved by `line` or a page and
// limited. `request` is the message's first parameter.
int ScrolledTo(HWND window, int bar, WPARAM request, int line);

// Draws the window's own scroll bars on a context of the whole window (GetWindowDC).
void DrawScrollBars(HWND window, HDC dc);

} // namespace win32host
