#include "png/imaging_windows.h"
#include "png/png_parts.h"

#include <zlib.h>

#include <algorithm>
#include <cstring>

namespace {

constexpr size_t kHeaderSize = 13;
constexpr size_t kAtOnce = 0x40000000; // bytes of pixels to ask for
constexpr const char* kDamaged = "the picture is damaged";

uint32_t BigEndian(const uint8_t* at) {
    return static_cast<uint32_t>(at[0]) << 24 | static_cast<uint32_t>(at[1]) << 16 |
           static_cast<uint32_t>(at[2]) << 8 | at[3];
}

struct Header {
    uint32_t width, height;
    uint64_t rows_size; // of all rows before deflation
};

Header HeaderFrom(const uint8_t* data) {
    static const uint8_t samples[] = {1, 0, 3, 1, 2, 0, 4}; // by colour type
    const Header header = {BigEndian(data), BigEndian(data + 4), 0};
    const uint8_t depth = data[8], type = data[9];
    if (!header.width || !header.height || type >= sizeof samples || !samples[type] || depth > 16 ||
        (depth & (depth - 1)) != 0)
        throw Fault("the header is damaged");
    const uint64_t row_size = (uint64_t{header.width} * depth * samples[type] + 7) / 8;
    return {header.width, header.height, row_size * header.height};
}

// Checks all parts of a file, because the component accepts a file that only has its first rows and
// does not say what is wrong with one. Throws Fault if a part is cut off or its checksum is wrong.
Header CheckFile(const uint8_t* data, size_t size) {
    RequirePngSignature(data, size);
    Header header = {};
    size_t at = kPngSignature;
    for (bool first = true;; first = false) {
        if (size - at < 12 || size - at - 12 < BigEndian(data + at))
            throw Fault("the file ends early");
        const uint32_t length = BigEndian(data + at);
        const uint8_t* name = data + at + 4;
        if (crc32(0, name, length + 4) != BigEndian(name + 4 + length))
            throw Fault("the sum of part " + std::string(name, name + 4) + " is wrong");
        const auto is = [name](const char* text) { return std::memcmp(name, text, 4) == 0; };
        if (first && (!is("IHDR") || length != kHeaderSize)) throw Fault("the header is missing");
        if (first) header = HeaderFrom(name + 4);
        if (is("IEND")) return header;
        at += size_t{length} + 12;
    }
}

// The number of 16-bit samples in a pixel of that format; 0 for other formats.
size_t WideSamples(const GUID& format) {
    if (format == GUID_WICPixelFormat16bppGray) return 1;
    if (format == GUID_WICPixelFormat48bppRGB) return 3;
    if (format == GUID_WICPixelFormat64bppRGBA) return 4;
    return 0;
}

uint8_t Rounded(uint16_t sample) {
    return static_cast<uint8_t>((uint32_t{sample} * 255 + 32895) >> 16);
}

// Turns pixels of `samples` samples into blue, green, red and alpha of 8 bits.
void Narrow(const std::vector<uint16_t>& wide, size_t samples, uint8_t* out) {
    for (size_t i = 0; i + samples <= wide.size(); i += samples) {
        for (size_t c = 0; c < 3; ++c) *out++ = Rounded(wide[samples == 1 ? i : i + 2 - c]);
        *out++ = samples == 4 ? Rounded(wide[i + 3]) : 255;
    }
}

// Copies the pixels of `count` rows into `rows`, `row_size` bytes each.
void CopyRows(IWICBitmapSource& source, const Picture& picture, int y, int count, void* rows,
              size_t row_size) {
    const WICRect part = {0, y, picture.width, count};
    Require(source.CopyPixels(&part, static_cast<UINT>(row_size),
                              static_cast<UINT>(row_size * static_cast<size_t>(count)),
                              static_cast<BYTE*>(rows)),
            kDamaged);
}

} // namespace

Picture DecodePicture(const uint8_t* data, size_t size, int max_side) {
    const Header header = CheckFile(data, size);
    RequirePictureFits(header.width, header.height, header.rows_size, size, max_side);
    if (size > UINT32_MAX) throw Fault("too large for this system");

    const Imaging imaging;
    const auto stream =
        Made<IWICStream>(kDamaged, [&](auto** made) { return imaging->CreateStream(made); });
    Require(stream->InitializeFromMemory(const_cast<BYTE*>(data), static_cast<DWORD>(size)),
            kDamaged);
    const auto decoder = Made<IWICBitmapDecoder>(kDamaged, [&](auto** made) {
        return imaging->CreateDecoderFromStream(stream.get(), nullptr,
                                                WICDecodeMetadataCacheOnDemand, made);
    });
    const auto frame = Made<IWICBitmapFrameDecode>(
        kDamaged, [&](auto** made) { return decoder->GetFrame(0, made); });
    GUID format = {};
    UINT width = 0, height = 0;
    Require(frame->GetPixelFormat(&format), kDamaged);
    Require(frame->GetSize(&width, &height), kDamaged);
    if (width != header.width || height != header.height) throw Fault(kDamaged);

    // 16 bits are reduced to 8 here, as the component would cut off the lower ones.
    const size_t samples = WideSamples(format);
    const auto narrow = Made<IWICBitmapSource>(kDamaged, [&](auto** made) {
        return WICConvertBitmapSource(samples ? format : GUID_WICPixelFormat32bppBGRA, frame.get(),
                                      made);
    });
    Picture picture = {static_cast<int>(width), static_cast<int>(height), {}};
    const size_t row_size = 4 * size_t{width};
    picture.pixels.resize(row_size * height);
    const size_t wide_size = 2 * samples * width;
    const int step = static_cast<int>(kAtOnce / std::max(row_size, wide_size));
    std::vector<uint16_t> wide;
    for (int y = 0; y < picture.height; y += step) {
        const int count = std::min(step, picture.height - y);
        uint8_t* const rows = &picture.pixels[static_cast<size_t>(y) * row_size];
        if (!samples) {
            CopyRows(*narrow, picture, y, count, rows, row_size);
            continue;
        }
        wide.resize(samples * width * static_cast<size_t>(count));
        CopyRows(*narrow, picture, y, count, wide.data(), wide_size);
        Narrow(wide, samples, rows);
    }
    PutOnWhite(picture.pixels);
    return picture;
}
