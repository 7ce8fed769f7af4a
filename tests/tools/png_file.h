// PNG files as tests read them, without the codecs that labelhost has.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

using Bytes = std::vector<uint8_t>;

// Colour types in the header of a file.
enum PngType { kGrey = 0, kColor = 2, kPalette = 3 };

// The pixels of a file, whose name is UTF-8, as red, green, blue. Empty unless it is a valid PNG
// file of at most 8 bits per sample, without interlacing and transparency.
Bytes PixelsOf(const std::string& file);
