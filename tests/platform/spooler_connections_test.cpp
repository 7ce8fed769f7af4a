#include "platform/spooler_test.h"

#include <filesystem>

namespace {

namespace fs = std::filesystem;

// This machine, and the machine SRV1 with the printer Labels.
class SpoolerConnections : public SpoolerTest {
protected:
    SpoolerConnections() {
        OnServer("SRV1", [&] {
            PRINTER_INFO_2W info = Wanted(u"Labels");
            info.Attributes = PRINTER_ATTRIBUTE_SHARED;
            Add(info);
        });
        fs::remove_all(OnDriveC("setup"));
    }

    static int Connect(LPCWSTR name) { return ErrorOf(AddPrinterConnectionW(Text(name))); }
    static int Disconnect(LPCWSTR name) { return ErrorOf(DeletePrinterConnectionW(Text(name))); }
    static std::u16string Connections() { return PrinterNames(PRINTER_ENUM_CONNECTIONS); }
};

TEST_F(SpoolerConnections, BringTheDriverAndTellIt) {
    const HANDLE printer = Open(u"\\\\SRV1\\Labels");
    DWORD needed = 0;
    EXPECT_EQ(ErrorOf(GetPrinterDriverW(printer, nullptr, 6, nullptr, 0, &needed)),
              ERROR_UNKNOWN_PRINTER_DRIVER);

    EXPECT_EQ(PrinterInfo2(printer)->Attributes,
              DWORD{PRINTER_ATTRIBUTE_SHARED | PRINTER_ATTRIBUTE_NETWORK});

    ASSERT_EQ(Connect(u"\\\\SRV1\\labels"), 0);
    EXPECT_EQ(TakeNotes(), u"1 \\\\SRV1\\Labels;");
    EXPECT_EQ(Connections(), u"\\\\SRV1\\Labels;");
    EXPECT_EQ(std::u16string(DriverInfo<DRIVER_INFO_3W>(printer, 3)->pConfigFile),
              u"C:\\WINDOWS\\system32\\spool\\drivers\\w32x86\\3\\testdrv.dll");
    for (const char* file : {"testdrv.dll", "testzpl.ddt", "extra2.dat"})
        EXPECT_TRUE(fs::exists(
            OnDriveC(std::string("WINDOWS\\system32\\spool\\drivers\\w32x86\\3\\") + file)));
    WCHAR name[24] = {};
    EXPECT_EQ(DeviceCapabilitiesW(u"\\\\SRV1\\Labels", nullptr, DC_BINNAMES, name, nullptr), 1);
    EXPECT_EQ(std::u16string(name), u"\\\\SRV1\\Labels");

    // Connecting again changes nothing.
    EXPECT_EQ(Connect(u"\\\\SRV1\\Labels"), 0);
    EXPECT_EQ(TakeNotes(), u"");
    EXPECT_EQ(Disconnect(u"\\\\SRV1\\Labels"), 0);
    EXPECT_EQ(TakeNotes(), u"2 \\\\SRV1\\Labels;");
    EXPECT_EQ(Connections(), u"");
    EXPECT_EQ(Disconnect(u"\\\\SRV1\\Labels"), ERROR_INVALID_PRINTER_NAME);
}

TEST_F(SpoolerConnections, AreEveryUsersRightAndHisOwn) {
    UseGuest();
    ASSERT_EQ(Connect(u"\\\\SRV1\\Labels"), 0);
    EXPECT_EQ(Connections(), u"\\\\SRV1\\Labels;");
    EXPECT_EQ(ErrorOf(Open(u"\\\\SRV1\\Labels")), ERROR_ACCESS_DENIED);
    UseAdministrator();
    EXPECT_EQ(Connections(), u"");
}

TEST_F(SpoolerConnections, FailWhereThereIsNothingToConnectTo) {
    EXPECT_EQ(Connect(u"\\\\SRV2\\Labels"), ERROR_RPC_SERVER_UNAVAILABLE);
    EXPECT_EQ(Connect(u"\\\\..\\Labels"), ERROR_RPC_SERVER_UNAVAILABLE);
    for (LPCWSTR name : {u"\\\\SRV1\\None", u"\\\\SRV1\\", u"\\\\SRV1\\a\\b", u"Labels"})
        EXPECT_EQ(Connect(name), ERROR_INVALID_PRINTER_NAME);
    EXPECT_EQ(ErrorOf(Open(u"\\\\SRV2\\Labels")), ERROR_RPC_SERVER_UNAVAILABLE);
    EXPECT_EQ(PrinterNames(PRINTER_ENUM_NAME, Text(u"\\\\SRV1")), u"\\\\SRV1\\Labels;");
}

TEST_F(SpoolerConnections, EndEvenWhenTheServerIsGone) {
    ASSERT_EQ(Connect(u"\\\\SRV1\\Labels"), 0);
    TakeNotes();
    fs::rename(root() + "/servers/SRV1", root() + "/servers/moved");
    EXPECT_EQ(Connections(), u"");
    EXPECT_EQ(Disconnect(u"\\\\SRV1\\Labels"), 0);
    EXPECT_EQ(TakeNotes(), u"2 \\\\SRV1\\Labels (not there);");
}

} // namespace
