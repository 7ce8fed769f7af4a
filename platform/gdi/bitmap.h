// Pixels in memory.
#pragma once

#include "gdi/object.h"
#include "gdi/pixels.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace win32host {

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

class Bitmap : public GdiObject, public Pixels {
public:
    // Rows from the top, each filled up to 16 bits, with the default colours, all black.
    Bitmap(int width, int height, int bits_per_pixel);
    // With a layout of its own: a DIB section.
    explicit Bitmap(PixelLayout layout);

    // False for a size that is not supported here.
    static bool Possible(int width, int height, int bits_per_pixel);

    int Width() const override { return layout_.width; }
    int Height() const override { return layout_.height; }
    int BitsPerPixel() const override { return layout_.bits_per_pixel; }
    COLORREF Get(int x, int y) const override;
    void Set(int x, int y, COLORREF color) override;

    const PixelLayout& Layout() const { return layout_; }
    PixelLayout& Layout() { return layout_; }
    std::vector<BYTE>& Bits() { return bits_; }
    const std::vector<BYTE>& Bits() const { return bits_; }
    BYTE* Row(int y) { return bits_.data() + RowStart(y); }
    const BYTE* Row(int y) const { return bits_.data() + RowStart(y); }
    bool IsSection() const { return section_; }

    // The device context that draws on it, or null.
    HDC selected_into = nullptr;

private:
    size_t RowStart(int y) const {
        return layout_.Stride() *
               static_cast<size_t>(layout_.bottom_up ? layout_.height - 1 - y : y);
    }

    PixelLayout layout_;
    bool section_;
    std::vector<BYTE> bits_;
};

#pragma GCC visibility pop

} // namespace win32host
