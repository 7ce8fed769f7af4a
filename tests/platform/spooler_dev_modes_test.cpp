#include "platform/registry_support.h"
#include "platform/spooler_test.h"

#include <cstring>

namespace {

using SpoolerDevModes = LabelsTest;

// Settings for that many copies, in the layout of the test driver unless told otherwise.
std::vector<BYTE> Settings(short copies, WORD size = sizeof(DEVMODEW), WORD extra = 8) {
    DEVMODEW settings = {};
    settings.dmSpecVersion = 0x401;
    settings.dmSize = size;
    settings.dmDriverExtra = extra;
    settings.dmCopies = copies;
    std::vector<BYTE> bytes(std::max<size_t>(size, sizeof settings) + extra);
    std::memcpy(bytes.data(), &settings, sizeof settings);
    return bytes;
}

PDEVMODEW In(std::vector<BYTE>& bytes) {
    return reinterpret_cast<PDEVMODEW>(bytes.data());
}

int SetDefaults(HANDLE printer, DWORD level, PDEVMODEW settings) {
    PRINTER_INFO_8W info = {settings};
    return ErrorOf(SetPrinterW(printer, level, reinterpret_cast<LPBYTE>(&info), 0));
}
int SetDefaults(HANDLE printer, DWORD level, short copies) {
    std::vector<BYTE> bytes = Settings(copies);
    return SetDefaults(printer, level, In(bytes));
}

Answer<PRINTER_INFO_8W> Defaults(HANDLE printer, DWORD level) {
    return Answer<PRINTER_INFO_8W>([&](LPBYTE buffer, DWORD size, LPDWORD needed) {
        return GetPrinterW(printer, level, buffer, size, needed);
    });
}

// The copies that levels 2, 8 and 9 show, 0 without settings.
std::vector<int> Copies(HANDLE printer) {
    std::vector<int> all;
    const auto add = [&](PDEVMODEW settings) { all.push_back(settings ? settings->dmCopies : 0); };
    add(PrinterInfo2(printer)->pDevMode);
    for (DWORD level : {DWORD{8}, DWORD{9}}) add(Defaults(printer, level)->pDevMode);
    return all;
}

TEST_F(SpoolerDevModes, AreEverybodysAndTheUsersOwn) {
    const HANDLE user = Open(u"LABELS", PRINTER_ACCESS_USE);
    using All = std::vector<int>;
    EXPECT_EQ(Copies(user), (All{0, 0, 0}));
    EXPECT_EQ(SetDefaults(printer_, 8, 3), 0);
    EXPECT_EQ(Copies(user), (All{3, 3, 3}));
    EXPECT_EQ(SetDefaults(user, 8, 4), ERROR_ACCESS_DENIED);
    EXPECT_EQ(SetDefaults(user, 9, 5), 0);
    EXPECT_EQ(Copies(user), (All{3, 3, 5}));
    EXPECT_EQ(SetDefaults(printer_, 8, nullptr), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(SetDefaults(user, 9, nullptr), 0);
    EXPECT_EQ(Copies(user), (All{3, 3, 3}));
    // The settings are deleted with the printer.
    EXPECT_EQ(SetDefaults(user, 9, 5), 0);
    EXPECT_TRUE(DeletePrinter(printer_));
    AddPrinter(u"LABELS");
    EXPECT_EQ(Copies(Open(u"LABELS")), (All{0, 0, 0}));
}

TEST_F(SpoolerDevModes, AreKeptWhereOtherProgramsLookForThem) {
    ASSERT_EQ(SetDefaults(printer_, 8, 3), 0);
    ASSERT_EQ(SetDefaults(printer_, 9, 5), 0);
    const struct {
        HKEY root;
        LPCWSTR key, value;
        short copies;
    } places[] = {
        {HKEY_LOCAL_MACHINE, u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\LABELS",
         u"Default DevMode", 3},
        {HKEY_CURRENT_USER, u"Printers\\DevModePerUser", u"LABELS", 5},
    };
    for (const auto& place : places) {
        const Key key = Make(place.root, place.key);
        const std::string bytes = Read(key, place.value);
        EXPECT_EQ(std::vector<BYTE>(bytes.begin(), bytes.end()), Settings(place.copies));
        // Settings that were truncated there are ignored.
        Write(key, place.value, bytes.substr(1));
    }
    EXPECT_EQ(Copies(printer_), (std::vector<int>{0, 0, 0}));
}

TEST_F(SpoolerDevModes, AreBroughtIntoTheDriversLayout) {
    std::vector<BYTE> old = Settings(6, 156, 100), current = Settings(6);
    AddPrinter(u"Broken");
    const HANDLE broken = Open(u"Broken");
    const struct {
        HANDLE printer;
        std::vector<BYTE>& given;
        WORD size, extra, driver_version;
    } cases[] = {
        {printer_, old, 220, 8, 7},
        {printer_, current, 220, 8, 0},
        {broken, old, 156, 100, 0},
    };
    for (const auto& c : cases) {
        for (DWORD level : {DWORD{2}, DWORD{8}, DWORD{9}}) {
            const auto record = PrinterInfo2(c.printer);
            PRINTER_INFO_2W info = record[0];
            info.pDevMode = In(c.given);
            EXPECT_EQ(level == 2 ? SetInfo(c.printer, info)
                                 : SetDefaults(c.printer, level, In(c.given)),
                      0);
            const auto answer = Defaults(c.printer, level == 9 ? 9 : 8);
            ASSERT_NE(answer->pDevMode, nullptr);
            EXPECT_EQ(answer->pDevMode->dmSize, c.size);
            EXPECT_EQ(answer->pDevMode->dmDriverExtra, c.extra);
            EXPECT_EQ(answer->pDevMode->dmDriverVersion, c.driver_version);
            EXPECT_EQ(answer->pDevMode->dmCopies, 6);
        }
    }
}

TEST_F(SpoolerDevModes, AreRefusedWhenTheyAreNone) {
    for (WORD size : {WORD{0}, WORD{72}, WORD{75}}) {
        std::vector<BYTE> none = Settings(3, size);
        for (DWORD level : {DWORD{8}, DWORD{9}})
            EXPECT_EQ(SetDefaults(printer_, level, In(none)), ERROR_INVALID_PARAMETER);
        EXPECT_FALSE(IsValidDevmodeW(In(none), none.size()));
    }
    std::vector<BYTE> good = Settings(3);
    EXPECT_TRUE(IsValidDevmodeW(In(good), good.size()));
    EXPECT_EQ(ErrorOf(IsValidDevmodeW(In(good), good.size() - 1)), ERROR_INVALID_DATA);
    EXPECT_EQ(Copies(printer_), (std::vector<int>{0, 0, 0}));
}

} // namespace
