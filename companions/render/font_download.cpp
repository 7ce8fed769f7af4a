#include "font_download.h"

#include <cstdio>
#include <cstring>

namespace {

// A text of a record, without characters that would end the command around it.
template <size_t N>
std::string TextOf(const char (&field)[N]) {
    std::string text;
    for (size_t i = 0; i < N && field[i]; ++i) {
        const char c = field[i];
        if (c > ' ' && c < 0x7F && !std::strchr("^~,:", c)) text += c;
    }
    return text;
}

// "R:ARIAL.FNT"
std::string PlaceOf(const KVFontInfo& font) {
    const std::string location = TextOf(font.location);
    return (location.empty() ? std::string("R") : location) + ':' + TextOf(font.file_name);
}

} // namespace

bool FontDownload::Begin(Open kind, const std::string& command) {
    if (open_ != Open::NOTHING) return false;
    open_ = kind;
    return output_.Write(command);
}

bool FontDownload::End(Open kind) {
    if (open_ != kind) return false;
    open_ = Open::NOTHING;
    return output_.Write("\r\n");
}

bool FontDownload::Handle(const KVFontInfo& font) {
    switch (font.operation) {
    case KVFontInfo::BEGIN_TRUETYPE:
        return Begin(Open::FONT_FILE,
                     "~DU" + PlaceOf(font) + ',' + std::to_string(font.data_size) + ',');
    case KVFontInfo::END_TRUETYPE:
        return End(Open::FONT_FILE);
    case KVFontInfo::BEGIN_BITMAP:
        return Begin(Open::GLYPHS, "~DB" + PlaceOf(font) + (font.rotation ? ",R," : ",N,") +
                                       std::to_string(font.height) + ',' +
                                       std::to_string(font.max_char_width) + ',' +
                                       std::to_string(font.ascent) + ',' +
                                       std::to_string(font.ave_char_width) + ',' +
                                       std::to_string(font.characters) + ",,");
    case KVFontInfo::END_BITMAP:
        return End(Open::GLYPHS);
    case KVFontInfo::ERASE:
        return output_.Write("^XA^ID" + PlaceOf(font) + "^FS^XZ\r\n");
    case KVFontInfo::FINISH: {
        // From here on the font answers to its letter.
        const std::string identifier = TextOf(font.identifier);
        return identifier.empty() ||
               output_.Write("^XA^CW" + identifier + ',' + PlaceOf(font) + "^FS^XZ\r\n");
    }
    default:
        return false;
    }
}

bool FontDownload::AddData(const unsigned char* bytes, size_t size) {
    return open_ == Open::FONT_FILE && output_.WriteHex(bytes, size);
}

bool FontDownload::AddGlyph(const KVDownloadBitmapChar& glyph, const unsigned char* rows) {
    if (open_ != Open::GLYPHS) return false;
    // Code, rows, bytes per row, offsets from the left and the top, and the advance to the next
    // glyph.
    char head[64];
    std::snprintf(head, sizeof head, "#%04X.%u.%u.0.0.%u.", unsigned{glyph.character},
                  unsigned{glyph.rows}, unsigned{glyph.row_bytes}, unsigned{glyph.advance});
    return output_.Write(head) && output_.WriteHex(rows, glyph.data_size);
}
