#include "gdi/dib.h"

#include <utility>

namespace win32host {

PixelBlock ReadDib(const PixelLayout& layout, const BYTE* bits, const RECT& area) {
    const RECT all = {0, 0, layout.width, layout.height};
    RECT part;
    IntersectRect(&part, &area, &all);
    PixelBlock block(part);
    for (int y = part.top; y < part.bottom; ++y) {
        const int line = layout.bottom_up ? layout.height - 1 - y : y;
        const BYTE* row = bits + layout.Stride() * static_cast<size_t>(line);
        for (int x = part.left; x < part.right; ++x)
            block.At(x, y) = layout.ColorOf(layout.Read(row, x));
    }
    return block;
}

std::shared_ptr<Bitmap> BitmapOfDib(std::span<const BYTE> dib, size_t bits_offset) {
    auto read = ReadPackedDib(dib, bits_offset);
    if (!read) return nullptr;
    auto bitmap = std::make_shared<Bitmap>(std::move(read->layout));
    bitmap->Bits() = std::move(read->bits);
    return bitmap;
}

} // namespace win32host
