#include "imaging/dither_engine.h"

#include <cstring>

#include "imaging/dither_adjustment.h"
#include "imaging/dither_diffusion.h"
#include "imaging/dither_palette.h"
#include "imaging/dither_pattern.h"
#include "imaging/dither_rows.h"

namespace {

// The settings with every choice brought to a valid value. The adjustments stay as they are.
dithercfg ChoicesOf(const dithercfg& config) {
    dithercfg valid = config;
    valid.Validate();
    dithercfg choices = config;
    choices.algorithm = valid.algorithm;
    choices.dispersed_matrix = valid.dispersed_matrix;
    choices.clustered_matrix = valid.clustered_matrix;
    choices.diffusion_kernel = valid.diffusion_kernel;
    return choices;
}

DitherOutput OutputOf(const ImageDither& record) {
    const bool one = record.color_mode == ImageDither::COLOR_BLACK ||
                     record.color_mode == ImageDither::COLOR_BLACK_2;
    DitherOutput output = {DitherOutput::COLOR, record.index_output != 0,
                           static_cast<uint8_t>(one ? 1 : 14)};
    if (record.color_mode == ImageDither::MONOCHROME) output.kind = DitherOutput::MONOCHROME;
    if (record.color_mode == ImageDither::PALETTE) output.kind = DitherOutput::PALETTE;
    return output;
}

} // namespace

void DitherImage(ImageDither& record, SimdLevel level) {
    const int width = record.width, height = record.height;
    if (!record.pixels || width < 1 || height < 1 || width > ImageDither::kMaxSide ||
        height > ImageDither::kMaxSide)
        return;
    const size_t row_size = 3 * static_cast<size_t>(width);
    if (static_cast<size_t>(height) > SIZE_MAX / 2 / row_size) return;

    const dithercfg config = ChoicesOf(record.config);
    const DitherOutput output = OutputOf(record);
    const DitherAdjustment adjustment(config, output.kind == DitherOutput::MONOCHROME);
    const DitherPalette palette(record.palette, record.palette_count);
    const bool mirror = config.flags & dithercfg::FLAG_MIRROR;
    const bool flip = config.flags & dithercfg::FLAG_FLIP;
    const bool nothing_to_choose = output.kind == DitherOutput::PALETTE && palette.size == 0;
    const bool diffusion = config.algorithm >= dithercfg::ALGORITHM_DIFFUSION;
    const DitherPattern pattern(config, record.origin_x, record.origin_y);

    // The last pixel as it is looked up in the palette.
    uint8_t last[3] = {};
    if (diffusion && !nothing_to_choose) {
        const DiffusionJob job = {record.pixels, width,    height,
                                  mirror,        flip,     config.diffusion_kernel == 1,
                                  &adjustment,   &palette, output};
        if (!DiffuseImage(level, job, last)) return;
    } else {
        if (flip) FlipRows(record.pixels, width, height);
        const ScreenJob job = {&adjustment, &palette, output,
                               config.algorithm != dithercfg::ALGORITHM_NONE, pattern.Range()};
        for (int y = 0; y < height; ++y) {
            uint8_t* row = record.pixels + static_cast<size_t>(y) * row_size;
            if (mirror) MirrorRow(row, width);
            if (nothing_to_choose) {
                AdjustRow(level, row, width, adjustment);
                continue;
            }
            std::memcpy(last, row + row_size - 3, 3);
            ScreenRow(level, row, width, job, pattern.GetRow(y));
        }
        AdjustRow(level, last, 1, adjustment);
    }
    if (output.kind == DitherOutput::PALETTE)
        palette.Search(last, record.nearest, record.second_nearest);
}
