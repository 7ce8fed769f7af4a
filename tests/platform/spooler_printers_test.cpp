#include "platform/spooler_test.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <memory>

#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr LPCWSTR kPrinterKey = u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\LABELS";

// A machine with the driver and the printer LABELS.
class SpoolerPrinters : public SpoolerTest {
protected:
    SpoolerPrinters() {
        AddDriver();
        AddPrinter(u"LABELS");
        printer_ = Open(u"LABELS");
    }
    HANDLE printer_ = nullptr;
};

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
    std::vector<BYTE> dev_mode = DevModeWithPrivatePart(u"FULL", 40);
    PRINTER_INFO_2W info = Wanted(u"FULL");
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
    const auto answer = PrinterInfo2(Add(info));
    ASSERT_TRUE(answer.good());
    const std::initializer_list<LPCWSTR> texts = {
        answer->pPrinterName, answer->pShareName,      answer->pPortName, answer->pDriverName,
        answer->pComment,     answer->pLocation,       answer->pSepFile,  answer->pParameters,
        answer->pDatatype,    answer->pPrintProcessor,
    };
    EXPECT_EQ(Joined(texts), u"FULL;Share;FILE:;Test Driver;Comment;Dock \u00e9;C:\\sep.sep;"
                             u"Parameters;TEXT;WinPrint;");
    const BYTE* begin = answer.buffer().data();
    for (LPCWSTR text : texts) {
        const auto* byte = reinterpret_cast<const BYTE*>(text);
        EXPECT_TRUE(byte >= begin + sizeof info && byte < begin + answer.buffer().size());
    }
    EXPECT_EQ(answer->pServerName, nullptr);
    EXPECT_EQ((std::vector<DWORD>{answer->Attributes, answer->Priority, answer->DefaultPriority,
                                  answer->StartTime, answer->UntilTime}),
              (std::vector<DWORD>{PRINTER_ATTRIBUTE_ENABLE_BIDI | PRINTER_ATTRIBUTE_LOCAL, 7, 1, 60,
                                  120}));
    ASSERT_NE(answer->pDevMode, nullptr);
    EXPECT_EQ(std::memcmp(answer->pDevMode, dev_mode.data(), dev_mode.size()), 0);
}

TEST_F(SpoolerPrinters, KeepTextsOfEveryLength) {
    for (const size_t length : {0u, 1u, 126u, 127u, 128u, 129u, 5000u}) {
        const std::u16string comment(length, u'\u00e9');
        PRINTER_INFO_2W info = Wanted(u"LABELS");
        info.pComment = Text(comment);
        EXPECT_EQ(SetInfo(printer_, info), 0) << length;
        const auto answer = PrinterInfo2(printer_);
        ASSERT_TRUE(answer.good()) << length;
        EXPECT_EQ(std::u16string(answer->pComment), comment) << length;
    }
}

TEST_F(SpoolerPrinters, HaveEmptyTextsAndNoDocumentSettingsWhereNoneWereGiven) {
    const auto answer = PrinterInfo2(Open(u"labels", PRINTER_ACCESS_USE));
    ASSERT_TRUE(answer.good());
    EXPECT_EQ(Joined({answer->pPrinterName, answer->pShareName, answer->pComment, answer->pLocation,
                      answer->pSepFile, answer->pParameters}),
              u"LABELS;;;;;;");
    EXPECT_EQ(answer->pDevMode, nullptr);
}

TEST_F(SpoolerPrinters, MayHaveAnyNameWithoutABackslash) {
    for (const std::u16string& name :
         {std::u16string(u"Dock 3/left"), std::u16string(u"100% cotton"), std::u16string(u"a:b"),
          std::u16string(u"\u00c9tiquettes,!"), std::u16string(220, u'x')}) {
        const auto answer = PrinterInfo2(Add(Wanted(name)));
        ASSERT_TRUE(answer.good());
        EXPECT_EQ(std::u16string(answer->pPrinterName), name);
    }
    for (const std::u16string& name :
         {std::u16string(), std::u16string(u"a\\b"), std::u16string(u"\\\\SERVER\\LABELS"),
          std::u16string(221, u'x')})
        EXPECT_EQ(ErrorOf(Add(Wanted(name))), ERROR_INVALID_PRINTER_NAME);
}

