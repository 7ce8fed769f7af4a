// Ordering, storing and looking up stocks and presets, compared with sorting as many names, reading
// and writing as many values through the registry, and comparing as many DEVMODEs as bytes.
#include <benchmark/benchmark.h>
#include <windows.h>
#include <winspool.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "bench_host.h"
#include "model/prtmodel.h"
#include "settings/preset_list.h"
#include "settings/stock_list.h"
#include "spooler/platform_flags.h"
#include "spooler/printer_info.h"
#include "support/data_file_text.h"

namespace {

// A printer that accepts every stock.
class Printer {
public:
    Printer()
        : module_(Record("Driver.d", "[Model 1]\nModel=Model:A\n") +
                  Record("Model.d", "[A]\nResolution=203\nStock.Maximum.X=500 mm\n"
                                    "Stock.Maximum.Y=500 mm\n"))
        , model_(prtmodel::new_ext(PrinterInfo(OString("Dock 3")))) {
        SetPlatformFlags("C:\\drivers\\3");
    }
    ~Printer() { SetPlatformFlags(OString()); }
    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;
    const prtmodel* model() const { return model_.get(); }

private:
    const AttachedModule module_;
    const std::unique_ptr<const prtmodel> model_;
};

// Different names in no order.
std::vector<std::string> Names(int64_t count) {
    std::vector<std::string> names;
    for (int64_t i = 0; i < count; ++i)
        names.push_back("Label " + std::to_string(i * 7919 % count));
    return names;
}

void Fill(StockList& list, int64_t count) {
    for (const std::string& name : Names(count)) {
        auto* stock = new (std::nothrow) Stock;
        stock->SetName(name.c_str());
        stock->width = stock->length = 50000;
        list.AddTail(stock);
    }
}

template <class List>
void Save(const List& list, const prtmodel* model, benchmark::State& state) {
    if (list.Save(model) != SaveResult::STORED) state.SkipWithError("not saved");
}

void Fill(PresetList& list, const prtmodel* model, int64_t count) {
    DevMode settings;
    settings.CreateDefault(model);
    int darkness = 0;
    for (const std::string& name : Names(count)) {
        settings.GetConfiguration()->option_length = ++darkness;
        auto* preset = new (std::nothrow) Preset;
        preset->SetDevMode(settings.GetDevMode());
        preset->SetName(name.c_str());
        list.AddTail(preset);
    }
}

constexpr uint32_t kStockSize = 28, kPresetSize = 1508;

// The values of `count` stocks or presets: a text and a record of `size` bytes. Presets have a
// second text.
void WriteValues(prtreg& registry, int64_t count, uint32_t size) {
    const std::vector<char> bytes(size, 'x');
    for (int64_t i = 0; i < count; ++i) {
        const OString name = OString("Settings:Bench/") << i;
        registry.SetString(OString(name) << "Name", "Label");
        if (size == kPresetSize) registry.SetString(OString(name) << "Description", "");
        registry.SetBinary(OString(name) << "Data", bytes.data(), size);
    }
}

bool ReadValues(prtreg& registry, int64_t count, uint32_t size) {
    std::vector<char> bytes(size);
    bool all = true;
    for (int64_t i = 0; i < count; ++i) {
        const OString name = OString("Settings:Bench/") << i;
        all &= !registry.GetString(OString(name) << "Name", "").IsEmpty();
        if (size == kPresetSize)
            all &= registry.GetString(OString(name) << "Description", "").IsEmpty();
        all &= registry.GetBinary(OString(name) << "Data", bytes.data(), size) > 0;
    }
    return all;
}

void BM_SortNames(benchmark::State& state) {
    const std::vector<std::string> names = Names(state.range(0));
    for (auto _ : state) {
        std::vector<std::string> sorted = names;
        std::sort(sorted.begin(), sorted.end());
        benchmark::DoNotOptimize(sorted.data());
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_SortNames)->Arg(100)->Arg(1000)->Arg(10000)->Complexity(benchmark::oNLogN);

void BM_ValidateStocks(benchmark::State& state) {
    const Printer printer;
    StockList unsorted(printer.model());
    Fill(unsorted, state.range(0));
    for (auto _ : state) {
        StockList list;
        list = unsorted;
        list.Validate();
        benchmark::DoNotOptimize(list.GetHead());
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_ValidateStocks)->Arg(100)->Arg(1000)->Arg(10000)->Complexity(benchmark::oNLogN);

void BM_EnumerateStocks(benchmark::State& state) {
    const Printer printer;
    StockList list(printer.model());
    Fill(list, state.range(0));
    list.Validate();
    const auto count = static_cast<size_t>(list.enum_paper_id(nullptr));
    std::vector<uint16_t> ids(count);
    std::vector<POINT> sizes(count);
    std::vector<WCHAR> names(count * 64);
    for (auto _ : state) {
        list.enum_paper_id(ids.data());
        list.enum_paper_size(sizes.data());
        list.enum_paper_name(names.data());
        benchmark::ClobberMemory();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_EnumerateStocks)->Arg(100)->Arg(1000)->Arg(10000)->Complexity(benchmark::oN);

void BM_WriteRegistryValues(benchmark::State& state) {
    const Printer printer;
    prtreg registry(printer.model()->GetRegistry());
    for (auto _ : state)
        WriteValues(registry, state.range(0), static_cast<uint32_t>(state.range(1)));
}
BENCHMARK(BM_WriteRegistryValues)
    ->Unit(benchmark::kMillisecond)
    ->Args({100, kStockSize})
    ->Args({1000, kStockSize})
    ->Args({10000, kStockSize})
    ->Args({100, kPresetSize})
    ->Args({1000, kPresetSize});

void BM_SaveStocks(benchmark::State& state) {
    const Printer printer;
    StockList list(printer.model());
    Fill(list, state.range(0));
    list.Validate();
    int32_t gap = 0;
    for (auto _ : state) {
        list.GetPrev(nullptr)->gap_top = ++gap;
        Save(list, printer.model(), state);
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_SaveStocks)
    ->Unit(benchmark::kMillisecond)
    ->Arg(100)
    ->Arg(1000)
    ->Arg(10000)
    ->Complexity(benchmark::oNLogN);

void BM_ReadRegistryValues(benchmark::State& state) {
    const Printer printer;
    prtreg registry(printer.model()->GetRegistry());
    const auto size = static_cast<uint32_t>(state.range(1));
    WriteValues(registry, state.range(0), size);
    for (auto _ : state)
        if (!ReadValues(registry, state.range(0), size)) state.SkipWithError("no values");
}
BENCHMARK(BM_ReadRegistryValues)
    ->Unit(benchmark::kMillisecond)
    ->Args({100, kStockSize})
    ->Args({1000, kStockSize})
    ->Args({10000, kStockSize})
    ->Args({100, kPresetSize})
    ->Args({1000, kPresetSize});

void BM_LoadStocks(benchmark::State& state) {
    const Printer printer;
    {
        StockList list(printer.model());
        Fill(list, state.range(0));
        Save(list, printer.model(), state);
    }
    int count = 0;
    for (auto _ : state) {
        StockList list(printer.model());
        list.Load(printer.model());
        count = list.enum_paper_id(nullptr);
    }
    if (count != state.range(0) + 1) state.SkipWithError("not all stocks");
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_LoadStocks)
    ->Unit(benchmark::kMillisecond)
    ->Arg(100)
    ->Arg(1000)
    ->Arg(10000)
    ->Complexity(benchmark::oNLogN);

// The names of 1000 stocks as the system asks for them. Should take less than 20 ms.
void BM_PaperNamesOf1000Stocks(benchmark::State& state) {
    const Printer printer;
    StockList list(printer.model());
    Fill(list, 1000);
    Save(list, printer.model(), state);
    std::vector<WCHAR> names(1001 * 64);
    for (auto _ : state)
        if (DeviceCapabilitiesW(TEXT("Dock 3"), nullptr, DC_PAPERNAMES, names.data(), nullptr) !=
            1001)
            state.SkipWithError("not all names");
}
BENCHMARK(BM_PaperNamesOf1000Stocks)->Unit(benchmark::kMillisecond);

void BM_SavePresets(benchmark::State& state) {
    const Printer printer;
    PresetList list;
    Fill(list, printer.model(), state.range(0));
    list.Sort();
    int change = 0;
    for (auto _ : state) {
        list.GetPrev(nullptr)->SetDescription(OString() << ++change);
        Save(list, printer.model(), state);
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_SavePresets)
    ->Unit(benchmark::kMillisecond)
    ->Arg(100)
    ->Arg(1000)
    ->Complexity(benchmark::oNLogN);

void BM_LoadPresets(benchmark::State& state) {
    const Printer printer;
    {
        PresetList list;
        Fill(list, printer.model(), state.range(0));
        Save(list, printer.model(), state);
    }
    for (auto _ : state) {
        PresetList list;
        list.Load(printer.model());
        if (!list.GetHead()) state.SkipWithError("no presets");
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_LoadPresets)
    ->Unit(benchmark::kMillisecond)
    ->Arg(100)
    ->Arg(1000)
    ->Complexity(benchmark::oNLogN);

// The peer of finding a preset: comparing the relevant settings of all of them.
void BM_CompareManyDevModeBytes(benchmark::State& state) {
    const auto count = static_cast<size_t>(state.range(0));
    std::vector<std::vector<char>> modes(count, std::vector<char>(1508, 'x'));
    const std::vector<char> wanted(1508, 'x');
    for (auto _ : state) {
        size_t equal = 0;
        for (const auto& mode : modes) equal += mode == wanted;
        benchmark::DoNotOptimize(equal);
    }
}
BENCHMARK(BM_CompareManyDevModeBytes)->Arg(100)->Arg(1000);

void BM_FindPreset(benchmark::State& state) {
    const Printer printer;
    PresetList list;
    Fill(list, printer.model(), state.range(0));
    list.Sort();
    Preset* last = list.GetPrev(nullptr);
    const DevMode wanted(last->GetDevMode().GetDevMode());
    for (auto _ : state)
        if (list.Find(wanted) != last) state.SkipWithError("another preset");
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_FindPreset)->Arg(100)->Arg(1000)->Complexity(benchmark::oN);

} // namespace
