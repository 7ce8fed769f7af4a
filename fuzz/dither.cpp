// Any record for the dithering exports: sizes, settings, palette and modes from the input, with no
// more pixels than the caller owns. The first bytes are the record after its pixel pointer; the
// rest are the pixels.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "imaging/dither_engine.h"
#include "target.h"
#include "zplui.h"

namespace {

constexpr size_t kFields = offsetof(ImageDither, config) + sizeof(dithercfg) - sizeof(void*);

// The number of bytes that the engine may touch; 0 if it must leave the image alone.
size_t PixelBytes(const ImageDither& record) {
    if (record.width < 1 || record.height < 1) return 0;
    if (record.width > ImageDither::kMaxSide || record.height > ImageDither::kMaxSide) return 0;
    return 3 * static_cast<size_t>(record.width) * static_cast<size_t>(record.height);
}

} // namespace

FUZZ_TARGET(dither)(const uint8_t* data, size_t size) {
    if (size < kFields) return 0;
    ImageDither record;
    std::memcpy(&record.width, data, kFields);
    data += kFields;
    size -= kFields;
    const size_t bytes = PixelBytes(record);
    if (bytes > 300000) return 0; // too slow to be of use

    // Exactly the image, on the heap, so that reads and writes outside it are found.
    std::vector<uint8_t> image(bytes);
    std::copy_n(data, std::min(size, bytes), image.begin());
    uint8_t none = 0;
    const std::vector<uint8_t> original = image;
    const auto fresh = [&](std::vector<uint8_t>& pixels) {
        ImageDither copy = record;
        pixels = original;
        copy.pixels = bytes ? pixels.data() : &none;
        return copy;
    };

    ImageDither best = fresh(image);
    X16_ImageDither_Dither(&best);
    std::vector<uint8_t> plain_image;
    ImageDither plain = fresh(plain_image);
    DitherImage(plain, SimdLevel::PLAIN);
    if (image != plain_image || best.nearest != plain.nearest ||
        best.second_nearest != plain.second_nearest)
        __builtin_trap();

    ImageDither smooth = fresh(image);
    X16_ImageDither_DitherSmooth(&smooth);
    return 0;
}
