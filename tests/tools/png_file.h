// PNG files as tests read them, without the codecs that labelhost has.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

using Bytes = std::vector<uint8_t>;

// Colour types in the header of a file.
enum PngType { kGrey = 0, kColor = 2, kPalette = 3 };

// The pixels of a file, whose name is UTF-8, as red, green, blue; none when it is no sound PNG file
// of 8 bits a sample or less, without interlacing and transparency.
Bytes PixelsOf(const std::string& file);
