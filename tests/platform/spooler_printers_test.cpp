#include "platform/spooler_test.h"

#include <algorithm>
#include <memory>
#include <optional>

#include <sys/wait.h>
#include <unistd.h>

namespace {

const std::u16string kPrintersKey = u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\";

using SpoolerPrinters = SpoolerTest;

// A DEVMODEW with private bytes behind it.
std::vector<BYTE> DevModeWithPrivatePart(const std::u16string& device, size_t extra) {
    DEVMODEW public_part = {};
    device.copy(public_part.dmDeviceName, CCHDEVICENAME - 1);
    std::u16string(u"Label").copy(public_part.dmFormName, CCHFORMNAME - 1);
    public_part.dmSpecVersion = 0x401;
    public_part.dmSize = sizeof(DEVMODEW);
    public_part.dmDriverExtra = static_cast<WORD>(extra);
    public_part.dmCopies = 5;
    public_part.dmPelsHeight = 77;
    std::vector<BYTE> bytes(sizeof public_part + extra, 0xAB);
    std::memcpy(bytes.data(), &public_part, sizeof public_part);
    return bytes;
}

TEST_F(SpoolerPrinters, KeepEverythingTheyWereAddedWith) {
    AddDriver();
    std::vector<BYTE> dev_mode = DevModeWithPrivatePart(u"LABELS", 40);
    PRINTER_INFO_2W info = Wanted(u"LABELS");
    info.pShareName = Text(u"Share");
    info.pComment = Text(u"Comment");
    info.pLocation = Text(u"Dock \u00e9");
    info.pSepFile = Text(u"C:\\sep.sep");
    info.pParameters = Text(u"Parameters");
    info.pDatatype = Text(u"TEXT");
    info.pDevMode = reinterpret_cast<PDEVMODEW>(dev_mode.data());
    info.Attributes = PRINTER_ATTRIBUTE_ENABLE_BIDI;
    info.Priority = 7;
    info.StartTime = 60;
    info.UntilTime = 120;
    const HANDLE printer = AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info));
    ASSERT_NE(printer, nullptr);

    const auto answer = PrinterInfo2(printer);
    ASSERT_TRUE(answer.good());
    EXPECT_EQ(answer->pServerName, nullptr);
    EXPECT_EQ(std::u16string(answer->pPrinterName), u"LABELS");
    EXPECT_EQ(std::u16string(answer->pShareName), u"Share");
    EXPECT_EQ(std::u16string(answer->pPortName), u"FILE:");
    EXPECT_EQ(std::u16string(answer->pDriverName), u"Test Driver");
    EXPECT_EQ(std::u16string(answer->pComment), u"Comment");
    EXPECT_EQ(std::u16string(answer->pLocation), u"Dock \u00e9");
    EXPECT_EQ(std::u16string(answer->pSepFile), u"C:\\sep.sep");
    EXPECT_EQ(std::u16string(answer->pPrintProcessor), u"WinPrint");
    EXPECT_EQ(std::u16string(answer->pDatatype), u"TEXT");
    EXPECT_EQ(std::u16string(answer->pParameters), u"Parameters");
    EXPECT_EQ(answer->Attributes, DWORD{PRINTER_ATTRIBUTE_ENABLE_BIDI | PRINTER_ATTRIBUTE_LOCAL});
    EXPECT_EQ(answer->Priority, 7u);
    EXPECT_EQ(answer->DefaultPriority, 1u);
    EXPECT_EQ(answer->StartTime, 60u);
    EXPECT_EQ(answer->UntilTime, 120u);
    ASSERT_NE(answer->pDevMode, nullptr);
    EXPECT_EQ(std::memcmp(answer->pDevMode, dev_mode.data(), dev_mode.size()), 0);
    EXPECT_TRUE(ClosePrinter(printer));
}

