#include "fonts/font_sender.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "model/prtmodel.h"
#include "printer/prtstream.h"

namespace {

constexpr DWORD kPiece = 16384; // bytes of a file at once

// The limits of a character's record.
constexpr int64_t kMostBytes = UINT16_MAX;

// A font selected, as long as this lives, into a device context that is not the printer's.
class SelectedFont {
public:
    SelectedFont(HDC dc, const LOGFONTW& description)
        : dc_(dc)
        , font_(::CreateFontIndirectW(&description))
        , before_(font_ ? ::SelectObject(dc, font_) : nullptr) {}
    ~SelectedFont() {
        if (before_) ::SelectObject(dc_, before_);
        if (font_) ::DeleteObject(font_);
    }
    SelectedFont(const SelectedFont&) = delete;
    SelectedFont& operator=(const SelectedFont&) = delete;

    bool IsValid() const { return before_ != nullptr; }

private:
    const HDC dc_;
    const HFONT font_;
    const HGDIOBJ before_;
};

class ScreenContext {
public:
    ~ScreenContext() {
        if (dc) ::ReleaseDC(nullptr, dc);
    }
    const HDC dc = ::GetDC(nullptr);
};

// A bitmap in two colours and a device context that draws on it.
class Canvas {
public:
    explicit Canvas(HDC like)
        : dc(::CreateCompatibleDC(like)) {}
    ~Canvas() {
        if (before_) ::SelectObject(dc, before_);
        if (bitmap_) ::DeleteObject(bitmap_);
        if (dc) ::DeleteDC(dc);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    bool Create(int width, int height) {
        picture_ = {nullptr, width, height, (width + 15) / 16 * 2};
        bitmap_ = ::CreateBitmap(width, height, 1, 1, nullptr);
        if (bitmap_) before_ = ::SelectObject(dc, bitmap_);
        return before_ && bits_.SetSize(static_cast<uint32_t>(picture_.stride) *
                                        static_cast<uint32_t>(height));
    }

    // The current picture.
    GlyphPicture Read() {
        const auto size = static_cast<LONG>(bits_.GetSize());
        // Pixels that cannot be read are blank.
        std::memset(bits_.GetData(), 0xFF, bits_.GetSize());
        ::GetBitmapBits(bitmap_, size, bits_.GetData());
        picture_.bits = bits_.GetData();
        return picture_;
    }

    const HDC dc;

private:
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ before_ = nullptr;
    GlyphPicture picture_ = {};
    OBuffer<unsigned char> bits_;
};

void StoreMetrics(const TEXTMETRICW& metrics, KVFontInfo& info) {
    info.max_char_width = static_cast<uint16_t>(metrics.tmMaxCharWidth);
    info.ave_char_width = static_cast<uint16_t>(metrics.tmAveCharWidth);
    info.height = static_cast<uint16_t>(metrics.tmHeight);
    info.ascent = static_cast<uint16_t>(metrics.tmAscent);
    info.descent = static_cast<uint16_t>(metrics.tmDescent);
    info.internal_leading = static_cast<uint16_t>(metrics.tmInternalLeading);
}

// The system's font for the pictures of a bitmap font.
LOGFONTW AtResolution(const DownloadedFontInfo& font, int dpi) {
    LOGFONTW description = font.font;
    description.lfHeight = -(font.point_size * dpi / 720);
    return description;
}

// The rows of a character, upright or turned.
struct GlyphRows {
    GlyphRows(int columns, int height, uint16_t rotation)
        : width(rotation ? height : columns)
        , rows(rotation ? columns : height)
        , row_bytes((width + 7) / 8) {}

    int64_t Bytes() const { return int64_t{row_bytes} * rows; }
    bool Fit() const { return width <= UINT16_MAX && rows <= UINT16_MAX && Bytes() <= kMostBytes; }

