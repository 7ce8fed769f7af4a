#include "png/png_parts.h"

#include "fault.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr size_t kMostColors = 256;
constexpr uint32_t kBlack = 0, kWhite = 0xFFFFFF;

// A deflated byte never expands to more.
constexpr uint64_t kMostInflation = 1032;

uint32_t ColorAt(const uint8_t* pixel) {
    return static_cast<uint32_t>(pixel[0] | pixel[1] << 8 | pixel[2] << 16);
}

} // namespace

void RequirePngSignature(const uint8_t* data, size_t size) {
    static const uint8_t signature[kPngSignature] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    if (size < kPngSignature || std::memcmp(data, signature, kPngSignature) != 0)
        throw Fault("not a PNG file");
}

void RequirePictureFits(uint32_t width, uint32_t height, uint64_t rows_size, size_t file_size,
                        int max_side) {
    if (std::max(width, height) > static_cast<uint32_t>(max_side))
        throw Fault(std::to_string(width) + " x " + std::to_string(height) + " pixels, more than " +
                    std::to_string(max_side) + " on a side");
    // A header by itself must not make us allocate memory.
    if (rows_size > kMostInflation * file_size) throw Fault("the file ends early");
    if (uint64_t{width} * height > SIZE_MAX / 4) throw Fault("too large for this machine");
}

void PutOnWhite(std::vector<uint8_t>& pixels) {
    const size_t count = pixels.size() / 4;
    for (size_t i = 0; i < count; ++i) {
        const uint8_t* from = &pixels[4 * i];
        const int alpha = from[3];
        for (size_t c = 0; c < 3; ++c)
            pixels[3 * i + c] =
                static_cast<uint8_t>((from[c] * alpha + 255 * (255 - alpha) + 127) / 255);
    }
    pixels.resize(3 * count);
}

PngColors::PngColors(const Picture& picture, PngForm form)
    : picture_(picture) {
    if (form == PngForm::Plain) return;
    uint32_t last = UINT32_MAX;
    for (size_t i = 0; i < picture.pixels.size(); i += 3) {
        const uint32_t color = ColorAt(&picture.pixels[i]);
        if (color == last) continue;
        last = color;
        numbers_.emplace(color, uint8_t{0});
        if (numbers_.size() > kMostColors) {
            numbers_.clear();
            return;
        }
    }
    grey_ = std::all_of(numbers_.begin(), numbers_.end(), [](const auto& entry) {
        return entry.first == kBlack || entry.first == kWhite;
    });
    if (grey_) numbers_ = {{kBlack, uint8_t{0}}, {kWhite, uint8_t{0}}};
    uint8_t number = 0;
    for (auto& entry : numbers_) entry.second = number++;
}

int PngColors::depth() const {
    const size_t count = numbers_.size();
    return count > 16 || count == 0 ? 8 : count > 4 ? 4 : count > 2 ? 2 : 1;
}

void PngColors::FillRow(int y, std::vector<uint8_t>& row) const {
    const uint8_t* from = &picture_.pixels[static_cast<size_t>(y) * row.size()];
    if (numbers_.empty()) {
        std::copy_n(from, row.size(), row.begin());
        return;
    }
    uint32_t last = UINT32_MAX;
    uint8_t number = 0;
    for (size_t x = 0; 3 * x < row.size(); ++x) {
        const uint32_t color = ColorAt(from + 3 * x);
        if (color != last) number = numbers_.find(color)->second;
        last = color;
        row[x] = number;
    }
}
