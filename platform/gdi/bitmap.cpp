#include "gdi/bitmap.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace win32host {
namespace {

constexpr int64_t kLargest = int64_t{256} << 20; // bytes

} // namespace

size_t Bitmap::Stride(int width, int bits_per_pixel) {
    return (static_cast<size_t>(width) * static_cast<size_t>(bits_per_pixel) + 15) / 16 * 2;
}

bool Bitmap::Possible(int width, int height, int bits_per_pixel) {
    constexpr int kDepths[] = {1, 4, 8, 16, 24, 32};
    return width > 0 && height > 0 &&
           std::find(std::begin(kDepths), std::end(kDepths), bits_per_pixel) != std::end(kDepths) &&
           static_cast<int64_t>(Stride(width, bits_per_pixel)) <= kLargest / height;
}

Bitmap::Bitmap(int width, int height, int bits_per_pixel)
    : width_(width)
    , height_(height)
    , bits_per_pixel_(bits_per_pixel)
    , bits_(Stride(width, bits_per_pixel) * static_cast<size_t>(height)) {}

void Bitmap::Set(int x, int y, bool white) {
    if (x < 0 || y < 0 || x >= width_ || y >= height_) return;
    BYTE* const row = bits_.data() + Stride(width_, bits_per_pixel_) * static_cast<size_t>(y);
    const size_t first = static_cast<size_t>(x) * static_cast<size_t>(bits_per_pixel_);
    for (size_t bit = first; bit < first + static_cast<size_t>(bits_per_pixel_); ++bit) {
        const auto mask = static_cast<BYTE>(0x80 >> bit % 8);
        row[bit / 8] = static_cast<BYTE>(white ? row[bit / 8] | mask : row[bit / 8] & ~mask);
    }
}

void Bitmap::Fill(int x, int y, int width, int height, bool white) {
    const int64_t right = std::min<int64_t>(width_, int64_t{x} + width);
    const int64_t bottom = std::min<int64_t>(height_, int64_t{y} + height);
    for (int row = std::max(y, 0); row < bottom; ++row)
        for (int column = std::max(x, 0); column < right; ++column) Set(column, row, white);
}

} // namespace win32host
