#include "png/imaging_windows.h"
#include "png/png_parts.h"
#include "text.h"

#include <algorithm>

namespace {

constexpr const char* kTakesNoMore = "the file takes no more";

const GUID& FormatOf(const PngColors& colors) {
    if (colors.grey()) return GUID_WICPixelFormatBlackWhite;
    if (colors.numbers().empty()) return GUID_WICPixelFormat24bppBGR;
    switch (colors.depth()) {
    case 1:
        return GUID_WICPixelFormat1bppIndexed;
    case 2:
        return GUID_WICPixelFormat2bppIndexed;
    case 4:
        return GUID_WICPixelFormat4bppIndexed;
    default:
        return GUID_WICPixelFormat8bppIndexed;
    }
}

// Packs numbers of fewer than 8 bits into bytes, the first in the upper bits.
void Pack(std::vector<uint8_t>& row, size_t width, int depth) {
    const size_t in_byte = static_cast<size_t>(8 / depth);
    for (size_t at = 0; in_byte > 1 && at < width; at += in_byte) {
        unsigned byte = 0;
        for (size_t x = at; x < at + in_byte; ++x) byte = byte << depth | (x < width ? row[x] : 0);
        row[at / in_byte] = static_cast<uint8_t>(byte);
    }
}

void SetPalette(const Imaging& imaging, IWICBitmapFrameEncode& frame, const PngColors& colors) {
    std::vector<WICColor> list(colors.numbers().size());
    for (const auto& [color, number] : colors.numbers()) list[number] = 0xFF000000 | color;
    const auto palette =
        Made<IWICPalette>(kTakesNoMore, [&](auto** made) { return imaging->CreatePalette(made); });
    Require(palette->InitializeCustom(list.data(), static_cast<UINT>(list.size())), kTakesNoMore);
    Require(frame.SetPalette(palette.get()), kTakesNoMore);
}

void WriteRows(IWICBitmapFrameEncode& frame, const PngColors& colors, const Picture& picture) {
    const auto width = static_cast<size_t>(picture.width);
    const size_t bits = static_cast<size_t>(colors.depth()) * (colors.numbers().empty() ? 3 : 1);
    const size_t size = (width * bits + 7) / 8;
    std::vector<uint8_t> row(3 * width);
    for (int y = 0; y < picture.height; ++y) {
        colors.FillRow(y, row);
        Pack(row, width, colors.depth());
        Require(frame.WritePixels(1, static_cast<UINT>(size), static_cast<UINT>(size), row.data()),
                kTakesNoMore);
    }
}

} // namespace

std::string EncodePicture(const std::string& file, const Picture& picture, PngForm form) try {
    const Imaging imaging;
    const PngColors colors(picture, form);
    const auto stream =
        Made<IWICStream>(kTakesNoMore, [&](auto** made) { return imaging->CreateStream(made); });
    Require(stream->InitializeFromFilename(ToWide(file).c_str(), GENERIC_WRITE),
            "cannot create a file there");
    const auto encoder =
        Made<IWICBitmapEncoder>("this system has no codec for PNG", [&](auto** made) {
            return imaging->CreateEncoder(GUID_ContainerFormatPng, nullptr, made);
        });
    Require(encoder->Initialize(stream.get(), WICBitmapEncoderNoCache), kTakesNoMore);
    const auto frame = Made<IWICBitmapFrameEncode>(
        kTakesNoMore, [&](auto** made) { return encoder->CreateNewFrame(made, nullptr); });
    Require(frame->Initialize(nullptr), kTakesNoMore);
    Require(frame->SetSize(static_cast<UINT>(picture.width), static_cast<UINT>(picture.height)),
            kTakesNoMore);
    // The codec may choose another format than the one asked for.
    const GUID wanted = FormatOf(colors);
    GUID format = wanted;
    Require(frame->SetPixelFormat(&format), kTakesNoMore);
    if (format != wanted) throw Fault("this system's codec for PNG lacks a format");
    if (!colors.grey() && !colors.numbers().empty()) SetPalette(imaging, *frame, colors);
    WriteRows(*frame, colors, picture);
    Require(frame->Commit(), kTakesNoMore);
    Require(encoder->Commit(), kTakesNoMore);
    return "";
} catch (const Fault& fault) {
    return fault.what();
}
