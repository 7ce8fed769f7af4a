// The page functions of a printer's driver.
#pragma once

#include <windows.h>

#include <winddiui.h>

namespace printer_sheets {

// Loads the driver's configuration file, which stays loaded as long as this object exists.
class DriverPages {
public:
    // `printer`: opened for any use.
    explicit DriverPages(HANDLE printer);
    ~DriverPages();
    DriverPages(const DriverPages&) = delete;
    DriverPages& operator=(const DriverPages&) = delete;

    // Null, with the last error, if the driver cannot be loaded or has no such pages.
    PFNPROPSHEETUI DocumentSheets() const { return Function("DrvDocumentPropertySheets"); }
    PFNPROPSHEETUI DeviceSheets() const { return Function("DrvDevicePropertySheets"); }

private:
    PFNPROPSHEETUI Function(const char* name) const;

    HMODULE module_ = nullptr;
    DWORD error_ = ERROR_SUCCESS; // why there is no module
};

} // namespace printer_sheets