TEST_F(SpoolerPrinters, AreNotAddedWhenSomethingIsWrongWithThem) {
    using Info = PRINTER_INFO_2W;
    static DEVMODEW no_settings = {};
    const struct {
        void (*spoil)(Info&);
        int error;
    } cases[] = {
        {[](Info& i) { i.pPrinterName = Text(u"labels"); }, ERROR_PRINTER_ALREADY_EXISTS},
        {[](Info& i) { i.pPrinterName = nullptr; }, ERROR_INVALID_PRINTER_NAME},
        {[](Info& i) { i.pDriverName = nullptr; }, ERROR_UNKNOWN_PRINTER_DRIVER},
        {[](Info& i) { i.pDriverName = Text(u"Nobody"); }, ERROR_UNKNOWN_PRINTER_DRIVER},
        {[](Info& i) { i.pPortName = nullptr; }, ERROR_UNKNOWN_PORT},
        {[](Info& i) { i.pPortName = Text(u"LPT9:"); }, ERROR_UNKNOWN_PORT},
        {[](Info& i) { i.pPrintProcessor = Text(u"Other"); }, ERROR_UNKNOWN_PRINTPROCESSOR},
        {[](Info& i) { i.Priority = 100; }, ERROR_INVALID_PRIORITY},
        {[](Info& i) { i.pDevMode = &no_settings; }, ERROR_INVALID_PARAMETER},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        Info info = Wanted(u"OTHER");
        c.spoil(info);
        EXPECT_EQ(ErrorOf(Add(info)), c.error);
        EXPECT_EQ(ErrorOf(Open(u"OTHER")), ERROR_INVALID_PRINTER_NAME);
    }
    EXPECT_EQ(ErrorOf(AddPrinterW(nullptr, 2, nullptr)), ERROR_INVALID_PARAMETER);
}

TEST_F(SpoolerPrinters, CanBeOnPortsWhoseNamesSayWhatTheyAre) {
    char16_t name[] = u"A";
    const auto error = [&](LPCWSTR port) {
        PRINTER_INFO_2W info = Wanted(name);
        info.pPortName = Text(port);
        ++name[0];
        return ErrorOf(Add(info));
    };
    for (LPCWSTR port : {u"file:", u"IP_10.0.0.7", u"IP_printer-3.dock:9100", u"/dev/usb/lp0",
                         u"C:\\out\\labels.zpl"})
        EXPECT_EQ(error(port), 0) << testing::PrintToString(Joined({port}));
    for (LPCWSTR port : {u"IP_", u"IP_:9100", u"IP_host:", u"IP_host:0", u"IP_host:65536",
                         u"IP_host:91x", u"IP_a b", u"COM1:", u"C:", u"/"})
        EXPECT_EQ(error(port), ERROR_UNKNOWN_PORT) << testing::PrintToString(Joined({port}));
    DWORD count = 0;
    const Answer<PORT_INFO_2W> ports([&](LPBYTE buffer, DWORD size, LPDWORD needed) {
        return EnumPortsW(nullptr, 2, buffer, size, needed, &count);
    });
    std::u16string names;
    for (DWORD i = 0; i < count; ++i) names += Joined({ports[i].pPortName});
    EXPECT_EQ(names, u"FILE:;IP_10.0.0.7;IP_printer-3.dock:9100;/dev/usb/lp0;C:\\out\\labels.zpl;");
}

