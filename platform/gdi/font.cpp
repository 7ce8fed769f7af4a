#include "gdi/font.h"

#include "gdi/font_files.h"

#include <algorithm>
#include <mutex>

namespace win32host {
namespace {

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

} // namespace

Font::~Font() {
    std::lock_guard guard(FontLock());
    face_.reset();
}

bool Font::Open() {
    if (!face_) face_ = Face::Open(description_);
    return face_ != nullptr;
}

DWORD Font::GetFontData(DWORD table, DWORD offset, void* buffer, DWORD size) {
    std::lock_guard guard(FontLock());
    return Open() ? face_->FontData(table, offset, buffer, size) : DWORD{GDI_ERROR};
}

bool Font::GetTextMetrics(TEXTMETRICW& metrics) {
    std::lock_guard guard(FontLock());
    if (!Open()) return false;
    face_->Measure(description_, metrics);
    return true;
}

std::u16string Font::Family() {
    std::lock_guard guard(FontLock());
    return Open() ? face_->Family() : std::u16string();
}

bool Font::Widths(const std::u16string& text, bool smooth, std::vector<int>& widths) {
    std::lock_guard guard(FontLock());
    if (!Open()) return false;
    widths.clear();
    for (const char16_t unit : text) widths.push_back(face_->Width(unit, smooth));
    return true;
}

std::shared_ptr<const GlyphImage> Font::Image(char16_t unit, bool smooth) {
    std::lock_guard guard(FontLock());
    return Open() ? face_->Image(unit, smooth) : nullptr;
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
