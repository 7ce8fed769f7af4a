#include "gdi/pixel_layout.h"

#include <algorithm>
#include <bit>

namespace win32host {
namespace {

// The part of a pixel that a mask selects, stretched to 8 bits.
uint32_t Extracted(uint32_t value, uint32_t mask) {
    if (!mask) return 0;
    const int shift = std::countr_zero(mask);
    const uint64_t largest = mask >> shift;
    return static_cast<uint32_t>(((value & mask) >> shift) * uint64_t{255} / largest);
}

uint32_t Inserted(uint32_t part, uint32_t mask) {
    if (!mask) return 0;
    const int shift = std::countr_zero(mask);
    const uint64_t largest = mask >> shift;
    return static_cast<uint32_t>((part * largest + 127) / 255 << shift) & mask;
}

} // namespace

int Distance(COLORREF a, COLORREF b) {
    const int red = GetRValue(a) - GetRValue(b);
    const int green = GetGValue(a) - GetGValue(b);
    const int blue = GetBValue(a) - GetBValue(b);
    return red * red + green * green + blue * blue;
}

COLORREF StandardColor(int index) {
    if (index == 7) return RGB(192, 192, 192);
    if (index == 8) return RGB(128, 128, 128);
    const int strength = index > 8 ? 255 : 128;
    return RGB(index & 1 ? strength : 0, index & 2 ? strength : 0, index & 4 ? strength : 0);
}

size_t PixelLayout::Stride() const {
    const auto unit = static_cast<size_t>(alignment);
    return (static_cast<size_t>(width) * static_cast<size_t>(bits_per_pixel) + unit - 1) / unit *
           (unit / 8);
}

void PixelLayout::SetDefaultMasks() {
    const bool small = bits_per_pixel == 16;
    masks[0] = small ? 0x7C00 : 0xFF0000;
    masks[1] = small ? 0x03E0 : 0x00FF00;
    masks[2] = small ? 0x001F : 0x0000FF;
}

uint32_t PixelLayout::Read(const BYTE* row, int x) const {
    const auto column = static_cast<size_t>(x);
    if (bits_per_pixel < 8) {
        const size_t bit = column * static_cast<size_t>(bits_per_pixel);
        const size_t shift = 8 - static_cast<size_t>(bits_per_pixel) - bit % 8;
        return (row[bit / 8] >> shift) & ((1u << bits_per_pixel) - 1);
    }
    uint32_t value = 0;
    const auto size = static_cast<size_t>(bits_per_pixel / 8);
    for (size_t i = 0; i < size; ++i) value |= uint32_t{row[column * size + i]} << 8 * i;
    return value;
}

void PixelLayout::Write(BYTE* row, int x, uint32_t value) const {
    const auto column = static_cast<size_t>(x);
    if (bits_per_pixel < 8) {
        const size_t bit = column * static_cast<size_t>(bits_per_pixel);
        const size_t shift = 8 - static_cast<size_t>(bits_per_pixel) - bit % 8;
        const uint32_t mask = ((1u << bits_per_pixel) - 1) << shift;
        row[bit / 8] = static_cast<BYTE>((row[bit / 8] & ~mask) | (value << shift & mask));
        return;
    }
    const auto size = static_cast<size_t>(bits_per_pixel / 8);
    for (size_t i = 0; i < size; ++i) row[column * size + i] = static_cast<BYTE>(value >> 8 * i);
}

COLORREF PixelLayout::ColorOf(uint32_t value) const {
    if (bits_per_pixel <= 8) return value < table.size() ? table[value] : 0;
    return RGB(Extracted(value, masks[0]), Extracted(value, masks[1]), Extracted(value, masks[2]));
}

uint32_t PixelLayout::ValueOf(COLORREF color) const {
    if (bits_per_pixel > 8)
        return Inserted(GetRValue(color), masks[0]) | Inserted(GetGValue(color), masks[1]) |
               Inserted(GetBValue(color), masks[2]);
    const auto nearest =
        std::min_element(table.begin(), table.end(), [color](COLORREF a, COLORREF b) {
            return Distance(a, color) < Distance(b, color);
        });
    return static_cast<uint32_t>(nearest - table.begin());
}

} // namespace win32host
