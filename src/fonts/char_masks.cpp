#include "fonts/char_masks.h"

#include <initializer_list>
#include <iterator>

namespace {

struct Range {
    int first, last;
};

constexpr CharMask Mask(uint16_t text, std::initializer_list<Range> ranges) {
    CharMask mask = {text, {}};
    for (const Range& range : ranges)
        for (int c = range.first; c <= range.last; ++c) mask.characters[c / 32] |= 1u << c % 32;
    return mask;
}

constexpr CharMask kMasks[] = {
    // Numbers with their signs.
    Mask(1915, {{' ', ' '}, {',', '.'}, {'0', '9'}}),
    // Amounts and quantities.
    Mask(1916, {{' ', ' '}, {'"', '%'}, {'(', ':'}, {'<', '>'}}),
    // Capitals.
    Mask(1914, {{' ', ' '}, {'@', 'Z'}}),
    // Capitals with punctuation.
    Mask(1913, {{' ', '$'},
                {'&', '\''},
                {'*', '*'},
                {',', '.'},
                {':', ';'},
                {'?', '?'},
                {'A', 'Z'},
                {'_', '`'}}),
    // Capitals and numbers.
    Mask(1912, {{' ', ' '}, {',', '.'}, {'0', '9'}, {'@', 'Z'}}),
    // Capitals, numbers and punctuation.
    Mask(1917, {{' ', '?'}, {'A', 'Z'}, {'_', '`'}}),
    // ASCII.
    Mask(1911, {{32, 127}}),
    Mask(ALL_CHARACTERS, {{32, 255}}),
};

} // namespace

std::span<const CharMask> CharMasks() {
    return kMasks;
}

const CharMask& FindCharMask(uint16_t text) {
    for (const CharMask& mask : kMasks)
        if (mask.text == text) return mask;
    return kMasks[std::size(kMasks) - 1];
}
