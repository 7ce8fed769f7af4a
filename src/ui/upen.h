// A pen, owned.
#pragma once

#include <windows.h>

#include "ui/ucolor.h"

// Draws solid lines, one pixel wide unless stated otherwise. Without a pen, for lack of memory,
// lines are drawn with the one that was selected before.
class UPen {
public:
    explicit UPen(UColor color, int width = 1)
        : pen_(CreatePen(PS_SOLID, width, color.GetValue())) {}
    ~UPen() {
        if (pen_) DeleteObject(pen_);
    }
    UPen(const UPen&) = delete;
    UPen& operator=(const UPen&) = delete;

    // Draws one line, without its last point as always.
    void Line(HDC dc, int x1, int y1, int x2, int y2) const {
        const HGDIOBJ before = pen_ ? SelectObject(dc, pen_) : nullptr;
        MoveToEx(dc, x1, y1, nullptr);
        LineTo(dc, x2, y2);
        if (before) SelectObject(dc, before);
    }

private:
    HPEN pen_;
};
