// A point in pixels.
#pragma once

#include <windows.h>

#include <cstdint>

struct CPoint : POINT {
    CPoint()
        : CPoint(0, 0) {}
    CPoint(int32_t left, int32_t top) {
        x = left;
        y = top;
    }
    // The position in the second parameter of a mouse message. Both parts have a sign.
    static CPoint OfMessage(LPARAM position) {
        return {static_cast<int16_t>(LOWORD(position)), static_cast<int16_t>(HIWORD(position))};
    }
};
