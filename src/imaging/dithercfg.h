// The settings of image dithering.
#pragma once

#include <cstddef>
#include <cstdint>

// How images are reduced to the printer's dots. Part of stored document settings and of the record
// that the dithering exports take: 24 bytes, little-endian.
struct dithercfg {
    int16_t algorithm;  // ALGORITHM_
    int16_t brightness; // the five adjustments: -100 to 100
    int16_t contrast;
    int16_t red;
    int16_t green;
    int16_t blue;
    int16_t dispersed_matrix; // 0 to 2: 2, 4 or 8 dots square
    int16_t clustered_matrix; // 0 to 3: 2, 4, 6 or 8 dots square
    int16_t diffusion_kernel; // 0 Floyd-Steinberg, 1 Jarvis
    int16_t sequence;         // place in the algebraic sequence, 0 to 19
    int16_t flags;            // FLAG_; other bits are preserved
    int16_t reserved;

    enum : int16_t {
        ALGORITHM_NONE = 0,
        ALGORITHM_DISPERSED = 1, // ordered
        ALGORITHM_CLUSTERED = 2, // ordered
        ALGORITHM_ALGEBRAIC = 3,
        ALGORITHM_DIFFUSION = 4,
        ALGORITHM_DEVICE = 5 // diffusion here; the printer takes 24-bit colours
    };
    enum : int16_t { FLAG_MIRROR = 1, FLAG_FLIP = 2, FLAG_INVERT = 4, FLAG_DEFAULT = 16 };

    // Clustered dots of six by six, nothing adjusted.
    void Reset();

    // Brings the settings into their ranges: the adjustments, the algorithm, the dispersed matrix
    // and the kernel move to the nearer limit, and an unknown clustered matrix becomes six by six.
    // Sequence, flags and the reserved field are left as they are.
    void Validate();

    // The clustered matrix whose dots look the same at `dpi` dots per inch: 1 below 180, 2 below
    // 400, else 3.
    static int16_t _DefaultClusterMatrix(int dpi);
};
static_assert(sizeof(dithercfg) == 24);
static_assert(offsetof(dithercfg, dispersed_matrix) == 12);
static_assert(offsetof(dithercfg, reserved) == 22);
