#include "imaging/image_dither.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "zplui.h"

namespace {

using testing::ElementsAre;
using Image = std::vector<uint8_t>;

// Pixels that are all the same.
Image Flat(int width, int height, uint8_t blue, uint8_t green, uint8_t red) {
    Image image;
    for (int i = 0; i < width * height; ++i) image.insert(image.end(), {blue, green, red});
    return image;
}

Image Grey(int width, int height, uint8_t value) {
    return Flat(width, height, value, value, value);
}

// Settings that change nothing before thresholding.
dithercfg Plain(int16_t algorithm = dithercfg::ALGORITHM_NONE) {
    dithercfg config = {};
    config.algorithm = algorithm;
    return config;
}

ImageDither Record(Image& image, int width, int height, int mode, bool index = false) {
    ImageDither record;
    record.SetBitmap(image.data(), width, height, 0);
    record.SetColorMode(mode, index);
    record.SetDither(Plain());
    return record;
}

// A palette value as the engine takes it.
constexpr uint32_t Rgb(uint32_t red, uint32_t green, uint32_t blue, uint32_t unused = 0) {
    return red | green << 8 | blue << 16 | unused << 24;
}

TEST(DitherAdjustment, IsExactAtItsEnds) {
    // The second byte of index output shows the result of a grey pixel's channel.
    const struct {
        const char* what;
        int16_t brightness, contrast, green, flags;
        uint8_t in, out;
    } cases[] = {
        {"contrast 100 doubles the distance, clamped", 0, 100, 0, 0, 192, 255},
        {"contrast 100 doubles the distance", 0, 100, 0, 0, 100, 72},
        {"contrast -100 leaves the middle", 0, -100, 0, 0, 7, 128},
        {"a half is rounded away from zero above the middle", 0, -50, 0, 0, 129, 129},
        {"a half is rounded away from zero below the middle", 0, -50, 0, 0, 127, 127},
        {"inverted black is clamped", 0, 0, 0, 4, 0, 255},
        {"inverted white is not black", 0, 0, 0, 4, 255, 1},
        {"the inverted middle is the middle", 0, 0, 0, 4, 128, 128},
        {"offsets add up before clamping", 100, 0, -100, 0, 200, 200},
        {"inversion comes before the offset", 10, 0, 0, 4, 200, 66},
        {"the offset comes before the contrast", 50, 100, 0, 0, 100, 172},
        {"clamped below", -100, 0, -100, 0, 199, 0},
    };
    for (const auto& c : cases) {
        Image image = Grey(1, 1, c.in);
        ImageDither record = Record(image, 1, 1, ImageDither::COLOR, true);
        record.config.brightness = c.brightness;
        record.config.contrast = c.contrast;
        record.config.green = c.green;
        record.config.flags = c.flags;
        record.Dither();
        EXPECT_EQ(image[1], c.out) << c.what;
    }
}

TEST(DitherThresholding, NamesTheInksOfColors) {
    const struct {
        const char* color;
        uint8_t blue, green, red, index;
    } cases[] = {{"white", 255, 255, 255, 0}, {"black", 0, 0, 0, 14},   {"red", 0, 0, 255, 10},
                 {"yellow", 0, 255, 255, 8},  {"green", 0, 255, 0, 12}, {"blue", 255, 0, 0, 6},
                 {"magenta", 255, 0, 255, 2}, {"cyan", 255, 255, 0, 4}};
    for (int mode : {2, 3, 4, 7, -1})
        for (const auto& c : cases) {
            Image image = Flat(1, 1, c.blue, c.green, c.red);
            Record(image, 1, 1, mode, true).Dither();
            const bool one = c.index == 14 && (mode == 3 || mode == 4);
            EXPECT_THAT(image, ElementsAre(one ? 1 : c.index, c.green, c.red))
                << c.color << " in mode " << mode;
        }
}

TEST(DitherDiffusion, TruncatesEveryShareOfTheError) {
    // 100 becomes black, its error -100: 43 of 43.75 to the right, 31 below, 18 to the left and 6
    // to the right of that.
    Image image = {0, 0, 0, 100, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    ImageDither record = Record(image, 3, 2, ImageDither::COLOR, true);
    record.config.algorithm = dithercfg::ALGORITHM_DIFFUSION;
    for (size_t i = 1; i < image.size(); i += 3) image[i] = image[i - 1]; // green like blue
    record.Dither();
    Image green;
    for (size_t i = 1; i < image.size(); i += 3) green.push_back(image[i]);
    // The pixels that get something become black as well: of 43, 8 and 13 go to the second row; of
    // 18 there, 7 go on; of the 46 that meet in its middle, 20.
    EXPECT_THAT(green, ElementsAre(0, 100, 43, 18, 46, 39));
}

TEST(DitherPalette, IgnoresCountsThatItHasNoRoomFor) {
    ImageDither record;
    const uint32_t entries[17] = {Rgb(1, 2, 3, 4)};
    record.SetPalette(entries, 16);
    EXPECT_EQ(record.palette_count, 16);
    EXPECT_THAT(record.palette[0], ElementsAre(1, 2, 3, 4));
    const uint32_t others[17] = {Rgb(9, 9, 9)};
    for (int count : {17, 0, -1, INT32_MAX}) record.SetPalette(others, count);
    record.SetPalette(Palette());
    EXPECT_EQ(record.palette_count, 16);
    EXPECT_THAT(record.palette[0], ElementsAre(1, 2, 3, 4));
}

TEST(DitherRecord, TakesSettingsThatNobodyChecked) {
    // Like the nearest valid ones. The engine must stay inside its tables and the image.
    struct Settings {
        int16_t algorithm, dispersed, clustered, kernel, sequence;
    };
    const struct {
        Settings wild, valid;
    } cases[] = {
        {{-1, 0, 0, 0, 0}, {0, 0, 0, 0, 0}},     {{1, -1, 0, 0, 0}, {1, 0, 0, 0, 0}},
        {{1, 99, 0, 0, 0}, {1, 2, 0, 0, 0}},     {{2, 0, -7, 0, 0}, {2, 0, 2, 0, 0}},
        {{2, 0, 4, 0, 0}, {2, 0, 2, 0, 0}},      {{3, 0, 0, 0, -30000}, {3, 0, 0, 0, 0}},
        {{3, 0, 0, 0, 30000}, {3, 0, 0, 0, 19}}, {{4, 0, 0, -5, 0}, {4, 0, 0, 0, 0}},
        {{4, 0, 0, 5, 0}, {4, 0, 0, 1, 0}},      {{32767, 0, 0, 1, 0}, {5, 0, 0, 1, 0}},
    };
    const auto screen = [](const Settings& s) {
        Image image = Grey(30, 9, 77);
        ImageDither record = Record(image, 30, 9, ImageDither::MONOCHROME);
        record.config.algorithm = s.algorithm;
        record.config.dispersed_matrix = s.dispersed;
        record.config.clustered_matrix = s.clustered;
        record.config.diffusion_kernel = s.kernel;
        record.config.sequence = s.sequence;
        record.Dither();
        return image;
    };
    for (const auto& c : cases) EXPECT_EQ(screen(c.wild), screen(c.valid)) << c.wild.algorithm;
}

TEST(DitherRecord, WithoutPixelsIsLeftAlone) {
    ImageDither record;
    record.SetBitmap(nullptr, 100, 100, 0);
    X16_ImageDither_Dither(&record);
    X16_ImageDither_DitherSmooth(&record);
    X16_ImageDither_Dither(nullptr);
    X16_ImageDither_DitherSmooth(nullptr);
}

TEST(DitherRecord, WithoutPaletteEntriesIsOnlyAdjusted) {
    for (int32_t count : {0, -1, INT32_MIN})
        for (int16_t algorithm = 0; algorithm <= 5; ++algorithm) {
            Image image = {1, 2, 3, 4, 5, 6};
            ImageDither record = Record(image, 2, 1, ImageDither::PALETTE);
            record.palette_count = count;
            record.config.algorithm = algorithm;
            record.config.brightness = 10;
            record.config.flags = dithercfg::FLAG_MIRROR;
            X16_ImageDither_Dither(&record);
            EXPECT_THAT(image, ElementsAre(14, 15, 16, 11, 12, 13));
            EXPECT_EQ(record.nearest, -1);
            EXPECT_EQ(record.second_nearest, -1);
        }
}

} // namespace
