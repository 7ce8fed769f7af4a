// PNG files as labelhost reads them: any bytes give a picture of the announced size, or a fault.
#include <cstddef>
#include <cstdint>

#include "labelhost/fault.h"
#include "labelhost/png/picture.h"
#include "target.h"

FUZZ_TARGET(png_picture)(const uint8_t* data, size_t size) {
    constexpr int kMaxSide = 1000; // larger ones are slow and test nothing more
    try {
        const Picture picture = DecodePicture(data, size, kMaxSide);
        const size_t pixels =
            static_cast<size_t>(picture.width) * static_cast<size_t>(picture.height);
        if (picture.width > kMaxSide || picture.height > kMaxSide || pixels == 0 ||
            picture.pixels.size() != 3 * pixels)
            __builtin_trap();
    } catch (const Fault&) {
    }
    return 0;
}
