#include "platform/spooler_test.h"
#include "support/build_folders.h"

#include <filesystem>

namespace fs = std::filesystem;
using win32host::Group;

SpoolerTest::SpoolerTest() {
    UseAdministrator();
    fs::create_directories(OnDriveC("setup"));
    fs::copy_file(Built("/bin/test_data/testdrv.dll"), OnDriveC("setup\\testdrv.dll"));
    WriteFile("setup\\testzpl.ddt", "data");
    WriteFile("setup\\testdrv.hlp", "help");
    WriteFile("setup\\extra1.dat", "extra 1");
    WriteFile("setup\\extra2.dat", "extra 2");
}

SpoolerTest::~SpoolerTest() {
    for (HANDLE printer : opened_) ClosePrinter(printer);
    win32host::UseProcessUser();
}

void SpoolerTest::UseAdministrator() {
    win32host::SetUser(
        {u"root", u"DOCK3", u"DOCK3", {{Group::Builtin, u"", u"", DOMAIN_ALIAS_RID_ADMINS}}});
}

void SpoolerTest::UseGuest() {
    win32host::SetUser(
        {u"guest", u"DOCK3", u"DOCK3", {{Group::Builtin, u"", u"", DOMAIN_ALIAS_RID_USERS}}});
}

void SpoolerTest::AddDriver(const std::u16string& name) const {
    DRIVER_INFO_6W info = {};
    info.cVersion = 3;
    info.pName = Text(name);
    info.pDriverPath = Text(u"C:\\setup\\testdrv.dll");
    info.pDataFile = Text(u"C:\\setup\\testzpl.ddt");
    info.pConfigFile = Text(u"C:\\setup\\testdrv.dll");
    info.pHelpFile = Text(u"C:\\setup\\testdrv.hlp");
    info.pDependentFiles = const_cast<LPWSTR>(u"C:\\setup\\extra1.dat\0C:\\setup\\extra2.dat\0");
    info.pMonitorName = Text(u"Test Monitor");
    info.pDefaultDataType = Text(u"RAW");
    info.ftDriverDate = {1, 2};
    info.dwlDriverVersion = 0x0001000200030004;
    info.pszMfgName = Text(u"Maker");
    info.pszHardwareID = Text(u"LPTENUM\\Test");
    info.pszProvider = Text(u"Provider");
    ASSERT_TRUE(
        AddPrinterDriverExW(nullptr, 6, reinterpret_cast<LPBYTE>(&info), APD_COPY_ALL_FILES))
        << GetLastError();
}

PRINTER_INFO_2W SpoolerTest::Wanted(LPCWSTR name) {
    PRINTER_INFO_2W info = {};
    info.pPrinterName = Text(name);
    info.pPortName = Text(u"FILE:");
    info.pDriverName = Text(u"Test Driver");
    return info;
}

void SpoolerTest::AddPrinter(const std::u16string& name) const {
    PRINTER_INFO_2W info = Wanted(name);
    const HANDLE printer = AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info));
    ASSERT_NE(printer, nullptr) << GetLastError();
    EXPECT_TRUE(ClosePrinter(printer));
}

HANDLE SpoolerTest::Open(const std::u16string& name, ACCESS_MASK access) {
    PRINTER_DEFAULTSW defaults = {nullptr, nullptr, access};
    HANDLE printer = nullptr;
    if (!OpenPrinterW(Text(name), &printer, &defaults)) return nullptr;
    opened_.push_back(printer);
    return printer;
}

HANDLE SpoolerTest::Add(PRINTER_INFO_2W info) {
    const HANDLE printer = AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info));
    if (printer) opened_.push_back(printer);
    return printer;
}

std::u16string SpoolerTest::TakeNotes() {
    HKEY key = nullptr;
    RegOpenKeyExW(HKEY_CURRENT_USER, u"TestDriver", 0, KEY_ALL_ACCESS, &key);
    WCHAR notes[1024] = {};
    DWORD size = sizeof notes - sizeof(WCHAR);
    RegQueryValueExW(key, u"Notes", nullptr, nullptr, reinterpret_cast<LPBYTE>(notes), &size);
    RegDeleteValueW(key, u"Notes");
    RegCloseKey(key);
    return notes;
}
