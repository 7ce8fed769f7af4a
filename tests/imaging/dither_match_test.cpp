// The kernels against the plain rules, on images and settings drawn at random.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "imaging/dither_engine.h"
#include "support/dither_oracle.h"

namespace {

using Random = std::mt19937;

int Draw(Random& random, int least, int most) {
    return std::uniform_int_distribution<int>(least, most)(random);
}

// Noise, a flat colour or a ramp. Each finds different faults.
std::vector<uint8_t> DrawImage(Random& random, int width, int height) {
    std::vector<uint8_t> image(static_cast<size_t>(width) * static_cast<size_t>(height) * 3);
    const int kind = Draw(random, 0, 2), base = Draw(random, 0, 255), slope = Draw(random, 1, 9);
    for (size_t i = 0; i < image.size(); ++i)
        image[i] = static_cast<uint8_t>(kind == 0   ? Draw(random, 0, 255)
                                        : kind == 1 ? base + static_cast<int>(i % 3) * slope
                                                    : base + static_cast<int>(i) / slope);
    return image;
}

// A palette in which values repeat.
void DrawPalette(Random& random, ImageDither& record) {
    record.palette_count = Draw(random, 1, 16);
    for (auto& entry : record.palette)
        for (uint8_t& byte : entry) byte = static_cast<uint8_t>(Draw(random, 0, 3) * 85);
    if (Draw(random, 0, 1))
        for (auto& entry : record.palette)
            for (uint8_t& byte : entry) byte = static_cast<uint8_t>(Draw(random, 0, 255));
}

dithercfg DrawSettings(Random& random) {
    dithercfg config;
    config.Reset();
    const bool adjust = Draw(random, 0, 1);
    for (int16_t* adjustment :
         {&config.brightness, &config.contrast, &config.red, &config.green, &config.blue})
        *adjustment = static_cast<int16_t>(adjust ? Draw(random, -100, 100) : 0);
    if (Draw(random, 0, 1)) config.contrast = 0;
    config.sequence = static_cast<int16_t>(Draw(random, 0, 19));
    config.flags = static_cast<int16_t>(Draw(random, 0, 31));
    return config;
}

ImageDither DrawRecord(Random& random, std::vector<uint8_t>& image, int width, int height) {
    ImageDither record;
    record.SetBitmap(image.data(), width, height, 0);
    DrawPalette(random, record);
    record.SetDither(DrawSettings(random));
    record.nearest = record.second_nearest = -2;
    if (Draw(random, 0, 1)) {
        record.origin_x = Draw(random, 0, 1000);
        record.origin_y = Draw(random, 0, 1) ? Draw(random, 0, 1000) : 0x7FFFFFF0;
    }
    return record;
}

std::string Describe(const ImageDither& r) {
    std::string text = std::to_string(r.width) + " x " + std::to_string(r.height) + ", mode " +
                       std::to_string(r.color_mode) + (r.index_output ? " index" : "") +
                       ", origin " + std::to_string(r.origin_x) + " " + std::to_string(r.origin_y) +
                       ", palette of " + std::to_string(r.palette_count) + ", settings";
    const dithercfg& c = r.config;
    for (int field :
         {c.algorithm, c.brightness, c.contrast, c.red, c.green, c.blue, c.dispersed_matrix,
          c.clustered_matrix, c.diffusion_kernel, c.sequence, c.flags})
        text += " " + std::to_string(field);
    return text;
}

// Runs the record through every level that this machine has.
void ExpectMatch(const ImageDither& record, const std::vector<uint8_t>& image) {
    ImageDither expected = record;
    std::vector<uint8_t> expected_image = image;
    expected.pixels = expected_image.data();
    OracleDither(expected);
    for (SimdLevel level :
         {SimdLevel::PLAIN, SimdLevel::SSE4, SimdLevel::AVX2, SimdLevel::AVX512}) {
        if (level > BestSimdLevel()) continue;
        ImageDither actual = record;
        std::vector<uint8_t> actual_image = image;
        actual.pixels = actual_image.data();
        DitherImage(actual, level);
        const auto differs =
            std::mismatch(actual_image.begin(), actual_image.end(), expected_image.begin());
        ASSERT_EQ(differs.first - actual_image.begin(), static_cast<ptrdiff_t>(image.size()))
            << "level " << static_cast<int>(level) << ", " << Describe(record);
        ASSERT_EQ(actual.nearest, expected.nearest) << Describe(record);
        ASSERT_EQ(actual.second_nearest, expected.second_nearest) << Describe(record);
    }
}

// Every choice of algorithm, matrix and kernel.
struct Method {
    int16_t algorithm, dispersed, clustered, kernel;
};
const Method kMethods[] = {{0, 0, 0, 0}, {1, 0, 0, 0}, {1, 1, 0, 0}, {1, 2, 0, 0},
                           {2, 0, 0, 0}, {2, 0, 1, 0}, {2, 0, 2, 0}, {2, 0, 3, 0},
                           {3, 0, 0, 0}, {4, 0, 0, 0}, {4, 0, 0, 1}, {5, 0, 0, 1}};

// One image per method, colour mode and kind of output.
void ExpectMatchOfAllMethods(Random& random, int width, int height) {
    for (const Method& method : kMethods)
        for (int mode = 0; mode <= 4; ++mode)
            for (int index = 0; index <= 1; ++index) {
                std::vector<uint8_t> image = DrawImage(random, width, height);
                ImageDither record = DrawRecord(random, image, width, height);
                record.config.algorithm = method.algorithm;
                record.config.dispersed_matrix = method.dispersed;
                record.config.clustered_matrix = method.clustered;
                record.config.diffusion_kernel = method.kernel;
                record.SetColorMode(mode, index != 0);
                ExpectMatch(record, image);
                if (testing::Test::HasFatalFailure()) return;
            }
}

TEST(DitherKernels, FollowTheRulesAtEveryWidth) {
    Random random(1);
    for (int width = 1; width <= 67; ++width) {
        ExpectMatchOfAllMethods(random, width, Draw(random, 1, 5));
        if (HasFatalFailure()) return;
    }
}

TEST(DitherKernels, FollowTheRulesFromBandToBand) {
    Random random(2);
    for (int height : {1, 2, 3, 15, 16, 17, 31, 32, 33, 47, 64, 66}) {
        ExpectMatchOfAllMethods(random, Draw(random, 1, 20), height);
        if (HasFatalFailure()) return;
    }
}

TEST(DitherKernels, FollowTheRulesInWideImages) {
    Random random(3);
    for (int width : {200, 331}) {
        ExpectMatchOfAllMethods(random, width, 35);
        if (HasFatalFailure()) return;
    }
}

TEST(DitherKernels, FollowTheRulesForEveryAdjustmentOfEveryValue) {
    // All 256 values of a channel, in both inversions.
    std::vector<uint8_t> ramp(256 * 3);
    for (size_t i = 0; i < ramp.size(); ++i) ramp[i] = static_cast<uint8_t>(i / 3);
    ImageDither record;
    record.SetBitmap(ramp.data(), 256, 1, 0);
    record.config.Reset();
    // Index output leaves two adjusted channels.
    for (int mode : {0, 2}) {
        record.SetColorMode(mode, true);
        for (int flags : {0, 4})
            for (int contrast = -100; contrast <= 100; ++contrast)
                for (int offset : {-200, -101, -1, 0, 50, 200}) {
                    record.config.flags = static_cast<int16_t>(flags);
                    record.config.contrast = static_cast<int16_t>(contrast);
                    record.config.brightness = static_cast<int16_t>(offset / 2);
                    record.config.red = record.config.green =
                        static_cast<int16_t>(offset - offset / 2);
                    record.config.blue = static_cast<int16_t>(-offset / 3);
                    ExpectMatch(record, ramp);
                    if (HasFatalFailure()) return;
                }
    }
}

TEST(DitherKernels, WrapAdjustmentsOutOfRangeAsSixteenBitNumbers) {
    Random random(4);
    for (int round = 0; round < 300; ++round) {
        const int width = Draw(random, 1, 40);
        std::vector<uint8_t> image = DrawImage(random, width, 2);
        ImageDither record = DrawRecord(random, image, width, 2);
        for (int16_t* adjustment : {&record.config.brightness, &record.config.contrast,
                                    &record.config.red, &record.config.green, &record.config.blue})
            if (Draw(random, 0, 1))
                *adjustment = static_cast<int16_t>(
                    Draw(random, 0, 1) ? Draw(random, -400, 400) : Draw(random, -32768, 32767));
        record.config.algorithm = static_cast<int16_t>(Draw(random, 0, 5));
        record.SetColorMode(Draw(random, 0, 4), Draw(random, 0, 1) != 0);
        ExpectMatch(record, image);
        if (HasFatalFailure()) return;
    }
}

TEST(DitherKernels, SmoothLikeTheRules) {
    Random random(5);
    for (int round = 0; round < 200; ++round) {
        const int width = Draw(random, 1, 70), height = Draw(random, 1, 20);
        std::vector<uint8_t> image = DrawImage(random, width, height);
        ImageDither record = DrawRecord(random, image, width, height);
        record.config.algorithm = static_cast<int16_t>(Draw(random, 0, 5));
        record.config.diffusion_kernel = static_cast<int16_t>(Draw(random, 0, 1));
        record.SetColorMode(Draw(random, 0, 4), Draw(random, 0, 1) != 0);
        std::vector<uint8_t> expected_image = image;
        ImageDither expected = record;
        expected.pixels = expected_image.data();
        OracleDitherSmooth(expected);
        record.DitherSmooth();
        ASSERT_EQ(image, expected_image) << Describe(record);
        ASSERT_EQ(record.nearest, -2) << "the preview has a search result of its own";
    }
}

} // namespace
