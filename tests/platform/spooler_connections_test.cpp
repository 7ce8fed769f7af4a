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
            info.pLocation = Text(u"Server room");
            info.Attributes = PRINTER_ATTRIBUTE_SHARED;
            BYTE byte = 42;
            SetPrinterDataW(Add(info), Text(u"Value"), REG_BINARY, &byte, 1);
        });
        fs::remove_all(OnDriveC("setup"));
    }

    static int Connect(LPCWSTR name) { return ErrorOf(AddPrinterConnectionW(Text(name))); }
    static int Disconnect(LPCWSTR name) { return ErrorOf(DeletePrinterConnectionW(Text(name))); }
    static std::u16string Connections() { return PrinterNames(PRINTER_ENUM_CONNECTIONS); }
};

TEST_F(SpoolerConnections, ReachAPrinterOfAnotherMachine) {
    const HANDLE printer = Open(u"\\\\srv1\\labels");
    ASSERT_NE(printer, nullptr) << GetLastError();
    const auto answer = PrinterInfo2(printer);
    ASSERT_TRUE(answer.good());
    EXPECT_EQ(Joined({answer->pServerName, answer->pPrinterName, answer->pLocation}),
              u"\\\\srv1;\\\\srv1\\Labels;Server room;");
    EXPECT_EQ(answer->Attributes, DWORD{PRINTER_ATTRIBUTE_SHARED | PRINTER_ATTRIBUTE_NETWORK});
    BYTE byte = 0;
    DWORD needed = 0;
    EXPECT_EQ(GetPrinterDataW(printer, Text(u"Value"), nullptr, &byte, 1, &needed), 0u);
    EXPECT_EQ(byte, 42);

    // Data written here reaches the server, where the printer is a local one.
    byte = 43;
    EXPECT_EQ(SetPrinterDataW(printer, Text(u"Value"), REG_BINARY, &byte, 1), 0u);
    EXPECT_TRUE(SetPrinterW(printer, 2, const_cast<LPBYTE>(answer.buffer().data()), 0));
    win32host::SetRoot(root() + "/servers/SRV1");
    const HANDLE there = Open(u"Labels");
    EXPECT_EQ(GetPrinterDataW(there, Text(u"Value"), nullptr, &byte, 1, &needed), 0u);
    EXPECT_EQ(byte, 43);
    EXPECT_EQ(PrinterInfo2(there)->Attributes,
              DWORD{PRINTER_ATTRIBUTE_SHARED | PRINTER_ATTRIBUTE_LOCAL});
}

TEST_F(SpoolerConnections, BringTheDriverAndTellIt) {
    const HANDLE printer = Open(u"\\\\SRV1\\Labels");
    DWORD needed = 0;
    EXPECT_EQ(ErrorOf(GetPrinterDriverW(printer, nullptr, 6, nullptr, 0, &needed)),
              ERROR_UNKNOWN_PRINTER_DRIVER);

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
    const struct {
        LPCWSTR name;
        int error;
    } cases[] = {
        {u"\\\\SRV2\\Labels", ERROR_RPC_SERVER_UNAVAILABLE},
        {u"\\\\..\\Labels", ERROR_RPC_SERVER_UNAVAILABLE},
        {u"\\\\SRV1\\None", ERROR_INVALID_PRINTER_NAME},
        {u"\\\\SRV1\\", ERROR_INVALID_PRINTER_NAME},
        {u"\\\\SRV1\\a\\b", ERROR_INVALID_PRINTER_NAME},
        {u"Labels", ERROR_INVALID_PRINTER_NAME},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Connect(c.name), c.error) << testing::PrintToString(Joined({c.name}));
    EXPECT_NE(Connect(nullptr), 0);
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
