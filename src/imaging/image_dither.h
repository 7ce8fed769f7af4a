// Reduces colour and grey images to the few colours of a label printer.
#pragma once

#include <cstddef>
#include <cstdint>

#include "imaging/dithercfg.h"
#include "imaging/palette.h"

// The dithering engine. The object is also the record through which other modules use it: its
// fields are public, and any caller may set them instead of calling the operations below.
//
// Pixels are 3 bytes, blue, green and red. Rows are packed, and the top row comes first. An image
// is at most 32767 pixels wide and high. A larger one, one without pixels and a null pointer are
// left alone. Nothing is reported.
//
// Values out of range never lead outside the image and the engine's own tables. The algorithm, the
// matrices and the kernel are taken as dithercfg::Validate() would leave them, the sequence is
// taken from its nearer end, a pattern extends to negative origins, a palette count above 16 means
// 16, and without palette entries palette mode only adjusts and mirrors.
struct ImageDither {
    // Values of `color_mode`. Any other value counts as COLOR.
    enum : int32_t {
        MONOCHROME = 0,  // made grey, then black or white
        PALETTE = 1,     // the palette's colours
        COLOR = 2,       // every channel on or off
        COLOR_BLACK = 3, // the same; the colour index of black is 1
        COLOR_BLACK_2 = 4
    };

    static constexpr int kPaletteSize = Palette::kMaxSize;
    static constexpr int kMaxSide = 32767;

    // Sets no image, and the origin at its corner. All other fields are left to the setters.
    ImageDither()
        : pixels(nullptr)
        , origin_x(0)
        , origin_y(0) {}

    // The image to work on. A row size of 0 stores width * 3. That is the only one that works: rows
    // are packed whatever it says.
    void SetBitmap(unsigned char* image, int image_width, int image_height, int image_row_size);

    // The palette, of 1 to 16 entries. Any other count changes nothing.
    void SetPalette(const uint32_t* entries, int count);
    void SetPalette(const Palette& entries);

    // Copies the settings into the record.
    void SetDither(const dithercfg& settings) { config = settings; }

    // `index`: see `index_output`.
    void SetColorMode(int mode, bool index);

    // Adjusts the colours, mirrors the image and screens it, in place. Error diffusion needs memory
    // for a few numbers per column; without it the image is left alone.
    //
    // Palette mode chooses between the two entries that are nearest to a pixel. If there is no
    // second one with another value, the nearest is taken.
    void Dither();

    // A preview: dithers the image at twice its size, without origin, and averages every 2 x 2
    // block (byte by byte, rounded down). Leaves the image alone if the larger one exceeds 32767
    // pixels on a side or there is no memory for it.
    void DitherSmooth();

    // Three successive numbers, from number n (0..19) on, of the algebraic sequence 1, 1, 2, 3, 4,
    // 6, 9, ... Each is the sum of the one before and the third before.
    static void GetAlgebraicSequence(int n, int& A, int& B, int& C);

    unsigned char* pixels = nullptr;
    int32_t width = 0;
    int32_t height = 0;
    int32_t row_size = 0;

    // Red, green, blue and an unused byte each.
    uint8_t palette[kPaletteSize][4] = {};
    int32_t palette_count = 0;
    int32_t color_mode = 0;

    // 0: the colour goes into all three bytes of a pixel. Otherwise the first byte becomes a colour
    // index, and the other two stay as adjustment, mirroring and diffusion left them. The index is
    // 1 for white and 0 for black in monochrome, the entry's number in palette mode, else the sum
    // of the inks: 2 magenta (green is off), 4 cyan (red is off), 8 yellow (blue is off).
    int32_t index_output = 0;

    // Results of the last palette lookup, that of the image's last pixel: the nearest entry, and
    // the nearest of those with another value. -1 if there is none.
    int32_t nearest = -1;
    int32_t second_nearest = -1;

    // Added to a pixel's column and row when it is looked up in a pattern.
    int32_t origin_x = 0;
    int32_t origin_y = 0;

    dithercfg config = {};
};
static_assert(sizeof(void*) != 4 || sizeof(ImageDither) == 132);
static_assert(offsetof(ImageDither, width) == sizeof(void*));
static_assert(offsetof(ImageDither, palette) == sizeof(void*) + 12);
static_assert(offsetof(ImageDither, palette_count) == sizeof(void*) + 76);
static_assert(offsetof(ImageDither, nearest) == sizeof(void*) + 88);
static_assert(offsetof(ImageDither, config) == sizeof(void*) + 104);
