// A picture in memory: 32-bit pixels.
#pragma once

#include "gdi/pixels.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace win32host {

// Rows from top to bottom, without gaps. A pixel is blue, green, red and alpha in memory;
// everything that is drawn is opaque (alpha 255). It starts in white.
class Surface : public Pixels {
public:
    // Both at least 0.
    Surface(int width, int height)
        : width_(width)
        , height_(height)
        , pixels_(static_cast<size_t>(width) * static_cast<size_t>(height), 0xFFFFFFFF) {}

    int Width() const override { return width_; }
    int Height() const override { return height_; }
    int BitsPerPixel() const override { return 32; }
    COLORREF Get(int x, int y) const override { return Swapped(pixels_[At(x, y)]); }
    void Set(int x, int y, COLORREF color) override {
        pixels_[At(x, y)] = 0xFF000000 | Swapped(color);
    }

    // All pixels, as numbers 0xAARRGGBB.
    const std::vector<uint32_t>& All() const { return pixels_; }

private:
    // A COLORREF has red in its lowest byte.
    static uint32_t Swapped(uint32_t color) {
        return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
    }
    size_t At(int x, int y) const {
        return static_cast<size_t>(y) * static_cast<size_t>(width_) + static_cast<size_t>(x);
    }

    int width_;
    int height_;
    std::vector<uint32_t> pixels_;
};

} // namespace win32host
