// Document settings, which the printer's driver makes and checks.
#include "spooler/opened_printer.h"

#include <winddiui.h>

using namespace win32host;

namespace {

constexpr LONG kFailure = -1;

LONG FailProperties(DWORD code) {
    SetLastError(code);
    return kFailure;
}

} // namespace

extern "C" LONG WINAPI DocumentPropertiesW(HWND, HANDLE handle, LPWSTR device, PDEVMODEW output,
                                           PDEVMODEW input, DWORD mode) {
    return Guarded(kFailure, [&] {
        const auto printer = FindPrinter(handle);
        if (!printer) return kFailure;
        if (mode & DM_IN_PROMPT) return FailProperties(ERROR_NOT_SUPPORTED);
        if (mode & DM_IN_BUFFER && input && CheckedDevMode(input).empty())
            return FailProperties(ERROR_INVALID_PARAMETER);
        const auto driver = printer->DriverName();
        const auto library = driver ? LoadDriver(*driver) : nullptr;
        if (!library) return kFailure;

        std::u16string name = device ? std::u16string(device) : printer->FullName();
        DOCUMENTPROPERTYHEADER header = {};
        header.cbSize = sizeof header;
        header.hPrinter = handle;
        header.pszPrinterName = name.data();
        const LONG size = library->DocumentProperties(header);
        if (!mode || !output || size < 0) return size;
        header.pdmIn = input;
        header.pdmOut = output;
        header.fMode = mode;
        return library->DocumentProperties(header);
    });
}

extern "C" BOOL WINAPI IsValidDevmodeW(PDEVMODEW dev_mode, size_t size) {
    return Guarded(FALSE, [&] {
        if (!dev_mode || CheckedDevMode(dev_mode, size).empty()) return Fail(ERROR_INVALID_DATA);
        return TRUE;
    });
}
