// A driver's language monitor: the library that talks with its printers in both directions.
#pragma once

#include "spooler/print_server.h"

#include <windows.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace win32host {

// A driver names its monitor (DRIVER_INFO_6W::pMonitorName). The library of that name is one of the
// driver's files and exports two functions, each of which may be missing:
//
//   DWORD WINAPI MonitorPrinterData(LPCWSTR printer, LPCWSTR name, LPDWORD type, LPBYTE data,
//                                   DWORD size, LPDWORD needed);
//   BOOL WINAPI MonitorTakesJob(LPCWSTR printer, const BYTE* start, DWORD size);
class LanguageMonitor {
public:
    // The monitor of a printer's driver. Null if the driver has none or it cannot be loaded.
    static std::unique_ptr<LanguageMonitor> Of(const PrintServer& server,
                                               const std::u16string& printer);

    LanguageMonitor(HMODULE module, std::u16string printer);
    ~LanguageMonitor();
    LanguageMonitor(const LanguageMonitor&) = delete;
    LanguageMonitor& operator=(const LanguageMonitor&) = delete;

    // Asks the monitor for printer data. Answers the code for GetPrinterDataW, which is
    // ERROR_FILE_NOT_FOUND if the monitor does not know the name.
    DWORD PrinterData(const std::u16string& name, DWORD& type, std::vector<BYTE>& bytes) const;

    // True if a job that starts with these bytes is kept for the monitor and not sent to the
    // printer's port.
    bool TakesJob(std::string_view start) const;

private:
    const HMODULE module_;
    const std::u16string printer_;
};

} // namespace win32host
