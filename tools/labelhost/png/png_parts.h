// What the codecs of PNG files share: limits, transparency, and the stored colours.
#pragma once

#include "png/picture.h"

#include <map>

// Throws Fault unless the bytes start like a PNG file, which has at least kPngSignature bytes.
constexpr size_t kPngSignature = 8;
void RequirePngSignature(const uint8_t* data, size_t size);

// Throws Fault if a picture has more than `max_side` pixels on a side, if its `rows_size` bytes of
// rows cannot be in a file of `file_size` bytes, or if four bytes for each pixel are more than this
// machine can address.
void RequirePictureFits(uint32_t width, uint32_t height, uint64_t rows_size, size_t file_size,
                        int max_side);

// Blends pixels of blue, green, red and alpha with white, leaving three bytes for each.
void PutOnWhite(std::vector<uint8_t>& pixels);

// How a picture is stored: in grey (black and white only), with a palette, or in colour.
class PngColors {
public:
    PngColors(const Picture& picture, PngForm form);

    bool grey() const { return grey_; }
    // The colours, blue in the low byte, with their numbers; empty for a picture in colour.
    const std::map<uint32_t, uint8_t>& numbers() const { return numbers_; }
    // The bits of a number: 1, 2, 4 or 8; in colour the bits of a sample, 8.
    int depth() const;

    // Fills in a row as it is stored: one byte for each number, or three for each colour. `row` has
    // as many bytes as the picture's rows.
    void FillRow(int y, std::vector<uint8_t>& row) const;

private:
    const Picture& picture_;
    std::map<uint32_t, uint8_t> numbers_;
    bool grey_ = false;
};

// Writes a PNG file, replacing one of that name. Answers why that failed, or an empty text.
std::string EncodePicture(const std::string& file, const Picture& picture, PngForm form);