TEST_F(SpoolerPrinters, KeepTextsOfEveryLength) {
    AddDriver();
    AddPrinter(u"LABELS");
    const HANDLE printer = Open(u"LABELS");
    for (const size_t length : {1u, 126u, 127u, 128u, 129u, 5000u}) {
        const std::u16string comment(length, u'\u00e9');
        PRINTER_INFO_2W info = Wanted(u"LABELS");
        info.pComment = Text(comment);
        EXPECT_TRUE(SetPrinterW(printer, 2, reinterpret_cast<LPBYTE>(&info), 0)) << length;
        const auto answer = PrinterInfo2(printer);
        ASSERT_TRUE(answer.good()) << length;
        EXPECT_EQ(std::u16string(answer->pComment), comment) << length;
    }
    EXPECT_TRUE(ClosePrinter(printer));
}

TEST_F(SpoolerPrinters, HaveEmptyTextsAndNoDocumentSettingsWhereNoneWereGiven) {
    AddDriver();
    AddPrinter(u"LABELS");
    const HANDLE printer = Open(u"labels", PRINTER_ACCESS_USE);
    const auto answer = PrinterInfo2(printer);
    ASSERT_TRUE(answer.good());
    EXPECT_EQ(std::u16string(answer->pPrinterName), u"LABELS");
    for (LPWSTR text : {answer->pShareName, answer->pComment, answer->pLocation, answer->pSepFile,
                        answer->pParameters}) {
        ASSERT_NE(text, nullptr);
        EXPECT_EQ(*text, 0);
    }
    EXPECT_EQ(answer->pDevMode, nullptr);
    EXPECT_TRUE(ClosePrinter(printer));
}

TEST_F(SpoolerPrinters, FillBuffersOfTheNeededSizeAndNoSmallerOnes) {
    AddDriver();
    std::vector<BYTE> dev_mode = DevModeWithPrivatePart(u"LABELS", 3);
    PRINTER_INFO_2W info = Wanted(u"LABELS");
    info.pDevMode = reinterpret_cast<PDEVMODEW>(dev_mode.data());
    const HANDLE printer = AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info));

    using Ask = BOOL (*)(HANDLE, LPBYTE, DWORD, LPDWORD);
    const struct {
        const char* name;
        Ask ask;
    } cases[] = {
        {"GetPrinterW 1",
         [](HANDLE h, LPBYTE b, DWORD s, LPDWORD n) { return GetPrinterW(h, 1, b, s, n); }},
        {"GetPrinterW 2",
         [](HANDLE h, LPBYTE b, DWORD s, LPDWORD n) { return GetPrinterW(h, 2, b, s, n); }},
        {"GetPrinterW 4",
         [](HANDLE h, LPBYTE b, DWORD s, LPDWORD n) { return GetPrinterW(h, 4, b, s, n); }},
        {"GetPrinterA 2",
         [](HANDLE h, LPBYTE b, DWORD s, LPDWORD n) { return GetPrinterA(h, 2, b, s, n); }},
        {"GetPrinterDriverW 2",
         [](HANDLE h, LPBYTE b, DWORD s, LPDWORD n) {
             return GetPrinterDriverW(h, nullptr, 2, b, s, n);
         }},
        {"GetPrinterDriverW 3",
         [](HANDLE h, LPBYTE b, DWORD s, LPDWORD n) {
             return GetPrinterDriverW(h, nullptr, 3, b, s, n);
         }},
        {"GetPrinterDriverW 6",
         [](HANDLE h, LPBYTE b, DWORD s, LPDWORD n) {
             return GetPrinterDriverW(h, nullptr, 6, b, s, n);
         }},
        {"GetPrinterDriverA 3",
         [](HANDLE h, LPBYTE b, DWORD s, LPDWORD n) {
             return GetPrinterDriverA(h, nullptr, 3, b, s, n);
         }},
        {"GetPrinterDriverDirectoryW",
         [](HANDLE, LPBYTE b, DWORD s, LPDWORD n) {
             return GetPrinterDriverDirectoryW(nullptr, nullptr, 1, b, s, n);
         }},
        {"EnumPrintersW 2",
         [](HANDLE, LPBYTE b, DWORD s, LPDWORD n) {
             DWORD count;
             return EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 2, b, s, n, &count);
         }},
        {"EnumPrinterDriversW 3",
         [](HANDLE, LPBYTE b, DWORD s, LPDWORD n) {
             DWORD count;
             return EnumPrinterDriversW(nullptr, nullptr, 3, b, s, n, &count);
         }},
        {"EnumPortsW 2",
         [](HANDLE, LPBYTE b, DWORD s, LPDWORD n) {
             DWORD count;
             return EnumPortsW(nullptr, 2, b, s, n, &count);
         }},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        DWORD needed = 0, again = 0;
        EXPECT_FALSE(c.ask(printer, nullptr, 0, &needed));
        EXPECT_EQ(GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
        for (DWORD size : {DWORD{0}, DWORD{1}, needed / 2, needed - 1}) {
            // Of exactly this size, so that a write past its end is found out.
            const auto buffer = std::make_unique<BYTE[]>(size);
            std::fill_n(buffer.get(), size, BYTE{0xEE});
            EXPECT_FALSE(c.ask(printer, buffer.get(), size, &again));
            EXPECT_EQ(GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
            EXPECT_EQ(again, needed);
            EXPECT_TRUE(std::all_of(buffer.get(), buffer.get() + size,
                                    [](BYTE byte) { return byte == 0xEE; }));
        }
        const auto exact = std::make_unique<BYTE[]>(needed);
        EXPECT_TRUE(c.ask(printer, exact.get(), needed, &again));
        EXPECT_EQ(again, needed);
        const auto odd = std::make_unique<BYTE[]>(needed + 1);
        EXPECT_TRUE(c.ask(printer, odd.get() + 1, needed, &again));
        EXPECT_FALSE(c.ask(printer, nullptr, needed, &again));
        EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_USER_BUFFER});
        EXPECT_FALSE(c.ask(printer, exact.get(), needed, nullptr));
        EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    }
    EXPECT_TRUE(ClosePrinter(printer));
}

