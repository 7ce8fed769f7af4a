// Device-independent bitmaps as what contexts draw.
#pragma once

#include "gdi/dib_reader.h"
#include "gdi/drawing_context.h"

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace win32host {

// Pixels that are read, from top to bottom: an area of something bigger. What lies outside is
// CLR_INVALID.
class PixelBlock {
public:
    explicit PixelBlock(const RECT& area)
        : area_(area)
        , colors_(static_cast<size_t>(Width()) * static_cast<size_t>(area.bottom - area.top)) {}

    const RECT& Area() const { return area_; }
    COLORREF& At(int x, int y) {
        return colors_[static_cast<size_t>(y - area_.top) * static_cast<size_t>(Width()) +
                       static_cast<size_t>(x - area_.left)];
    }
    COLORREF Get(int x, int y) const {
        if (x < area_.left || x >= area_.right || y < area_.top || y >= area_.bottom)
            return CLR_INVALID;
        return colors_[static_cast<size_t>(y - area_.top) * static_cast<size_t>(Width()) +
                       static_cast<size_t>(x - area_.left)];
    }

private:
    int Width() const { return area_.right - area_.left; }

    RECT area_;
    std::vector<COLORREF> colors_;
};

// The part of an uncompressed DIB inside `area`, whose rows count from the top.
PixelBlock ReadDib(const PixelLayout& layout, const BYTE* bits, const RECT& area);

// A DIB in memory, such as a bitmap resource, as a bitmap of its own. Its pixels are at
// `bits_offset`; for 0 they follow its colours. Null if it is not one.
std::shared_ptr<Bitmap> BitmapOfDib(std::span<const BYTE> dib, size_t bits_offset = 0);

// An area of pixels of the device or of a bitmap. Negative extents mirror: they reach to the left
// of the start, or above it, with the start.
struct Place {
    int x;
    int y;
    int width;
    int height;
};

// Draws pixels, stretched from one place to the other, and combined with the brush and what is
// there.
void DrawPixels(DrawingContext& context, const Place& to, const PixelBlock& pixels,
                const Place& from, DWORD operation);
// The same place in pixels of the device. Extents beyond any sensible size are cut.
Place ToDevice(const DrawingContext& context, const Place& place);
// The rectangle of a place, the right way round.
RECT AreaOf(const Place& place);

} // namespace win32host
