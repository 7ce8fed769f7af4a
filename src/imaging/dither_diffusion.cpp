#include "imaging/dither_diffusion.h"

#include <algorithm>
#include <memory>
#include <new>
#include <utility>

namespace {

// Columns of the carried errors that lie outside the image, on either side.
constexpr int kMargin = 8;

// The errors of the last two rows of the band above, by channel.
struct Carry {
    int16_t* above[3];  // of the row right above
    int16_t* higher[3]; // of the row above that one; Jarvis only
};

} // namespace

#define KERNELS "imaging/dither_diffusion_kernels.h"
#include "imaging/kernel_levels.h"

namespace {

// One level's kernel.
struct Kernel {
    int rows; // the most it takes at once
    void (*diffuse)(const DiffusionJob& job, int y, int rows, Carry& carry, uint8_t (&last)[3]);
};

Kernel KernelOf([[maybe_unused]] SimdLevel level) {
#ifdef KERNEL_LEVELS
    if (level == SimdLevel::AVX512) return {avx512::kRows, avx512::Diffuse};
    if (level == SimdLevel::AVX2) return {avx2::kRows, avx2::Diffuse};
    if (level == SimdLevel::SSE4) return {sse4::kRows, sse4::Diffuse};
#endif
    return {plain::kRows, plain::Diffuse};
}

} // namespace

bool DiffuseImage(SimdLevel level, const DiffusionJob& job, uint8_t (&last)[3]) {
    // Zeros surround the columns of the image.
    const size_t columns = static_cast<size_t>(job.width) + size_t{2} * kMargin;
    const std::unique_ptr<int16_t[]> errors(new (std::nothrow) int16_t[6 * columns]());
    if (!errors) return false;
    if (job.flip) FlipRows(job.pixels, job.width, job.height);
    Carry carry;
    for (size_t c = 0; c < 3; ++c) {
        carry.above[c] = errors.get() + c * columns + kMargin;
        carry.higher[c] = errors.get() + (3 + c) * columns + kMargin;
    }
    const Kernel kernel = KernelOf(level);
    const ptrdiff_t row_size = 3 * static_cast<ptrdiff_t>(job.width);
    for (int y = 0; y < job.height; y += kernel.rows) {
        const int rows = std::min(kernel.rows, job.height - y);
        for (int i = 0; i < rows; ++i) {
            uint8_t* row = job.pixels + (y + i) * row_size;
            if (job.mirror) MirrorRow(row, job.width);
            AdjustRow(level, row, job.width, *job.adjustment);
        }
        kernel.diffuse(job, y, rows, carry, last);
    }
    return true;
}