    const int width;
    const int rows;
    const int row_bytes;
};

// Whether all characters of the selected font fit into their records.
bool CharactersFit(const DownloadedFontInfo& font, HDC dc, int height, const prtmodel& model) {
    for (const uint16_t rotation : {uint16_t{0}, uint16_t{1}}) {
        if (!model.DownloadFontRotation(rotation)) continue;
        for (int code = 0; code < 256; ++code) {
            const auto character = static_cast<char>(code);
            SIZE cell = {};
            if (font.IsCharacterDownloaded(character) &&
                ::GetTextExtentPointA(dc, &character, 1, &cell) &&
                !GlyphRows(cell.cx, height, rotation).Fit())
                return false;
        }
    }
    return true;
}

// The same before there is a job.
bool CharactersFit(const DownloadedFontInfo& font, prtstream& stream) {
    const prtmodel* model = stream.GetModel();
    const ScreenContext screen;
    const SelectedFont selected(screen.dc, AtResolution(font, stream.GetVerticalDPI()));
    TEXTMETRICW metrics = {};
    return !model || !selected.IsValid() || !::GetTextMetricsW(screen.dc, &metrics) ||
           CharactersFit(font, screen.dc, metrics.tmHeight, *model);
}

void Send(KVFontInfo::Operation operation, KVFontInfo& info, prtstream& stream) {
    info.operation = operation;
    stream.DownloadFont(info);
}

bool HasInk(const GlyphPicture& picture, int x, int y) {
    return x < picture.width && y < picture.height &&
           !(picture.bits[y * picture.stride + x / 8] & (0x80 >> x % 8));
}

// Sends all characters in one rotation. Returns the bytes of their rows.
uint32_t SendPass(DownloadedFont& font, uint16_t rotation, const TEXTMETRICW& metrics,
                  Canvas& canvas, prtstream& stream, bool& prepared) {
    uint32_t total = 0;
    font.info.rotation = rotation;
    Send(KVFontInfo::BEGIN_BITMAP, font.info, stream);
    for (int code = 0; code < 256; ++code) {
        const auto character = static_cast<char>(code);
        SIZE cell = {};
        if (!font.IsCharacterDownloaded(character) ||
            !::GetTextExtentPointA(canvas.dc, &character, 1, &cell))
            continue;
        ::TextOutA(canvas.dc, 0, 0, &character, 1);
        const OBuffer<unsigned char> glyph =
            BitmapCharacter(static_cast<unsigned char>(code), canvas.Read(), cell.cx,
                            static_cast<int>(metrics.tmAscent), rotation);
        if (glyph.GetSize() == 0) continue;
        KVDownloadBitmapChar record;
        std::memcpy(&record, glyph.GetData(), sizeof record);
        stream.DownloadBitmapData(reinterpret_cast<const KVDownloadBitmapChar*>(glyph.GetData()));
        total += record.data_size;
        prepared = true;
    }
    Send(KVFontInfo::END_BITMAP, font.info, stream);
    Send(KVFontInfo::FINISH, font.info, stream);
    return total;
}

} // namespace

OBuffer<unsigned char> BitmapCharacter(unsigned char character, const GlyphPicture& picture,
                                       int advance, int ascent, uint16_t rotation) {
    OBuffer<unsigned char> glyph;
    const int columns = std::max(advance, 0);
    const GlyphRows shape(columns, picture.height, rotation);
    if (!shape.Fit()) return glyph;
    const auto size = static_cast<size_t>(shape.Bytes());
    if (!glyph.SetSize(static_cast<uint32_t>(sizeof(KVDownloadBitmapChar) + size))) return glyph;
    const KVDownloadBitmapChar record = {
        character,
        static_cast<uint16_t>(columns),
        static_cast<uint16_t>(picture.height),
        static_cast<uint16_t>(ascent),
        rotation,
        static_cast<uint16_t>(size),
        static_cast<uint16_t>(shape.rows),
        static_cast<uint16_t>(shape.row_bytes),
    };
    std::memcpy(glyph.GetData(), &record, sizeof record);
    unsigned char* row = glyph.GetData() + sizeof record;
    std::memset(row, 0, size);
    for (int y = 0; y < shape.rows; ++y, row += shape.row_bytes)
        for (int x = 0; x < shape.width; ++x) {
            const bool ink =
                rotation ? HasInk(picture, y, picture.height - 1 - x) : HasInk(picture, x, y);
            if (ink) row[x / 8] = static_cast<unsigned char>(row[x / 8] | 0x80 >> x % 8);
        }
    return glyph;
}

bool DownloadTTFFont(DownloadedFont& font, prtstream& stream) {
    const ScreenContext screen;
    const SelectedFont selected(screen.dc, font.font);
    if (!selected.IsValid()) return false;
    const DWORD size = ::GetFontData(screen.dc, 0, 0, nullptr, 0);
    if (size == 0 || size > INT32_MAX) return false;
    // The file is read first, so that one that cannot be read is not half sent.
    OBuffer<char> file(size);
    if (file.GetSize() != size || ::GetFontData(screen.dc, 0, 0, file.GetData(), size) != size)
        return false;
    TEXTMETRICW metrics = {};
    if (::GetTextMetricsW(screen.dc, &metrics)) StoreMetrics(metrics, font.info);
    font.info.data_size = size;

    Send(KVFontInfo::BEGIN_TRUETYPE, font.info, stream);
    for (DWORD sent = 0; sent < size; sent += kPiece)
        stream.DownloadFontData(file.GetData() + sent, std::min(kPiece, size - sent));
    Send(KVFontInfo::END_TRUETYPE, font.info, stream);
    Send(KVFontInfo::FINISH, font.info, stream);
    return true;
}

bool DownloadBitmapFont(DownloadedFont& font, prtstream& stream) {
    const prtmodel* model = stream.GetModel();
    const HDC printer = stream.GetDC();
    if (!model || !printer) return false;
    const ScreenContext screen;
    Canvas canvas(screen.dc);
    const SelectedFont selected(canvas.dc,
                                AtResolution(font, ::GetDeviceCaps(printer, LOGPIXELSY)));
    TEXTMETRICW metrics = {};
    if (!selected.IsValid() || !::GetTextMetricsW(canvas.dc, &metrics) ||
        !CharactersFit(font, canvas.dc, metrics.tmHeight, *model) ||
        !canvas.Create(metrics.tmMaxCharWidth, metrics.tmHeight))
        return false;
    StoreMetrics(metrics, font.info);
    font.info.characters = 0;
    for (int code = 0; code < 256; ++code)
        font.info.characters += font.IsCharacterDownloaded(static_cast<char>(code));

    uint32_t total = 0;
    bool prepared = false;
    for (const uint16_t rotation : {uint16_t{0}, uint16_t{1}})
        if (model->DownloadFontRotation(rotation))
            total += SendPass(font, rotation, metrics, canvas, stream, prepared);
    font.info.data_size = total;
    return prepared;
}

FontSent SendFont(DownloadedFont& font, prtstream& stream) {
    if (font.type == DownloadedFont::BITMAP && !CharactersFit(font, stream))
        return FontSent::TOO_LARGE;
    const bool job = stream.StartJob(font.GetDisplayName()) > 0;
    font.status = DownloadedFont::SENT;
    bool sent = false;
    if (font.type == DownloadedFont::TRUETYPE) sent = DownloadTTFFont(font, stream);
    if (font.type == DownloadedFont::BITMAP) sent = DownloadBitmapFont(font, stream);
    stream.EndJob();
    return job && sent ? FontSent::SENT : FontSent::NOTHING;
}

ReDownloadResult ReDownloadAll(prtdttf_list& fonts, prtstream& stream, const prtmodel* model) {
    bool too_large = false;
    for (DownloadedFont* font = fonts.GetNext(nullptr); font; font = fonts.GetNext(font))
        if (font->status != DownloadedFont::PRESENT)
            too_large |= SendFont(*font, stream) == FontSent::TOO_LARGE;
    return {too_large, fonts.Save(model)};
}
