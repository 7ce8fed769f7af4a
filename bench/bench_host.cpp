#include "bench_host.h"

#include <win32host/control.h>
#include <windows.h>
#include <winspool.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "model/model_data_cache.h"
#include "model/resource_cache.h"
#include "spooler/driver_utility.h"

namespace fs = std::filesystem;

namespace {

[[noreturn]] void Fail(const char* what) {
    std::fprintf(stderr, "bench: %s failed, error %u\n", what, GetLastError());
    std::exit(1);
}

} // namespace

BenchHost::BenchHost(const std::string& model_data) {
    std::string pattern = (fs::temp_directory_path() / "bench-host-XXXXXX").string();
    if (!mkdtemp(pattern.data())) Fail("mkdtemp");
    root_ = pattern;
    win32host::SetRoot(root_);

    const fs::path stage = fs::path(root_) / "drive_c/stage";
    fs::create_directories(stage);
    fs::copy_file(BENCH_BINARY_DIR "/bin/zplui.dll", stage / "zplui.dll");
    fs::copy_file(BENCH_BINARY_DIR "/bin/zplrender.dll", stage / "zplrender.dll");
    std::ofstream(stage / "zplqv.ddt") << "";
    std::ofstream(stage / "zpl.ddt", std::ios::binary) << model_data;

    WCHAR driver[] = TEXT("Model 1");
    WCHAR module[] = TEXT("C:\\stage\\zplui.dll");
    WCHAR renderer[] = TEXT("C:\\stage\\zplrender.dll");
    WCHAR data[] = TEXT("C:\\stage\\zplqv.ddt");
    WCHAR more[] = TEXT("C:\\stage\\zpl.ddt\0");
    WCHAR raw[] = TEXT("RAW");
    DRIVER_INFO_3W info = {};
    info.cVersion = 3;
    info.pName = driver;
    info.pDriverPath = renderer;
    info.pDataFile = data;
    info.pConfigFile = module;
    info.pDependentFiles = more;
    info.pDefaultDataType = raw;
    if (!AddPrinterDriverExW(nullptr, 3, reinterpret_cast<BYTE*>(&info),
                             APD_COPY_ALL_FILES | APD_COPY_FROM_DIRECTORY))
        Fail("AddPrinterDriverExW");

    WCHAR name[] = TEXT("Dock 3");
    WCHAR port[] = TEXT("FILE:");
    WCHAR processor[] = TEXT("WinPrint");
    PRINTER_INFO_2W printer = {};
    printer.pPrinterName = name;
    printer.pDriverName = driver;
    printer.pPortName = port;
    printer.pPrintProcessor = processor;
    printer.pDatatype = raw;
    const HANDLE added = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&printer));
    if (!added) Fail("AddPrinterW");
    ClosePrinter(added);
}

BenchHost::~BenchHost() {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
}

AttachedModule::AttachedModule(const std::string& model_data)
    : host_(model_data)
    , module_(LoadLibraryW(TEXT("C:\\stage\\zplui.dll"))) {
    DriverUtility::SetModuleHandle(module_);
    Refresh(true);
}

AttachedModule::~AttachedModule() {
    OResourceCache::Free();
    ModelDataCache::Free();
    DriverUtility::SetModuleHandle(nullptr);
    FreeLibrary(module_);
}

void AttachedModule::Refresh(bool file) {
    ModelDataCache::Free();
    ModelDataCache::Initialize();
    if (!file) return;
    OResourceCache::Free();
    OResourceCache::Initialize();
}
