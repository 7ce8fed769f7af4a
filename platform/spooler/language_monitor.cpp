#include "spooler/language_monitor.h"

#include "spooler/driver_record.h"
#include "spooler/printer_record.h"

#include <utility>

namespace win32host {
namespace {

using PrinterDataFunction = DWORD(WINAPI*)(LPCWSTR, LPCWSTR, LPDWORD, LPBYTE, DWORD, LPDWORD);
using TakesJobFunction = BOOL(WINAPI*)(LPCWSTR, const BYTE*, DWORD);

template <class Function>
Function Find(HMODULE module, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(module, name)));
}

} // namespace

std::unique_ptr<LanguageMonitor> LanguageMonitor::Of(const PrintServer& server,
                                                     const std::u16string& printer) {
    const auto driver_name = ReadPrinterDriver(server, printer);
    if (!driver_name) return nullptr;
    // The drivers are those of this machine, also for the printers of others.
    const auto local = PrintServer::Named({});
    const auto driver = ReadDriver(*local, *driver_name);
    if (!driver || driver->monitor.empty()) return nullptr;
    const std::u16string file = local->InstalledFolder() + u'\\' + driver->monitor + u".dll";
    const HMODULE module = LoadLibraryW(file.c_str());
    if (!module) return nullptr;
    return std::make_unique<LanguageMonitor>(module, server.FullName(printer));
}

LanguageMonitor::LanguageMonitor(HMODULE module, std::u16string printer)
    : module_(module)
    , printer_(std::move(printer)) {}

LanguageMonitor::~LanguageMonitor() {
    FreeLibrary(module_);
}

DWORD LanguageMonitor::PrinterData(const std::u16string& name, DWORD& type,
                                   std::vector<BYTE>& bytes) const {
    const auto function = Find<PrinterDataFunction>(module_, "MonitorPrinterData");
    if (!function) return ERROR_FILE_NOT_FOUND;
    bytes.resize(256);
    for (;;) {
        DWORD needed = 0;
        const DWORD size = static_cast<DWORD>(bytes.size());
        const DWORD code =
            function(printer_.c_str(), name.c_str(), &type, bytes.data(), size, &needed);
        if (code == ERROR_MORE_DATA && needed > size) {
            bytes.resize(needed);
            continue;
        }
        bytes.resize(code == ERROR_SUCCESS && needed <= size ? needed : 0);
        return code;
    }
}

bool LanguageMonitor::TakesJob(std::string_view start) const {
    const auto function = Find<TakesJobFunction>(module_, "MonitorTakesJob");
    return function && function(printer_.c_str(), reinterpret_cast<const BYTE*>(start.data()),
                                static_cast<DWORD>(start.size())) != FALSE;
}

} // namespace win32host
