// Pixels in memory.
#pragma once

#include "gdi/object.h"
#include "gdi/pixel_layout.h"
#include "gdi/pixels.h"

#include <cstddef>
#include <vector>

namespace win32host {

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

} // namespace win32host
