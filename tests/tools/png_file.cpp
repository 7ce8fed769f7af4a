#include "tools/png_file.h"

#include <zlib.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

constexpr char kSignature[] = "\x89PNG\r\n\x1A\n";

std::filesystem::path PathOf(const std::string& name) {
    return std::u8string(name.begin(), name.end());
}

size_t NumberAt(const std::string& bytes, size_t at) {
    size_t number = 0;
    for (size_t i = at; i < at + 4; ++i) number = number << 8 | static_cast<uint8_t>(bytes[i]);
    return number;
}

// The prediction of a row's filter for a byte, from those to the left, above, and above left.
int Expected(int filter, int left, int above, int corner) {
    const int guess = left + above - corner;
    const int to_left = std::abs(guess - left), to_above = std::abs(guess - above),
              to_corner = std::abs(guess - corner);
    switch (filter) {
    case 1:
        return left;
    case 2:
        return above;
    case 3:
        return (left + above) / 2;
    case 4:
        if (to_left <= to_above && to_left <= to_corner) return left;
        return to_above <= to_corner ? above : corner;
    default:
        return 0;
    }
}

} // namespace

Bytes PixelsOf(const std::string& file) {
    std::ifstream in(PathOf(file), std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(in)), {});
    std::string header, palette, packed, end;
    for (size_t at = 8; at + 12 <= bytes.size(); at += 12 + NumberAt(bytes, at)) {
        const std::string name = bytes.substr(at + 4, 4);
        const std::string data = bytes.substr(at + 8, NumberAt(bytes, at));
        const auto* summed = reinterpret_cast<const Bytef*>(&bytes[at + 4]);
        if (data.size() < NumberAt(bytes, at) || at + data.size() + 12 > bytes.size() ||
            crc32(0, summed, static_cast<uInt>(data.size() + 4)) !=
                NumberAt(bytes, at + 8 + data.size()))
            return {};
        if (name == "IHDR") header = data;
        if (name == "PLTE") palette = data;
        if (name == "IDAT") packed += data;
        if (name == "IEND") end = name;
    }
    if (bytes.rfind(kSignature, 0) != 0 || header.size() != 13 || end.empty()) return {};
    const size_t width = NumberAt(header, 0), height = NumberAt(header, 4);
    const auto depth = static_cast<size_t>(header[8]);
    const size_t samples = header[9] == kColor ? 3 : 1;
    const size_t row_size = (width * depth * samples + 7) / 8;
    const size_t pixel = depth * samples / 8 ? depth * samples / 8 : 1; // in bytes, for the filters
    uLongf size = static_cast<uLongf>((row_size + 1) * height);
    Bytes rows(size);
    if (depth > 8 || header[12] != 0 ||
        uncompress(rows.data(), &size, reinterpret_cast<const Bytef*>(packed.data()),
                   static_cast<uLong>(packed.size())) != Z_OK ||
        size != rows.size())
        return {};

    Bytes pixels, above(row_size);
    for (size_t y = 0; y < height; ++y) {
        uint8_t* row = &rows[y * (row_size + 1)];
        const int filter = *row++;
        for (size_t i = 0; i < row_size; ++i) {
            const bool first = i < pixel;
            row[i] =
                static_cast<uint8_t>(row[i] + Expected(filter, first ? 0 : row[i - pixel], above[i],
                                                       first ? 0 : above[i - pixel]));
        }
        above.assign(row, row + row_size);
        for (size_t x = 0; x < width; ++x) {
            const size_t most = (size_t{1} << depth) - 1;
            const size_t sample = row[x * depth / 8] >> (8 - depth - x * depth % 8) & most;
            for (size_t c = 0; c < 3; ++c)
                pixels.push_back(static_cast<uint8_t>(
                    samples == 3            ? row[3 * x + c]
                    : header[9] == kPalette ? static_cast<uint8_t>(palette.at(3 * sample + c))
                                            : sample * 255 / most));
        }
    }
    return pixels;
}