TEST_F(SpoolerPrinters, PointIntoTheBufferTheyFilled) {
    AddDriver();
    AddPrinter(u"LABELS");
    const HANDLE printer = Open(u"LABELS");
    const auto answer = PrinterInfo2(printer);
    const auto* begin = answer.buffer().data();
    for (LPWSTR text : {answer->pPrinterName, answer->pShareName, answer->pPortName,
                        answer->pDriverName, answer->pParameters}) {
        const auto* byte = reinterpret_cast<const BYTE*>(text);
        EXPECT_GE(byte, begin + sizeof(PRINTER_INFO_2W));
        EXPECT_LT(byte, begin + answer.buffer().size());
    }
    EXPECT_TRUE(ClosePrinter(printer));
}

TEST_F(SpoolerPrinters, KnowNoOtherLevels) {
    AddDriver();
    AddPrinter(u"LABELS");
    const HANDLE printer = Open(u"LABELS");
    BYTE buffer[16];
    DWORD needed = 0, returned = 0;
    PRINTER_INFO_2W info = Wanted(u"OTHER");
    const auto bytes = reinterpret_cast<LPBYTE>(&info);
    for (DWORD level : {DWORD{0}, DWORD{7}, DWORD{100}, DWORD{0xFFFFFFFF}}) {
        SCOPED_TRACE(level);
        const auto refused = [](BOOL done) {
            return !done && GetLastError() == ERROR_INVALID_LEVEL;
        };
        EXPECT_TRUE(refused(GetPrinterW(printer, level, buffer, sizeof buffer, &needed)));
        EXPECT_TRUE(refused(GetPrinterA(printer, level, buffer, sizeof buffer, &needed)));
        EXPECT_TRUE(refused(SetPrinterW(printer, level, bytes, 0)));
        EXPECT_TRUE(refused(AddPrinterW(nullptr, level, bytes) != nullptr));
        EXPECT_TRUE(refused(EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, level, buffer, sizeof buffer,
                                          &needed, &returned)));
        EXPECT_TRUE(refused(GetPrinterDriverW(printer, nullptr, level, buffer, 16, &needed)));
        EXPECT_TRUE(refused(EnumPortsW(nullptr, level, buffer, 16, &needed, &returned)));
    }
    EXPECT_TRUE(ClosePrinter(printer));
}

