// Dithering: every algorithm into every form of output, then every setting of each algorithm.
#include "answers/answers.h"

#include <algorithm>

#include "imaging/image_dither.h"

namespace {

struct Size {
    int width, height;
};

// A soft picture with noise in it, so that every colour is near some pixel's.
Bytes Picture(Size size) {
    Noise noise(static_cast<uint32_t>(size.width * 31 + size.height));
    Bytes pixels;
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
            for (const int base : {255 * x / size.width, 255 * y / size.height, 255 - 3 * x % 256})
                pixels.push_back(
                    static_cast<uint8_t>(std::clamp(base + noise.Byte() % 64 - 32, 0, 255)));
    return pixels;
}

class Dithering {
public:
    explicit Dithering(const Module& module)
        : dither_(EXPORT(module, X16_ImageDither_Dither))
        , smooth_(EXPORT(module, X16_ImageDither_DitherSmooth)) {}

    // Dithers a picture of that size with the settings of the record, for printing and for a
    // screen.
    void Ask(const std::string& what, const ImageDither& settings, Size size) const {
        for (const bool smooth : {false, true}) {
            Bytes pixels = Picture(size);
            ImageDither record = settings;
            record.pixels = pixels.data();
            record.width = size.width;
            record.height = size.height;
            record.nearest = record.second_nearest = -2;
            (smooth ? smooth_ : dither_)(&record);
            const std::string name = (smooth ? "smoothly " : "") + what + ", " +
                                     std::to_string(size.width) + " x " +
                                     std::to_string(size.height);
            Tell(name, pixels);
            Tell(name + ", nearest entry", record.nearest);
            Tell(name + ", second", record.second_nearest);
        }
    }

private:
    decltype(&X16_ImageDither_Dither) dither_, smooth_;
};

ImageDither Record(int algorithm, int mode, int palette_count = 4) {
    ImageDither record;
    record.color_mode = mode;
    record.palette_count = palette_count;
    const uint8_t first[4][3] = {{255, 255, 255}, {0, 0, 0}, {200, 30, 40}, {20, 90, 180}};
    Noise noise(3);
    for (int i = 0; i < ImageDither::kPaletteSize; ++i)
        for (int channel = 0; channel < 3; ++channel)
            record.palette[i][channel] = i < 4 ? first[i][channel] : noise.Byte();
    record.config.algorithm = static_cast<int16_t>(algorithm);
    record.config.clustered_matrix = 2;
    return record;
}

} // namespace

void AskDithering(const Module& module) {
    const Dithering dithering(module);
    constexpr Size kOdd = {61, 13};
    for (int algorithm = 0; algorithm <= 5; ++algorithm) {
        const std::string name = "algorithm " + std::to_string(algorithm);
        for (int mode = 0; mode <= 4; ++mode)
            for (int index = 0; index <= 1; ++index) {
                ImageDither record = Record(algorithm, mode);
                record.index_output = index;
                const std::string what =
                    name + " in mode " + std::to_string(mode) + (index ? " as index" : "");
                for (const Size size : {Size{1, 1}, {1, 40}, {7, 5}, kOdd, {256, 64}})
                    dithering.Ask(what, record, size);
            }
        for (int count : {-1, 0, 1, 2, 3, 16, 17})
            dithering.Ask(name + " with a palette of " + std::to_string(count),
                          Record(algorithm, 1, count), kOdd);
        ImageDither moved = Record(algorithm, 0);
        moved.origin_x = 3;
        moved.origin_y = -5;
        dithering.Ask(name + " from another origin", moved, kOdd);
        for (int flags = 0; flags <= 7; ++flags) {
            ImageDither record = Record(algorithm, 2);
            record.config.flags = static_cast<int16_t>(flags);
            dithering.Ask(name + " with flags " + std::to_string(flags), record, kOdd);
        }
    }

    // What one setting changes, in black and white and in colours.
    const struct {
        const char* name;
        int algorithm;
        int16_t dithercfg::*setting;
        int first, last, step;
    } settings[] = {
        {"brightness", 4, &dithercfg::brightness, -100, 100, 25},
        {"contrast", 4, &dithercfg::contrast, -100, 100, 25},
        {"red", 4, &dithercfg::red, -100, 100, 40},
        {"green", 4, &dithercfg::green, -100, 100, 40},
        {"blue", 4, &dithercfg::blue, -100, 100, 40},
        {"brightness out of range", 4, &dithercfg::brightness, -32768, 32767, 13107},
        {"dispersed matrix", 1, &dithercfg::dispersed_matrix, -1, 3, 1},
        {"clustered matrix", 2, &dithercfg::clustered_matrix, -1, 4, 1},
        {"sequence", 3, &dithercfg::sequence, -1, 20, 1},
        {"kernel", 4, &dithercfg::diffusion_kernel, -1, 2, 1},
        {"kernel", 5, &dithercfg::diffusion_kernel, -1, 2, 1},
    };
    for (const auto& s : settings)
        for (int value = s.first; value <= s.last; value += s.step)
            for (int mode : {0, 1, 2}) {
                ImageDither record = Record(s.algorithm, mode, 16);
                record.config.*s.setting = static_cast<int16_t>(value);
                dithering.Ask(s.name + (" " + std::to_string(value)) + " in mode " +
                                  std::to_string(mode),
                              record, {97, 29});
            }
}
