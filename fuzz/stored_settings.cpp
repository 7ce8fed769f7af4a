// Any values below the keys of a printer and of the machine's stocks, as old drivers and other
// programs may have left them: all settings there are loaded, stored and loaded again.
#include <winspool.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "cache_settings.h"
#include "fonts/data_font_bar_code.h"
#include "fonts/data_font_manager.h"
#include "fonts/prtdttf_list.h"
#include "fuzz_host.h"
#include "input.h"
#include "keys/prtreg.h"
#include "locale/prtlocale.h"
#include "model/driver_settings.h"
#include "settings/preset_list.h"
#include "settings/scolor.h"
#include "settings/stock_list.h"
#include "spooler/open_printer.h"
#include "target.h"

namespace {

// Names in use; those of lists are completed by a number.
constexpr const char* kNames[] = {"Settings:User Form:: Name",
                                  "Settings:User Form:: Data",
                                  "Settings:Unprintable Width",
                                  "Settings:Expansion Fonts",
                                  "Settings:Excluded Fonts",
                                  "Settings:RFID/Transponder Offset",
                                  "Settings:Spot Color",
                                  "Settings:Function Character",
                                  "UserSettings:Language",
                                  "UserSettings:Measurement System",
                                  "DATA:Render Cache Settings",
                                  "DATA:Plug And Play IDs",
                                  "Stock:Total",
                                  "Presets:Total",
                                  "Fonts:Downloaded Font Total",
                                  "Stock:Form 01:: Name",
                                  "Stock:Form 01:: Data",
                                  "Stock:Form 02:: Name",
                                  "Stock:Form 02:: Data",
                                  "Presets:Preset 01:: Name",
                                  "Presets:Preset 01:: Description",
                                  "Presets:Preset 01:: DEVMODE",
                                  "Presets:Preset 02:: Name",
                                  "Presets:Preset 02:: DEVMODE",
                                  "DATA:Data Fonts/A/Data",
                                  "DATA:Data Fonts/B%2F/Data",
                                  "Fonts:Downloaded Font 01:: FontInfo",
                                  "Fonts:Downloaded Font 01:: Characters"};

template <class List>
int CountOf(const List& list) {
    int count = 0;
    for (auto* node = list.GetNext(nullptr); node; node = list.GetNext(node)) ++count;
    return count;
}

void LoadAll(prtmodel* model) {
    StockList stocks(model), stocks_again(model);
    stocks.Load(model);
    auto* stock = new Stock;
    stock->SetName("new");
    stocks.AddTail(stock);
    stocks.Validate();
    Check(stocks.Save(model) != SaveResult::FAILED);
    stocks_again.Load(model);
    Check(CountOf(stocks_again) == CountOf(stocks));

    DevMode usual;
    usual.CreateDefault(model);
    PresetList presets, presets_again;
    presets.Load(model);
    auto* preset_new = new Preset;
    preset_new->SetName("new");
    preset_new->SetDevMode(usual.GetDevMode());
    presets.AddTail_ReplaceName(preset_new);
    presets.Sort();
    Check(presets.Save(model) != SaveResult::FAILED);
    presets_again.Load(model);
    Check(CountOf(presets_again) == CountOf(presets));
    for (Preset* preset = presets.GetNext(nullptr); preset; preset = presets.GetNext(preset)) {
        DevMode merged;
        merged.CreateDefault(model);
        merged.Merge(preset->GetDevMode().GetDevMode(), model);
        stocks.Find(merged.GetDevMode());
        (void)presets.Find(merged);
    }

    DataFontManager data_fonts, data_fonts_again;
    data_fonts.Load(model);
    auto* font = new DataFont_BarCode;
    font->SetFontName("new");
    data_fonts.AddTail(font);
    Check(data_fonts.Save(model) != SaveResult::FAILED);
    data_fonts_again.Load(model);
    Check(data_fonts_again.GetCRC32(0) == data_fonts.GetCRC32(0));
    prtdttf_list fonts;
    fonts.Load(model);
    Check(fonts.Save(model) == SaveResult::UNCHANGED);
}

} // namespace

FUZZ_TARGET(stored_settings)(const uint8_t* data, size_t size) {
    static const FuzzHost host(UsualModelData());
    prtreg registry("P");
    Input input(data, size);
    while (!input.IsEmpty()) {
        const std::string_view name = kNames[input.Number() % std::size(kNames)];
        if (name.ends_with("Total")) {
            // A large total makes the reader look for many entries that do not exist, which is slow
            // and tests nothing more.
            registry.SetDWORD(name.data(), static_cast<uint32_t>(input.Number()));
            continue;
        }
        const auto type = static_cast<uint32_t>(input.Number() % 8);
        const size_t length = input.Number();
        const auto value = input.Take(length == 255 ? input.Number16() : length);
        registry.SetData(name.data(), value.data(), static_cast<uint32_t>(value.size()), type);
    }
    {
        const std::unique_ptr<prtmodel> model(prtmodel::new_ext(PrinterInfo("P")));
        Check(model != nullptr);
        LoadAll(model.get());
        model->FlushDataCache();
        SCOLOR inks;
        inks.Init(model.get());
        inks.Load(registry);
        Palette palette;
        inks.GeneratePalette(palette);
        DriverSettings settings;
        settings.Load(registry);
        (void)settings.GetEscapeCharacter();
        (void)settings.GetPaperLengthMax();
        settings.Save(registry);
        prtlocale locale;
        locale.Load(registry, model.get());
        (void)locale.microns_to_string(1000);
    }
    const OpenPrinter printer("P", PRINTER_ACCESS_USE);
    (void)ReadCacheSettings(printer.Get());

    registry.Delete("DATA:", true);
    registry.Delete("Stock:", true);
    registry.Delete("USER:", true);
    return 0;
}
