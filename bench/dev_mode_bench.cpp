// Merging a program's document settings into the printer's, and recognising settings, compared with
// one copy and one comparison of the same bytes.
#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <vector>

#include "bench_host.h"
#include "model/prtmodel.h"
#include "settings/dev_mode.h"
#include "spooler/printer_info.h"
#include "support/data_file_text.h"

namespace {

// Two DEVMODEs of a printer with eight resolutions, both set to the last one.
class Pair {
public:
    Pair()
        : module_(Record("Driver.d", "[Model 1]\nModel=Model:A\n") +
                  Record("Model.d", "[A]\nResolution=152,203,300,406,600,203x406,300x600,600x300\n"
                                    "Stock.Default.X=4 in\nStock.Default.Y=6 in\n"))
        , model_(prtmodel::new_ext(PrinterInfo(OString("Dock 3")))) {
        for (DevMode* mode : {&a, &b}) {
            mode->CreateDefault(model_.get());
            mode->SetResolutionID(300 << 16 | 600);
        }
    }
    const prtmodel* model() const { return model_.get(); }

private:
    const AttachedModule module_;
    const std::unique_ptr<const prtmodel> model_;

public:
    DevMode a, b;
};

void BM_CopyDevModeBytes(benchmark::State& state) {
    Pair pair;
    const auto size = static_cast<size_t>(DevMode::GetDefaultDevModeSize());
    for (auto _ : state) {
        std::memcpy(static_cast<void*>(pair.a.GetDevMode()), pair.b.GetDevMode(), size);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(BM_CopyDevModeBytes);

void BM_MergeDevMode(benchmark::State& state) {
    Pair pair;
    for (auto _ : state) {
        DevMode::MergeDevMode(pair.a.GetDevMode(), pair.b.GetDevMode(), pair.model());
        benchmark::ClobberMemory();
    }
    if (!(pair.a == pair.b)) state.SkipWithError("not merged");
}
BENCHMARK(BM_MergeDevMode);

void BM_CompareDevModeBytes(benchmark::State& state) {
    Pair pair;
    const auto size = static_cast<size_t>(DevMode::GetDefaultDevModeSize());
    for (auto _ : state) {
        benchmark::ClobberMemory();
        benchmark::DoNotOptimize(std::memcmp(pair.a.GetDevMode(), pair.b.GetDevMode(), size));
    }
}
BENCHMARK(BM_CompareDevModeBytes);

void BM_EqualDevModes(benchmark::State& state) {
    Pair pair;
    for (int i = 0; i < prtconfig::USER_COMMANDS; ++i)
        for (DevMode* mode : {&pair.a, &pair.b})
            std::memset(mode->GetConfiguration()->user[i], 'x', prtconfig::USER_COMMAND_SIZE);
    for (auto _ : state) {
        benchmark::ClobberMemory();
        benchmark::DoNotOptimize(pair.a == pair.b);
    }
    if (!(pair.a == pair.b)) state.SkipWithError("not equal");
}
BENCHMARK(BM_EqualDevModes);

} // namespace
