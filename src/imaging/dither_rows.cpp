#include "imaging/dither_rows.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#define KERNELS "imaging/dither_rows_kernels.h"
#include "imaging/kernel_levels.h"

void MirrorRow(uint8_t* row, int width) {
    uint8_t* right = row + 3 * static_cast<ptrdiff_t>(width);
    for (uint8_t* left = row; right - left >= 6; left += 3) {
        right -= 3;
        std::swap_ranges(left, left + 3, right);
    }
}

void FlipRows(uint8_t* pixels, int width, int height) {
    const ptrdiff_t row_size = 3 * static_cast<ptrdiff_t>(width);
    uint8_t* bottom = pixels + (height - 1) * row_size;
    for (uint8_t* top = pixels; top < bottom; top += row_size, bottom -= row_size)
        std::swap_ranges(top, top + row_size, bottom);
}

void AdjustRow([[maybe_unused]] SimdLevel level, uint8_t* row, int width,
               const DitherAdjustment& adjustment) {
    if (adjustment.nothing) return;
#ifdef KERNEL_LEVELS
    if (level == SimdLevel::AVX512) return avx512::Adjust(row, width, adjustment);
    if (level == SimdLevel::AVX2) return avx2::Adjust(row, width, adjustment);
    if (level == SimdLevel::SSE4) return sse4::Adjust(row, width, adjustment);
#endif
    plain::Adjust(row, width, adjustment);
}

void ScreenRow([[maybe_unused]] SimdLevel level, uint8_t* row, int width, const ScreenJob& job,
               const DitherPattern::Row& pattern) {
#ifdef KERNEL_LEVELS
    if (level == SimdLevel::AVX512) return avx512::Screen(row, width, job, pattern);
    if (level == SimdLevel::AVX2) return avx2::Screen(row, width, job, pattern);
    if (level == SimdLevel::SSE4) return sse4::Screen(row, width, job, pattern);
#endif
    plain::Screen(row, width, job, pattern);
}
