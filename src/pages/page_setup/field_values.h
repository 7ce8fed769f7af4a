// What is made of the contents of fields.
#pragma once

#include <cstdint>

#include "core/ostring.h"

// The value, or the limit beyond which it lies. If the limits are crossed, a value above the lower
// one becomes the upper one.
inline int32_t fitrange(int32_t value, int32_t least, int32_t most) {
    if (value < least) return least;
    return value > most ? most : value;
}

// A name without blanks, tabs and line breaks at its ends.
inline OString Trimmed(OString name) {
    constexpr char kBlanks[] = " \t\r\n";
    name.TrimLeft(kBlanks);
    name.TrimRight(kBlanks);
    return name;
}
