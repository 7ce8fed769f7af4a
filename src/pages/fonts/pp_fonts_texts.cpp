// ppFonts: the texts of fonts.
#include "core/locale_utility.h"
#include "fonts/data_font_bar_code.h"
#include "fonts/downloaded_font.h"
#include "locale/text_numbers.h"
#include "pages/fonts/pp_fonts.h"
#include "ui/prtui.h"

namespace {

// Downloads that other hosts have sent may be of more types than this driver's own.
constexpr uint16_t kResidentType = 5;

int DownloadTypeText(uint16_t type) {
    switch (type) {
    case DownloadedFontInfo::FOUND:
        return TEXT_OTHER_FONT;
    case DownloadedFontInfo::TRUETYPE:
        return TEXT_TRUETYPE_FONT;
    case DownloadedFontInfo::BITMAP:
        return TEXT_BITMAP_FONT;
    case kResidentType:
        return TEXT_RESIDENT_FONT;
    default:
        return 0;
    }
}

} // namespace

OString ppFonts::GetFontName(const Entry& entry) {
    if (entry.kind != DOWNLOADED) return entry.data->GetFontName();
    const DownloadedFont& font = *entry.downloaded;
    OString name = font.GetDisplayName();
    if (font.type != DownloadedFontInfo::BITMAP) return name;
    name << " " << font.point_size / 10;
    if (font.point_size % 10) name << ui_->locale.GetDecimalSeparator() << font.point_size % 10;
    return name;
}

OString ppFonts::GetFontType(const Entry& entry) {
    if (entry.kind == RFID) return OString("RFID");
    return GetString(entry.kind == DOWNLOADED ? TEXT_DOWNLOADED_FONT : TEXT_BAR_CODE_FONT);
}

OString ppFonts::GetFontStatus(const Entry& entry) {
    if (entry.kind != DOWNLOADED) return OString();
    switch (entry.downloaded->status) {
    case DownloadedFontInfo::PRESENT:
        return GetString(TEXT_FONT_PRESENT);
    case DownloadedFontInfo::MISSING:
        return GetString(TEXT_FONT_MISSING);
    default:
        return OString();
    }
}

void ppFonts::AddProperty(OString& text, int label, const OString& value) {
    text << GetString(label) << tab << value << endl;
}

void ppFonts::AddCharacterSet(OString& text, unsigned char character_set) {
    AddProperty(text, TEXT_FONT_CHARACTER_SET, GetString_CharSet(character_set));
    OString code_page;
    AddProperty(text, TEXT_FONT_CODE_PAGE,
                code_page << LocaleUtility::CharSetToCodePage(character_set));
}

OString ppFonts::GetFontProperties(const Entry& entry) {
    OString text;
    switch (entry.kind) {
    case RFID:
        AddProperty(text, TEXT_FONT_TYPE, GetFontType(entry));
        AddCharacterSet(text, entry.data->attributes.char_set);
        break;
    case BAR_CODES: {
        const auto& font = *static_cast<const DataFont_BarCode*>(entry.data);
        AddProperty(text, TEXT_FONT_TYPE, GetFontType(entry));
        AddProperty(text, TEXT_FONT_SYMBOLOGY,
                    GetString(TEXT_FIRST_SYMBOLOGY + font.get_symbology()));
        AddProperty(text, TEXT_FONT_MODULE_WIDTH,
                    xdimension_to_string(font.get_x(), font.resolution));
        AddCharacterSet(text, font.attributes.char_set);
        break;
    }
    default:
        AddDownload(text, *entry.downloaded);
        break;
    }
    text.TrimRight(" \t\r\n");
    return text;
}

void ppFonts::AddDownload(OString& text, const DownloadedFont& font) {
    OString type;
    const int kind = DownloadTypeText(font.type);
    type.Format(GetString(TEXT_FONT_DOWNLOAD).wstring(),
                (kind ? GetString(kind) : OString()).wstring());
    AddProperty(text, TEXT_FONT_TYPE, type);

    const OString file = font.GetFileName();
    AddProperty(text, TEXT_FONT_FILE, file.IsEmpty() ? OString(font.font.lfFaceName) : file);

    OString identifier = font.GetIdentifier();
    const OString location = font.GetLocation();
    if (identifier.IsEmpty())
        identifier = location;
    else if (!location.IsEmpty() && identifier != location)
        identifier << " (" << location << ")";
    AddProperty(text, TEXT_FONT_IDENTIFIER, identifier);

    if (font.info.data_size > 0) {
        OString size;
        AddProperty(text, TEXT_FONT_SIZE, size << font.info.data_size);
    }
    if (font.type != DownloadedFontInfo::BITMAP) return;
    if (font.subset != 0)
        AddProperty(text, TEXT_FONT_CHARACTER_SET, GetString(font.subset));
    else
        AddCharacterSet(text, font.font.lfCharSet);
}
