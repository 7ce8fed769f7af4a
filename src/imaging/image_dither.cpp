#include "imaging/image_dither.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

#include "imaging/dither_engine.h"
#include "imaging/dither_pattern.h"

void ImageDither::SetBitmap(unsigned char* image, int image_width, int image_height,
                            int image_row_size) {
    pixels = image;
    width = image_width;
    height = image_height;
    row_size = image_row_size != 0 ? image_row_size
                                   : static_cast<int32_t>(3 * static_cast<uint32_t>(image_width));
}

void ImageDither::SetPalette(const uint32_t* entries, int count) {
    if (count < 1 || count > kPaletteSize) return;
    for (int i = 0; i < count; ++i)
        for (int byte = 0; byte < 4; ++byte)
            palette[i][byte] = static_cast<uint8_t>(entries[i] >> (8 * byte));
    palette_count = count;
}

void ImageDither::SetPalette(const Palette& entries) {
    SetPalette(entries.GetData(), entries.GetSize());
}

void ImageDither::SetColorMode(int mode, bool index) {
    color_mode = mode;
    index_output = index ? 1 : 0;
}

void ImageDither::Dither() {
    DitherImage(*this, BestSimdLevel());
}

void ImageDither::DitherSmooth() {
    if (!pixels || width < 1 || height < 1 || width > kMaxSide / 2 || height > kMaxSide / 2) return;
    const size_t small_row = 3 * static_cast<size_t>(width);
    const size_t large_row = 2 * small_row;
    const size_t rows = static_cast<size_t>(height);
    if (rows > SIZE_MAX / 2 / large_row) return;
    const std::unique_ptr<uint8_t[]> large(new (std::nothrow) uint8_t[2 * rows * large_row]);
    if (!large) return;

    for (size_t y = 0; y < rows; ++y) {
        const uint8_t* from = pixels + y * small_row;
        uint8_t* to = large.get() + 2 * y * large_row;
        for (size_t x = 0; x < small_row; x += 3) {
            std::memcpy(to + 2 * x, from + x, 3);
            std::memcpy(to + 2 * x + 3, from + x, 3);
        }
        std::memcpy(to + large_row, to, large_row);
    }

    ImageDither engine = *this;
    engine.SetBitmap(large.get(), 2 * width, 2 * height, 0);
    engine.origin_x = engine.origin_y = 0;
    engine.Dither();

    for (size_t y = 0; y < rows; ++y) {
        const uint8_t* upper = large.get() + 2 * y * large_row;
        const uint8_t* lower = upper + large_row;
        uint8_t* to = pixels + y * small_row;
        for (size_t x = 0; x < small_row; x += 3)
            for (size_t i = x; i < x + 3; ++i) {
                const size_t at = i + x;
                to[i] = static_cast<uint8_t>(
                    (upper[at] + upper[at + 3] + lower[at] + lower[at + 3]) >> 2);
            }
    }
}

void ImageDither::GetAlgebraicSequence(int n, int& A, int& B, int& C) {
    DitherPattern::GetSequence(n, A, B, C);
}
