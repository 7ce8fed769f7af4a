// Reduces colour and grey images to the few colours of a label printer.
#pragma once

#include <cstddef>
#include <cstdint>

#include "imaging/dithercfg.h"
#include "imaging/palette.h"

// The dithering engine. The object is at the same time the record through which other modules ask
// for it: its fields are public, and any caller may fill them in place of the operations below.
//
// Pixels are 3 bytes, blue, green and red, rows are packed and the top row is the first one. An
// image is at most 32767 pixels wide and high; a larger one, one without pixels and a null pointer
// are left alone. Nothing is reported.
//
// What the record says out of range never leads outside the image and the engine's own tables: the
// algorithm, the matrices and the kernel are taken as dithercfg::Validate() would leave them, the
// sequence is taken from its nearer end, a pattern is continued to negative origins, a palette
// count above 16 means 16, and without palette entries palette mode only adjusts and mirrors.
struct ImageDither {
    // Values of `color_mode`. Any other value counts as COLOR.
    enum : int32_t {
        MONOCHROME = 0,  // grey at first, then black or white
        PALETTE = 1,     // the palette's colours
        COLOR = 2,       // every channel on or off
        COLOR_BLACK = 3, // the same; the colour index of black is 1
        COLOR_BLACK_2 = 4
    };

    static constexpr int kPaletteSize = Palette::kMaxSize;
    static constexpr int kMaxSide = 32767;

    // No image and the origin at its corner. All other fields are left to the setters.
    ImageDither()
        : pixels(nullptr)
        , origin_x(0)
        , origin_y(0) {}

    // The image to work on. A row size of 0 stores width * 3, which is the only one there is: rows
    // are packed whatever it says.
    void SetBitmap(unsigned char* image, int image_width, int image_height, int image_row_size);

    // The palette, 1..16 entries. Any other count changes nothing.
    void SetPalette(const uint32_t* entries, int count);
    void SetPalette(const Palette& entries);

    // Copies the settings into the record.
    void SetDither(const dithercfg& settings) { config = settings; }

    // `index`: see `index_output`.
    void SetColorMode(int mode, bool index);

    // Adjusts the colours, mirrors the image and screens it, in place. Error diffusion takes memory
    // for a few numbers per column; where there is none the image is left alone.
    //
    // Palette mode chooses among the two entries that are nearest to a pixel; where there is no
    // second one with another value, the nearest is taken.
    void Dither();

    // A preview: dithers the image at twice its size, without origin, and averages every 2 x 2
    // block (byte by byte, rounded down). Leaves the image alone when the larger one exceeds
    // 32767 pixels on a side or finds no memory.
    void DitherSmooth();

    // Three successive numbers of the algebraic sequence 1, 1, 2, 3, 4, 6, 9, ... (each the sum of
    // the one before and the third before), from number n on, 0..19.
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
    // index and the other two stay what adjustment, mirroring and diffusion made of them. The index
    // is 1 for white and 0 for black in monochrome, the entry's number in palette mode, else the
    // sum of the inks: 2 magenta (green is off), 4 cyan (red is off), 8 yellow (blue is off).
    int32_t index_output = 0;

    // The entries nearest to the last pixel that was looked up in the palette (the last one of the
    // image): the nearest, and the nearest of those with another value. -1: none.
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