TEST_F(SpoolerPrinters, RefuseHandlesThatAreNotTheirs) {
    AddDriver();
    AddPrinter(u"LABELS");
    const HANDLE closed = Open(u"LABELS");
    ASSERT_TRUE(ClosePrinter(closed));
    const HANDLE file = CreateFileW(TEXT("C:\\setup\\extra1.dat"), GENERIC_READ, 0, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    HANDLE server = nullptr;
    ASSERT_TRUE(OpenPrinterW(nullptr, &server, nullptr));
    int local = 0;
    PRINTER_INFO_2W info = Wanted(u"LABELS");
    BYTE buffer[16];
    DWORD needed = 0, type = 0;
    for (HANDLE handle : {HANDLE{}, INVALID_HANDLE_VALUE, closed, file, HANDLE{&local}, server}) {
        const auto refused = [](BOOL done) {
            return !done && GetLastError() == ERROR_INVALID_HANDLE;
        };
        EXPECT_TRUE(refused(GetPrinterW(handle, 2, buffer, 16, &needed)));
        EXPECT_TRUE(refused(GetPrinterA(handle, 2, buffer, 16, &needed)));
        EXPECT_TRUE(refused(SetPrinterW(handle, 2, reinterpret_cast<LPBYTE>(&info), 0)));
        EXPECT_TRUE(refused(DeletePrinter(handle)));
        EXPECT_TRUE(refused(GetPrinterDriverW(handle, nullptr, 3, buffer, 16, &needed)));
        EXPECT_EQ(GetPrinterDataW(handle, Text(u"x"), &type, buffer, 16, &needed),
                  DWORD{ERROR_INVALID_HANDLE});
        EXPECT_EQ(SetPrinterDataW(handle, Text(u"x"), REG_BINARY, buffer, 1),
                  DWORD{ERROR_INVALID_HANDLE});
        if (handle != server) {
            EXPECT_TRUE(refused(ClosePrinter(handle)));
        }
    }
    EXPECT_TRUE(ClosePrinter(server));
    EXPECT_TRUE(CloseHandle(file));
}

TEST_F(SpoolerPrinters, MayHaveAnyNameWithoutABackslash) {
    AddDriver();
    const struct {
        std::u16string name;
        bool good;
    } cases[] = {
        {u"Dock 3/left", true},
        {u"100% cotton", true},
        {u"a:b", true},
        {u"\u00c9tiquettes", true},
        {u"a,b!", true},
        {std::u16string(220, u'x'), true},
        {u"", false},
        {u"a\\b", false},
        {u"\\\\SERVER\\LABELS", false},
        {std::u16string(221, u'x'), false},
    };
    for (const auto& c : cases) {
        PRINTER_INFO_2W info = Wanted(c.name);
        const HANDLE printer = AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info));
        EXPECT_EQ(printer != nullptr, c.good);
        if (!printer) {
            EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PRINTER_NAME});
            continue;
        }
        const auto answer = PrinterInfo2(printer);
        EXPECT_EQ(std::u16string(answer->pPrinterName), c.name);
        EXPECT_TRUE(ClosePrinter(printer));
    }
}

