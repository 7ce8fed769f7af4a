// The sets of characters that a bitmap font can be limited to.
#pragma once

#include <cstdint>
#include <span>

#include "locale/text_numbers.h"

struct CharMask {
    uint16_t text;          // in the language library
    uint32_t characters[8]; // as DownloadedFontInfo::characters
};

// The number of the set of all characters.
inline constexpr uint16_t ALL_CHARACTERS = TEXT_ALL_CHARACTERS;

// In the order in which they are offered, the smallest first.
std::span<const CharMask> CharMasks();

// The set with this text; that of all characters for any other number.
const CharMask& FindCharMask(uint16_t text);
