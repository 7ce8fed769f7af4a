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
