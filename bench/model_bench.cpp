// Building the records of one model from a model data file of 2,000 sections, compared with the
// minimum that any reader of the tables' text has to do: finding its lines once.
#include <benchmark/benchmark.h>
#include <windows.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "bench_host.h"
#include "model/prtmodel.h"
#include "spooler/printer_info.h"
#include "support/data_file_text.h"

namespace {

constexpr int SECTIONS_PER_TABLE = 250; // in eight tables

struct Table {
    std::string name;
    std::string text;
};

std::vector<Table> Tables() {
    const struct {
        const char* name;
        const char* lines;
    } kinds[] = {
        {"Driver", "Manufacturer=Manufacturer:S%\nModel=Model:S%\n"},
        {"Manufacturer", "CompanyName=Maker %\nProductName=Product %\nFonts.Prefix=ZPL\n"},
        {"Model", "Drawing=Drawing:S%\nMethod=Method:S%\nFont=Font:S%\nBarCode=BarCode:S%\n"
                  "Features=Features:S%\nResolution=203,300,600\nStock.Minimum.X=20 mm\n"
                  "Stock.Maximum.X=114 mm\nStock.Default.X=4 in\nPorts.Bidirectional=USB\n"},
        {"Drawing", "Line=yes\nBox=yes\nBox.Join=Mitered,Rounded\nLine.Thickness.Maximum=32000\n"
                    "Line.Anchor=Top/Left\nText.Rotation=0,90,180,270\n"},
        {"Method", "Copies.Limit=9999\nSerialization=yes\nCache.Graphic=yes\n"},
        {"Font", "Fonts=FontGroup:A.pfg\nDownload.TrueType=yes\nDefaultFont.Text.Name=Font 0\n"},
        {"BarCode", "Code39=yes\nCode39.Ratio=Variable,2:1,3:1\nCode39.HR=On,Off\n"
                    "Code39.HR.Placement=Above,Below\nCode128=yes\nCode128.Encoding=Auto,Manual\n"
                    "QRCode=yes\nQRCode.Model=1,2\nDataMatrix=yes\nDataMatrix.ECC=200\n"},
        {"Features", "~Mode.PeelOff=yes\n~Memory.Options=E,B\n"},
    };
    std::vector<Table> tables;
    for (const auto& kind : kinds) {
        Table table = {kind.name, ""};
        for (int i = 0; i < SECTIONS_PER_TABLE; ++i) {
            const std::string number = std::to_string(i);
            const bool driver = table.name == "Driver";
            table.text += driver ? "[Model " + number + "]\n" : "[S" + number + "]\n";
            for (const char* p = kind.lines; *p; ++p)
                if (*p == '%')
                    table.text += number;
                else
                    table.text += *p;
        }
        tables.push_back(table);
    }
    return tables;
}

std::string DataFile() {
    std::string bytes;
    for (const Table& table : Tables()) bytes += Record(table.name + ".d", table.text);
    return bytes;
}

class Attached : public AttachedModule {
public:
    Attached()
        : AttachedModule(DataFile()) {}

    bool BuildAll() {
        std::unique_ptr<prtmodel> model(prtmodel::new_ext(PrinterInfo(OString("Dock 3"))));
        return model && model->HasBarCodes() && model->GetDriverInfo() &&
               model->GetManufacturerInfo() && model->GetRFIDCapabilities() &&
               model->GetCustomData() && model->GetMaxCopies() == 9999;
    }
};

// With `range` 1 the file is also read, decompressed and parsed.
void BM_ModelRecords(benchmark::State& state) {
    Attached module;
    const bool with_file = state.range(0) != 0;
    for (auto _ : state) {
        module.Refresh(with_file);
        if (!module.BuildAll()) state.SkipWithError("the model has no data");
    }
}
BENCHMARK(BM_ModelRecords)->ArgName("file")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

// All records from the cache: the cost of every later model of the process.
void BM_ModelRecordsCached(benchmark::State& state) {
    Attached module;
    module.BuildAll();
    for (auto _ : state)
        if (!module.BuildAll()) state.SkipWithError("the model has no data");
}
BENCHMARK(BM_ModelRecordsCached)->Unit(benchmark::kMicrosecond);

// The peer: memchr over the text of all tables, line by line.
void BM_ModelTextLineScan(benchmark::State& state) {
    std::string text;
    for (const Table& table : Tables()) text += table.text;
    for (auto _ : state) {
        size_t lines = 0;
        const char* p = text.data();
        const char* const end = p + text.size();
        while (const void* found = std::memchr(p, '\n', static_cast<size_t>(end - p))) {
            p = static_cast<const char*>(found) + 1;
            ++lines;
        }
        benchmark::DoNotOptimize(lines);
    }
    state.counters["bytes"] = static_cast<double>(text.size());
}
BENCHMARK(BM_ModelTextLineScan)->Unit(benchmark::kMicrosecond);

} // namespace
