// A print server with thousands of printers of every shipped model, compared with one that has a
// single printer: the cost of one printer must not depend on how many others there are.
#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>
#include <win32host/control.h>
#include <windows.h>
#include <winspool.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr int64_t kMiddle = 2600; // the printer that is asked; the first model in every fleet

std::string Labelhost() {
    return BENCH_BINARY_DIR "/bin/labelhost";
}

// Runs a command. Ends the program if it fails.
void Run(const std::string& command) {
    if (std::system(command.c_str()) == 0) return;
    std::fprintf(stderr, "bench: %s failed\n", command.c_str());
    std::exit(1);
}

std::vector<std::string> Models(const std::string& scratch) {
    Run(Labelhost() + " models --json >" + scratch);
    std::vector<std::string> names;
    for (const auto& model : nlohmann::json::parse(std::ifstream(scratch)))
        names.push_back(model["name"]);
    return names;
}

// A host with that many printers, numbered around kMiddle.
class Fleet {
public:
    explicit Fleet(int64_t count) {
        std::string pattern = (fs::temp_directory_path() / "bench-fleet-XXXXXX").string();
        if (!mkdtemp(pattern.data())) std::abort();
        root_ = pattern;
        const std::vector<std::string> models = Models(File("models"));
        std::ofstream list(File("list"));
        const int64_t first = kMiddle - count / 2;
        for (int64_t i = first; i < first + count; ++i)
            list << "Dock " << i << '\t' << models[static_cast<size_t>(i) % models.size()]
                 << "\tIP_10.0." << i / 256 << '.' << i % 256 << '\n';
        list.close();
        const auto start = std::chrono::steady_clock::now();
        Run(Command("install --list " + File("list")));
        installing_ = std::chrono::steady_clock::now() - start;
    }
    ~Fleet() {
        std::error_code ignored;
        fs::remove_all(root_, ignored);
    }
    Fleet(const Fleet&) = delete;
    Fleet& operator=(const Fleet&) = delete;

    // The fleet of that size, made on first use. This process then runs on its machine.
    static const Fleet& Of(int64_t count) {
        static std::map<int64_t, std::unique_ptr<Fleet>> fleets;
        std::unique_ptr<Fleet>& fleet = fleets[count];
        if (!fleet) fleet = std::make_unique<Fleet>(count);
        win32host::SetRoot(fleet->root_);
        return *fleet;
    }

    double Installing() const { return installing_.count(); }
    std::string File(const std::string& name) const { return root_ + "/" + name; }
    std::string Command(const std::string& words) const {
        return Labelhost() + " --root " + root_ + " " + words + " >/dev/null";
    }

private:
    std::string root_;
    std::chrono::duration<double> installing_{};
};

std::string Middle() {
    return "Dock " + std::to_string(kMiddle);
}

std::basic_string<WCHAR> MiddleName() {
    const std::string name = Middle();
    return {name.begin(), name.end()};
}

// The time for the whole fleet, which grows with its size.
void BM_FleetInstall(benchmark::State& state) {
    const Fleet& fleet = Fleet::Of(state.range(0));
    for (auto _ : state) state.SetIterationTime(fleet.Installing());
}
BENCHMARK(BM_FleetInstall)
    ->Arg(500)
    ->Arg(5000)
    ->Iterations(1)
    ->Repetitions(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

void BM_FleetCapability(benchmark::State& state) {
    Fleet::Of(state.range(0));
    const std::basic_string<WCHAR> name = MiddleName();
    for (auto _ : state)
        if (static_cast<int>(
                DeviceCapabilitiesW(name.c_str(), nullptr, DC_PAPERNAMES, nullptr, nullptr)) < 1)
            state.SkipWithError("no answer");
}
BENCHMARK(BM_FleetCapability)->Arg(1)->Arg(5000)->Unit(benchmark::kMicrosecond);

void BM_FleetOpenSettings(benchmark::State& state) {
    Fleet::Of(state.range(0));
    std::basic_string<WCHAR> name = MiddleName();
    const HMODULE module =
        LoadLibraryW(TEXT("C:\\WINDOWS\\system32\\spool\\drivers\\w32x86\\3\\zplui.dll"));
    const auto find = [module](const char* export_name) {
        return reinterpret_cast<void (*)()>(GetProcAddress(module, export_name));
    };
    const auto open = reinterpret_cast<HANDLE(WINAPI*)(HANDLE)>(find("DAL_Printer_Open"));
    const auto close = reinterpret_cast<void(WINAPI*)(HANDLE)>(find("DAL_Printer_Close"));
    HANDLE printer = nullptr;
    if (!open || !close || !OpenPrinterW(name.data(), &printer, nullptr)) {
        state.SkipWithError("no printer");
        return;
    }
    for (auto _ : state) {
        const HANDLE settings = open(printer);
        if (!settings) state.SkipWithError("no settings");
        close(settings);
    }
    ClosePrinter(printer);
    FreeLibrary(module);
}
BENCHMARK(BM_FleetOpenSettings)->Arg(1)->Arg(5000)->Unit(benchmark::kMicrosecond);

void RunOn(benchmark::State& state, const std::string& words) {
    const Fleet& fleet = Fleet::Of(state.range(0));
    for (auto _ : state) Run(fleet.Command(words));
}

// A program that asks for everything once, with nothing kept from before.
void BM_FleetFirstCapabilities(benchmark::State& state) {
    RunOn(state, "capabilities '" + Middle() + "'");
}
BENCHMARK(BM_FleetFirstCapabilities)
    ->Arg(1)
    ->Arg(5000)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

void BM_FleetInstallOneMore(benchmark::State& state) {
    const Fleet& fleet = Fleet::Of(state.range(0));
    for (auto _ : state) {
        Run(fleet.Command("install More --model 'Valdrick X4 300 dpi'"));
        state.PauseTiming();
        Run(fleet.Command("remove More"));
        state.ResumeTiming();
    }
}
BENCHMARK(BM_FleetInstallOneMore)->Arg(1)->Arg(5000)->UseRealTime()->Unit(benchmark::kMillisecond);

void BM_FleetList(benchmark::State& state) {
    RunOn(state, "list");
}
BENCHMARK(BM_FleetList)->Arg(500)->Arg(5000)->UseRealTime()->Unit(benchmark::kMillisecond);

void BM_FleetImport(benchmark::State& state) {
    const Fleet& fleet = Fleet::Of(state.range(0));
    const std::string file = fleet.File("settings.kds"), printer = " '" + Middle() + "' ";
    static int copies = 1;
    for (auto _ : state) {
        // Settings that no printer has yet.
        state.PauseTiming();
        Run(fleet.Command("document" + printer +
                          "--save-preset Pallet --set dmCopies=" + std::to_string(++copies)));
        Run(fleet.Command("settings export" + printer + file));
        state.ResumeTiming();
        Run(fleet.Command("settings import '*' " + file));
    }
}
BENCHMARK(BM_FleetImport)
    ->Arg(500)
    ->Arg(5000)
    ->Iterations(1)
    ->Repetitions(1)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

} // namespace
