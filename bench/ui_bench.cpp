// A program opens a printer's settings (50 stocks, 20 presets and 50 bar code fonts) and closes
// them again, compared with reading as many values of the same sizes, names and records, through
// the registry.
#include <benchmark/benchmark.h>
#include <windows.h>
#include <winspool.h>

#include <new>
#include <string>
#include <vector>

#include "bench_host.h"
#include "fonts/data_font_bar_code.h"
#include "spooler/platform_flags.h"
#include "support/data_file_text.h"
#include "ui/prtui.h"
#include "zplui.h"

namespace {

constexpr int STOCKS = 50;
constexpr int PRESETS = 20;
constexpr int FONTS = 50;

// A printer with these lists stored.
class Printer {
public:
    Printer()
        : module_(Record("Driver.d", "[Model 1]\nModel=Model:A\n") +
                  Record("Model.d", "[A]\nBarCode=BarCode:A\nResolution=203\n"
                                    "Stock.Maximum.X=500 mm\nStock.Maximum.Y=500 mm\n") +
                  Record("BarCode.d", "[A]\nCode128=yes\n")) {
        SetPlatformFlags("C:\\drivers\\3");
        WCHAR name[] = TEXT("Dock 3");
        PRINTER_DEFAULTSW all = {nullptr, nullptr, PRINTER_ALL_ACCESS};
        OpenPrinterW(name, &handle_, &all);
        auto* ui = static_cast<prtui*>(DAL_Printer_Open(handle_));
        Fill(*ui);
        DAL_Printer_Close(ui);
    }
    ~Printer() {
        ClosePrinter(handle_);
        SetPlatformFlags(OString());
    }
    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;
    HANDLE handle() const { return handle_; }

private:
    static OString Name(const char* what, int i) { return OString(what) << i; }

    static void Fill(prtui& ui) {
        for (int i = 0; i < STOCKS; ++i) {
            auto* stock = new (std::nothrow) Stock;
            stock->SetName(Name("Stock ", i));
            stock->width = stock->length = 50000;
            ui.stocks.AddTail(stock);
        }
        for (int i = 0; i < PRESETS; ++i) {
            auto* preset = new (std::nothrow) Preset;
            preset->SetToDefaultDevMode(ui.model.get());
            preset->SetName(Name("Preset ", i));
            ui.presets.AddTail(preset);
        }
        for (int i = 0; i < FONTS; ++i) {
            auto* font = new (std::nothrow) DataFont_BarCode;
            font->change_symbology(3); // Code 128
            font->SetFontName(Name("Font ", i));
            ui.data_fonts.AddTail(font);
        }
    }

    const AttachedModule module_;
    HANDLE handle_ = nullptr;
};

void BM_ReadValuesOfSettings(benchmark::State& state) {
    const Printer printer;
    prtreg registry(OString("Dock 3"));
    const struct {
        const char* key;
        int count;
        uint32_t size;
    } lists[] = {
        {"DATA:Peer/S", STOCKS, 28}, {"DATA:Peer/P", PRESETS, 1508}, {"DATA:Peer/F", FONTS, 168}};
    std::vector<char> bytes(1508, 'x');
    for (const auto& list : lists)
        for (int i = 0; i < list.count; ++i) {
            const OString name = OString(list.key) << i;
            registry.SetString(OString(name) << "/Name", "Label");
            registry.SetBinary(OString(name) << "/Data", bytes.data(), list.size);
        }
    for (auto _ : state) {
        bool all = true;
        for (const auto& list : lists)
            for (int i = 0; i < list.count; ++i) {
                const OString name = OString(list.key) << i;
                all &= !registry.GetString(OString(name) << "/Name", "").IsEmpty();
                all &= registry.GetBinary(OString(name) << "/Data", bytes.data(), list.size) > 0;
            }
        if (!all) state.SkipWithError("no values");
    }
}
BENCHMARK(BM_ReadValuesOfSettings)->Unit(benchmark::kMillisecond);

void BM_OpenAndCloseSettings(benchmark::State& state) {
    const Printer printer;
    for (auto _ : state) {
        const HANDLE settings = DAL_Printer_Open(printer.handle());
        if (static_cast<prtui*>(settings)->stocks.Find(OString("Stock 49")) == nullptr)
            state.SkipWithError("not all settings");
        DAL_Printer_Close(settings);
    }
}
BENCHMARK(BM_OpenAndCloseSettings)->Unit(benchmark::kMillisecond);

} // namespace