TEST_F(SpoolerPrinters, AreChangedThroughTheirRecord) {
    const HANDLE other = Open(u"LABELS", PRINTER_ACCESS_USE);
    std::vector<BYTE> dev_mode = DevModeWithPrivatePart(u"LABELS", 8);
    const auto answer = PrinterInfo2(printer_);
    PRINTER_INFO_2W info = answer[0];
    info.pComment = Text(u"changed");
    info.pDevMode = reinterpret_cast<PDEVMODEW>(dev_mode.data());
    EXPECT_EQ(SetInfo(printer_, info), 0);
    auto changed = PrinterInfo2(other);
    EXPECT_EQ(std::u16string(changed->pComment), u"changed");
    ASSERT_NE(changed->pDevMode, nullptr);
    EXPECT_EQ(std::memcmp(changed->pDevMode, dev_mode.data(), dev_mode.size()), 0);

    // No settings given: those that are there stay.
    info.pDevMode = nullptr;
    info.pComment = nullptr;
    EXPECT_EQ(SetInfo(printer_, info), 0);
    changed = PrinterInfo2(other);
    EXPECT_EQ(std::u16string(changed->pComment), u"");
    EXPECT_NE(changed->pDevMode, nullptr);
}

TEST_F(SpoolerPrinters, StayAsTheyAreWhenAChangeIsRefused) {
    const HANDLE user = Open(u"LABELS", PRINTER_ACCESS_USE);
    PRINTER_INFO_2W info = Wanted(u"LABELS");
    info.pComment = Text(u"changed");
    EXPECT_EQ(SetInfo(user, info), ERROR_ACCESS_DENIED);
    EXPECT_EQ(SetInfo(printer_, info, 1), ERROR_INVALID_PRINTER_COMMAND);
    EXPECT_EQ(ErrorOf(SetPrinterW(printer_, 2, nullptr, 0)), ERROR_INVALID_PARAMETER);
    info.pDriverName = Text(u"Nobody");
    EXPECT_EQ(SetInfo(printer_, info), ERROR_UNKNOWN_PRINTER_DRIVER);
    EXPECT_EQ(SetInfo(printer_, Wanted(u"RENAMED")), ERROR_INVALID_PRINTER_NAME);
    EXPECT_EQ(ErrorOf(DeletePrinter(user)), ERROR_ACCESS_DENIED);
    EXPECT_EQ(std::u16string(PrinterInfo2(printer_)->pComment), u"");
}

TEST_F(SpoolerPrinters, GiveUsersNoMoreThanTheirUse) {
    UseGuest();
    for (DWORD access : {PRINTER_ALL_ACCESS, PRINTER_ACCESS_ADMINISTER})
        EXPECT_EQ(ErrorOf(Open(u"LABELS", access)), ERROR_ACCESS_DENIED);
    EXPECT_EQ(ErrorOf(Add(Wanted(u"OTHER"))), ERROR_ACCESS_DENIED);
    HANDLE printer = nullptr;
    EXPECT_TRUE(OpenPrinterW(Text(u"LABELS"), &printer, nullptr));
    EXPECT_TRUE(PrinterInfo2(printer).good());
    EXPECT_TRUE(ClosePrinter(printer));
}

TEST_F(SpoolerPrinters, AreGoneForEverybodyOnceDeleted) {
    AddPrinter(u"STAYS");
    const HANDLE other = Open(u"LABELS");
    EXPECT_TRUE(DeletePrinter(printer_));
    DWORD needed = 0;
    for (HANDLE handle : {printer_, other}) {
        EXPECT_EQ(ErrorOf(GetPrinterW(handle, 2, nullptr, 0, &needed)), ERROR_PRINTER_DELETED);
        EXPECT_FALSE(DeletePrinter(handle));
        EXPECT_EQ(GetPrinterDataW(handle, Text(u"Seen"), nullptr, nullptr, 0, &needed),
                  DWORD{ERROR_PRINTER_DELETED});
        EXPECT_TRUE(ClosePrinter(handle));
    }
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, kPrinterKey, 0, KEY_READ, &key),
              ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(Open(u"LABELS"), nullptr);
    AddPrinter(u"LABELS"); // the name is free again
    EXPECT_EQ(PrinterNames(PRINTER_ENUM_LOCAL), u"STAYS;LABELS;");
}

