#include "platform/spooler_test.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

namespace fs = std::filesystem;

class SpoolerDrivers : public SpoolerTest {
protected:
    std::string Installed(const std::string& file) const {
        return OnDriveC("WINDOWS\\system32\\spool\\drivers\\w32x86\\3\\" + file);
    }
    std::string Contents(const std::string& path) const {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    static DRIVER_INFO_3W Wanted3() {
        DRIVER_INFO_3W info = {};
        info.cVersion = 3;
        info.pName = Text(u"Small Driver");
        info.pDriverPath = Text(u"C:\\setup\\testdrv.dll");
        info.pDataFile = Text(u"C:\\setup\\testzpl.ddt");
        info.pConfigFile = Text(u"C:\\setup\\testdrv.dll");
        return info;
    }
    static bool Add(DRIVER_INFO_3W info, DWORD flags = APD_COPY_ALL_FILES) {
        return AddPrinterDriverExW(nullptr, 3, reinterpret_cast<LPBYTE>(&info), flags) != FALSE;
    }
    template <class Info>
    static Answer<Info> Driver(HANDLE printer, DWORD level) {
        return Answer<Info>([&](LPBYTE buffer, DWORD size, LPDWORD needed) {
            return GetPrinterDriverW(printer, nullptr, level, buffer, size, needed);
        });
    }
};

const std::u16string kFolder = u"C:\\WINDOWS\\system32\\spool\\drivers\\w32x86\\3\\";

TEST_F(SpoolerDrivers, AreInstalledWithAllTheirFiles) {
    AddDriver();
    for (const char* file :
         {"testdrv.dll", "testzpl.ddt", "testdrv.hlp", "extra1.dat", "extra2.dat"})
        EXPECT_EQ(Contents(Installed(file)), Contents(OnDriveC(std::string("setup\\") + file)));
    EXPECT_EQ(std::distance(fs::directory_iterator(Installed("")), {}), 5);

    AddPrinter(u"LABELS");
    const HANDLE printer = Open(u"LABELS", PRINTER_ACCESS_USE);
    const auto answer = Driver<DRIVER_INFO_6W>(printer, 6);
    ASSERT_TRUE(answer.good());
    EXPECT_EQ(answer->cVersion, 3u);
    EXPECT_EQ(std::u16string(answer->pName), u"Test Driver");
    EXPECT_EQ(std::u16string(answer->pEnvironment), u"Windows NT x86");
    EXPECT_EQ(std::u16string(answer->pDriverPath), kFolder + u"testdrv.dll");
    EXPECT_EQ(std::u16string(answer->pDataFile), kFolder + u"testzpl.ddt");
    EXPECT_EQ(std::u16string(answer->pConfigFile), kFolder + u"testdrv.dll");
    EXPECT_EQ(std::u16string(answer->pHelpFile), kFolder + u"testdrv.hlp");
    const std::u16string list = kFolder + u"extra1.dat" + u'\0' + kFolder + u"extra2.dat" + u'\0';
    EXPECT_EQ(std::u16string(answer->pDependentFiles, list.size() + 1), list + u'\0');
    EXPECT_EQ(std::u16string(answer->pMonitorName), u"Test Monitor");
    EXPECT_EQ(std::u16string(answer->pDefaultDataType), u"RAW");
    EXPECT_EQ(std::u16string(answer->pszzPreviousNames, 2), std::u16string(2, u'\0'));
    EXPECT_EQ(answer->ftDriverDate.dwHighDateTime, 2u);
    EXPECT_EQ(answer->dwlDriverVersion, 0x0001000200030004u);
    EXPECT_EQ(std::u16string(answer->pszMfgName), u"Maker");
    EXPECT_EQ(std::u16string(answer->pszOEMUrl), u"");
    EXPECT_EQ(std::u16string(answer->pszHardwareID), u"LPTENUM\\Test");
    EXPECT_EQ(std::u16string(answer->pszProvider), u"Provider");
    const Answer<DRIVER_INFO_3A> ansi([&](LPBYTE buffer, DWORD size, LPDWORD needed) {
        return GetPrinterDriverA(printer, nullptr, 3, buffer, size, needed);
    });
    EXPECT_EQ(Utf16Of(ansi->pConfigFile), kFolder + u"testdrv.dll");
    EXPECT_EQ(Utf16Of(ansi->pDependentFiles), kFolder + u"extra1.dat");
    EXPECT_TRUE(ClosePrinter(printer));
}

TEST_F(SpoolerDrivers, OfTheSmallerLevelHaveNoMaker) {
    ASSERT_TRUE(Add(Wanted3()));
    PRINTER_INFO_2W info = Wanted(u"LABELS");
    info.pDriverName = Text(u"Small Driver");
    const HANDLE printer = AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info));
    const auto answer = Driver<DRIVER_INFO_6W>(printer, 6);
    ASSERT_TRUE(answer.good());
    for (LPWSTR text : {answer->pHelpFile, answer->pDependentFiles, answer->pMonitorName,
                        answer->pszMfgName, answer->pszHardwareID, answer->pszProvider}) {
        ASSERT_NE(text, nullptr);
        EXPECT_EQ(*text, 0);
    }
    EXPECT_EQ(std::u16string(answer->pDataFile), kFolder + u"testzpl.ddt");
    EXPECT_TRUE(ClosePrinter(printer));
}