TEST_F(SpoolerPrinters, AreNotAddedWhenSomethingIsWrongWithThem) {
    AddDriver();
    AddPrinter(u"LABELS");
    const struct {
        const char* what;
        void (*spoil)(PRINTER_INFO_2W&);
        DWORD code;
    } cases[] = {
        {"name taken", [](PRINTER_INFO_2W& i) { i.pPrinterName = Text(u"labels"); },
         ERROR_PRINTER_ALREADY_EXISTS},
        {"no name", [](PRINTER_INFO_2W& i) { i.pPrinterName = nullptr; },
         ERROR_INVALID_PRINTER_NAME},
        {"no driver", [](PRINTER_INFO_2W& i) { i.pDriverName = nullptr; },
         ERROR_UNKNOWN_PRINTER_DRIVER},
        {"driver", [](PRINTER_INFO_2W& i) { i.pDriverName = Text(u"Nobody"); },
         ERROR_UNKNOWN_PRINTER_DRIVER},
        {"no port", [](PRINTER_INFO_2W& i) { i.pPortName = nullptr; }, ERROR_UNKNOWN_PORT},
        {"port", [](PRINTER_INFO_2W& i) { i.pPortName = Text(u"LPT9:"); }, ERROR_UNKNOWN_PORT},
        {"priority", [](PRINTER_INFO_2W& i) { i.Priority = 100; }, ERROR_INVALID_PRIORITY},
        {"settings",
         [](PRINTER_INFO_2W& i) {
             static DEVMODEW none = {};
             i.pDevMode = &none;
         },
         ERROR_INVALID_PARAMETER},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        PRINTER_INFO_2W info = Wanted(u"OTHER");
        c.spoil(info);
        EXPECT_EQ(AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info)), nullptr);
        EXPECT_EQ(GetLastError(), c.code);
        EXPECT_EQ(Open(u"OTHER"), nullptr);
        EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PRINTER_NAME});
    }
    EXPECT_EQ(AddPrinterW(nullptr, 2, nullptr), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
}

TEST_F(SpoolerPrinters, CanBeOnPortsWhoseNamesSayWhatTheyAre) {
    AddDriver();
    const struct {
        std::u16string port;
        bool good;
    } cases[] = {
        {u"file:", true},
        {u"IP_10.0.0.7", true},
        {u"IP_printer-3.dock:9100", true},
        {u"/dev/usb/lp0", true},
        {u"C:\\out\\labels.zpl", true},
        {u"IP_", false},
        {u"IP_:9100", false},
        {u"IP_host:", false},
        {u"IP_host:0", false},
        {u"IP_host:65536", false},
        {u"IP_host:91x", false},
        {u"IP_a b", false},
        {u"COM1:", false},
        {u"C:", false},
        {u"/", false},
    };
    for (const auto& c : cases) {
        std::u16string name = u"On " + c.port;
        std::replace(name.begin(), name.end(), u'\\', u'_');
        PRINTER_INFO_2W info = Wanted(name);
        info.pPortName = Text(c.port);
        const HANDLE printer = AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info));
        EXPECT_EQ(printer != nullptr, c.good) << std::string(c.port.begin(), c.port.end());
        if (printer) {
            EXPECT_TRUE(ClosePrinter(printer));
        }
    }
    DWORD count = 0;
    const Answer<PORT_INFO_2W> ports([&](LPBYTE buffer, DWORD size, LPDWORD needed) {
        return EnumPortsW(nullptr, 2, buffer, size, needed, &count);
    });
    std::vector<std::u16string> names;
    for (DWORD i = 0; i < count; ++i) names.push_back(ports[i].pPortName);
    EXPECT_EQ(names,
              (std::vector<std::u16string>{u"FILE:", u"IP_10.0.0.7", u"IP_printer-3.dock:9100",
                                           u"/dev/usb/lp0", u"C:\\out\\labels.zpl"}));
}

