// Stocks to a settings file and back, compared with only writing and reading the lines of that
// file.
#include <benchmark/benchmark.h>

#include <fstream>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "bench_host.h"
#include "model/prtmodel.h"
#include "spooler/platform_flags.h"
#include "spooler/printer_info.h"
#include "support/data_file_text.h"
#include "ui/settings_file.h"

namespace {

constexpr char kFile[] = "C:\\settings.kds";

// A printer with its lists, `count` stocks among them, and their file.
class Settings {
public:
    explicit Settings(int64_t count)
        : module_(Record("Driver.d", "[Model 1]\nModel=Model:A\n") +
                  Record("Model.d", "[A]\nResolution=203\nStock.Maximum.X=500 mm\n"
                                    "Stock.Maximum.Y=500 mm\n"))
        , model_(prtmodel::new_ext(PrinterInfo(OString("Dock 3"))))
        , stocks_(model_.get()) {
        SetPlatformFlags("C:\\drivers\\3");
        for (int64_t i = 0; i < count; ++i) {
            auto* stock = new (std::nothrow) Stock;
            stock->SetName(("Label " + std::to_string(i * 7919 % count)).c_str());
            stock->width = stock->length = 50000;
            stocks_.AddTail(stock);
        }
        Export();
    }
    ~Settings() { SetPlatformFlags(OString()); }
    Settings(const Settings&) = delete;
    Settings& operator=(const Settings&) = delete;

    int Export() {
        return ExportSettingsFile(kFile, SETTINGS_STOCKS, {*model_, stocks_, presets_, fonts_})
            .stocks;
    }
    // Imports into an empty list.
    int Import() {
        StockList stocks(model_.get());
        return ImportSettingsFile(kFile, SETTINGS_STOCKS, {*model_, stocks, presets_, fonts_})
            .stocks;
    }
    std::string Path(const char* name) const { return module_.Root() + "/drive_c/" + name; }

private:
    const AttachedModule module_;
    const std::unique_ptr<prtmodel> model_;
    StockList stocks_;
    PresetList presets_;
    DataFontManager fonts_;
};

std::vector<std::string> LinesOf(const std::string& path) {
    std::vector<std::string> lines;
    std::ifstream in(path, std::ios::binary);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

void Sizes(benchmark::internal::Benchmark* bench) {
    bench->Unit(benchmark::kMillisecond)->Arg(100)->Arg(1000)->Arg(10000);
}

void BM_WriteLinesOfSettings(benchmark::State& state) {
    const Settings settings(state.range(0));
    const std::vector<std::string> lines = LinesOf(settings.Path("settings.kds"));
    for (auto _ : state) {
        std::ofstream out(settings.Path("lines"), std::ios::binary);
        for (const std::string& line : lines) out << line << '\n';
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_WriteLinesOfSettings)->Apply(Sizes)->Complexity(benchmark::oN);

void BM_ExportStocks(benchmark::State& state) {
    Settings settings(state.range(0));
    for (auto _ : state)
        if (settings.Export() != state.range(0)) state.SkipWithError("not all stocks");
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_ExportStocks)->Apply(Sizes)->Complexity(benchmark::oN);

void BM_ReadLinesOfSettings(benchmark::State& state) {
    const Settings settings(state.range(0));
    for (auto _ : state)
        if (LinesOf(settings.Path("settings.kds")).empty()) state.SkipWithError("no lines");
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_ReadLinesOfSettings)->Apply(Sizes)->Complexity(benchmark::oN);

void BM_ImportStocks(benchmark::State& state) {
    Settings settings(state.range(0));
    for (auto _ : state)
        if (settings.Import() != state.range(0)) state.SkipWithError("not all stocks");
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_ImportStocks)->Apply(Sizes)->Complexity(benchmark::oNLogN);

} // namespace
