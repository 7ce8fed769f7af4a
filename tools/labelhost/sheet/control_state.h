// What a control shows and holds, as it is told.
#pragma once

#include "json.h"

#include <windows.h>

// `dialog`: the page or dialog whose client area the control's place is told in.
Json ControlState(HWND control, HWND dialog);

// [x, y, width, height].
Json RectState(const RECT& rect);
