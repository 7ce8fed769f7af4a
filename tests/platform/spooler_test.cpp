#include "platform/spooler_test.h"
#include "support/build_folders.h"

#include <cstdio>
#include <filesystem>

namespace fs = std::filesystem;
using win32host::Group;

SpoolerTest::SpoolerTest() {
    UseAdministrator();
    fs::create_directories(OnDriveC("setup"));
    fs::copy_file(Built("/bin/test_data/testdrv.dll"), OnDriveC("setup\\testdrv.dll"));
    for (const std::string file : {"testzpl.ddt", "testdrv.hlp", "extra1.dat", "extra2.dat"})
        WriteFile("setup\\" + file, file);
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
    DRIVER_INFO_3W info = {};
    info.cVersion = 3;
    info.pName = Text(name);
    info.pDriverPath = info.pConfigFile = Text(u"C:\\setup\\testdrv.dll");
    info.pDataFile = Text(u"C:\\setup\\testzpl.ddt");
    info.pHelpFile = Text(u"C:\\setup\\testdrv.hlp");
    info.pDependentFiles = const_cast<LPWSTR>(u"C:\\setup\\extra1.dat\0C:\\setup\\extra2.dat\0");
    ASSERT_TRUE(
        AddPrinterDriverExW(nullptr, 3, reinterpret_cast<LPBYTE>(&info), APD_COPY_ALL_FILES))
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

DWORD SpoolerTest::Start(HANDLE printer, LPCWSTR name) {
    DOC_INFO_1W info = {Text(name), nullptr, nullptr};
    return StartDocPrinterW(printer, 1, reinterpret_cast<LPBYTE>(&info));
}

DWORD SpoolerTest::Print(HANDLE printer, LPCWSTR name, std::string bytes) {
    const DWORD job = Start(printer, name);
    if (job == 0) return 0;
    DWORD written = 0;
    EXPECT_TRUE(StartPagePrinter(printer));
    EXPECT_TRUE(WritePrinter(printer, bytes.data(), static_cast<DWORD>(bytes.size()), &written));
    EXPECT_EQ(written, bytes.size());
    EXPECT_TRUE(EndPagePrinter(printer));
    EXPECT_TRUE(EndDocPrinter(printer));
    return job;
}

std::string SpoolerTest::Spooled(DWORD job) const {
    char name[32];
    std::snprintf(name, sizeof name, "/spool/%05u.SPL", unsigned{job});
    return BytesOf(root() + name);
}

std::string SpoolerTest::EnterServer(const std::string& name) const {
    const std::string server = root() + "/servers/" + name;
    fs::create_directories(server + "/drive_c");
    fs::copy(root() + "/drive_c/setup", server + "/drive_c/setup", fs::copy_options::recursive);
    win32host::SetRoot(server);
    AddDriver();
    return server;
}
