// Threads and processes at once in one root. The final state must be that of some order of their
// operations.

#include <winspool.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <thread>

#include "spooler/open_printer.h"
#include "support/build_folders.h"
#include "support/program.h"
#include "support/staged_driver_test.h"
#include "support/torture_rounds.h"
#include "torture/worker.h"

namespace {

constexpr int kThreads = 8;
constexpr int kProcesses = 4;
constexpr int kWorkers = kThreads + kProcesses;

// Its name includes it in the tests under ThreadSanitizer.
class ConcurrencyThreads : public StagedDriverTest {
protected:
    void InstallAll() {
        Install(TortureWorker::Tables());
        const std::string folder = std::string(DriverFolder().nstring()).substr(3);
        std::filesystem::copy_file(Built("/bin/zplrender.dll"),
                                   OnDriveC(folder + "\\zplrender.dll"),
                                   std::filesystem::copy_options::overwrite_existing);
        for (int i = 0; i < TortureWorker::kSharedPrinters; ++i)
            ASSERT_TRUE(AddPrinter(TortureWorker::SharedPrinter(i).c_str(), "Model 1"));
        for (int i = 0; i < kWorkers; ++i)
            ASSERT_TRUE(AddPrinter(TortureWorker::OwnPrinter(i).c_str(), "Model 1"));
    }

    ProgramResult RunWorker(const std::string& number, const std::string& rounds) const {
        return RunProgram("torture_worker", {root(), number, rounds});
    }

    // The names of the jobs waiting on a printer.
    static std::multiset<std::string> Jobs(const std::string& printer) {
        const OpenPrinter opened(OString(printer.c_str()), PRINTER_ALL_ACCESS);
        std::vector<BYTE> buffer(65536);
        DWORD needed = 0, count = 0;
        EXPECT_TRUE(EnumJobsW(opened.Get(), 0, 1000, 1, buffer.data(), 65536, &needed, &count));
        const auto* jobs = reinterpret_cast<const JOB_INFO_1W*>(buffer.data());
        std::multiset<std::string> names;
        for (DWORD i = 0; i < count; ++i) names.insert(Text(OString(jobs[i].pDocument)));
        return names;
    }
};

} // namespace

TEST_F(ConcurrencyThreads, AndProcessesWorkInOneRoot) {
    InstallAll();
    const int rounds = TortureRounds(6);
    std::vector<std::vector<std::string>> faults(kWorkers);
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([i, rounds, &faults] {
            TortureWorker worker(i);
            worker.Work(rounds);
            faults[static_cast<size_t>(i)] = worker.faults();
        });
    for (int i = kThreads; i < kWorkers; ++i)
        threads.emplace_back([this, i, rounds, &faults] {
            const ProgramResult result = RunWorker(std::to_string(i), std::to_string(rounds));
            if (result.status != 0)
                faults[static_cast<size_t>(i)].push_back(result.output + result.errors);
        });
    for (std::thread& thread : threads) thread.join();
    for (const auto& list : faults)
        for (const std::string& fault : list) ADD_FAILURE() << fault;

    std::multiset<std::string> expected[TortureWorker::kSharedPrinters];
    for (int worker = 0; worker < kWorkers; ++worker)
        expected[TortureWorker::PrinterOf(worker, rounds - 1)].insert(
            TortureWorker::DocumentOf(worker, rounds - 1));
    for (int i = 0; i < TortureWorker::kSharedPrinters; ++i)
        EXPECT_EQ(Jobs(TortureWorker::SharedPrinter(i)), expected[i]);

    // The last one to save had imported his last set, and some earlier set of all others.
    std::vector<std::string> torn;
    int last = 0;
    for (const auto& [worker, round] : TortureWorker::StoredSets("Dock 0", torn)) {
        EXPECT_LT(round, rounds);
        last = std::max(last, round);
    }
    EXPECT_EQ(last, rounds - 1);
    for (const std::string& fault : torn) ADD_FAILURE() << fault;
}

TEST_F(ConcurrencyThreads, OfOtherProcessesSeeModelDataThatWasFlushedElsewhere) {
    InstallAll();
    const auto copies = [] {
        return DeviceCapabilitiesW(TEXT("Dock 1"), nullptr, DC_COPIES, nullptr, nullptr);
    };
    EXPECT_EQ(static_cast<int>(copies()), 500);
    EXPECT_EQ(RunWorker("0", "options").status, 0);
    EXPECT_EQ(static_cast<int>(copies()), 32767);
}
