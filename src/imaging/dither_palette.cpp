#include "imaging/dither_palette.h"

#include <algorithm>
#include <utility>

#include "imaging/simd.h"

#define KERNEL_LEVEL plain
#include "imaging/vector_kernels.h"

DitherPalette::DitherPalette(const uint8_t (*entries)[4], int count) {
    for (int i = 0; i < std::min(count, kMaxSize); ++i) {
        const uint8_t* entry = entries[i];
        const auto same = [entry](const uint8_t* other) {
            return std::equal(entry, entry + 4, other);
        };
        if (std::any_of(entries, entries + i, same)) continue;
        red[size] = entry[0];
        green[size] = entry[1];
        blue[size] = entry[2];
        index[size] = static_cast<uint8_t>(i);
        pixel[size][0] = entry[2];
        pixel[size][1] = entry[1];
        pixel[size][2] = entry[0];
        ++size;
    }
}

void DitherPalette::Search(const uint8_t* point, int32_t& nearest, int32_t& second) const {
    uint32_t first_key = UINT32_MAX, second_key = UINT32_MAX;
    for (int e = 0; e < size; ++e) {
        uint32_t key;
        plain::PaletteKey<uint32_t>(key, *this, e, point[0], point[1], point[2]);
        second_key = std::min(second_key, std::max(first_key, key));
        first_key = std::min(first_key, key);
    }
    nearest = size > 0 ? index[first_key & 15] : -1;
    second = size > 1 ? index[second_key & 15] : -1;
}
