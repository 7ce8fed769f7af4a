#include "fonts/char_masks.h"

#include <initializer_list>
#include <iterator>

#include "locale/text_numbers.h"

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
    Mask(TEXT_NUMBERS, {{' ', ' '}, {',', '.'}, {'0', '9'}}),
    Mask(TEXT_AMOUNTS, {{' ', ' '}, {'"', '%'}, {'(', ':'}, {'<', '>'}}),
    Mask(TEXT_CAPITALS, {{' ', ' '}, {'@', 'Z'}}),
    Mask(TEXT_CAPITALS_PUNCTUATION, {{' ', '$'},
                                     {'&', '\''},
                                     {'*', '*'},
                                     {',', '.'},
                                     {':', ';'},
                                     {'?', '?'},
                                     {'A', 'Z'},
                                     {'_', '`'}}),
    Mask(TEXT_CAPITALS_NUMBERS, {{' ', ' '}, {',', '.'}, {'0', '9'}, {'@', 'Z'}}),
    Mask(TEXT_CAPITALS_NUMBERS_PUNCTUATION, {{' ', '?'}, {'A', 'Z'}, {'_', '`'}}),
    Mask(TEXT_ASCII, {{32, 127}}),
    Mask(TEXT_ALL_CHARACTERS, {{32, 255}}),
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
