#include "support/printer_test.h"

#include <win32host/control.h>

#include <filesystem>

#include "spooler/platform_flags.h"

namespace fs = std::filesystem;

namespace {

WCHAR* Writable(const OString& text) {
    return const_cast<WCHAR*>(text.wstring());
}

} // namespace

PrinterTest::PrinterTest() {
    SetPlatformFlags("C:\\drivers\\3");
}

PrinterTest::~PrinterTest() {
    SetPlatformFlags(OString());
    win32host::ResetControl();
}

bool PrinterTest::AddDriver(const OString& driver, const OString& data_file, DWORD level) {
    CreateDirectoryW(TEXT("C:\\stage"), nullptr);
    for (const OString& file : {OString("zplui.dll"), OString("zplui.hlp"),
                                OString("zplrender.dll"), OString("zplvenu.dll"), data_file})
        CloseHandle(CreateFileW((OString("C:\\stage\\") + file).tstring(), GENERIC_WRITE, 0,
                                nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    return AddDriverFrom("C:\\stage\\", driver, data_file, level);
}

bool PrinterTest::AddDriverFrom(const OString& folder, const OString& driver,
                                const OString& data_file, DWORD level) {
    const OString module = folder + "zplui.dll";
    const OString renderer = folder + "zplrender.dll";
    const OString data = folder + data_file;
    const OString help = folder + "zplui.hlp";
    std::basic_string<WCHAR> files;
    for (const char* file : {"zplrender.dll", "zplvenu.dll"})
        files.append((folder + file).wstring()).push_back(0);
    WCHAR manufacturer[] = TEXT("Maker");
    WCHAR hardware[] = TEXT("HW1");
    WCHAR provider[] = TEXT("Provider");
    WCHAR raw[] = TEXT("RAW");

    DRIVER_INFO_6W info = {};
    info.cVersion = 3;
    info.pName = Writable(driver);
    info.pDriverPath = Writable(renderer);
    info.pDataFile = Writable(data);
    info.pConfigFile = Writable(module);
    info.pHelpFile = Writable(help);
    info.pDependentFiles = files.data();
    info.pDefaultDataType = raw;
    info.pszMfgName = manufacturer;
    info.pszHardwareID = hardware;
    info.pszProvider = provider;
    const DWORD from = folder.IsEmpty() ? 0 : APD_COPY_FROM_DIRECTORY;
    // A level-3 record is the beginning of a level-6 one.
    return AddPrinterDriverExW(nullptr, level, reinterpret_cast<BYTE*>(&info),
                               APD_COPY_ALL_FILES | from) != FALSE;
}

bool PrinterTest::AddPrinter(const OString& name, const OString& driver, DWORD attributes,
                             DEVMODEW* dev_mode) {
    WCHAR port[] = TEXT("FILE:");
    WCHAR processor[] = TEXT("WinPrint");
    WCHAR raw[] = TEXT("RAW");
    WCHAR share[] = TEXT("SHARE");
    WCHAR comment[] = TEXT("A comment");
    PRINTER_INFO_2W info = {};
    info.pPrinterName = Writable(name);
    info.pDriverName = Writable(driver);
    info.pPortName = port;
    info.pPrintProcessor = processor;
    info.pDatatype = raw;
    info.pShareName = share;
    info.pComment = comment;
    info.pDevMode = dev_mode;
    info.Attributes = attributes;
    HANDLE printer = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&info));
    if (printer) ClosePrinter(printer);
    return printer != nullptr;
}

void PrinterTest::ConnectToDock3(const std::string& server, DWORD attributes) {
    OnServer(server, [&] {
        EXPECT_TRUE(AddDriver("Model 1", "zplqv.ddt"));
        EXPECT_TRUE(AddPrinter("Dock3", "Model 1", attributes));
    });
    const OString name = OString("\\\\") << server.c_str() << "\\Dock3";
    EXPECT_TRUE(AddPrinterConnectionW(Writable(name)));
}

std::string PrinterTest::EnterServer(const std::string& name) {
    const std::string home = win32host::Root();
    const fs::path machine = fs::path(home) / "machines" / name;
    fs::create_directories(machine);
    fs::create_directories(fs::path(home) / "servers");
    const fs::path link = fs::path(home) / "servers" / name;
    if (!fs::exists(link)) fs::create_directory_symlink(machine, link);
    win32host::SetRoot(machine.string());
    return home;
}

void PrinterTest::LeaveServer(const std::string& home) {
    win32host::SetRoot(home);
}
