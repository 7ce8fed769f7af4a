#include "support/staged_driver_test.h"

#include <filesystem>

#include "driver/open_printer.h"
#include "zplui.h"

namespace fs = std::filesystem;

namespace {

// An export of the installed module; null when that is not loaded.
template <class Function>
Function* Export(const OString& folder, const char* name) {
    const HMODULE module = LoadLibraryW((folder + "\\zplui.dll").wstring());
    return module
               ? reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)))
               : nullptr;
}

} // namespace

int StagedDriverTest::Capabilities(const WCHAR* printer, WORD capability, WCHAR* output,
                                   const DEVMODEW* dev_mode) {
    if (!RunsUnderWine())
        return DeviceCapabilitiesW(printer, nullptr, capability, output, dev_mode);
    const OpenPrinter opened(OString(printer), PRINTER_ACCESS_USE);
    const auto ask =
        Export<decltype(DrvDeviceCapabilities)>(DriverFolder(), "DrvDeviceCapabilities");
    if (!opened.Get() || !ask) return -1;
    return static_cast<int>(ask(opened.Get(), const_cast<WCHAR*>(printer), capability, output,
                                const_cast<DEVMODEW*>(dev_mode)));
}

LONG StagedDriverTest::Properties(HANDLE printer, DEVMODEW* output, DEVMODEW* input, DWORD mode) {
    if (!RunsUnderWine())
        return DocumentPropertiesW(nullptr, printer, nullptr, output, input, mode);
    const auto ask =
        Export<decltype(DrvDocumentPropertySheets)>(DriverFolder(), "DrvDocumentPropertySheets");
    if (!ask) return -1;
    DOCUMENTPROPERTYHEADER header = {};
    header.cbSize = sizeof header;
    header.hPrinter = printer;
    header.pdmIn = input;
    header.pdmOut = output;
    header.fMode = output ? mode : 0;
    return static_cast<LONG>(ask(nullptr, reinterpret_cast<LPARAM>(&header)));
}

OString StagedDriverTest::DriverFolder() {
    WCHAR folder[MAX_PATH] = {};
    DWORD needed = 0;
    EXPECT_TRUE(GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(folder),
                                           sizeof folder, &needed));
    return OString(folder) + "\\3";
}

void StagedDriverTest::Install(const std::string& binary_folder, const ModelTables& tables) {
    // The made-up driver's empty files are replaced where drivers lie, before anyone loads them.
    ASSERT_TRUE(AddDriver("Model 1", "zplqv.ddt"));
    const std::string folder = std::string(DriverFolder().nstring()).substr(3);
    fs::copy_file(binary_folder + "/bin/zplui.dll", OnDriveC(folder + "\\zplui.dll"),
                  fs::copy_options::overwrite_existing);
    WriteFile(folder + "\\zpl.ddt", ModelDataFile(tables));
    ASSERT_TRUE(AddPrinter("Dock 3", "Model 1"));
}
