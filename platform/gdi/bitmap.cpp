#include "gdi/bitmap.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>

namespace win32host {
namespace {

constexpr int64_t kLargest = int64_t{256} << 20; // bytes

} // namespace

bool Bitmap::Possible(int width, int height, int bits_per_pixel) {
    constexpr int kDepths[] = {1, 4, 8, 16, 24, 32};
    if (width <= 0 || height <= 0 ||
        std::find(std::begin(kDepths), std::end(kDepths), bits_per_pixel) == std::end(kDepths))
        return false;
    const int64_t stride = (int64_t{width} * bits_per_pixel + 31) / 32 * 4;
    return stride <= kLargest / height;
}

Bitmap::Bitmap(int width, int height, int bits_per_pixel)
    : layout_{width, height, bits_per_pixel, 16, false, {}, {}}
    , section_(false)
    , bits_(layout_.Size()) {
    layout_.SetDefaultMasks();
    if (bits_per_pixel == 1) layout_.table = {RGB(0, 0, 0), RGB(255, 255, 255)};
    if (bits_per_pixel == 4)
        for (int i = 0; i < 16; ++i) layout_.table.push_back(StandardColor(i));
    if (bits_per_pixel == 8)
        // Three bits of red and green and two of blue.
        for (int i = 0; i < 256; ++i)
            layout_.table.push_back(RGB((i & 7) * 255 / 7, (i >> 3 & 7) * 255 / 7, (i >> 6) * 85));
}

Bitmap::Bitmap(PixelLayout layout)
    : layout_(std::move(layout))
    , section_(true)
    , bits_(layout_.Size()) {}

COLORREF Bitmap::Get(int x, int y) const {
    return layout_.ColorOf(layout_.Read(Row(y), x));
}

void Bitmap::Set(int x, int y, COLORREF color) {
    layout_.Write(Row(y), x, layout_.ValueOf(color));
}

} // namespace win32host
