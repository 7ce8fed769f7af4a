// Pixels in memory.
#pragma once

#include "host/handles.h"

#include <cstddef>
#include <vector>

namespace win32host {

// Rows from top to bottom, each filled up to 16 bits; in a row the leftmost pixel is highest. All
// bits of a pixel are clear for black and set for white.
class Bitmap : public HandleObject {
public:
    Bitmap(int width, int height, int bits_per_pixel);

    // False for a size that is not supported here.
    static bool Possible(int width, int height, int bits_per_pixel);

    int BitsPerPixel() const { return bits_per_pixel_; }
    std::vector<BYTE>& Bits() { return bits_; }
    const std::vector<BYTE>& Bits() const { return bits_; }

    // Pixels outside are ignored.
    void Set(int x, int y, bool white);
    void Fill(int x, int y, int width, int height, bool white);

    // The device context that draws on it, or null.
    HDC selected_into = nullptr;

private:
    static size_t Stride(int width, int bits_per_pixel);

    int width_;
    int height_;
    int bits_per_pixel_;
    std::vector<BYTE> bits_;
};

} // namespace win32host
