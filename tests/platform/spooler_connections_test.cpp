#include "platform/spooler_test.h"

#include <filesystem>

namespace {

namespace fs = std::filesystem;

// This machine, and the machine SRV1 with the printer Labels.
class SpoolerConnections : public SpoolerTest {
protected:
    SpoolerConnections() {
        const std::string here = root(), server = here + "/servers/SRV1";
        win32host::SetRoot(server);
        fs::create_directories(server + "/drive_c");
        fs::copy(here + "/drive_c/setup", server + "/drive_c/setup", fs::copy_options::recursive);
        AddDriver();
        PRINTER_INFO_2W info = Wanted(u"Labels");
        info.pLocation = Text(u"Server room");
        info.Attributes = PRINTER_ATTRIBUTE_SHARED;
        const HANDLE printer = AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info));
        BYTE byte = 42;
        SetPrinterDataW(printer, Text(u"Value"), REG_BINARY, &byte, 1);
        ClosePrinter(printer);
        win32host::SetRoot(here);
        fs::remove_all(here + "/drive_c/setup");
    }

    static bool Connect(LPCWSTR name) { return AddPrinterConnectionW(Text(name)) != FALSE; }
    static std::u16string Connections() {
        DWORD count = 0;
        const Answer<PRINTER_INFO_2W> list([&](LPBYTE buffer, DWORD size, LPDWORD needed) {
            return EnumPrintersW(PRINTER_ENUM_CONNECTIONS, nullptr, 2, buffer, size, needed,
                                 &count);
        });
        std::u16string names;
        for (DWORD i = 0; list.good() && i < count; ++i)
            names += list[i].pPrinterName + std::u16string(u";");
        return names;
    }
};

TEST_F(SpoolerConnections, ReachAPrinterOfAnotherMachine) {
    const HANDLE printer = Open(u"\\\\srv1\\labels");
    ASSERT_NE(printer, nullptr) << GetLastError();
    const auto answer = PrinterInfo2(printer);
    ASSERT_TRUE(answer.good());
    EXPECT_EQ(std::u16string(answer->pServerName), u"\\\\srv1");
    EXPECT_EQ(std::u16string(answer->pPrinterName), u"\\\\srv1\\Labels");
    EXPECT_EQ(std::u16string(answer->pLocation), u"Server room");
    EXPECT_EQ(answer->Attributes, DWORD{PRINTER_ATTRIBUTE_SHARED | PRINTER_ATTRIBUTE_NETWORK});
    BYTE byte = 0;
    DWORD needed = 0;
    EXPECT_EQ(GetPrinterDataW(printer, Text(u"Value"), nullptr, &byte, 1, &needed), 0u);
    EXPECT_EQ(byte, 42);

    // What is written reaches the server, whose printer is a local one there.
    byte = 43;
    EXPECT_EQ(SetPrinterDataW(printer, Text(u"Value"), REG_BINARY, &byte, 1), 0u);
    EXPECT_TRUE(SetPrinterW(printer, 2, const_cast<LPBYTE>(answer.buffer().data()), 0));
    EXPECT_TRUE(ClosePrinter(printer));
    win32host::SetRoot(root() + "/servers/SRV1");
    const HANDLE there = Open(u"Labels");
    EXPECT_EQ(GetPrinterDataW(there, Text(u"Value"), nullptr, &byte, 1, &needed), 0u);
    EXPECT_EQ(byte, 43);
    EXPECT_EQ(PrinterInfo2(there)->Attributes,
              DWORD{PRINTER_ATTRIBUTE_SHARED | PRINTER_ATTRIBUTE_LOCAL});
    EXPECT_TRUE(ClosePrinter(there));
}

