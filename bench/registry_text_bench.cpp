// Registry export and import by number of values. The time per value must not grow with that
// number.
#include <benchmark/benchmark.h>
#include <win32host/control.h>

#include <cstdlib>
#include <filesystem>

#include "registry/oregistry.h"

namespace {

// A host with one key of `count` values of every common type, removed afterwards.
class FilledKey {
public:
    explicit FilledKey(int count) {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "registry-bench-XXXXXX").string();
        if (!mkdtemp(pattern.data())) std::abort();
        root_ = pattern;
        win32host::SetRoot(root_);
        OStringArray text;
        text.Add("[HKEY_CURRENT_USER\\Bench]");
        for (int i = 0; i < count; ++i) {
            const OString name = OString("\"Form ") << i << ":: ";
            if (i % 3 == 0) text.Add(OString(name) << "Name\"=\"4 x 6 in, \\\"shipping\\\"\"");
            if (i % 3 == 1) text.Add(OString(name) << "Width\"=hex:e0,93,04,00");
            if (i % 3 == 2) text.Add(OString(name) << "Flags\"=dword:0000000a");
        }
        ORegistry().Import(text);
    }
    ~FilledKey() {
        std::error_code ignored;
        std::filesystem::remove_all(root_, ignored);
    }

private:
    std::string root_;
};

void BM_RegistryExport(benchmark::State& state) {
    const auto count = static_cast<int>(state.range(0));
    const FilledKey key(count);
    ORegistry registry;
    for (auto _ : state) {
        OStringArray lines;
        registry.Export("CURRENT_USER:Bench", lines);
        if (lines.GetSize() != count + 2) state.SkipWithError("values are missing");
    }
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_RegistryExport)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_RegistryImport(benchmark::State& state) {
    const auto count = static_cast<int>(state.range(0));
    const FilledKey key(count);
    ORegistry registry;
    OStringArray lines;
    registry.Export("CURRENT_USER:Bench", lines);
    for (auto _ : state) registry.Import(lines);
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_RegistryImport)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

// The peer: the plain registry calls that the text forms cannot do without.
void BM_RegistryPlainReads(benchmark::State& state) {
    const auto count = static_cast<DWORD>(state.range(0));
    const FilledKey filled(static_cast<int>(count));
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, TEXT("Bench"), 0, KEY_READ, &key) != ERROR_SUCCESS) {
        state.SkipWithError("no key");
    }
    for (auto _ : state) {
        for (DWORD i = 0; i < count; ++i) {
            WCHAR name[260];
            BYTE data[512];
            DWORD name_size = 260;
            DWORD size = sizeof data;
            RegEnumValueW(key, i, name, &name_size, nullptr, nullptr, data, &size);
            benchmark::DoNotOptimize(data);
        }
    }
    RegCloseKey(key);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_RegistryPlainReads)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_RegistryPlainWrites(benchmark::State& state) {
    const FilledKey filled(1);
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, TEXT("Bench"), 0, KEY_READ | KEY_WRITE, &key) !=
        ERROR_SUCCESS) {
        state.SkipWithError("no key");
    }
    for (auto _ : state) {
        for (int i = 0; i < state.range(0); ++i) {
            const OString name = OString("Form ") << i << ": Width";
            const DWORD value = 300000;
            RegSetValueExW(key, name.wstring(), 0, REG_BINARY,
                           reinterpret_cast<const BYTE*>(&value), sizeof value);
        }
    }
    RegCloseKey(key);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_RegistryPlainWrites)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace
