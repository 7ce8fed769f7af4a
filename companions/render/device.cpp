#include "device.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <utility>

#include "cache_settings.h"
#include "page_geometry.h"

namespace {

constexpr int kSuccess = 1;
constexpr int kUnknown = 0;
constexpr int kFailure = -1;

int Answer(bool good) {
    return good ? kSuccess : kFailure;
}

// Takes a record off the front of the input. False if the input is too short for it.
template <class T>
bool Take(T& record, const unsigned char*& input, ULONG& size) {
    if (size < sizeof record) return false;
    std::memcpy(&record, input, sizeof record);
    input += sizeof record;
    size -= static_cast<ULONG>(sizeof record);
    return true;
}

bool IsKnown(int escape) {
    switch (escape) {
    case QUERYESCSUPPORT:
    case ESCAPE_BAR:
    case ESCAPE_CACHE_ACTION:
    case ESCAPE_RAW_PACKET:
    case ESCAPE_DOWNLOAD_FONT:
    case ESCAPE_DOWNLOAD_FONT_DATA:
    case ESCAPE_DOWNLOAD_BITMAP:
    case ESCAPE_READ_CACHE_SETTINGS:
    case ESCAPE_WRITE_CACHE_SETTINGS:
    case ESCAPE_CACHE_INFORMATION:
    case ESCAPE_CACHE_ITEM_ACTION:
        return true;
    default:
        return false;
    }
}

} // namespace

void Device::Describe(const DEVMODEW* dev_mode, GDIINFO& info) const {
    const PageGeometry page = GeometryOf(dev_mode, name_);
    info.ulVersion = 1;
    info.ulTechnology = DT_RASPRINTER;
    // Negative values are in micrometres.
    info.ulHorzSize = static_cast<ULONG>(-100 * page.paper_width);
    info.ulVertSize = static_cast<ULONG>(-100 * page.paper_height);
    info.ulHorzRes = static_cast<ULONG>(page.width);
    info.ulVertRes = static_cast<ULONG>(page.height);
    info.cBitsPixel = 1;
    info.cPlanes = 1;
    info.ulNumColors = 2;
    info.ulLogPixelsX = static_cast<ULONG>(page.x_resolution);
    info.ulLogPixelsY = static_cast<ULONG>(page.y_resolution);
    info.ulAspectX = info.ulAspectY = info.ulAspectXY = 1;
    info.szlPhysSize.cx = page.width;
    info.szlPhysSize.cy = page.height;
    info.ulDevicePelsDPI = static_cast<ULONG>(page.x_resolution);
}

void Device::StartDocument() {
    Reset();
    objects_.StartJob();
}

bool Device::EndDocument() {
    Reset();
    return objects_.EndJob();
}

void Device::Reset() {
    in_format_ = false;
    font_.Reset();
}

bool Device::SendPage() {
    if (!in_format_) return true;
    in_format_ = false;
    return output_.Write("^XZ\r\n");
}

int Device::Escape(ULONG escape, const unsigned char* input, ULONG input_size,
                   unsigned char* output, ULONG output_size) {
    switch (static_cast<int>(escape)) {
    case QUERYESCSUPPORT: {
        int32_t asked = 0;
        return Take(asked, input, input_size) && IsKnown(asked) ? kSuccess : kUnknown;
    }
    case ESCAPE_RAW_PACKET:
        return WriteRaw(input, input_size);
    case ESCAPE_BAR:
        return DrawBar(input, input_size);
    case ESCAPE_DOWNLOAD_FONT:
        return HandleFont(input, input_size);
    case ESCAPE_DOWNLOAD_FONT_DATA:
        return AddFontData(input, input_size);
    case ESCAPE_DOWNLOAD_BITMAP:
        return AddGlyph(input, input_size);
    case ESCAPE_READ_CACHE_SETTINGS: {
        const KVCacheSettings settings = ReadCacheSettings(printer_);
        if (output_size < sizeof settings) return kFailure;
        std::memcpy(output, &settings, sizeof settings);
        return kSuccess;
    }
    case ESCAPE_WRITE_CACHE_SETTINGS: {
        KVCacheSettings settings;
        return Answer(Take(settings, input, input_size) &&
                      WriteCacheSettings(name_.c_str(), &settings));
    }
    case ESCAPE_CACHE_ACTION:
        return HandleCache(input, input_size);
    case ESCAPE_CACHE_INFORMATION:
        return objects_.Describe(output, output_size);
    case ESCAPE_CACHE_ITEM_ACTION:
        return HandleCacheItem(input, input_size);
    default:
        return kUnknown;
    }
}

int Device::WriteRaw(const unsigned char* input, ULONG size) {
    uint16_t count = 0;
    if (!Take(count, input, size) || count > size) return kFailure;
    objects_.Read(input, count);
    return Answer(output_.Write(input, count));
}

int Device::DrawBar(const unsigned char* input, ULONG size) {
    KVBar bar;
    if (!Take(bar, input, size) || bar.size != sizeof bar) return kFailure;
    // The start is on the middle line; ZPL takes the corner.
    const int half = bar.thickness / 2;
    const int x = bar.vertical ? bar.x - half : bar.x;
    const int y = bar.vertical ? bar.y : bar.y - half;
    const auto [width, height] =
        bar.vertical ? std::pair(bar.thickness, bar.length) : std::pair(bar.length, bar.thickness);
    return Answer(WriteBox(x, y, width, height, true));
}

bool Device::WriteBox(int x, int y, int width, int height, bool black) {
    if (!in_format_ && !output_.Write("^XA\r\n")) return false;
    in_format_ = true;
    char command[96];
    // A border as thick as the box is narrow fills the box.
    std::snprintf(command, sizeof command, "^FO%d,%d^GB%d,%d,%d%s^FS\r\n", std::max(x, 0),
                  std::max(y, 0), width, height, std::min(width, height), black ? "" : ",W");
    return output_.Write(command);
}

bool Device::Fill(const RECTL& area, bool black) {
    const int width = area.right - area.left, height = area.bottom - area.top;
    return width <= 0 || height <= 0 || WriteBox(area.left, area.top, width, height, black);
}

int Device::HandleFont(const unsigned char* input, ULONG size) {
    KVFontInfo font;
    return Answer(Take(font, input, size) && font_.Handle(font));
}

int Device::AddFontData(const unsigned char* input, ULONG size) {
    uint16_t count = 0;
    return Answer(Take(count, input, size) && count <= size && font_.AddData(input, count));
}

int Device::AddGlyph(const unsigned char* input, ULONG size) {
    KVDownloadBitmapChar glyph;
    return Answer(Take(glyph, input, size) && glyph.data_size <= size &&
                  font_.AddGlyph(glyph, input));
}

int Device::HandleCache(const unsigned char* input, ULONG size) {
    KVCacheAction action;
    if (!Take(action, input, size)) return kFailure;
    switch (action.action) {
    case KVCacheAction::CLEAR:
        return Answer(objects_.Clear());
    case KVCacheAction::RESET_SETTINGS:
        return Answer(WriteCacheSettings(name_.c_str(), nullptr));
    case KVCacheAction::FORGET_LOCATION:
        return Answer(objects_.Forget(action.argument));
    default:
        return kFailure;
    }
}

int Device::HandleCacheItem(const unsigned char* input, ULONG size) {
    KVCacheItemAction action;
    return Answer(Take(action, input, size) && objects_.Act(action));
}
