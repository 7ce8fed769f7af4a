// The font families of the host, as a list to choose from.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace win32host {

struct FontStyle {
    std::u16string name; // "Regular", "Bold Italic"
    LONG weight;         // FW_
    bool italic;
};

struct FontFamily {
    std::u16string name;
    bool true_type;
    std::vector<FontStyle> styles; // that exist; the lightest first, upright before italic
};

// Scalable families by name. They are looked up once.
const std::vector<FontFamily>& FontFamilies();

// The character sets (..._CHARSET) that a font says it has; at least one.
std::vector<BYTE> CharacterSetsOf(const LOGFONTW& font);

} // namespace win32host