TEST_F(SpoolerPrinters, AreChangedThroughTheirRecord) {
    AddDriver();
    AddPrinter(u"LABELS");
    const HANDLE printer = Open(u"LABELS");
    const HANDLE other = Open(u"LABELS", PRINTER_ACCESS_USE);
    std::vector<BYTE> dev_mode = DevModeWithPrivatePart(u"LABELS", 8);
    auto answer = PrinterInfo2(printer);
    PRINTER_INFO_2W info = *answer.operator->();
    info.pComment = Text(u"changed");
    info.pDevMode = reinterpret_cast<PDEVMODEW>(dev_mode.data());
    EXPECT_TRUE(SetPrinterW(printer, 2, reinterpret_cast<LPBYTE>(&info), 0));
    auto changed = PrinterInfo2(other);
    EXPECT_EQ(std::u16string(changed->pComment), u"changed");
    ASSERT_NE(changed->pDevMode, nullptr);
    EXPECT_EQ(std::memcmp(changed->pDevMode, dev_mode.data(), dev_mode.size()), 0);

    // No settings given: those that are there stay.
    info.pDevMode = nullptr;
    info.pComment = nullptr;
    EXPECT_TRUE(SetPrinterW(printer, 2, reinterpret_cast<LPBYTE>(&info), 0));
    changed = PrinterInfo2(other);
    EXPECT_EQ(std::u16string(changed->pComment), u"");
    EXPECT_NE(changed->pDevMode, nullptr);
    EXPECT_TRUE(ClosePrinter(printer));
    EXPECT_TRUE(ClosePrinter(other));
}

TEST_F(SpoolerPrinters, StayAsTheyAreWhenAChangeIsRefused) {
    AddDriver();
    AddPrinter(u"LABELS");
    const HANDLE printer = Open(u"LABELS");
    const HANDLE user = Open(u"LABELS", PRINTER_ACCESS_USE);
    PRINTER_INFO_2W info = Wanted(u"LABELS");
    info.pComment = Text(u"changed");
    const auto bytes = reinterpret_cast<LPBYTE>(&info);
    const auto refused = [](BOOL done, DWORD code) { return !done && GetLastError() == code; };
    EXPECT_TRUE(refused(SetPrinterW(user, 2, bytes, 0), ERROR_ACCESS_DENIED));
    EXPECT_TRUE(refused(SetPrinterW(printer, 2, bytes, 1), ERROR_INVALID_PRINTER_COMMAND));
    EXPECT_TRUE(refused(SetPrinterW(printer, 2, nullptr, 0), ERROR_INVALID_PARAMETER));
    info.pDriverName = Text(u"Nobody");
    EXPECT_TRUE(refused(SetPrinterW(printer, 2, bytes, 0), ERROR_UNKNOWN_PRINTER_DRIVER));
    info = Wanted(u"RENAMED");
    EXPECT_TRUE(refused(SetPrinterW(printer, 2, bytes, 0), ERROR_INVALID_PRINTER_NAME));
    EXPECT_TRUE(refused(DeletePrinter(user), ERROR_ACCESS_DENIED));
    EXPECT_EQ(std::u16string(PrinterInfo2(printer)->pComment), u"");
    EXPECT_TRUE(ClosePrinter(printer));
    EXPECT_TRUE(ClosePrinter(user));
}

TEST_F(SpoolerPrinters, GiveUsersNoMoreThanTheirUse) {
    AddDriver();
    AddPrinter(u"LABELS");
    UseGuest();
    for (ACCESS_MASK access :
         {ACCESS_MASK{PRINTER_ALL_ACCESS}, ACCESS_MASK{PRINTER_ACCESS_ADMINISTER}}) {
        EXPECT_EQ(Open(u"LABELS", access), nullptr);
        EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
    }
    PRINTER_INFO_2W info = Wanted(u"OTHER");
    EXPECT_EQ(AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info)), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
    HANDLE printer = nullptr;
    EXPECT_TRUE(OpenPrinterW(Text(u"LABELS"), &printer, nullptr));
    EXPECT_TRUE(PrinterInfo2(printer).good());
    EXPECT_TRUE(ClosePrinter(printer));
}

