// PNG files for tests, written and read without the codecs that labelhost has.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

using Bytes = std::vector<uint8_t>;

enum PngType { kGrey = 0, kColor = 2, kPalette = 3, kGreyAlpha = 4, kColorAlpha = 6 };

// A PNG file in memory, with the samples as they are to be stored.
struct Png {
    uint32_t width, height;
    int depth;
    PngType type;
    bool interlaced; // takes pixels of whole bytes
    Bytes samples;   // rows without padding between them, 16-bit samples high byte first
    std::vector<std::array<uint8_t, 3>> palette = {}; // red, green, blue
    Bytes transparency = {};
};

// Names of files are UTF-8.
void SavePng(const std::string& file, const Png& image);

// A part of a PNG file: length, name, data, sum.
std::string PngPart(const std::string& name, const std::string& data);

// The pixels of a file as red, green, blue; none when it is no sound PNG file of 8 bits a sample or
// less, without interlacing and transparency.
Bytes PixelsOf(const std::string& file);
