// Device-independent bitmaps: headers and pixels that callers or files hand in.
#pragma once

#include "gdi/drawing_context.h"

#include <cstddef>
#include <optional>
#include <span>

namespace win32host {

// What a BITMAPINFO describes.
struct DibInfo {
    PixelLayout layout;      // rows of 32 bits
    bool core = false;       // the older header, whose colours have three bytes
    bool compressed = false; // runs of equal pixels
    size_t table_offset = 0;
    size_t colors = 0;
    size_t bits_offset = 0; // where the pixels start if they follow the colours
};

// Reads a header alone.
std::optional<DibInfo> ReadDibShape(const void* info, size_t size);

// Reads a header and its colours; DIB_PAL_COLORS are looked up in the context's palette, black
// without a context. Nothing if it is no header, its size is not supported, or the kind of its
// pixels is not. `size`: how many bytes there are, as far as that is known.
std::optional<DibInfo> ReadDibInfo(const void* info, size_t size, UINT usage,
                                   const DrawingContext* context);

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

// The rows of a compressed DIB, spread out in the layout. Pixels that its runs leave out are 0.
std::vector<BYTE> ExpandRuns(const PixelLayout& layout, std::span<const BYTE> runs);

// A DIB in memory, such as a bitmap resource, as a bitmap of its own. Its pixels are at
// `bits_offset`; for 0 they follow its colours. Null if it is not one.
#pragma GCC visibility push(default) // the fuzz target looks inside
std::shared_ptr<Bitmap> BitmapOfDib(std::span<const BYTE> dib, size_t bits_offset = 0);
#pragma GCC visibility pop

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
