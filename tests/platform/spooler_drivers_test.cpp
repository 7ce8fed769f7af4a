#include "platform/spooler_test.h"

#include <filesystem>

namespace {

namespace fs = std::filesystem;

class SpoolerDrivers : public SpoolerTest {
protected:
    std::string Installed(const std::string& file) const {
        return OnDriveC("WINDOWS\\system32\\spool\\drivers\\w32x86\\3\\" + file);
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
    static int AddError(DRIVER_INFO_3W info, DWORD flags = APD_COPY_ALL_FILES) {
        return ErrorOf(AddPrinterDriverExW(nullptr, 3, reinterpret_cast<LPBYTE>(&info), flags));
    }
};

TEST_F(SpoolerDrivers, AreNotInstalledWhenSomethingIsWrongWithThem) {
    using Info = DRIVER_INFO_3W;
    const struct {
        void (*spoil)(Info&);
        int error;
    } cases[] = {
        {[](Info& i) { i.pName = nullptr; }, ERROR_INVALID_PARAMETER},
        {[](Info& i) { i.pName = Text(u"a\\b"); }, ERROR_INVALID_PARAMETER},
        {[](Info& i) { i.pDataFile = nullptr; }, ERROR_INVALID_PARAMETER},
        {[](Info& i) { i.cVersion = 2; }, ERROR_INVALID_PARAMETER},
        {[](Info& i) { i.pEnvironment = Text(u"Windows 4.0"); }, ERROR_INVALID_ENVIRONMENT},
        {[](Info& i) { i.pHelpFile = Text(u"C:\\setup\\none.hlp"); }, ERROR_FILE_NOT_FOUND},
        {[](Info& i) { i.pHelpFile = Text(u"C:\\setup"); }, ERROR_FILE_NOT_FOUND},
        {[](Info& i) { i.pDependentFiles = Text(u"C:\\setup\\extra1.dat\0C:\\none.dat\0"); },
         ERROR_FILE_NOT_FOUND},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        Info info = Wanted3();
        c.spoil(info);
        EXPECT_EQ(AddError(info), c.error);
        EXPECT_FALSE(fs::exists(Installed("testdrv.dll")));
    }
    EXPECT_EQ(AddError(Wanted3(), APD_COPY_ALL_FILES | APD_COPY_NEW_FILES),
              ERROR_INVALID_PARAMETER);
    EXPECT_EQ(ErrorOf(AddPrinterDriverExW(nullptr, 3, nullptr, APD_COPY_ALL_FILES)),
              ERROR_INVALID_PARAMETER);
    UseGuest();
    EXPECT_EQ(AddError(Wanted3()), ERROR_ACCESS_DENIED);
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
        ASSERT_EQ(AddError(Wanted3()), 0);
        WriteFile("setup\\testzpl.ddt", "new");
        const auto there = fs::last_write_time(Installed("testzpl.ddt"));
        fs::last_write_time(OnDriveC("setup\\testzpl.ddt"), there + (c.there_is_newer ? -1h : 1h));
        EXPECT_EQ(AddError(Wanted3(), c.flags) == 0, c.added);
        EXPECT_EQ(BytesOf(Installed("testzpl.ddt")), c.then);
    }
}

TEST_F(SpoolerDrivers, AreListedAndForgotten) {
    AddDriver();
    ASSERT_EQ(AddError(Wanted3()), 0); // of the smaller level, without a maker
    AddPrinter(u"LABELS");
    const auto names = [] {
        DWORD count = 0;
        const Answer<DRIVER_INFO_2W> list([&](LPBYTE buffer, DWORD size, LPDWORD needed) {
            return EnumPrinterDriversW(nullptr, nullptr, 2, buffer, size, needed, &count);
        });
        std::u16string all;
        for (DWORD i = 0; i < count; ++i) all += Joined({list[i].pName});
        return all;
    };
    const auto forget = [](LPCWSTR name) {
        return ErrorOf(DeletePrinterDriverW(nullptr, nullptr, Text(name)));
    };
    EXPECT_EQ(names(), u"Test Driver;Small Driver;");
    // The files may be in the folder of drivers already, and even at their destination.
    WriteFile("WINDOWS\\system32\\spool\\drivers\\w32x86\\staged.ddt", "staged");
    DRIVER_INFO_3W info = Wanted3();
    info.pDataFile = Text(u"staged.ddt");
    info.pDriverPath = Text(u"testdrv.dll");
    EXPECT_EQ(AddError(info), 0);
    EXPECT_EQ(BytesOf(Installed("staged.ddt")), "staged");
    EXPECT_EQ(forget(u"test driver"), ERROR_PRINTER_DRIVER_IN_USE);
    EXPECT_EQ(forget(u"Nobody"), ERROR_UNKNOWN_PRINTER_DRIVER);
    EXPECT_EQ(forget(u""), ERROR_UNKNOWN_PRINTER_DRIVER);
    EXPECT_EQ(forget(u"Small Driver"), 0);
    EXPECT_EQ(names(), u"Test Driver;");
    EXPECT_TRUE(fs::exists(Installed("testdrv.dll")));
}

} // namespace
