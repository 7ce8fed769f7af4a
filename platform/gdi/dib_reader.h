// Device-independent bitmaps that callers or files hand in.
#pragma once

#include "gdi/pixel_layout.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace win32host {

class DrawingContext;

#pragma GCC visibility push(default) // the fuzz target looks inside

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

// The rows of a compressed DIB, spread out in the layout. Pixels that its runs leave out are 0.
std::vector<BYTE> ExpandRuns(const PixelLayout& layout, std::span<const BYTE> runs);

// A DIB that lies in memory in one piece, such as a bitmap resource.
struct PackedDib {
    PixelLayout layout;
    std::vector<BYTE> bits;
};

// Nothing if the bytes are no DIB or end before its pixels do; runs may end anywhere. The pixels
// are at `bits_offset`; for 0 they follow the colours.
std::optional<PackedDib> ReadPackedDib(std::span<const BYTE> dib, size_t bits_offset);

#pragma GCC visibility pop

} // namespace win32host
