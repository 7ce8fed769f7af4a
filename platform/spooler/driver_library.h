// A driver's configuration module, loaded to be called.
#pragma once

#include <windows.h>

#include <winddiui.h>

#include <memory>
#include <string>

namespace win32host {

class DriverLibrary {
public:
    // The library with this full name. It stays loaded for the calls to come until it is dropped or
    // the root folder changes. Null with the loader's error.
    static std::shared_ptr<const DriverLibrary> Load(const std::u16string& file);

    // Lets go of the library, because its file or its last printer changes. Calls that are in it
    // end first.
    static void Drop(const std::u16string& file);

    explicit DriverLibrary(HMODULE module);
    ~DriverLibrary();
    DriverLibrary(const DriverLibrary&) = delete;
    DriverLibrary& operator=(const DriverLibrary&) = delete;

    // DrvPrinterEvent; true also when the driver has none.
    bool RaisePrinterEvent(const std::u16string& printer, int event, DWORD flags,
                           LPARAM parameter) const;

    // DrvUpgradePrinter for a printer of a driver that was replaced; true also when the driver has
    // none.
    bool UpgradePrinter(const std::u16string& printer) const;

    // DrvDeviceCapabilities; -1 when the driver has none.
    int DeviceCapabilities(HANDLE printer, const std::u16string& device, WORD capability,
                           LPWSTR output, const DEVMODEW* dev_mode) const;

    // DrvConvertDevMode. `size` is the room in `output` and receives the size that it takes or
    // took. False, with size 0, when the driver has none.
    bool ConvertDevMode(const std::u16string& printer, void* input, void* output, DWORD& size,
                        DWORD mode) const;

    // DrvDocumentPropertySheets without property sheets; -1 when the driver has none.
    LONG DocumentProperties(DOCUMENTPROPERTYHEADER& header) const;

    // DrvDocumentEvent; DOCUMENTEVENT_UNSUPPORTED when the driver has none.
    int DocumentEvent(HANDLE printer, HDC dc, int event, ULONG input_size, void* input,
                      ULONG output_size, void* output) const;

private:
    HMODULE module_;
    FARPROC printer_event_;
    FARPROC upgrade_;
    FARPROC capabilities_;
    FARPROC convert_;
    FARPROC document_sheets_;
    FARPROC document_event_;
};

} // namespace win32host
