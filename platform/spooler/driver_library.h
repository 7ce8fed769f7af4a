// A driver's configuration module, loaded and ready to call.
#pragma once

#include <windows.h>

#include <winddiui.h>

#include <memory>
#include <string>

namespace win32host {

class DriverLibrary {
public:
    // The library with this full name. It stays loaded for later calls until it is dropped or the
    // root folder changes. Null, with the loader's error, on failure.
    static std::shared_ptr<const DriverLibrary> Load(const std::u16string& file);

    // Unloads the library because its file changes or one of its printers goes. Running calls end
    // first.
    static void Drop(const std::u16string& file);

    explicit DriverLibrary(HMODULE module);
    ~DriverLibrary();
    DriverLibrary(const DriverLibrary&) = delete;
    DriverLibrary& operator=(const DriverLibrary&) = delete;

    // Calls DrvPrinterEvent. Also true if the driver has none.
    bool RaisePrinterEvent(const std::u16string& printer, int event, DWORD flags,
                           LPARAM parameter) const;

    // Calls DrvUpgradePrinter for a printer whose driver was replaced. Also true if the driver has
    // none.
    bool UpgradePrinter(const std::u16string& printer) const;

    // Calls DrvDeviceCapabilities; -1 if the driver has none.
    int DeviceCapabilities(HANDLE printer, const std::u16string& device, WORD capability,
                           LPWSTR output, const DEVMODEW* dev_mode) const;

    // Calls DrvConvertDevMode. `size` is the room in `output` and receives the size that is needed
    // or used. False, with size 0, if the driver has none.
    bool ConvertDevMode(const std::u16string& printer, void* input, void* output, DWORD& size,
                        DWORD mode) const;

    // Calls DrvDocumentPropertySheets without property sheets; -1 if the driver has none.
    LONG DocumentProperties(DOCUMENTPROPERTYHEADER& header) const;

    // DrvDocumentPropertySheets itself, for the common property sheets; null if the driver has
    // none.
    PFNPROPSHEETUI DocumentSheets() const;

    // Calls DrvDocumentEvent; DOCUMENTEVENT_UNSUPPORTED if the driver has none.
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
