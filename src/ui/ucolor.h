// Colours and pens for drawing.
#pragma once

#include <windows.h>

#include <cstdint>

// A colour, black at first.
class UColor {
public:
    UColor() = default;
    explicit UColor(COLORREF value)
        : value_(value) {}
    UColor(uint8_t red, uint8_t green, uint8_t blue)
        : value_(RGB(red, green, blue)) {}
    // One of the system's: COLOR_BTNFACE.
    static UColor OfSystem(int index) { return UColor(GetSysColor(index)); }

    COLORREF GetValue() const { return value_; }
    bool operator==(const UColor&) const = default;

private:
    COLORREF value_ = 0;
};
