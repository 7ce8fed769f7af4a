// Error diffusion.
#pragma once

#include <cstdint>

#include "imaging/dither_rows.h"

// An image to screen.
struct DiffusionJob {
    uint8_t* pixels;
    int width; // both at least 1
    int height;
    bool mirror; // mirror the rows left to right first
    bool flip;   // then flip the image top to bottom
    bool jarvis; // the kernel: Jarvis, Judice and Ninke instead of Floyd and Steinberg
    const DitherAdjustment* adjustment;
    const DitherPalette* palette; // not empty in palette mode
    DitherOutput output;
};

// Adjusts and screens the image by error diffusion. False if there is no memory for a few numbers
// per column; the image is then untouched. `last` becomes the last pixel as it was looked up in the
// palette.
bool DiffuseImage(SimdLevel level, const DiffusionJob& job, uint8_t (&last)[3]);
