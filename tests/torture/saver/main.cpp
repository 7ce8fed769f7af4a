// Saves the settings of a printer and is killed meanwhile.
//
// usage: torture_saver ROOT KIND POINT
//
// KIND "layer": the POINT-th change of the registry kills it, before the change is made. KIND
// "disk": the POINT-th write to the registry's files kills it, after half of its bytes. If it is
// not killed, as with point 0, it prints the number of points.
#include <win32host/control.h>
#include <win32host/fault_control.h>

#include <sqlite3.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "model/model_data_cache.h"
#include "model/resource_cache.h"
#include "spooler/driver_utility.h"
#include "spooler/platform_flags.h"
#include "torture/sample_lists.h"
#include "zplui.h"

namespace {

long long g_point = 0;
long long g_writes = 0;
bool g_counts = false;

ssize_t KillingWrite(int file, const void* bytes, size_t size, off_t offset) {
    if (g_counts && ++g_writes == g_point) {
        [[maybe_unused]] const ssize_t half = pwrite(file, bytes, size / 2, offset);
        std::raise(SIGKILL);
    }
    return pwrite(file, bytes, size, offset);
}

void WatchDisk() {
    sqlite3_vfs* const files = sqlite3_vfs_find(nullptr);
    for (const char* name : {"pwrite", "pwrite64"})
        files->xSetSystemCall(files, name, reinterpret_cast<sqlite3_syscall_ptr>(KillingWrite));
}

} // namespace

int main(int count, char** words) {
    if (count != 4) return 2;
    const bool disk = std::string(words[2]) == "disk";
    g_point = std::atoll(words[3]);
    win32host::SetRoot(words[1]);
    DriverUtility::SetModuleHandle(GetModuleHandleW(TEXT("kernel32.dll")));
    OResourceCache::Initialize();
    ModelDataCache::Initialize();
    SetPlatformFlags("C:\\drivers\\3");

    WCHAR name[] = TEXT("Dock 3");
    HANDLE printer = nullptr;
    if (!OpenPrinterW(name, &printer, nullptr)) return 1;
    const HANDLE settings = DAL_Printer_Open(printer);
    if (!settings) return 1;
    MakeLists(*static_cast<prtui*>(settings), 1);
    if (disk) {
        WatchDisk();
        g_counts = true;
    } else {
        win32host::PlanFault({win32host::FAULT_REGISTRY_CHANGES,
                              g_point ? static_cast<DWORD>(g_point) : 0xFFFFFFFF, 0, false, false,
                              true});
    }
    DAL_Printer_Close(settings);
    std::printf("%lld\n", disk ? g_writes : static_cast<long long>(win32host::FaultPoints()));
    ClosePrinter(printer);
    return 0;
}