TEST_F(SpoolerPrinters, AreGoneForEverybodyOnceDeleted) {
    AddDriver();
    AddPrinter(u"LABELS");
    AddPrinter(u"STAYS");
    const HANDLE printer = Open(u"LABELS");
    const HANDLE other = Open(u"LABELS");
    EXPECT_TRUE(DeletePrinter(printer));
    DWORD needed = 0;
    for (HANDLE handle : {printer, other}) {
        EXPECT_FALSE(GetPrinterW(handle, 2, nullptr, 0, &needed));
        EXPECT_EQ(GetLastError(), DWORD{ERROR_PRINTER_DELETED});
        EXPECT_FALSE(DeletePrinter(handle));
        EXPECT_EQ(GetPrinterDataW(handle, Text(u"Seen"), nullptr, nullptr, 0, &needed),
                  DWORD{ERROR_PRINTER_DELETED});
        EXPECT_TRUE(ClosePrinter(handle));
    }
    HKEY key = nullptr;
    EXPECT_EQ(
        RegOpenKeyExW(HKEY_LOCAL_MACHINE, (kPrintersKey + u"LABELS").c_str(), 0, KEY_READ, &key),
        ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(Open(u"LABELS"), nullptr);
    // The name is free again, with nothing of the old printer.
    AddPrinter(u"LABELS");
    EXPECT_TRUE(ClosePrinter(Open(u"STAYS")));
}

TEST_F(SpoolerPrinters, AreListedByWhatTheyAre) {
    DWORD needed = 99, count = 99;
    EXPECT_TRUE(EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 2, nullptr, 0, &needed, &count));
    EXPECT_EQ(needed, 0u);
    EXPECT_EQ(count, 0u);
    AddDriver();
    AddPrinter(u"ONE");
    PRINTER_INFO_2W info = Wanted(u"TWO");
    info.Attributes = PRINTER_ATTRIBUTE_SHARED;
    info.pLocation = Text(u"Dock");
    EXPECT_TRUE(ClosePrinter(AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info))));

    const auto names = [&](DWORD flags) {
        const Answer<PRINTER_INFO_4W> list([&](LPBYTE buffer, DWORD size, LPDWORD bytes) {
            return EnumPrintersW(flags, nullptr, 4, buffer, size, bytes, &count);
        });
        std::u16string all;
        for (DWORD i = 0; list.good() && i < count; ++i)
            all += list[i].pPrinterName + std::u16string(u";");
        return all;
    };
    EXPECT_EQ(names(PRINTER_ENUM_LOCAL), u"ONE;TWO;");
    EXPECT_EQ(names(PRINTER_ENUM_NAME), u"ONE;TWO;");
    EXPECT_EQ(names(PRINTER_ENUM_LOCAL | PRINTER_ENUM_SHARED), u"TWO;");
    EXPECT_EQ(names(PRINTER_ENUM_CONNECTIONS), u"");
    const Answer<PRINTER_INFO_1W> level1([&](LPBYTE buffer, DWORD size, LPDWORD bytes) {
        return EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 1, buffer, size, bytes, &count);
    });
    EXPECT_EQ(std::u16string(level1[1].pDescription), u"TWO,Test Driver,Dock");
    EXPECT_FALSE(EnumPrintersW(0, nullptr, 2, nullptr, 0, &needed, &count));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_FLAGS});
}

TEST_F(SpoolerPrinters, AnswerInTheAnsiCodePage) {
    AddDriver();
    std::vector<BYTE> dev_mode = DevModeWithPrivatePart(u"\u00c9tiquettes", 6);
    PRINTER_INFO_2W info = Wanted(u"\u00c9tiquettes");
    info.pDevMode = reinterpret_cast<PDEVMODEW>(dev_mode.data());
    const HANDLE printer = AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info));
    const Answer<PRINTER_INFO_2A> answer([&](LPBYTE buffer, DWORD size, LPDWORD needed) {
        return GetPrinterA(printer, 2, buffer, size, needed);
    });
    ASSERT_TRUE(answer.good());
    EXPECT_EQ(std::string(answer->pPrinterName), "\xC9tiquettes");
    ASSERT_NE(answer->pDevMode, nullptr);
    const DEVMODEA& ansi = *answer->pDevMode;
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(ansi.dmDeviceName)), "\xC9tiquettes");
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(ansi.dmFormName)), "Label");
    EXPECT_EQ(ansi.dmSize, sizeof(DEVMODEA));
    EXPECT_EQ(ansi.dmDriverExtra, 6);
    EXPECT_EQ(ansi.dmCopies, 5);
    EXPECT_EQ(ansi.dmPelsHeight, 77u);
    EXPECT_EQ(*(reinterpret_cast<const BYTE*>(&ansi + 1) + 5), 0xAB);
    EXPECT_TRUE(ClosePrinter(printer));
}

