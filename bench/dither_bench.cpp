// Dithering compared with the plain rules and with a copy of the same image.
//
// The argument is the height of a page that is two thirds as wide: a label and a poster.
#include <benchmark/benchmark.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "imaging/image_dither.h"
#include "support/dither_oracle.h"

namespace {

std::vector<uint8_t> Picture(int width, int height) {
    std::mt19937 random(1);
    std::vector<uint8_t> image(static_cast<size_t>(width) * static_cast<size_t>(height) * 3);
    for (size_t i = 0; i < image.size(); ++i)
        image[i] = static_cast<uint8_t>((i * 192 / image.size()) + random() % 64);
    return image;
}

struct Case {
    const char* name;
    int16_t algorithm;
    int16_t kernel;
    int mode;
    bool index;
    int16_t contrast;
};

const Case kCases[] = {
    {"threshold/mono", 0, 0, 0, false, 0},
    {"threshold/color", 0, 0, 2, false, 0},
    {"threshold/palette16", 0, 0, 1, false, 0},
    {"dispersed/mono", 1, 0, 0, false, 0},
    {"dispersed/color", 1, 0, 2, false, 0},
    {"clustered/mono", 2, 0, 0, false, 0},
    {"clustered/mono_contrast", 2, 0, 0, false, 30},
    {"clustered/color", 2, 0, 2, false, 0},
    {"clustered/color_index", 2, 0, 2, true, 0},
    {"clustered/palette16", 2, 0, 1, false, 0},
    {"algebraic/mono", 3, 0, 0, false, 0},
    {"algebraic/color", 3, 0, 2, false, 0},
    {"algebraic/palette16", 3, 0, 1, false, 0},
    {"floyd_steinberg/mono", 4, 0, 0, false, 0},
    {"floyd_steinberg/color", 4, 0, 2, false, 0},
    {"floyd_steinberg/palette16", 4, 0, 1, false, 0},
    {"jarvis/mono", 4, 1, 0, false, 0},
    {"jarvis/color", 4, 1, 2, false, 0},
    {"jarvis/palette16", 4, 1, 1, false, 0},
};

ImageDither RecordOf(const Case& c, std::vector<uint8_t>& image, int width, int height) {
    ImageDither record;
    record.SetBitmap(image.data(), width, height, 0);
    record.SetColorMode(c.mode, c.index);
    std::mt19937 random(2);
    uint32_t entries[16];
    for (uint32_t& entry : entries) entry = static_cast<uint32_t>(random()) & 0xFFFFFF;
    record.SetPalette(entries, 16);
    record.config.Reset();
    record.config.algorithm = c.algorithm;
    record.config.diffusion_kernel = c.kernel;
    record.config.contrast = c.contrast;
    return record;
}

// Runs `dither` on fresh copies of a picture, whose making is not timed.
template <class Function>
void OverPages(benchmark::State& state, const Case& c, Function dither) {
    const int height = static_cast<int>(state.range(0)), width = height * 2 / 3;
    const std::vector<uint8_t> picture = Picture(width, height);
    std::vector<uint8_t> image = picture;
    ImageDither record = RecordOf(c, image, width, height);
    for (auto _ : state) {
        state.PauseTiming();
        image = picture;
        state.ResumeTiming();
        dither(record);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(picture.size()));
}

void Copy(benchmark::State& state) {
    const int height = static_cast<int>(state.range(0)), width = height * 2 / 3;
    const std::vector<uint8_t> picture = Picture(width, height);
    std::vector<uint8_t> image = picture;
    for (auto _ : state) {
        std::memcpy(image.data(), picture.data(), picture.size());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(picture.size()));
}

const bool kRegistered = [] {
    const auto pages = [](benchmark::internal::Benchmark* benchmark) {
        benchmark->Arg(2400)->Arg(7200)->Unit(benchmark::kMillisecond);
    };
    pages(benchmark::RegisterBenchmark("Dither/memcpy", Copy));
    for (const Case& c : kCases) {
        const std::string name = std::string("Dither/") + c.name;
        pages(benchmark::RegisterBenchmark(name.c_str(), [&c](benchmark::State& state) {
            OverPages(state, c, [](ImageDither& record) { record.Dither(); });
        }));
        // The rules take so long on a poster that once is enough.
        for (const int64_t height : {2400, 7200}) {
            auto* rules = benchmark::RegisterBenchmark(
                (name + "/rules").c_str(),
                [&c](benchmark::State& state) { OverPages(state, c, OracleDither); });
            rules->Arg(height)->Unit(benchmark::kMillisecond);
            if (height > 2400) rules->Iterations(1)->Repetitions(1);
        }
    }
    return true;
}();

} // namespace
