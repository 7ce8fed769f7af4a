// How much memory there is.
#include "host/guarded.h"
#include "host/machine.h"

#include <windows.h>

#include <algorithm>

using win32host::AvailableMemory;
using win32host::PhysicalMemory;

extern "C" BOOL WINAPI GlobalMemoryStatusEx(MEMORYSTATUSEX* status) {
    if (!status || status->dwLength != sizeof *status)
        return win32host::Fail(ERROR_INVALID_PARAMETER);
    *status = {};
    status->dwLength = sizeof *status;
    status->ullTotalPhys = PhysicalMemory();
    status->ullAvailPhys = AvailableMemory();
    const uint64_t used = status->ullTotalPhys - status->ullAvailPhys;
    if (status->ullTotalPhys > 0)
        status->dwMemoryLoad = static_cast<DWORD>(100 * used / status->ullTotalPhys);
    return TRUE;
}

extern "C" void WINAPI GlobalMemoryStatus(MEMORYSTATUS* status) {
    MEMORYSTATUSEX all = {};
    all.dwLength = sizeof all;
    GlobalMemoryStatusEx(&all);
    const auto fit = [](uint64_t bytes) {
        return static_cast<SIZE_T>(std::min<uint64_t>(bytes, SIZE_MAX));
    };
    *status = {};
    status->dwLength = sizeof *status;
    status->dwMemoryLoad = all.dwMemoryLoad;
    status->dwTotalPhys = fit(all.ullTotalPhys);
    status->dwAvailPhys = fit(all.ullAvailPhys);
}
