#include "zpl/font_files.h"

#include <memory>

#include "core/memory.h"
#include "model/record_text.h"

namespace {

constexpr char kIdentifiers[] = "IJKLMNOPQRSTUVWXYZ123456789ABCDEF0";

constexpr char kOwnFonts = 'Z'; // the device of built-in fonts

DownloadedFont* FindFile(const prtdttf_list& fonts, const OString& file) {
    for (DownloadedFont* font = fonts.GetNext(nullptr); font; font = fonts.GetNext(font))
        if ((font->GetLocation() << ":" << font->GetFileName()).CompareNoCase(file) == 0)
            return font;
    return nullptr;
}

} // namespace

char FreeFontIdentifier(const prtdttf_list& fonts) {
    for (const char identifier : kIdentifiers)
        if (identifier && !fonts.UsesIdentifier(identifier)) return identifier;
    return kIdentifiers[0];
}

void MatchFontFiles(const OStringArray& files, const OString& name, prtdttf_list& fonts) {
    for (int i = 0; i < files.GetSize(); ++i) {
        OStringArray fields;
        fields.Split(files[i], ";");
        if (fields.GetSize() < 3) return;
        const OString& file = fields[0];
        if (DownloadedFont* font = FindFile(fonts, file)) {
            font->status = DownloadedFont::PRESENT;
            continue;
        }
        const char device = file.nstring()[0];
        if (device == kOwnFonts) continue;
        std::unique_ptr<DownloadedFont> font(new (kCounted) DownloadedFont);
        if (!font) continue;
        font->status = DownloadedFont::PRESENT;
        font->info.identifier[0] = fields[2].nstring()[0];
        font->info.location[0] = device;
        SetRecordText(font->info.file_name, file.Mid(2));
        SetRecordText(font->info.display_name, name);
        font->info.data_size = static_cast<uint32_t>(static_cast<int32_t>(fields[1]));
        fonts.AddTail(font.release());
    }
}