TEST_F(SpoolerPrinters, AreListedByWhatTheyAre) {
    PRINTER_INFO_2W info = Wanted(u"TWO");
    info.Attributes = PRINTER_ATTRIBUTE_SHARED;
    info.pLocation = Text(u"Dock");
    Add(info);
    EXPECT_EQ(PrinterNames(PRINTER_ENUM_LOCAL), u"LABELS;TWO;");
    EXPECT_EQ(PrinterNames(PRINTER_ENUM_NAME), u"LABELS;TWO;");
    EXPECT_EQ(PrinterNames(PRINTER_ENUM_LOCAL | PRINTER_ENUM_SHARED), u"TWO;");
    DWORD needed = 99, count = 99;
    EXPECT_TRUE(EnumPrintersW(PRINTER_ENUM_CONNECTIONS, nullptr, 2, nullptr, 0, &needed, &count));
    EXPECT_EQ(needed + count, 0u);
    const Answer<PRINTER_INFO_1W> level1([&](LPBYTE buffer, DWORD size, LPDWORD bytes) {
        return EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 1, buffer, size, bytes, &count);
    });
    EXPECT_EQ(std::u16string(level1[1].pDescription), u"TWO,Test Driver,Dock");
    EXPECT_EQ(ErrorOf(EnumPrintersW(0, nullptr, 2, nullptr, 0, &needed, &count)),
              ERROR_INVALID_FLAGS);
}

TEST_F(SpoolerPrinters, AnswerInTheAnsiCodePage) {
    std::vector<BYTE> dev_mode = DevModeWithPrivatePart(u"\u00c9tiquettes", 6);
    PRINTER_INFO_2W info = Wanted(u"\u00c9tiquettes");
    info.pDevMode = reinterpret_cast<PDEVMODEW>(dev_mode.data());
    const HANDLE printer = Add(info);
    const Answer<PRINTER_INFO_2A> answer([&](LPBYTE buffer, DWORD size, LPDWORD needed) {
        return GetPrinterA(printer, 2, buffer, size, needed);
    });
    ASSERT_TRUE(answer.good());
    EXPECT_STREQ(answer->pPrinterName, "\xC9tiquettes");
    ASSERT_NE(answer->pDevMode, nullptr);
    const DEVMODEA& ansi = *answer->pDevMode;
    EXPECT_STREQ(reinterpret_cast<const char*>(ansi.dmDeviceName), "\xC9tiquettes");
    EXPECT_STREQ(reinterpret_cast<const char*>(ansi.dmFormName), "Label");
    EXPECT_EQ(ansi.dmSize, sizeof(DEVMODEA));
    EXPECT_EQ(ansi.dmDriverExtra, 6);
    EXPECT_EQ(ansi.dmCopies, 5);
    EXPECT_EQ(ansi.dmPelsHeight, 77u);
    EXPECT_EQ(*(reinterpret_cast<const BYTE*>(&ansi + 1) + 5), 0xAB);
}

TEST_F(SpoolerPrinters, SurviveARegistryThatHoldsNonsense) {
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, kPrinterKey, 0, KEY_ALL_ACCESS, &key),
              ERROR_SUCCESS);
    const BYTE text[] = {'P', 0, 'x'}; // half a character, no terminator
    std::vector<BYTE> claims_more = DevModeWithPrivatePart(u"LABELS", 100);
    claims_more.resize(claims_more.size() - 1);
    RegSetValueExW(key, u"Port", 0, REG_SZ, text, 3);
    RegSetValueExW(key, u"Location", 0, REG_DWORD, text, 3);
    RegSetValueExW(key, u"Priority", 0, REG_DWORD, text, 3);
    for (size_t size : {size_t{0}, size_t{1}, size_t{71}, size_t{100}, claims_more.size()}) {
        RegSetValueExW(key, u"Default DevMode", 0, REG_BINARY, claims_more.data(),
                       static_cast<DWORD>(size));
        const auto answer = PrinterInfo2(printer_);
        ASSERT_TRUE(answer.good());
        EXPECT_EQ(answer->pDevMode, nullptr);
        EXPECT_EQ(Joined({answer->pPortName, answer->pLocation}), u"P;;");
        EXPECT_EQ(answer->Priority, 0u);
    }
    RegCloseKey(key);
}

TEST_F(SpoolerPrinters, AreNotDisturbedByOtherProcesses) {
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
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(PrinterNames(PRINTER_ENUM_LOCAL), u"LABELS;");
}

} // namespace
