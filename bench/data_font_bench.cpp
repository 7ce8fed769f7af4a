// Loading, saving, exporting, importing and replacing data fonts, compared with reading and writing
// the same keys and blobs through the registry, the same lines through a file, and a search for a
// name in a vector.
#include <benchmark/benchmark.h>
#include <strings.h>

#include <algorithm>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "bench_host.h"
#include "fonts/data_font_bar_code.h"
#include "fonts/data_font_manager.h"
#include "model/prtmodel.h"
#include "spooler/printer_info.h"
#include "support/data_file_text.h"

namespace {

class Printer {
public:
    Printer()
        : module_(Record("Driver.d", "[Model 1]\nModel=Model:A\n") +
                  Record("Model.d", "[A]\nBarCode=BarCode:A\nResolution=203\n") +
                  Record("BarCode.d", "[A]\nCode128=yes\n"))
        , model_(prtmodel::new_ext(PrinterInfo(OString("Dock 3")))) {}
    const prtmodel* model() const { return model_.get(); }

private:
    const AttachedModule module_;
    const std::unique_ptr<const prtmodel> model_;
};

std::string NameOf(int64_t i) {
    return "Barcode " + std::to_string(i);
}

DataFont_BarCode* NewFont(int64_t i) {
    auto* font = new (std::nothrow) DataFont_BarCode;
    font->change_symbology(3); // Code 128
    font->SetFontName(NameOf(i).c_str());
    return font;
}

void Fill(DataFontManager& fonts, int64_t count) {
    for (int64_t i = 0; i < count; ++i) fonts.AddTail(NewFont(i));
}

OString PeerValue(const OString& name) {
    return OString("DATA:Peer/") << name << "/Data";
}

void WritePeer(prtreg& registry, int64_t count) {
    const char blob[168] = {1};
    registry.DeletePattern("DATA:Peer/*");
    for (int64_t i = 0; i < count; ++i)
        registry.SetBinary(PeerValue(NameOf(i).c_str()), blob, sizeof blob);
}

void BM_WriteRegistryKeys(benchmark::State& state) {
    const Printer printer;
    prtreg registry(printer.model()->GetRegistry());
    for (auto _ : state) WritePeer(registry, state.range(0));
}
BENCHMARK(BM_WriteRegistryKeys)->Unit(benchmark::kMillisecond)->Arg(10)->Arg(1000);

void BM_SaveDataFonts(benchmark::State& state) {
    const Printer printer;
    DataFontManager fonts;
    Fill(fonts, state.range(0));
    for (auto _ : state) {
        ++fonts[0]->adjustment;
        if (fonts.Save(printer.model()) != SaveResult::STORED) state.SkipWithError("not saved");
    }
}
BENCHMARK(BM_SaveDataFonts)->Unit(benchmark::kMillisecond)->Arg(10)->Arg(1000);

void BM_ReadRegistryKeys(benchmark::State& state) {
    const Printer printer;
    prtreg registry(printer.model()->GetRegistry());
    WritePeer(registry, state.range(0));
    for (auto _ : state) {
        OStringArray names;
        registry.EnumKeys("DATA:Peer", names);
        char blob[168];
        for (int i = 0; i < names.GetSize(); ++i)
            if (registry.GetBinary(PeerValue(names[i]), blob, sizeof blob) != sizeof blob)
                state.SkipWithError("no value");
    }
}
BENCHMARK(BM_ReadRegistryKeys)->Unit(benchmark::kMillisecond)->Arg(10)->Arg(1000);

void BM_LoadDataFonts(benchmark::State& state) {
    const Printer printer;
    DataFontManager fonts;
    Fill(fonts, state.range(0));
    if (fonts.Save(printer.model()) != SaveResult::STORED) state.SkipWithError("not saved");
    for (auto _ : state) fonts.Load(printer.model());
    if (fonts.GetSize() != state.range(0)) state.SkipWithError("not all fonts");
}
BENCHMARK(BM_LoadDataFonts)->Unit(benchmark::kMillisecond)->Arg(10)->Arg(1000);

constexpr char kFile[] = "C:\\fonts.kds";

// The same number of lines through the file class only.
void BM_WriteLines(benchmark::State& state) {
    const Printer printer;
    const OString data(std::string(228, 'A').c_str());
    for (auto _ : state) {
        OFile file(OString(kFile), OFILE_WRITE);
        for (int64_t i = 0; i < state.range(0); ++i)
            file << "<font type='Bar Code'>" << OCore::endl
                 << "Name=" << NameOf(i).c_str() << OCore::endl
                 << "Data=" << data << OCore::endl
                 << "</font>" << OCore::endl
                 << OCore::endl;
    }
}
BENCHMARK(BM_WriteLines)->Unit(benchmark::kMillisecond)->Arg(10)->Arg(1000);

void Export(const DataFontManager& fonts, const prtmodel* model) {
    OFile file(OString(kFile), OFILE_WRITE);
    file.SetCodePage(1208);
    fonts.ExportBarFont(file, model);
}

void BM_ExportDataFonts(benchmark::State& state) {
    const Printer printer;
    DataFontManager fonts;
    Fill(fonts, state.range(0));
    for (auto _ : state) Export(fonts, printer.model());
}
BENCHMARK(BM_ExportDataFonts)->Unit(benchmark::kMillisecond)->Arg(10)->Arg(1000);

void BM_ReadLines(benchmark::State& state) {
    const Printer printer;
    DataFontManager fonts;
    Fill(fonts, state.range(0));
    Export(fonts, printer.model());
    for (auto _ : state) {
        OFile file(OString(kFile), OFILE_READ);
        OString line;
        while (file.ReadLine(line)) benchmark::DoNotOptimize(line.nstring());
    }
}
BENCHMARK(BM_ReadLines)->Unit(benchmark::kMillisecond)->Arg(10)->Arg(100)->Arg(1000);

void BM_ImportDataFonts(benchmark::State& state) {
    const Printer printer;
    DataFontManager fonts;
    Fill(fonts, state.range(0));
    Export(fonts, printer.model());
    for (auto _ : state) {
        DataFontManager imported;
        OFile file(OString(kFile), OFILE_READ);
        file.SetCodePage(1208);
        if (imported.ImportBarFont(file, printer.model()) != state.range(0))
            state.SkipWithError("not all fonts");
    }
}
BENCHMARK(BM_ImportDataFonts)->Unit(benchmark::kMillisecond)->Arg(10)->Arg(100)->Arg(1000);

void BM_FindNameInVector(benchmark::State& state) {
    std::vector<std::string> names;
    for (int64_t i = 0; i < state.range(0); ++i) names.push_back(NameOf(i));
    const std::string last = names.back();
    for (auto _ : state)
        benchmark::DoNotOptimize(std::find_if(names.begin(), names.end(), [&](const auto& name) {
            return strcasecmp(name.c_str(), last.c_str()) == 0;
        }));
}
BENCHMARK(BM_FindNameInVector)->Arg(10)->Arg(1000);

// The last font is found by its name and replaced by itself.
void BM_ReplaceDataFont(benchmark::State& state) {
    DataFontManager fonts;
    Fill(fonts, state.range(0));
    DataFont* const last = fonts[fonts.GetSize() - 1];
    for (auto _ : state) fonts.AddTail(last);
    if (fonts.GetSize() != state.range(0)) state.SkipWithError("not replaced");
}
BENCHMARK(BM_ReplaceDataFont)->Arg(10)->Arg(1000);

} // namespace
