#include "printer_sheets/driver_pages.h"

#include <vector>

namespace printer_sheets {

DriverPages::DriverPages(HANDLE printer) {
    DWORD needed = 0;
    GetPrinterDriverW(printer, nullptr, 3, nullptr, 0, &needed);
    std::vector<BYTE> buffer(needed + sizeof(DRIVER_INFO_3W));
    if (GetPrinterDriverW(printer, nullptr, 3, buffer.data(), static_cast<DWORD>(buffer.size()),
                          &needed)) {
        const auto* driver = reinterpret_cast<const DRIVER_INFO_3W*>(buffer.data());
        module_ = LoadLibraryExW(driver->pConfigFile, nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    }
    if (!module_) error_ = GetLastError();
}

DriverPages::~DriverPages() {
    if (module_) FreeLibrary(module_);
}

PFNPROPSHEETUI DriverPages::Function(const char* name) const {
    if (!module_) {
        SetLastError(error_);
        return nullptr;
    }
    return reinterpret_cast<PFNPROPSHEETUI>(
        reinterpret_cast<void (*)()>(GetProcAddress(module_, name)));
}

} // namespace printer_sheets
