// The palette in the form that the dithering kernels search.
#pragma once

#include <cstdint>

// The distinct entries of a palette, in its order. A repeated entry would never be found, as the
// earlier one is as near.
struct DitherPalette {
    static constexpr int kMaxSize = 16;

    DitherPalette() = default;

    // At most kMaxSize entries are taken.
    DitherPalette(const uint8_t (*entries)[4], int count);

    // The entries nearest and second nearest to a pixel, as indices into the caller's palette, or
    // -1 if there are too few entries.
    void Search(const uint8_t* pixel, int32_t& nearest, int32_t& second) const;

    int size = 0;
    uint32_t red[kMaxSize];
    uint32_t green[kMaxSize];
    uint32_t blue[kMaxSize];
    uint8_t index[kMaxSize];    // in the caller's palette
    uint8_t pixel[kMaxSize][3]; // blue, green, red
};
