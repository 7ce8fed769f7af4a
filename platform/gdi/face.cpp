#include "gdi/face.h"

#include "gdi/font_files.h"

#include FT_OUTLINE_H
#include FT_SYNTHESIS_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <list>
#include <utility>

namespace win32host {
namespace {

constexpr int kDefaultCell = 16;
constexpr int kLargestSize = 4096;    // pixels
constexpr int kStrokesPerEm = 24;     // a bold stroke is wider by one em over this
constexpr size_t kMostFaces = 64;     // that are kept open
constexpr size_t kLargestKept = 4096; // pixels of a glyph that is drawn again later

// The name of a table as it is in font files.
FT_ULong TableName(DWORD table) {
    return FT_MAKE_TAG(table & 0xFF, table >> 8 & 0xFF, table >> 16 & 0xFF, table >> 24);
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

uint32_t KeyOf(char16_t unit, bool smooth) {
    return uint32_t{unit} << 1 | (smooth ? 1 : 0);
}

struct OpenFace {
    LOGFONTW description;
    std::shared_ptr<Face> face;
};

// Those used last, the latest first. Lives until the process ends.
std::list<OpenFace>& OpenFaces() {
    static auto* const faces = new std::list<OpenFace>;
    return *faces;
}

} // namespace

std::shared_ptr<Face> Face::Open(const LOGFONTW& description) {
    auto& faces = OpenFaces();
    const auto known = std::find_if(faces.begin(), faces.end(), [&](const OpenFace& open) {
        return std::memcmp(&open.description, &description, sizeof description) == 0;
    });
    if (known != faces.end()) {
        faces.splice(faces.begin(), faces, known);
        return faces.front().face;
    }
    const FoundFace found = FindFace(description);
    if (!found.face) return nullptr;
    auto face = std::make_shared<Face>(description, found.face, found.family, found.bolding,
                                       found.lacks_slant);
    faces.push_front({description, face});
    if (faces.size() > kMostFaces) faces.pop_back();
    return face;
}

Face::Face(const LOGFONTW& description, FT_FaceRec_* face, std::u16string family, Bolding bolding,
           bool slant)
    : face_(face)
    , family_(std::move(family))
    , bolding_(bolding)
    , slant_(slant) {
    SetSize(description);
}

Face::~Face() {
    FT_Done_Face(face_);
}

void Face::SetSize(const LOGFONTW& description) {
    const int64_t wanted = description.lfHeight;
    const int64_t height = std::min<int64_t>(std::llabs(wanted), kLargestSize);
    const int cell = std::max(1, CellAscent(face_) + CellDescent(face_));
    const int64_t em = face_->units_per_EM;
    if (wanted < 0) {
        pixels_per_em_ = static_cast<int>(height);
    } else {
        // The nearest size whose cell is no higher.
        const int64_t line = height ? height : kDefaultCell;
        pixels_per_em_ = static_cast<int>((line * em + cell / 2) / cell);
        if (Scaled(CellAscent(face_), pixels_per_em_) + Scaled(CellDescent(face_), pixels_per_em_) >
            line)
            --pixels_per_em_;
    }
    pixels_per_em_ = std::clamp(pixels_per_em_, 1, kLargestSize);
    horizontal_pixels_per_em_ = pixels_per_em_;
    if (description.lfWidth) {
        const int64_t width =
            std::min<int64_t>(std::llabs(int64_t{description.lfWidth}), kLargestSize);
        horizontal_pixels_per_em_ = static_cast<int>(
            std::clamp<int64_t>(width * em / std::max(1, AverageWidth(face_)), 1, kLargestSize));
    }
    FT_Set_Pixel_Sizes(face_, static_cast<FT_UInt>(horizontal_pixels_per_em_),
                       static_cast<FT_UInt>(pixels_per_em_));
}

int Face::Scaled(int design_units, int pixels_per_em) const {
    const int64_t em = face_->units_per_EM;
    return static_cast<int>((int64_t{design_units} * pixels_per_em + em / 2) / em);
}

DWORD Face::FontData(DWORD table, DWORD offset, void* buffer, DWORD size) const {
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

void Face::Measure(const LOGFONTW& description, TEXTMETRICW& metrics) const {
    metrics = {};
    metrics.tmAscent = Scaled(CellAscent(face_), pixels_per_em_);
    metrics.tmDescent = Scaled(CellDescent(face_), pixels_per_em_);
    metrics.tmHeight = metrics.tmAscent + metrics.tmDescent;
    metrics.tmInternalLeading = metrics.tmHeight - pixels_per_em_;
    metrics.tmExternalLeading =
        std::max(0, Scaled(face_->height, pixels_per_em_) - metrics.tmHeight);
    metrics.tmAveCharWidth = Scaled(AverageWidth(face_), horizontal_pixels_per_em_);
    metrics.tmMaxCharWidth =
        Scaled(static_cast<int>(face_->bbox.xMax - face_->bbox.xMin), horizontal_pixels_per_em_);
    metrics.tmDigitizedAspectX = metrics.tmDigitizedAspectY = 96;
    metrics.tmItalic = (face_->style_flags & FT_STYLE_FLAG_ITALIC) || slant_;
    metrics.tmUnderlined = description.lfUnderline;
    metrics.tmStruckOut = description.lfStrikeOut;
    metrics.tmCharSet =
        description.lfCharSet == DEFAULT_CHARSET ? BYTE{ANSI_CHARSET} : description.lfCharSet;
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
    if (bolding_ == Bolding::Glyphs) metrics.tmWeight = FW_BOLD;
}

bool Face::Load(char16_t unit, FT_Int32 target) const {
    const FT_UInt glyph = FT_Get_Char_Index(face_, unit);
    if (FT_Load_Glyph(face_, glyph, target | FT_LOAD_NO_BITMAP)) return false;
    const FT_GlyphSlot slot = face_->glyph;
    if (slot->format != FT_GLYPH_FORMAT_OUTLINE) return false;
    if (bolding_ == Bolding::Glyphs) FT_GlyphSlot_Embolden(slot);
    if (bolding_ == Bolding::OutlinesOnly)
        FT_Outline_Embolden(&slot->outline, FT_Pos{pixels_per_em_} * 64 / kStrokesPerEm);
    if (slant_) FT_GlyphSlot_Oblique(slot);
    return true;
}

int Face::Width(char16_t unit, bool smooth) {
    const auto [known, added] = widths_.try_emplace(KeyOf(unit, smooth), 0);
    if (added && Load(unit, smooth ? FT_LOAD_TARGET_NORMAL : FT_LOAD_TARGET_MONO))
        known->second = static_cast<int>((face_->glyph->advance.x + 32) >> 6);
    return known->second;
}

std::shared_ptr<const GlyphImage> Face::Image(char16_t unit, bool smooth) {
    const auto known = images_.find(KeyOf(unit, smooth));
    if (known != images_.end()) return known->second;
    const FT_Pos cell = FT_Pos{Width(unit, smooth)} << 6;
    if (!Load(unit, smooth ? FT_LOAD_TARGET_LIGHT : FT_LOAD_TARGET_MONO)) return nullptr;
    const FT_GlyphSlot slot = face_->glyph;
    // Smooth shapes are not forced into whole pixels from side to side: they are in the middle of
    // cells that are.
    if (smooth) FT_Outline_Translate(&slot->outline, (cell - slot->advance.x) / 2, 0);
    if (FT_Render_Glyph(slot, smooth ? FT_RENDER_MODE_NORMAL : FT_RENDER_MODE_MONO)) return nullptr;
    const FT_Bitmap& drawn = slot->bitmap;
    auto image = std::make_shared<GlyphImage>();
    image->left = slot->bitmap_left;
    image->top = slot->bitmap_top;
    image->width = static_cast<int>(drawn.width);
    image->height = static_cast<int>(drawn.rows);
    for (int y = 0; y < image->height; ++y) {
        const unsigned char* row = drawn.buffer + ptrdiff_t{y} * drawn.pitch;
        for (int x = 0; x < image->width; ++x)
            image->coverage.push_back(
                smooth ? row[x] : static_cast<BYTE>(row[x / 8] & (0x80 >> x % 8) ? 255 : 0));
    }
    if (image->coverage.size() <= kLargestKept) images_.emplace(KeyOf(unit, smooth), image);
    return image;
}

} // namespace win32host
