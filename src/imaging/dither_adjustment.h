// The colour adjustment that comes before screening.
#pragma once

#include <cstdint>

#include "imaging/dithercfg.h"

// The effect of the settings on the three channels of a pixel (0 blue, 1 green, 2 red), in 16-bit
// arithmetic: invert, add, change the contrast, and in monochrome mix the channels to grey.
struct DitherAdjustment {
    DitherAdjustment(const dithercfg& config, bool monochrome);

    // The value of a channel before it is mixed and clamped.
    int16_t Channel(const dithercfg& config, int channel, uint8_t value) const;

    bool grey;
    bool nothing; // pixels stay as they are

    // Whether the numbers below describe it. They do while all adjustments are in their ranges;
    // otherwise the tables do, into which sums wrap as 16-bit numbers.
    bool linear;
    int16_t inversion; // 0, or -1 to invert; a channel is (value ^ inversion) + offset
    int16_t offset[3];
    uint16_t slope; // contrast in percent, 100 for no change
    int16_t table[3][256];
};
