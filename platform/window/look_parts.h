// What several drawings of the look have in common.
#pragma once

#include "window/look.h"

namespace win32host::look {

// A square in the middle of a rectangle.
RECT MiddleOf(const RECT& rect, int size);
// The sign of what is checked, in a square of 13 units.
void DrawTickSign(HDC dc, const RECT& box, COLORREF color);

} // namespace win32host::look
