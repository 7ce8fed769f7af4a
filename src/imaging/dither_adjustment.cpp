#include "imaging/dither_adjustment.h"

#include "core/numbers.h"

namespace {

bool InRange(int16_t adjustment) {
    return adjustment >= -100 && adjustment <= 100;
}

int16_t OffsetOf(const dithercfg& config, int channel) {
    return channel == 0 ? config.blue : channel == 1 ? config.green : config.red;
}

} // namespace

DitherAdjustment::DitherAdjustment(const dithercfg& config, bool monochrome)
    : grey(monochrome) {
    const bool invert = config.flags & dithercfg::FLAG_INVERT;
    nothing = !grey && !invert && config.brightness == 0 && config.contrast == 0 &&
              config.red == 0 && config.green == 0 && config.blue == 0;
    linear = InRange(config.brightness) && InRange(config.contrast) && InRange(config.red) &&
             InRange(config.green) && InRange(config.blue);
    inversion = invert ? -1 : 0;
    slope = static_cast<uint16_t>(config.contrast + 100);
    for (int channel = 0; channel < 3; ++channel) {
        // 256 - value is the complement of value plus 257.
        offset[channel] = static_cast<int16_t>(config.brightness + OffsetOf(config, channel) +
                                               (invert ? 257 : 0));
        if (linear) continue;
        for (int value = 0; value < 256; ++value)
            table[channel][value] = Channel(config, channel, static_cast<uint8_t>(value));
    }
}

int16_t DitherAdjustment::Channel(const dithercfg& config, int channel, uint8_t value) const {
    const int inverted = inversion ? 256 - value : value;
    const int16_t sum =
        static_cast<int16_t>(inverted + config.brightness + OffsetOf(config, channel));
    if (config.contrast == 0) return sum;
    return static_cast<int16_t>(muldiv64s(sum - 128, config.contrast + 100, 100) + 128);
}
