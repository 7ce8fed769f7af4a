// What surrounds the client area of fields: a border and scroll bars.
#pragma once

#include <windows.h>

namespace win32host {

// Paints it (WM_NCPAINT), in the colour of what has the focus on request.
void PaintFieldFrame(HWND field, bool focused);

} // namespace win32host
