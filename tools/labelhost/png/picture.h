// Pictures and PNG files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// Pixels of three bytes: blue, green and red. Rows are packed, and the top row is first.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<uint8_t> pixels;
};

// The picture in a PNG file of any kind: grey becomes colour, 16 bits become 8, and transparent
// parts show white behind them. Colour profiles and gamma are ignored. Throws Fault with the reason
// if the bytes are not a valid PNG file or the picture has more than `max_side` pixels on a side.
Picture DecodePicture(const uint8_t* data, size_t size, int max_side);

// The same for a file; the Fault names it.
Picture ReadPicture(const std::string& file, int max_side);

// How a PNG file stores colours. Small: black and white take one bit per pixel, and up to 256
// colours become a palette. Plain: always red, green and blue of eight bits each.
enum class PngForm { Small, Plain };

// Writes a PNG file under another name and renames it when it is complete, so that `file` is never
// half a picture. Throws Fault on failure, leaving `file` as it was. A device or a folder is
// refused.
void WritePicture(const std::string& file, const Picture& picture, PngForm form = PngForm::Small);
