#include "gdi/dib_reader.h"

#include "gdi/drawing_context.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>

namespace win32host {
namespace {

constexpr size_t kMasksOffset = sizeof(BITMAPINFOHEADER);
constexpr size_t kHeaderWithMasks = kMasksOffset + 12;
constexpr DWORD kLargestHeader = 0x10000; // no version has more than some hundred bytes

COLORREF FromPalette(const DrawingContext* context, WORD index) {
    return context ? context->Real(PALETTEINDEX(index)) : 0;
}

bool ReadShape(const BYTE* bytes, DibInfo& info, BITMAPINFOHEADER& header) {
    if (header.biSize == sizeof(BITMAPCOREHEADER)) {
        BITMAPCOREHEADER core;
        std::memcpy(&core, bytes, sizeof core);
        header = {};
        header.biSize = sizeof core;
        header.biWidth = core.bcWidth;
        header.biHeight = core.bcHeight;
        header.biBitCount = core.bcBitCount;
    } else {
        std::memcpy(&header, bytes, sizeof header);
    }
    if (header.biHeight == INT32_MIN) return false;
    info.layout.width = header.biWidth;
    info.layout.height = std::abs(header.biHeight);
    info.layout.bottom_up = header.biHeight > 0;
    info.layout.bits_per_pixel = header.biBitCount;
    info.layout.alignment = 32;
    info.layout.SetDefaultMasks();
    info.compressed = (header.biCompression == BI_RLE8 && header.biBitCount == 8) ||
                      (header.biCompression == BI_RLE4 && header.biBitCount == 4);
    const bool has_masks = header.biCompression == BI_BITFIELDS &&
                           (header.biBitCount == 16 || header.biBitCount == 32);
    return (header.biCompression == BI_RGB || info.compressed || has_masks) &&
           Bitmap::Possible(info.layout.width, info.layout.height, header.biBitCount);
}

} // namespace

std::optional<DibInfo> ReadDibShape(const void* data, size_t size) {
    const auto* bytes = static_cast<const BYTE*>(data);
    DibInfo info;
    BITMAPINFOHEADER header = {};
    if (!bytes || size < sizeof header.biSize) return std::nullopt;
    std::memcpy(&header.biSize, bytes, sizeof header.biSize);
    info.core = header.biSize == sizeof(BITMAPCOREHEADER);
    if (!info.core && header.biSize < sizeof header) return std::nullopt;
    if (header.biSize > size || header.biSize > kLargestHeader || !ReadShape(bytes, info, header))
        return std::nullopt;
    info.table_offset = header.biSize;
    if (header.biCompression == BI_BITFIELDS) {
        if (size < kHeaderWithMasks) return std::nullopt;
        std::memcpy(info.layout.masks, bytes + kMasksOffset, sizeof info.layout.masks);
        info.table_offset = std::max(info.table_offset, kHeaderWithMasks);
    }
    const size_t most = header.biBitCount <= 8 ? size_t{1} << header.biBitCount : 256;
    info.colors = std::min<size_t>(header.biClrUsed, most);
    if (info.colors == 0 && header.biBitCount <= 8) info.colors = most;
    return info;
}

std::optional<DibInfo> ReadDibInfo(const void* data, size_t size, UINT usage,
                                   const DrawingContext* context) {
    auto info = ReadDibShape(data, size);
    if (!info) return info;
    const bool indices = usage == DIB_PAL_COLORS;
    const size_t entry = indices ? sizeof(WORD) : info->core ? 3 : sizeof(RGBQUAD);
    info->bits_offset = info->table_offset + info->colors * entry;
    if (info->bits_offset > size) return std::nullopt;
    if (info->layout.bits_per_pixel > 8) return info;
    for (size_t i = 0; i < info->colors; ++i) {
        const BYTE* color = static_cast<const BYTE*>(data) + info->table_offset + i * entry;
        WORD index;
        std::memcpy(&index, color, sizeof index);
        info->layout.table.push_back(indices ? FromPalette(context, index)
                                             : RGB(color[2], color[1], color[0]));
    }
    return info;
}

std::vector<BYTE> ExpandRuns(const PixelLayout& layout, std::span<const BYTE> runs) {
    std::vector<BYTE> bits(layout.Size());
    const bool half = layout.bits_per_pixel == 4;
    int x = 0, y = 0;
    const auto put = [&](uint32_t value) {
        if (x < layout.width && y < layout.height)
            layout.Write(bits.data() + layout.Stride() * static_cast<size_t>(y), x, value);
        if (x < layout.width) ++x;
    };
    size_t at = 0;
    while (at + 2 <= runs.size() && y < layout.height) {
        const BYTE count = runs[at], value = runs[at + 1];
        at += 2;
        if (count > 0) {
            for (int i = 0; i < count; ++i) put(half ? (i & 1 ? value & 0xF : value >> 4) : value);
        } else if (value == 0) {
            x = 0;
            ++y;
        } else if (value == 1) {
            break;
        } else if (value == 2) {
            if (at + 2 > runs.size()) break;
            x = std::min(x + runs[at], layout.width);
            y += runs[at + 1];
            at += 2;
        } else {
            const size_t length = half ? (value + 1u) / 2 : value;
            if (at + length > runs.size()) break;
            for (int i = 0; i < value; ++i) {
                const BYTE byte = runs[at + static_cast<size_t>(half ? i / 2 : i)];
                put(half ? (i & 1 ? byte & 0xF : byte >> 4) : byte);
            }
            at += (length + 1) / 2 * 2;
        }
    }
    return bits;
}

std::optional<PackedDib> ReadPackedDib(std::span<const BYTE> dib, size_t bits_offset) {
    auto info = ReadDibInfo(dib.data(), dib.size(), DIB_RGB_COLORS, nullptr);
    if (!info) return std::nullopt;
    const size_t offset = bits_offset ? bits_offset : info->bits_offset;
    if (offset > dib.size()) return std::nullopt;
    const auto pixels = dib.subspan(offset);
    const size_t size = info->layout.Size();
    if (info->compressed) return PackedDib{info->layout, ExpandRuns(info->layout, pixels)};
    if (pixels.size() < size) return std::nullopt;
    return PackedDib{std::move(info->layout),
                     {pixels.begin(), pixels.begin() + static_cast<ptrdiff_t>(size)}};
}

} // namespace win32host
