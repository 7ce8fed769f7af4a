// The UI object of ZPL II printers: downloaded fonts.
#include "fonts/font_settings.h"
#include "locale/text_numbers.h"
#include "model/record_text.h"
#include "ui/prtpage.h"
#include "zpl/extmodel.h"
#include "zpl/extui.h"
#include "zpl/font_files.h"
#include "zpl/zpl_query.h"

namespace {

constexpr char kEnding[] = ".FNT";

constexpr int kLongestName = 8;

} // namespace

void extui::ChooseFontSettings(CFontSettings* settings) {
    settings->identifier_mode = CFontSettings::OPTION;
    settings->use_name = true;
    settings->longest_name = kLongestName;
    settings->check_existing = false;
    if (!model) return;
    const extmodel& zpl = AsZpl(*model);
    const auto add = [&](const OString& location) {
        if (!location.IsEmpty()) settings->AddOption(MemoryName(location), *location.nstring());
    };
    const OString first = zpl.GetDefaultMemoryLocation();
    add(first);
    OStringArray locations;
    zpl.GetMemoryLocations(locations);
    for (int i = 0; i < locations.GetSize(); ++i)
        if (!(locations[i] == first)) add(locations[i]);
}

bool extui::VerifyFonts(prtpage* page) {
    fonts.SetAllNotPresent();
    ZPLQuery query(page ? page->GetWindow() : nullptr, &stream_);
    if (!query.RunQuery(ZPLQuery::FONT_FILES)) return false;
    MatchFontFiles(query.files, locale.GetString(TEXT_UNKNOWN_FONT), fonts);
    return true;
}

void extui::AdjustFontInfo(DownloadedFontInfo* font) {
    if (model) fonts.Load(model.get());
    OString name = font->GetFileName();
    // Leaves room for the extension and the terminator.
    name.Truncate(static_cast<int>(sizeof font->info.file_name - sizeof kEnding));
    SetRecordText(font->info.file_name, name << kEnding);
    font->info.identifier[0] = FreeFontIdentifier(fonts);
    font->info.identifier[1] = '\0';
}
