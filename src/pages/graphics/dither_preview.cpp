#include "pages/graphics/dither_preview.h"

#include <cstring>
#include <new>

#include "imaging/image_dither.h"
#include "settings/scolor.h"

namespace {

constexpr int kPixelSize = 3;

// The bytes of a row in a bitmap, which is filled up to four, and of one to be screened.
size_t StoredRow(int width) {
    return (static_cast<size_t>(width) * kPixelSize + 3) / 4 * 4;
}
size_t PackedRow(int width) {
    return static_cast<size_t>(width) * kPixelSize;
}

bool IsSample(const BITMAPINFO* sample) {
    if (!sample) return false;
    const BITMAPINFOHEADER& header = sample->bmiHeader;
    return header.biSize >= sizeof(BITMAPINFOHEADER) && header.biBitCount == 24 &&
           header.biCompression == BI_RGB && header.biWidth > 0 && header.biHeight > 0 &&
           header.biWidth <= ImageDither::kMaxSide && header.biHeight <= ImageDither::kMaxSide;
}

// Copies rows between a bitmap, whose lowest row comes first, and an image, whose top row does.
void Unpack(const unsigned char* stored, unsigned char* packed, int width, int height) {
    for (int row = 0; row < height; ++row)
        memcpy(packed + static_cast<size_t>(row) * PackedRow(width),
               stored + static_cast<size_t>(height - 1 - row) * StoredRow(width), PackedRow(width));
}
void Pack(const unsigned char* packed, unsigned char* stored, int width, int height) {
    for (int row = 0; row < height; ++row)
        memcpy(stored + static_cast<size_t>(height - 1 - row) * StoredRow(width),
               packed + static_cast<size_t>(row) * PackedRow(width), PackedRow(width));
}

void Screen(unsigned char* pixels, int width, int height, const dithercfg& settings,
            const SCOLOR* inks) {
    ImageDither dither;
    dither.SetBitmap(pixels, width, height, 0);
    dither.SetDither(settings);
    dither.SetColorMode(ImageDither::MONOCHROME, false);
    if (inks) {
        Palette palette;
        inks->GeneratePalette(palette);
        dither.SetPalette(palette);
        dither.SetColorMode(static_cast<int>(inks->mode), false);
    }
    dither.DitherSmooth();
}

} // namespace

DitherPreview::~DitherPreview() {
    if (bitmap_) DeleteObject(bitmap_);
}

HBITMAP DitherPreview::Make(const BITMAPINFO* sample, const dithercfg& settings,
                            const SCOLOR* inks) {
    if (bitmap_) DeleteObject(bitmap_);
    bitmap_ = nullptr;
    if (!IsSample(sample)) return nullptr;
    const int width = sample->bmiHeader.biWidth;
    const int height = sample->bmiHeader.biHeight;
    const auto* stored = reinterpret_cast<const unsigned char*>(sample) + sample->bmiHeader.biSize;
    const size_t packed_size = PackedRow(width) * static_cast<size_t>(height);
    const size_t stored_size = StoredRow(width) * static_cast<size_t>(height);
    const std::unique_ptr<unsigned char[]> packed(new (std::nothrow) unsigned char[packed_size]);
    const std::unique_ptr<unsigned char[]> screened(
        new (std::nothrow) unsigned char[stored_size]());
    if (!packed || !screened) return nullptr;
    Unpack(stored, packed.get(), width, height);
    Screen(packed.get(), width, height, settings, inks);
    Pack(packed.get(), screened.get(), width, height);

    BITMAPINFO description = {};
    description.bmiHeader = sample->bmiHeader;
    description.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    const HDC screen = GetDC(nullptr);
    if (!screen) return nullptr;
    bitmap_ = CreateDIBitmap(screen, &description.bmiHeader, CBM_INIT, screened.get(), &description,
                             DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    return bitmap_;
}
