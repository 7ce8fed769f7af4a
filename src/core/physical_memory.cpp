#include "core/physical_memory.h"

#include <windows.h>

uint64_t PhysicalMemory() {
    const HMODULE kernel = GetModuleHandleW(TEXT("kernel32.dll"));
    auto* const ask = reinterpret_cast<BOOL(WINAPI*)(MEMORYSTATUSEX*)>(
        reinterpret_cast<void*>(kernel ? GetProcAddress(kernel, "GlobalMemoryStatusEx") : nullptr));
    MEMORYSTATUSEX all = {};
    all.dwLength = sizeof all;
    if (ask && ask(&all)) return all.ullTotalPhys;
    MEMORYSTATUS status = {};
    status.dwLength = sizeof status;
    GlobalMemoryStatus(&status);
    return status.dwTotalPhys;
}
