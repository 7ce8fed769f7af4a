// How pixels lie in memory, and their colours.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace win32host {

// How far two colours are from each other.
int Distance(COLORREF a, COLORREF b);

#pragma GCC visibility push(default) // the fuzz target looks inside

// The colours that the sixteen values of a 4-bit pixel have by default.
COLORREF StandardColor(int index);

// How a bitmap's pixels lie in memory. The first pixel of a byte is in its highest bits; 16-bit
// pixels have five bits for each colour, blue lowest, unless the masks say otherwise; 24 and 32-bit
// ones have blue, green and red.
struct PixelLayout {
    int width = 0;
    int height = 0;
    int bits_per_pixel = 0;
    int alignment = 16;          // rows are filled up to this many bits
    bool bottom_up = false;      // the lowest row comes first
    uint32_t masks[3] = {};      // red, green, blue of 16 and 32-bit pixels
    std::vector<COLORREF> table; // of 1, 4 and 8-bit pixels

    size_t Stride() const;
    size_t Size() const { return Stride() * static_cast<size_t>(height); }
    // The masks that pixels of this depth have without any being named.
    void SetDefaultMasks();
    uint32_t Read(const BYTE* row, int x) const;
    void Write(BYTE* row, int x, uint32_t value) const;
    COLORREF ColorOf(uint32_t value) const;
    uint32_t ValueOf(COLORREF color) const; // of the nearest colour
};

#pragma GCC visibility pop

} // namespace win32host