TEST_F(SpoolerDrivers, AreNotInstalledWhenSomethingIsWrongWithThem) {
    const struct {
        const char* what;
        void (*spoil)(DRIVER_INFO_3W&);
        DWORD code;
    } cases[] = {
        {"no name", [](DRIVER_INFO_3W& i) { i.pName = nullptr; }, ERROR_INVALID_PARAMETER},
        {"name", [](DRIVER_INFO_3W& i) { i.pName = Text(u"a\\b"); }, ERROR_INVALID_PARAMETER},
        {"no data file", [](DRIVER_INFO_3W& i) { i.pDataFile = nullptr; }, ERROR_INVALID_PARAMETER},
        {"version", [](DRIVER_INFO_3W& i) { i.cVersion = 2; }, ERROR_INVALID_PARAMETER},
        {"environment", [](DRIVER_INFO_3W& i) { i.pEnvironment = Text(u"Windows 4.0"); },
         ERROR_INVALID_ENVIRONMENT},
        {"missing file", [](DRIVER_INFO_3W& i) { i.pHelpFile = Text(u"C:\\setup\\none.hlp"); },
         ERROR_FILE_NOT_FOUND},
        {"folder", [](DRIVER_INFO_3W& i) { i.pHelpFile = Text(u"C:\\setup"); },
         ERROR_FILE_NOT_FOUND},
        {"missing dependent file",
         [](DRIVER_INFO_3W& i) {
             i.pDependentFiles = const_cast<LPWSTR>(u"C:\\setup\\extra1.dat\0C:\\none.dat\0");
         },
         ERROR_FILE_NOT_FOUND},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        DRIVER_INFO_3W info = Wanted3();
        c.spoil(info);
        EXPECT_FALSE(Add(info));
        EXPECT_EQ(GetLastError(), c.code);
        EXPECT_FALSE(fs::exists(Installed("testdrv.dll")));
    }
    EXPECT_FALSE(Add(Wanted3(), APD_COPY_ALL_FILES | APD_COPY_NEW_FILES));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_FALSE(AddPrinterDriverExW(nullptr, 3, nullptr, APD_COPY_ALL_FILES));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    UseGuest();
    EXPECT_FALSE(Add(Wanted3()));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
}

