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

// Has the user edit settings in the driver's property sheets: IDOK, IDCANCEL, or failure.
LONG Prompt(HWND owner, const DriverLibrary& driver, DOCUMENTPROPERTYHEADER& header) {
    using ShowSheets = LONG(WINAPI*)(HWND, PFNPROPSHEETUI, LPARAM, LPDWORD);
    const HMODULE module = LoadLibraryW(u"compstui.dll");
    if (!module) return kFailure;
    LONG shown = kFailure;
    DWORD result = CPSUI_CANCEL;
    if (const FARPROC found = GetProcAddress(module, "CommonPropertySheetUIW")) {
        const auto show = reinterpret_cast<ShowSheets>(reinterpret_cast<void (*)()>(found));
        shown = show(owner, driver.DocumentSheets(), reinterpret_cast<LPARAM>(&header), &result);
    }
    FreeLibrary(module);
    if (shown < 0) return kFailure;
    return result == CPSUI_CANCEL ? IDCANCEL : IDOK;
}

} // namespace

extern "C" LONG WINAPI DocumentPropertiesW(HWND owner, HANDLE handle, LPWSTR device,
                                           PDEVMODEW output, PDEVMODEW input, DWORD mode) {
    return Guarded(kFailure, [&] {
        const auto printer = FindPrinter(handle);
        if (!printer) return kFailure;
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
        const bool prompts = (mode & DM_IN_PROMPT) != 0;
        if (size < 0 || !mode || (!output && !prompts)) return size;
        header.pdmIn = input;
        header.pdmOut = output;
        header.fMode = mode;
        return prompts ? Prompt(owner, *library, header) : library->DocumentProperties(header);
    });
}

extern "C" BOOL WINAPI IsValidDevmodeW(PDEVMODEW dev_mode, size_t size) {
    return Guarded(FALSE, [&] {
        if (!dev_mode || CheckedDevMode(dev_mode, size).empty()) return Fail(ERROR_INVALID_DATA);
        return TRUE;
    });
}
