// What of windows must be painted, and where their drawing goes.
//
// This host has no screen. Drawing shows only in a picture that is being made of a window;
// otherwise it goes nowhere, but windows still get WM_PAINT, as programs rely on it.
#pragma once

#include "window/window.h"

#include <memory>

namespace win32host {

class Surface;

// A picture that is being made on this thread: windows are painted on its surface.
struct PictureInProgress {
    std::shared_ptr<Surface> surface;
    POINT origin; // the point of the screen at the surface's upper left corner
};

// Set for as long as a picture is made; null otherwise.
void SetPicture(const PictureInProgress* picture);
const PictureInProgress* CurrentPicture();

// Marks an area of the client area, or all of it for null.
void MarkForPaint(Window& window, const RECT* rect, bool erase);
void ForgetPaint(Window& window);

// A visible window of the thread that must be painted, in or below `within` (null: any).
HWND WindowToPaint(MessageQueue& queue, HWND within);

} // namespace win32host
