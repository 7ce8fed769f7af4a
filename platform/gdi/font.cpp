#include "gdi/font.h"

#include "gdi/font_files.h"

#include FT_OUTLINE_H
#include FT_SYNTHESIS_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <cstddef>
#include <cstdlib>

namespace win32host {
namespace {

constexpr int kDefaultCell = 16;
constexpr int kLargestSize = 4096; // pixels

// The name of a table as it is in font files.
FT_ULong TableName(DWORD table) {
    return FT_MAKE_TAG(table & 0xFF, table >> 8 & 0xFF, table >> 16 & 0xFF, table >> 24);
}

UINT CodePageOf(BYTE charset) {
    switch (charset) {
    case ANSI_CHARSET:
        return 1252;
    case SHIFTJIS_CHARSET:
        return 932;
    case HANGUL_CHARSET:
        return 949;
    case JOHAB_CHARSET:
        return 1361;
    case GB2312_CHARSET:
        return 936;
    case CHINESEBIG5_CHARSET:
        return 950;
    case GREEK_CHARSET:
        return 1253;
    case TURKISH_CHARSET:
        return 1254;
    case VIETNAMESE_CHARSET:
        return 1258;
    case HEBREW_CHARSET:
        return 1255;
    case ARABIC_CHARSET:
        return 1256;
    case BALTIC_CHARSET:
        return 1257;
    case RUSSIAN_CHARSET:
        return 1251;
    case THAI_CHARSET:
        return 874;
    case EASTEUROPE_CHARSET:
        return 1250;
    case OEM_CHARSET:
        return CP_OEMCP;
    default:
        return CP_ACP;
    }
}

// The family of a typeface by its classification numbers.
BYTE FamilyOf(const FT_Byte (&panose)[10], bool fixed) {
    if (panose[0] == 3) return FF_SCRIPT;
    if (panose[0] == 4) return FF_DECORATIVE;
    if (panose[0] != 2) return FF_DONTCARE;
    if (fixed) return FF_MODERN;
    if (panose[1] >= 11 && panose[1] <= 15) return FF_SWISS;
    return panose[1] >= 2 && panose[1] <= 10 ? FF_ROMAN : FF_DONTCARE;
}

const TT_OS2* Os2(FT_Face face) {
    return static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
}

// The extent of the cell above and below the base line, in design units.
int CellAscent(FT_Face face) {
    const TT_OS2* os2 = Os2(face);
    return os2 && os2->usWinAscent + os2->usWinDescent > 0 ? os2->usWinAscent : face->ascender;
}
int CellDescent(FT_Face face) {
    const TT_OS2* os2 = Os2(face);
    return os2 && os2->usWinAscent + os2->usWinDescent > 0 ? os2->usWinDescent : -face->descender;
}
int AverageWidth(FT_Face face) {
    const TT_OS2* os2 = Os2(face);
    return os2 && os2->xAvgCharWidth > 0 ? os2->xAvgCharWidth : face->max_advance_width / 2;
}

} // namespace

Font::~Font() {
    if (!face_) return;
    std::lock_guard guard(FontLock());
    FT_Done_Face(face_);
}

bool Font::Open() {
    if (opened_) return face_;
    opened_ = true;
    const FoundFace found = FindFace(description_);
    face_ = found.face;
    family_ = found.family;
    embolden_ = found.lacks_weight;
    slant_ = found.lacks_slant;
    if (face_) SetSize();
    return face_;
}

void Font::SetSize() {
    const int64_t wanted = description_.lfHeight;
    const int64_t height = std::min<int64_t>(std::llabs(wanted), kLargestSize);
    const int cell = std::max(1, CellAscent(face_) + CellDescent(face_));
    const int64_t em = face_->units_per_EM;
    if (wanted < 0)
        pixels_per_em_ = static_cast<int>(height);
    else
        pixels_per_em_ = static_cast<int>((height ? height : kDefaultCell) * em / cell);
    pixels_per_em_ = std::clamp(pixels_per_em_, 1, kLargestSize);
    horizontal_pixels_per_em_ = pixels_per_em_;
    if (description_.lfWidth) {
        const int64_t width =
            std::min<int64_t>(std::llabs(int64_t{description_.lfWidth}), kLargestSize);
        horizontal_pixels_per_em_ = static_cast<int>(
            std::clamp<int64_t>(width * em / std::max(1, AverageWidth(face_)), 1, kLargestSize));
    }
    FT_Set_Pixel_Sizes(face_, static_cast<FT_UInt>(horizontal_pixels_per_em_),
                       static_cast<FT_UInt>(pixels_per_em_));
}

int Font::Scaled(int design_units, int pixels_per_em) const {
    const int64_t em = face_->units_per_EM;
    return static_cast<int>((int64_t{design_units} * pixels_per_em + em / 2) / em);
}

std::u16string Font::Family() {
    std::lock_guard guard(FontLock());
    return Open() ? family_ : std::u16string();
}

DWORD Font::GetFontData(DWORD table, DWORD offset, void* buffer, DWORD size) {
    std::lock_guard guard(FontLock());
    if (!Open()) return GDI_ERROR;
    const FT_ULong collection = FT_MAKE_TAG('t', 't', 'c', 'f');
    FT_ULong tag = TableName(table);
    if (tag == collection) tag = 0;
    FT_ULong all = 0;
    if (FT_Load_Sfnt_Table(face_, tag, 0, nullptr, &all) || all >= GDI_ERROR) return GDI_ERROR;
    if (!buffer || size == 0) return static_cast<DWORD>(all);
    if (offset >= all) return GDI_ERROR;
    FT_ULong count = std::min<FT_ULong>(size, all - offset);
    if (FT_Load_Sfnt_Table(face_, tag, static_cast<FT_Long>(offset), static_cast<FT_Byte*>(buffer),
                           &count))
        return GDI_ERROR;
    return static_cast<DWORD>(count);
}

void Font::Measure(TEXTMETRICW& metrics) const {
    metrics = {};
    metrics.tmAscent = Scaled(CellAscent(face_), pixels_per_em_);
    metrics.tmDescent = Scaled(CellDescent(face_), pixels_per_em_);
    metrics.tmHeight = metrics.tmAscent + metrics.tmDescent;
    metrics.tmInternalLeading = metrics.tmHeight - pixels_per_em_;
    metrics.tmExternalLeading =
        std::max(0, Scaled(face_->height, pixels_per_em_) - metrics.tmHeight);
    metrics.tmAveCharWidth = Scaled(AverageWidth(face_), horizontal_pixels_per_em_);
    metrics.tmMaxCharWidth = Scaled(face_->max_advance_width, horizontal_pixels_per_em_);
    metrics.tmDigitizedAspectX = metrics.tmDigitizedAspectY = 96;
    metrics.tmItalic = (face_->style_flags & FT_STYLE_FLAG_ITALIC) || slant_;
    metrics.tmUnderlined = description_.lfUnderline;
    metrics.tmStruckOut = description_.lfStrikeOut;
    metrics.tmCharSet =
        description_.lfCharSet == DEFAULT_CHARSET ? BYTE{ANSI_CHARSET} : description_.lfCharSet;
    const bool fixed = FT_IS_FIXED_WIDTH(face_);
    metrics.tmPitchAndFamily = TMPF_VECTOR | TMPF_TRUETYPE;
    if (!fixed) metrics.tmPitchAndFamily |= TMPF_FIXED_PITCH;
    metrics.tmWeight = FW_NORMAL;
    if (const TT_OS2* os2 = Os2(face_)) {
        metrics.tmWeight = os2->usWeightClass;
        metrics.tmFirstChar = os2->usFirstCharIndex;
        metrics.tmLastChar = os2->usLastCharIndex;
        metrics.tmDefaultChar = os2->usDefaultChar;
        metrics.tmBreakChar = os2->usBreakChar;
        metrics.tmPitchAndFamily |= FamilyOf(os2->panose, fixed);
    }
    if (embolden_) metrics.tmWeight = FW_BOLD;
}

bool Font::GetTextMetrics(TEXTMETRICW& metrics) {
    std::lock_guard guard(FontLock());
    if (!Open()) return false;
    Measure(metrics);
    return true;
}

bool Font::LoadCharacter(char16_t unit, bool image) const {
    const FT_UInt glyph = FT_Get_Char_Index(face_, unit);
    if (FT_Load_Glyph(face_, glyph, FT_LOAD_TARGET_MONO | FT_LOAD_NO_BITMAP)) return false;
    const FT_GlyphSlot slot = face_->glyph;
    if (slot->format != FT_GLYPH_FORMAT_OUTLINE) return false;
    if (embolden_) FT_GlyphSlot_Embolden(slot);
    if (slant_) FT_GlyphSlot_Oblique(slot);
    return !image || !FT_Render_Glyph(slot, FT_RENDER_MODE_MONO);
}

int Font::Advance(char16_t unit) const {
    return LoadCharacter(unit, false) ? static_cast<int>((face_->glyph->advance.x + 32) >> 6) : 0;
}

bool Font::GetTextExtent(const std::u16string& text, SIZE& size) {
    std::lock_guard guard(FontLock());
    if (!Open()) return false;
    size = {0,
            Scaled(CellAscent(face_), pixels_per_em_) + Scaled(CellDescent(face_), pixels_per_em_)};
    for (const char16_t unit : text) size.cx += Advance(unit);
    return true;
}

bool Font::DrawText(Bitmap& bitmap, int x, int y, const std::u16string& text) {
    SIZE cell = {};
    if (!GetTextExtent(text, cell)) return false;
    bitmap.Fill(x, y, cell.cx, cell.cy, true);
    std::lock_guard guard(FontLock());
    const int base_line = y + Scaled(CellAscent(face_), pixels_per_em_);
    for (const char16_t unit : text) {
        const int advance = Advance(unit);
        if (LoadCharacter(unit, true)) {
            const FT_GlyphSlot slot = face_->glyph;
            const FT_Bitmap& image = slot->bitmap;
            for (int row = 0; row < static_cast<int>(image.rows); ++row) {
                const unsigned char* bits = image.buffer + ptrdiff_t{row} * image.pitch;
                for (int column = 0; column < static_cast<int>(image.width); ++column)
                    if (bits[column / 8] & (0x80 >> column % 8))
                        bitmap.Set(x + slot->bitmap_left + column,
                                   base_line - slot->bitmap_top + row, false);
            }
        }
        x += advance;
    }
    return true;
}

std::u16string Font::Wide(const char* text, int length) const {
    std::u16string wide;
    if (length <= 0) return wide;
    if (description_.lfCharSet == SYMBOL_CHARSET) {
        // Symbol fonts have their characters there.
        for (int i = 0; i < length; ++i)
            wide += static_cast<char16_t>(0xF000 | static_cast<unsigned char>(text[i]));
        return wide;
    }
    wide.resize(static_cast<size_t>(length));
    int count = 0;
    for (const UINT page : {CodePageOf(description_.lfCharSet), UINT{CP_ACP}}) {
        count = MultiByteToWideChar(page, 0, text, length, wide.data(), length);
        if (count > 0) break;
    }
    wide.resize(static_cast<size_t>(std::max(count, 0)));
    return wide;
}

} // namespace win32host
