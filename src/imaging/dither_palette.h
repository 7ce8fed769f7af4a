// The palette as the dithering kernels search it.
#pragma once

#include <cstdint>

#include "imaging/simd.h"

// The distinct entries of a palette, in its order. An entry that repeats an earlier one is never
// found: the earlier one is as near.
struct DitherPalette {
    static constexpr int kMaxSize = 16;

    DitherPalette() = default;

    // At most kMaxSize entries are taken.
    DitherPalette(const uint8_t (*entries)[4], int count);

    // The entries nearest and second nearest to a pixel, as indices into the caller's palette; -1
    // where there are not so many.
    void Search(const uint8_t* pixel, int32_t& nearest, int32_t& second) const;

    int size = 0;
    uint32_t red[kMaxSize];
    uint32_t green[kMaxSize];
    uint32_t blue[kMaxSize];
    uint8_t index[kMaxSize];    // in the caller's palette
    uint8_t pixel[kMaxSize][3]; // blue, green, red
};

// The distance from pixels to entry `e`, shifted left by four, with `e` in the low bits: of such
// keys the least one belongs to the nearest entry, and to the first one among equals. They need
// 24 bits.
template <class U>
KERNEL_INLINE void PaletteKey(U& key, const DitherPalette& palette, int e, const U& blue,
                              const U& green, const U& red) {
    const U dr = palette.red[e] - red;
    const U dg = palette.green[e] - green;
    const U db = palette.blue[e] - blue;
    const U mean = (palette.red[e] + red) >> 1;
    const U distance =
        (((512 + mean) * (dr * dr)) >> 8) + ((dg * dg) << 2) + (((767 - mean) * (db * db)) >> 8);
    key = (distance << 4) | static_cast<uint32_t>(e);
}
