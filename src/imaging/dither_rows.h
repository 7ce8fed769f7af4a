// Work on one row of an image.
#pragma once

#include <cstdint>

#include "imaging/dither_adjustment.h"
#include "imaging/dither_palette.h"
#include "imaging/dither_pattern.h"
#include "imaging/simd.h"

// The output of screening.
struct DitherOutput {
    enum Kind { MONOCHROME, PALETTE, COLOR };
    Kind kind;
    bool index;
    uint8_t black; // the colour index of black
};

// Mirrors a row of pixels left to right.
void MirrorRow(uint8_t* row, int width);

// Mirrors an image top to bottom.
void FlipRows(uint8_t* pixels, int width, int height);

// Adjusts a row of pixels.
void AdjustRow(SimdLevel level, uint8_t* row, int width, const DitherAdjustment& adjustment);

// Adjusts a row of pixels and compares it with a row of a pattern. In palette mode a pixel becomes
// the nearest entry, or with `mix` the one of the two nearest that the pattern chooses; `range` is
// the pattern's.
struct ScreenJob {
    const DitherAdjustment* adjustment;
    const DitherPalette* palette;
    DitherOutput output;
    bool mix;
    uint32_t range;
};
void ScreenRow(SimdLevel level, uint8_t* row, int width, const ScreenJob& job,
               const DitherPattern::Row& pattern);
