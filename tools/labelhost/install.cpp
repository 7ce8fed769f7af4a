#include "arguments.h"
#include "commands.h"
#include "fault.h"
#include "installation.h"
#include "printer.h"
#include "text.h"

#include <windows.h>
#include <winspool.h>

#include <cstdio>

namespace {

// A machine that has no printers yet lacks the folder for drivers: each level is made in turn.
void MakeFolders(const WideString& path) {
    for (size_t at = path.find(TEXT('\\')); at != WideString::npos;
         at = path.find(TEXT('\\'), at + 1))
        if (at > 2) CreateDirectoryW(path.substr(0, at).c_str(), nullptr);
    if (!CreateDirectoryW(path.c_str(), nullptr) && GetLastError() != ERROR_ALREADY_EXISTS)
        throw SystemFault("cannot make the folder '" + ToUtf8(path.c_str()) + "'", GetLastError());
}

WideString DriverFolder() {
    DWORD needed = 0;
    GetPrinterDriverDirectoryW(nullptr, nullptr, 1, nullptr, 0, &needed);
    std::vector<WCHAR> folder(needed / sizeof(WCHAR) + 1);
    if (!GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(folder.data()),
                                    needed, &needed))
        throw SystemFault("cannot find the folder of printer drivers", GetLastError());
    return folder.data();
}

// Copies one file of the product into the driver folder: under a name of this process's own first,
// then over its place, so that a copy that fails leaves the old file and another process that
// installs at the same time is not disturbed. Answers the new file's path.
WideString StageFile(const std::string& product, const std::string& file,
                     const WideString& folder) {
    const std::string source = product + "/" + file;
    const WideString target = folder + TEXT("\\") + ToWide(file);
    WCHAR aside[MAX_PATH] = {};
    if (!GetTempFileNameW(folder.c_str(), TEXT("inst"), 0, aside))
        throw SystemFault("cannot write to the folder '" + ToUtf8(folder.c_str()) + "'",
                          GetLastError());
    DWORD error = NO_ERROR;
    std::string what;
    if (!CopyFileW(ToWide(source).c_str(), aside, FALSE)) {
        error = GetLastError();
        what = "cannot copy driver file '" + source + "'";
    } else if (!MoveFileExW(aside, target.c_str(), MOVEFILE_REPLACE_EXISTING)) {
        error = GetLastError();
        what = "cannot replace driver file '" + ToUtf8(target.c_str()) + "'";
    }
    if (error == NO_ERROR) return target;
    DeleteFileW(aside);
    throw SystemFault(what, error);
}

void AddDriver(const Installation& product, const Model& model, const DriverFiles& files) {
    const WideString folder = DriverFolder();
    MakeFolders(folder);
    WideString driver = StageFile(product.folder(), files.driver, folder);
    WideString config = StageFile(product.folder(), files.config, folder);
    WideString data = StageFile(product.folder(), files.data, folder);
    WideString help =
        files.help.empty() ? WideString() : StageFile(product.folder(), files.help, folder);
    WideString dependent;
    for (const std::string& file : files.dependent)
        dependent += StageFile(product.folder(), file, folder) + WCHAR(0);
    dependent += WCHAR(0);

    WideString name = ToWide(model.name);
    WideString data_type = ToWide(files.default_data_type);
    WideString monitor = ToWide(files.monitor);
    WideString manufacturer = ToWide(model.manufacturer);
    WideString hardware_id = ToWide(model.hardware_id);
    WideString provider = ToWide(product.provider());
    DRIVER_INFO_6W info = {};
    info.cVersion = 3;
    info.pName = name.data();
    info.pDriverPath = driver.data();
    info.pConfigFile = config.data();
    info.pDataFile = data.data();
    info.pHelpFile = help.empty() ? nullptr : help.data();
    info.pDependentFiles = dependent.data();
    info.pMonitorName = monitor.empty() ? nullptr : monitor.data();
    info.pDefaultDataType = data_type.empty() ? nullptr : data_type.data();
    info.pszMfgName = manufacturer.data();
    info.pszHardwareID = hardware_id.data();
    info.pszProvider = provider.data();
    if (!AddPrinterDriverExW(nullptr, 6, reinterpret_cast<BYTE*>(&info),
                             APD_COPY_ALL_FILES | APD_COPY_FROM_DIRECTORY))
        throw SystemFault("cannot add driver '" + model.name + "'", GetLastError());
}

bool PrinterExists(const std::string& name) {
    for (const PrinterFacts& printer : AllPrinters())
        if (SameText(printer.name, name)) return true;
    return false;
}

} // namespace

void InstallCommand(const Words& words) {
    const Arguments arguments(words, {"model", "oem", "port", "product"}, {});
    const std::string usage =
        "install PRINTER --model NAME [--oem CODE] [--port PORT] [--product DIR]";
    arguments.RequireCount(1, 1, usage);
    if (!arguments.Has("model")) throw UsageFault("usage: labelhost " + usage);
    const std::string& printer = arguments[0];

    const Installation product(arguments.Get("product", DefaultProductFolder()));
    const Model& model = product.FindModel(arguments.Get("model", ""));
    const DriverFiles files = product.FilesOf(arguments.Get("oem", model.oem));
    if (PrinterExists(printer)) throw Fault("a printer '" + printer + "' exists");
    AddDriver(product, model, files);

    WideString name = ToWide(printer);
    WideString port = ToWide(arguments.Get("port", "FILE:"));
    WideString driver = ToWide(model.name);
    WideString processor = TEXT("WinPrint");
    WideString data_type =
        ToWide(files.default_data_type.empty() ? "RAW" : files.default_data_type);
    PRINTER_INFO_2W info = {};
    info.pPrinterName = name.data();
    info.pPortName = port.data();
    info.pDriverName = driver.data();
    info.pPrintProcessor = processor.data();
    info.pDatatype = data_type.data();
    // The port is one that the printer can answer on.
    info.Attributes = PRINTER_ATTRIBUTE_LOCAL | PRINTER_ATTRIBUTE_ENABLE_BIDI;
    info.Priority = 1;
    const HANDLE handle = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&info));
    if (!handle)
        throw SystemFault("cannot add printer '" + printer + "' on port '" +
                              arguments.Get("port", "FILE:") + "'",
                          GetLastError());
    ClosePrinter(handle);
    std::printf("%s: %s on %s\n", printer.c_str(), model.name.c_str(),
                arguments.Get("port", "FILE:").c_str());
}

void RemoveCommand(const Words& words) {
    const Arguments arguments(words, {}, {});
    arguments.RequireCount(1, 1, "remove PRINTER");
    OpenedPrinter printer(arguments[0], PRINTER_ALL_ACCESS);
    if (!DeletePrinter(printer.handle()))
        throw SystemFault("cannot remove printer '" + arguments[0] + "'", GetLastError());
}
