// A device capability asked through the spooler by a process that has asked before, compared with
// one point read of the registry's database: a prepared statement that finds a value by its unique
// index, in a transaction of its own.
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <windows.h>
#include <winspool.h>

#include <chrono>
#include <string>

#include "bench_host.h"
#include "support/data_file_text.h"

namespace {

std::string DataFile() {
    return Record("Driver.d", "[Model 1]\nModel=Model:A\n") +
           Record("Model.d", "[A]\nMethod=Method:A\nResolution=203,300\n") +
           Record("Method.d", "[A]\nCopies.Limit=9999\n");
}

class PointRead {
public:
    explicit PointRead(const std::string& root) {
        sqlite3_open_v2((root + "/registry.db").c_str(), &database_, SQLITE_OPEN_READWRITE,
                        nullptr);
        sqlite3_prepare_v3(database_,
                           "SELECT type, data FROM key_values WHERE key = ?1 AND folded = ?2", -1,
                           SQLITE_PREPARE_PERSISTENT, &read_, nullptr);
        sqlite3_stmt* any = nullptr;
        sqlite3_prepare_v2(database_, "SELECT key, folded FROM key_values LIMIT 1", -1, &any,
                           nullptr);
        if (any && sqlite3_step(any) == SQLITE_ROW) {
            sqlite3_bind_int64(read_, 1, sqlite3_column_int64(any, 0));
            sqlite3_bind_text(read_, 2, reinterpret_cast<const char*>(sqlite3_column_text(any, 1)),
                              -1, SQLITE_TRANSIENT);
        }
        sqlite3_finalize(any);
    }
    ~PointRead() {
        sqlite3_finalize(read_);
        sqlite3_close(database_);
    }
    PointRead(const PointRead&) = delete;
    PointRead& operator=(const PointRead&) = delete;

    bool Read() {
        const bool found = sqlite3_step(read_) == SQLITE_ROW;
        if (found) benchmark::DoNotOptimize(sqlite3_column_blob(read_, 1));
        sqlite3_reset(read_);
        return found;
    }

private:
    sqlite3* database_ = nullptr;
    sqlite3_stmt* read_ = nullptr;
};

using Clock = std::chrono::steady_clock;

double Seconds(Clock::duration time) {
    return std::chrono::duration<double>(time).count();
}

void BM_RegistryPointRead(benchmark::State& state) {
    const BenchHost host(DataFile());
    PointRead peer(host.Root());
    for (auto _ : state)
        if (!peer.Read()) state.SkipWithError("no value");
}
BENCHMARK(BM_RegistryPointRead);

// The counter is the call's time in point reads.
void BM_DeviceCapabilities(benchmark::State& state) {
    const BenchHost host(DataFile());
    const auto capability = static_cast<WORD>(state.range(0));
    const auto ask = [capability] {
        return DeviceCapabilitiesW(TEXT("Dock 3"), nullptr, capability, nullptr, nullptr);
    };
    if (ask() < 1) {
        state.SkipWithError("no answer");
        return;
    }

    PointRead peer(host.Root());
    const int reads = 20000;
    const auto start = Clock::now();
    for (int i = 0; i < reads; ++i) peer.Read();
    const double read = Seconds(Clock::now() - start) / reads;

    const auto begin = Clock::now();
    for (auto _ : state) benchmark::DoNotOptimize(ask());
    const double call = Seconds(Clock::now() - begin) / static_cast<double>(state.iterations());
    state.counters["point_reads"] = call / read;
}
BENCHMARK(BM_DeviceCapabilities)
    ->ArgName("capability")
    ->Arg(DC_COPIES)
    ->Arg(DC_ENUMRESOLUTIONS)
    ->Arg(DC_FILEDEPENDENCIES);

} // namespace