TEST_F(SpoolerConnections, BringTheDriverAndTellIt) {
    HANDLE printer = Open(u"\\\\SRV1\\Labels");
    DWORD needed = 0;
    EXPECT_FALSE(GetPrinterDriverW(printer, nullptr, 6, nullptr, 0, &needed));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_UNKNOWN_PRINTER_DRIVER});

    ASSERT_TRUE(Connect(u"\\\\SRV1\\labels")) << GetLastError();
    EXPECT_EQ(TakeNotes(), u"1 \\\\SRV1\\Labels;");
    EXPECT_EQ(Connections(), u"\\\\SRV1\\Labels;");
    const Answer<DRIVER_INFO_3W> driver([&](LPBYTE buffer, DWORD size, LPDWORD bytes) {
        return GetPrinterDriverW(printer, nullptr, 3, buffer, size, bytes);
    });
    EXPECT_EQ(std::u16string(driver->pConfigFile),
              u"C:\\WINDOWS\\system32\\spool\\drivers\\w32x86\\3\\testdrv.dll");
    for (const char* file : {"testdrv.dll", "testzpl.ddt", "extra2.dat"})
        EXPECT_TRUE(fs::exists(
            OnDriveC(std::string("WINDOWS\\system32\\spool\\drivers\\w32x86\\3\\") + file)));
    WCHAR name[24] = {};
    EXPECT_EQ(DeviceCapabilitiesW(TEXT("\\\\SRV1\\Labels"), nullptr, DC_BINNAMES, name, nullptr),
              1);
    EXPECT_EQ(std::u16string(name), u"\\\\SRV1\\Labels");
    EXPECT_TRUE(ClosePrinter(printer));

    // Once more is no more.
    EXPECT_TRUE(Connect(u"\\\\SRV1\\Labels"));
    EXPECT_EQ(TakeNotes(), u"");
    EXPECT_TRUE(DeletePrinterConnectionW(Text(u"\\\\SRV1\\Labels")));
    EXPECT_EQ(TakeNotes(), u"2 \\\\SRV1\\Labels;");
    EXPECT_EQ(Connections(), u"");
    EXPECT_FALSE(DeletePrinterConnectionW(Text(u"\\\\SRV1\\Labels")));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PRINTER_NAME});
}

TEST_F(SpoolerConnections, AreEveryUsersRightAndHisOwn) {
    UseGuest();
    ASSERT_TRUE(Connect(u"\\\\SRV1\\Labels")) << GetLastError();
    EXPECT_EQ(Connections(), u"\\\\SRV1\\Labels;");
    EXPECT_EQ(Open(u"\\\\SRV1\\Labels"), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
    UseAdministrator();
    EXPECT_EQ(Connections(), u"");
}

TEST_F(SpoolerConnections, FailWhereThereIsNothingToConnectTo) {
    const struct {
        LPCWSTR name;
        DWORD code;
    } cases[] = {
        {u"\\\\SRV2\\Labels", ERROR_RPC_SERVER_UNAVAILABLE},
        {u"\\\\..\\Labels", ERROR_RPC_SERVER_UNAVAILABLE},
        {u"\\\\SRV1\\None", ERROR_INVALID_PRINTER_NAME},
        {u"\\\\SRV1\\", ERROR_INVALID_PRINTER_NAME},
        {u"\\\\SRV1\\a\\b", ERROR_INVALID_PRINTER_NAME},
        {u"Labels", ERROR_INVALID_PRINTER_NAME},
    };
    for (const auto& c : cases) {
        EXPECT_FALSE(Connect(c.name));
        EXPECT_EQ(GetLastError(), c.code);
    }
    EXPECT_FALSE(Connect(nullptr));
    HANDLE printer = nullptr;
    EXPECT_FALSE(OpenPrinterW(Text(u"\\\\SRV2\\Labels"), &printer, nullptr));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_RPC_SERVER_UNAVAILABLE});
}

TEST_F(SpoolerConnections, EndEvenWhenTheServerIsGone) {
    ASSERT_TRUE(Connect(u"\\\\SRV1\\Labels"));
    TakeNotes();
    fs::rename(root() + "/servers/SRV1", root() + "/servers/moved");
    EXPECT_EQ(Connections(), u"");
    EXPECT_TRUE(DeletePrinterConnectionW(Text(u"\\\\SRV1\\Labels")));
    EXPECT_EQ(TakeNotes(), u"2 \\\\SRV1\\Labels (not there);");
}

TEST_F(SpoolerConnections, AreOneOfTheServersPrinters) {
    DWORD count = 0;
    const Answer<PRINTER_INFO_1W> list([&](LPBYTE buffer, DWORD size, LPDWORD needed) {
        return EnumPrintersW(PRINTER_ENUM_NAME, Text(u"\\\\SRV1"), 1, buffer, size, needed, &count);
    });
    ASSERT_EQ(count, 1u);
    EXPECT_EQ(std::u16string(list->pName), u"\\\\SRV1\\Labels");
    const HANDLE this_one = Open(u"\\\\DOCK3\\Labels", PRINTER_ACCESS_USE);
    EXPECT_EQ(this_one, nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PRINTER_NAME});
}

} // namespace
