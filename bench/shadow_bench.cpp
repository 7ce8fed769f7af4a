// Bringing a user's copy of another machine's settings up to date when nothing has changed there,
// compared with reading every value of the same keys: by walking the keys with the system's calls,
// and by their names through the driver's store. It should take less than three times as long.
#include <benchmark/benchmark.h>
#include <win32host/clock_control.h>
#include <win32host/control.h>
#include <windows.h>
#include <winspool.h>

#include <filesystem>
#include <string>
#include <vector>

#include "bench_host.h"
#include "keys/prtreg.h"
#include "keys/shadow_keys.h"
#include "keys/shadow_request.h"
#include "keys/shared_keys_text.h"
#include "spooler/platform_flags.h"
#include "support/data_file_text.h"

namespace {

namespace fs = std::filesystem;

constexpr char kRemote[] = "\\\\SRV1\\Dock 3";
constexpr uint32_t kTick = 77;

std::string ModelData() {
    return Record("Driver.d", "[Model 1]\nModel=Model:A\n") +
           Record("Model.d", "[A]\nResolution=203\n");
}

// A connection to a shared printer of another machine, and a copy of two keys with `count` names
// and records each. The server has no status monitor: its answers, that it has nothing new and that
// it shares, are values already stored under the names of the questions.
class Connection {
public:
    explicit Connection(int64_t count)
        : server_(ModelData())
        , home_(ModelData()) {
        SetPlatformFlags("C:\\drivers\\3");
        win32host::SetTickCount(kTick);
        win32host::SetRoot(server_.Root());
        Share();
        win32host::SetRoot(home_.Root());
        fs::create_directories(home_.Root() + "/servers");
        fs::create_directory_symlink(server_.Root(), home_.Root() + "/servers/SRV1");
        AddPrinterConnectionW(const_cast<WCHAR*>(OString(kRemote).wstring()));

        prtreg copy(kRemote);
        const std::vector<char> record(28, 'x');
        for (const char* key : {"Settings:Bench/", "STOCK:Bench/"})
            for (int64_t i = 0; i < count; ++i) {
                const OString name = OString(key) << i;
                copy.SetString(OString(name) << "Name", "Label");
                copy.SetBinary(OString(name) << "Data", record.data(), 28);
            }
        Answer(copy);
    }
    ~Connection() {
        win32host::UseRealTickCount();
        SetPlatformFlags(OString());
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

private:
    static void Share() {
        WCHAR name[] = TEXT("Dock 3");
        WCHAR share[] = TEXT("DOCK3");
        PRINTER_DEFAULTSW all = {nullptr, nullptr, PRINTER_ALL_ACCESS};
        HANDLE printer = nullptr;
        OpenPrinterW(name, &printer, &all);
        DWORD needed = 0;
        GetPrinterW(printer, 2, nullptr, 0, &needed);
        std::vector<BYTE> bytes(needed);
        GetPrinterW(printer, 2, bytes.data(), needed, &needed);
        auto* info = reinterpret_cast<PRINTER_INFO_2W*>(bytes.data());
        info->Attributes |= PRINTER_ATTRIBUTE_SHARED;
        info->pShareName = share;
        SetPrinterW(printer, 2, bytes.data(), 0);
        ClosePrinter(printer);
    }

    static void Answer(prtreg& copy) {
        const unsigned char yes = 1;
        copy.SetPrinterDataW(OString("Network Sharing") << kTick, REG_BINARY, &yes, 1);
        ShadowRequest question;
        question.printer = "Dock 3";
        question.tick = kTick;
        OStringArray keys;
        copy.EnumShadowKeys(keys);
        for (int i = 0; i < keys.GetSize(); ++i) {
            OStringArray lines;
            copy.Export(keys[i], lines);
            question.Add(keys[i], SharedKeysChecksum(lines));
        }
        const uint32_t nothing = 0;
        copy.SetPrinterDataW(question.Text(), REG_DWORD, &nothing, sizeof nothing);
    }

    const BenchHost server_;
    const BenchHost home_;
};

// Reads all values in a key and below it and answers their number.
int ReadTree(HKEY key) {
    WCHAR name[256];
    BYTE data[256];
    int count = 0;
    for (;; ++count) {
        DWORD length = 256, type = 0, size = sizeof data;
        if (RegEnumValueW(key, static_cast<DWORD>(count), name, &length, nullptr, &type, data,
                          &size) != ERROR_SUCCESS)
            break;
        benchmark::DoNotOptimize(data[0]);
    }
    for (DWORD i = 0;; ++i) {
        DWORD length = 256;
        HKEY below = nullptr;
        if (RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            return count;
        if (RegOpenKeyExW(key, name, 0, KEY_READ, &below) == ERROR_SUCCESS) {
            count += ReadTree(below);
            RegCloseKey(below);
        }
    }
}

void BM_ReadSharedKeys(benchmark::State& state) {
    const Connection connection(state.range(0));
    for (auto _ : state) {
        prtreg registry(kRemote);
        OStringArray keys;
        registry.EnumShadowKeys(keys);
        int count = 0;
        for (int i = 0; i < keys.GetSize(); ++i) {
            OString path = keys[i];
            registry.SubstituteKey(path);
            const HKEY key = registry.OpenKey(path, false);
            if (!key) continue;
            count += ReadTree(key);
            RegCloseKey(key);
        }
        if (count < 4 * state.range(0)) state.SkipWithError("not all values");
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_ReadSharedKeys)
    ->Unit(benchmark::kMillisecond)
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000)
    ->Complexity(benchmark::oN);

// The same values, one after the other by name, as the driver reads its settings.
void BM_ReadSharedValuesByName(benchmark::State& state) {
    const Connection connection(state.range(0));
    std::vector<char> record(28);
    for (auto _ : state) {
        prtreg registry(kRemote);
        bool all = true;
        for (const char* key : {"Settings:Bench/", "STOCK:Bench/"})
            for (int64_t i = 0; i < state.range(0); ++i) {
                const OString name = OString(key) << i;
                all &= !registry.GetString(OString(name) << "Name", "").IsEmpty();
                all &= registry.GetBinary(OString(name) << "Data", record.data(), 28) > 0;
            }
        if (!all) state.SkipWithError("not all values");
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_ReadSharedValuesByName)
    ->Unit(benchmark::kMillisecond)
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000)
    ->Complexity(benchmark::oN);

void BM_CreateShadowOfNothingNew(benchmark::State& state) {
    const Connection connection(state.range(0));
    for (auto _ : state) CreateShadow(kRemote);
    if (prtreg(kRemote).GetDWORD("LOCAL:Paper Sizes CRC32", 0) == 0)
        state.SkipWithError("the server was not asked");
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_CreateShadowOfNothingNew)
    ->Unit(benchmark::kMillisecond)
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000)
    ->Complexity(benchmark::oN);

} // namespace
