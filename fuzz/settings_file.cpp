// Any bytes as a settings file of any kind, with everything in it imported into one printer.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "fuzz_host.h"
#include "target.h"
#include "ui/settings_file.h"

namespace {

constexpr int kAll = SETTINGS_STOCKS | SETTINGS_PRESETS | SETTINGS_BAR_FONTS | SETTINGS_RFID_FONTS |
                     SETTINGS_OPTIONS;

// The imported settings are in order, and a file that they are exported to has all of them.
void CheckLists(StockList& stocks, PresetList& presets, DataFontManager& fonts, prtmodel& model,
                bool text) {
    for (const Stock *stock = stocks.GetNext(nullptr), *next;
         stock && (next = stocks.GetNext(stock)); stock = next) {
        stock->GetName().wstring(); // the form by which they are sorted
        const int names = stock->GetName().Collate(next->GetName());
        if (stock->is_user() == next->is_user() ? names >= 0 : next->is_user()) std::abort();
    }
    for (const Preset *preset = presets.GetNext(nullptr), *next;
         preset && (next = presets.GetNext(preset)); preset = next)
        if (preset->Collate(*next) > 0) std::abort();

    const KDSettingsResult written =
        ExportSettingsFile(kOut, kAll, {model, stocks, presets, fonts});
    StockList stocks_again(&model);
    PresetList presets_again;
    DataFontManager fonts_again;
    const KDSettingsResult read =
        ImportSettingsFile(kOut, kAll, {model, stocks_again, presets_again, fonts_again});
    // The names of old drivers may have line ends in them.
    if (text && (read.stocks != written.stocks || read.presets != written.presets ||
                 read.bar_fonts != written.bar_fonts || read.rfid_fonts != written.rfid_fonts))
        std::abort();
    if (!written.options) std::abort();
}

} // namespace

FUZZ_TARGET(settings_file)(const uint8_t* data, size_t size) {
    static const FuzzHost host(UsualModelData());
    prtmodel& model = *host.Model();
    OFile(OString(kIn), OFILE_WRITE).Write(data, static_cast<uint32_t>(size));
    StockList stocks(&model);
    PresetList presets;
    DataFontManager fonts;
    ImportSettingsFile(kIn, kAll, {model, stocks, presets, fonts});
    CheckLists(stocks, presets, fonts, model, size > 0 && data[0] == '<');
    return 0;
}
