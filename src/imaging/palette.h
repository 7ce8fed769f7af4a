// The colours that an image is reduced to.
#pragma once

#include <cstdint>

#include "core/oarray.h"

// Colour references: red in the lowest byte, then green, blue and an unused byte.
class Palette : public OTypedArray<uint32_t> {
public:
    static constexpr int kMaxSize = 16; // usable entries
};
