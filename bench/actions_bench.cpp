// All actions of a printer that need no dialog, each in a job of its own, compared with spooling
// the bytes of these jobs by the system's calls only, and with writing them to files.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>
#include <windows.h>
#include <winspool.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "bench_host.h"
#include "spooler/open_printer.h"
#include "spooler/platform_flags.h"
#include "support/data_file_text.h"
#include "zplui.h"

namespace {

class Printer {
public:
    Printer()
        : module_(Record("Driver.d", "[Model 1]\nModel=Model:A\n") +
                  Record("Model.d", "[A]\nResolution=203\nStock.Maximum.X=4 in\n"
                                    "Stock.Maximum.Y=6 in\n"))
        , opened_("Dock 3", PRINTER_ALL_ACCESS) {
        SetPlatformFlags("C:\\drivers\\3");
        std::ofstream(module_.Root() + "/drive_c/label.prn") << "^XA^FDone^XZ";
        settings_ = DAL_Printer_Open(opened_.Get());
        for (int action = 1; action <= DAL_ACTION_LAST; ++action) {
            const DWORD offer = DAL_Action_Supported(settings_, action);
            if (offer && (!(offer & DAL_ACTION_OPENS_DIALOG) || action == DAL_ACTION_SEND_FILE))
                actions_.push_back(action);
        }
    }
    ~Printer() {
        DAL_Printer_Close(settings_);
        SetPlatformFlags(OString());
    }
    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;

    const std::string& root() const { return module_.Root(); }
    size_t actions() const { return actions_.size(); }

    bool RunAll() const {
        for (const int action : actions_)
            if (!DAL_Action_Run(settings_, action, TEXT("C:\\label.prn"))) return false;
        return true;
    }

    // The jobs in the spooler, which is empty afterwards.
    std::vector<std::string> TakeJobs() const {
        DWORD needed = 0, count = 0;
        EnumJobsW(opened_.Get(), 0, 1000, 1, nullptr, 0, &needed, &count);
        std::vector<BYTE> buffer(needed);
        EnumJobsW(opened_.Get(), 0, 1000, 1, buffer.data(), needed, &needed, &count);
        const auto* infos = reinterpret_cast<const JOB_INFO_1W*>(buffer.data());
        std::vector<std::string> jobs;
        for (DWORD i = 0; i < count; ++i) {
            char file[32];
            std::snprintf(file, sizeof file, "/spool/%05u.SPL", unsigned{infos[i].JobId});
            std::ifstream in(root() + file, std::ios::binary);
            jobs.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
            SetJobW(opened_.Get(), infos[i].JobId, 0, nullptr, JOB_CONTROL_DELETE);
        }
        return jobs;
    }

private:
    const AttachedModule module_;
    const OpenPrinter opened_;
    HANDLE settings_ = nullptr;
    std::vector<int> actions_;
};

void CountJobs(benchmark::State& state, const std::vector<std::string>& jobs) {
    size_t bytes = 0;
    for (const std::string& job : jobs) bytes += job.size();
    const auto rounds = static_cast<double>(state.iterations());
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(jobs.size()));
    state.SetBytesProcessed(static_cast<int64_t>(rounds * static_cast<double>(bytes)));
    state.counters["jobs"] = static_cast<double>(jobs.size());
}

void BM_WriteJobsToFiles(benchmark::State& state) {
    const Printer printer;
    printer.RunAll();
    const std::vector<std::string> jobs = printer.TakeJobs();
    const std::string path = printer.root() + "/job";
    for (auto _ : state)
        for (const std::string& job : jobs) {
            const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
            if (write(file, job.data(), job.size()) != static_cast<ssize_t>(job.size()))
                state.SkipWithError("write");
            close(file);
        }
    CountJobs(state, jobs);
}
BENCHMARK(BM_WriteJobsToFiles)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_SpoolJobs(benchmark::State& state) {
    const Printer printer;
    printer.RunAll();
    std::vector<std::string> jobs = printer.TakeJobs();
    WCHAR name[] = TEXT("Dock 3");
    WCHAR raw[] = TEXT("RAW");
    DOC_INFO_1W document = {name, nullptr, raw};
    for (auto _ : state) {
        for (std::string& job : jobs) {
            HANDLE handle = nullptr;
            OpenPrinterW(name, &handle, nullptr);
            StartDocPrinterW(handle, 1, reinterpret_cast<BYTE*>(&document));
            DWORD written = 0;
            WritePrinter(handle, job.data(), static_cast<DWORD>(job.size()), &written);
            EndDocPrinter(handle);
            ClosePrinter(handle);
        }
        state.PauseTiming();
        if (printer.TakeJobs().size() != jobs.size()) state.SkipWithError("not all jobs");
        state.ResumeTiming();
    }
    CountJobs(state, jobs);
}
BENCHMARK(BM_SpoolJobs)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_RunActions(benchmark::State& state) {
    const Printer printer;
    std::vector<std::string> jobs;
    for (auto _ : state) {
        if (!printer.RunAll()) state.SkipWithError("an action was not done");
        state.PauseTiming();
        jobs = printer.TakeJobs();
        if (jobs.size() < printer.actions()) state.SkipWithError("not all jobs");
        state.ResumeTiming();
    }
    CountJobs(state, jobs);
}
BENCHMARK(BM_RunActions)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