TEST_F(SpoolerPrinters, SurviveARegistryThatHoldsNonsense) {
    AddDriver();
    AddPrinter(u"LABELS");
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, (kPrintersKey + u"LABELS").c_str(), 0,
                            KEY_ALL_ACCESS, &key),
              ERROR_SUCCESS);
    const std::vector<BYTE> text = {'P', 0, 'x'}; // half a character, no terminator
    std::vector<BYTE> claims_more = DevModeWithPrivatePart(u"LABELS", 100);
    claims_more.resize(claims_more.size() - 1);
    RegSetValueExW(key, TEXT("Port"), 0, REG_SZ, text.data(), 3);
    RegSetValueExW(key, TEXT("Location"), 0, REG_DWORD, text.data(), 3);
    RegSetValueExW(key, TEXT("Priority"), 0, REG_DWORD, text.data(), 3);
    const HANDLE printer = Open(u"LABELS");
    for (size_t size : {size_t{0}, size_t{1}, size_t{71}, size_t{100}, claims_more.size()}) {
        RegSetValueExW(key, TEXT("Default DevMode"), 0, REG_BINARY, claims_more.data(),
                       static_cast<DWORD>(size));
        const auto answer = PrinterInfo2(printer);
        ASSERT_TRUE(answer.good());
        EXPECT_EQ(answer->pDevMode, nullptr);
        EXPECT_EQ(std::u16string(answer->pPortName), u"P");
        EXPECT_EQ(std::u16string(answer->pLocation), u"");
        EXPECT_EQ(answer->Priority, 0u);
    }
    RegCloseKey(key);
    EXPECT_TRUE(ClosePrinter(printer));
}

TEST_F(SpoolerPrinters, AreNotDisturbedByOtherProcesses) {
    AddDriver();
    constexpr int kProcesses = 3, kRounds = 12;
    std::vector<pid_t> children;
    for (int i = 0; i < kProcesses; ++i) {
        const pid_t child = fork();
        if (child == 0) {
            // A root of its own generation, so that nothing of the parent's is used.
            win32host::SetRoot(root());
            int failures = 0;
            const std::u16string own = u"Own " + std::u16string(1, static_cast<WCHAR>(u'0' + i));
            for (int round = 0; round < kRounds; ++round) {
                PRINTER_INFO_2W info = Wanted(own);
                const HANDLE printer = AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info));
                if (!printer || !PrinterInfo2(printer).good() || !DeletePrinter(printer))
                    ++failures;
                ClosePrinter(printer);
                // All fight for this one; whoever gets it sees a whole printer.
                info = Wanted(u"Shared");
                if (const HANDLE shared =
                        AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info))) {
                    const auto answer = PrinterInfo2(shared);
                    if (!answer.good() || std::u16string(answer->pDriverName) != u"Test Driver" ||
                        !DeletePrinter(shared))
                        ++failures;
                    ClosePrinter(shared);
                } else if (GetLastError() != ERROR_PRINTER_ALREADY_EXISTS) {
                    ++failures;
                }
            }
            _exit(failures);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFEXITED(status));
        EXPECT_EQ(WEXITSTATUS(status), 0);
    }
    DWORD needed = 0, count = 99;
    EXPECT_TRUE(EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 4, nullptr, 0, &needed, &count));
    EXPECT_EQ(count, 0u);
}

} // namespace