TEST_F(SpoolerDrivers, TreatFilesThatAreThereByTheirAge) {
    using namespace std::chrono_literals;
    const struct {
        DWORD flags;
        bool there_is_newer;
        bool added;
        const char* then;
    } cases[] = {
        {APD_COPY_ALL_FILES, true, true, "new"},
        {APD_COPY_ALL_FILES, false, true, "new"},
        {APD_COPY_NEW_FILES, true, true, "old"},
        {APD_COPY_NEW_FILES, false, true, "new"},
        {APD_STRICT_UPGRADE, true, false, "old"},
        {APD_STRICT_UPGRADE, false, true, "new"},
        {APD_STRICT_DOWNGRADE, true, true, "new"},
        {APD_STRICT_DOWNGRADE, false, false, "old"},
        {APD_COPY_ALL_FILES | APD_COPY_FROM_DIRECTORY, true, true, "new"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.flags);
        WriteFile("setup\\testzpl.ddt", "old");
        ASSERT_TRUE(Add(Wanted3()));
        WriteFile("setup\\testzpl.ddt", "new");
        const auto there = fs::last_write_time(Installed("testzpl.ddt"));
        fs::last_write_time(OnDriveC("setup\\testzpl.ddt"), there + (c.there_is_newer ? -1h : 1h));
        EXPECT_EQ(Add(Wanted3(), c.flags), c.added);
        EXPECT_EQ(Contents(Installed("testzpl.ddt")), c.then);
    }
}

TEST_F(SpoolerDrivers, TakeFilesFromTheDriverFolderAndWhereTheyAlreadyLie) {
    WriteFile("WINDOWS\\system32\\spool\\drivers\\w32x86\\staged.ddt", "staged");
    ASSERT_TRUE(Add(Wanted3()));
    DRIVER_INFO_3W info = Wanted3();
    info.pDataFile = Text(u"staged.ddt");
    info.pConfigFile = Text(u"C:\\WINDOWS\\system32\\spool\\drivers\\w32x86\\3\\testdrv.dll");
    info.pDriverPath = Text(u"testdrv.dll");
    EXPECT_TRUE(Add(info)) << GetLastError();
    EXPECT_EQ(Contents(Installed("staged.ddt")), "staged");
    EXPECT_EQ(Contents(Installed("testdrv.dll")), Contents(OnDriveC("setup\\testdrv.dll")));

    WCHAR folder[MAX_PATH];
    DWORD needed = 0;
    ASSERT_TRUE(GetPrinterDriverDirectoryW(nullptr, Text(u"windows nt X86"), 1,
                                           reinterpret_cast<LPBYTE>(folder), sizeof folder,
                                           &needed));
    EXPECT_EQ(std::u16string(folder), u"C:\\WINDOWS\\system32\\spool\\drivers\\w32x86");
    EXPECT_EQ(needed, (std::u16string(folder).size() + 1) * sizeof(WCHAR));
}

TEST_F(SpoolerDrivers, AreListedAndForgotten) {
    AddDriver();
    ASSERT_TRUE(Add(Wanted3()));
    AddPrinter(u"LABELS");
    const auto names = [] {
        DWORD count = 0;
        const Answer<DRIVER_INFO_2W> list([&](LPBYTE buffer, DWORD size, LPDWORD needed) {
            return EnumPrinterDriversW(nullptr, nullptr, 2, buffer, size, needed, &count);
        });
        std::u16string all;
        for (DWORD i = 0; i < count; ++i) all += list[i].pName + std::u16string(u";");
        return all;
    };
    const auto forget = [](LPCWSTR name) {
        return DeletePrinterDriverW(nullptr, nullptr, Text(name)) ? DWORD{0} : GetLastError();
    };
    EXPECT_EQ(names(), u"Test Driver;Small Driver;");
    EXPECT_EQ(forget(u"test driver"), DWORD{ERROR_PRINTER_DRIVER_IN_USE});
    EXPECT_EQ(forget(u"Nobody"), DWORD{ERROR_UNKNOWN_PRINTER_DRIVER});
    EXPECT_EQ(forget(u""), DWORD{ERROR_UNKNOWN_PRINTER_DRIVER});
    EXPECT_EQ(forget(u"Small Driver"), 0u);
    EXPECT_EQ(names(), u"Test Driver;");
    EXPECT_TRUE(fs::exists(Installed("testdrv.dll")));
}

} // namespace
