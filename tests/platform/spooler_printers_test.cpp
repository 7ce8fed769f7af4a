#include "platform/registry_support.h"
#include "platform/spooler_test.h"

#include <cstring>

namespace {

constexpr LPCWSTR kPrinterKey = u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\LABELS";

// A DEVMODEW with private bytes after it.
std::vector<BYTE> DevModeWithPrivatePart(size_t extra) {
    DEVMODEW public_part = {};
    public_part.dmSpecVersion = 0x401;
    public_part.dmSize = sizeof(DEVMODEW);
    public_part.dmDriverExtra = static_cast<WORD>(extra);
    public_part.dmCopies = 5;
    std::vector<BYTE> bytes(sizeof public_part + extra, 0xAB);
    std::memcpy(bytes.data(), &public_part, sizeof public_part);
    return bytes;
}

using SpoolerPrinters = LabelsTest;

TEST_F(SpoolerPrinters, MayHaveAnyNameWithoutABackslash) {
    using String = std::u16string;
    for (const String& name : {String(u"Dock 3/left"), String(u"100% cotton"), String(u"a:b"),
                               String(u"\u00c9tiquettes,!"), String(220, u'x')})
        EXPECT_EQ(PrinterInfo2(Add(Wanted(name)))->pPrinterName, name);
    for (const String& name : {String(), String(u"a\\b"), String(221, u'x')})
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
                         u"IP_host:91x", u"IP_a b", u"COM1:", u"LPT9:", u"C:", u"/"})
        EXPECT_EQ(error(port), ERROR_UNKNOWN_PORT) << testing::PrintToString(Joined({port}));
    DWORD count = 0;
    const Answer<PORT_INFO_2W> ports([&](LPBYTE buffer, DWORD size, LPDWORD needed) {
        return EnumPortsW(nullptr, 2, buffer, size, needed, &count);
    });
    std::u16string names;
    for (DWORD i = 0; i < count; ++i) names += Joined({ports[i].pPortName});
    EXPECT_EQ(names, u"FILE:;IP_10.0.0.7;IP_printer-3.dock:9100;/dev/usb/lp0;C:\\out\\labels.zpl;");
}

TEST_F(SpoolerPrinters, AreChangedThroughTheirRecordByAdministratorsOnly) {
    const HANDLE user = Open(u"LABELS", PRINTER_ACCESS_USE);
    std::vector<BYTE> dev_mode = DevModeWithPrivatePart(8);
    PRINTER_INFO_2W info = Wanted(u"LABELS");
    info.pComment = Text(u"changed");
    info.pDevMode = reinterpret_cast<PDEVMODEW>(dev_mode.data());
    EXPECT_EQ(SetInfo(printer_, info), 0);
    // Without settings in the record, the existing ones stay.
    info.pDevMode = nullptr;
    EXPECT_EQ(SetInfo(printer_, info), 0);

    info.pComment = nullptr;
    EXPECT_EQ(SetInfo(user, info), ERROR_ACCESS_DENIED);
    EXPECT_EQ(SetInfo(printer_, info, 1), ERROR_INVALID_PRINTER_COMMAND);
    EXPECT_EQ(ErrorOf(SetPrinterW(printer_, 2, nullptr, 0)), ERROR_INVALID_PARAMETER);
    info.pDriverName = Text(u"Nobody");
    EXPECT_EQ(SetInfo(printer_, info), ERROR_UNKNOWN_PRINTER_DRIVER);
    EXPECT_EQ(SetInfo(printer_, Wanted(u"RENAMED")), ERROR_INVALID_PRINTER_NAME);
    EXPECT_EQ(ErrorOf(DeletePrinter(user)), ERROR_ACCESS_DENIED);
    const auto changed = PrinterInfo2(user);
    EXPECT_EQ(Joined({changed->pComment}), u"changed;");
    ASSERT_NE(changed->pDevMode, nullptr);
    EXPECT_EQ(std::memcmp(changed->pDevMode, dev_mode.data(), dev_mode.size()), 0);

    UseGuest();
    for (DWORD access : {PRINTER_ALL_ACCESS, PRINTER_ACCESS_ADMINISTER})
        EXPECT_EQ(ErrorOf(Open(u"LABELS", access)), ERROR_ACCESS_DENIED);
    EXPECT_EQ(ErrorOf(Add(Wanted(u"OTHER"))), ERROR_ACCESS_DENIED);
    EXPECT_TRUE(PrinterInfo2(Open(u"LABELS", PRINTER_ACCESS_USE)).good());
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
    }
    EXPECT_EQ(TryOpen(kPrinterKey), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(Open(u"LABELS"), nullptr);
    AddPrinter(u"LABELS"); // the name is free again
    EXPECT_EQ(PrinterNames(PRINTER_ENUM_LOCAL), u"STAYS;LABELS;");
    EXPECT_EQ(PrinterNames(PRINTER_ENUM_LOCAL | PRINTER_ENUM_SHARED), u"");
}

TEST_F(SpoolerPrinters, SurviveARegistryThatHoldsNonsense) {
    const Key key = Make(kPrinterKey);
    const std::string text("P\0x", 3); // half a character, no terminator
    Write(key, u"Port", text, REG_SZ);
    Write(key, u"Location", text, REG_DWORD);
    Write(key, u"Priority", text, REG_DWORD);
    const std::vector<BYTE> dev_mode = DevModeWithPrivatePart(100);
    for (size_t size : {size_t{0}, size_t{1}, size_t{71}, size_t{100}, dev_mode.size() - 1}) {
        Write(key, u"Default DevMode", {reinterpret_cast<const char*>(dev_mode.data()), size});
        const auto answer = PrinterInfo2(printer_);
        ASSERT_TRUE(answer.good());
        EXPECT_EQ(answer->pDevMode, nullptr);
        EXPECT_EQ(Joined({answer->pPortName, answer->pLocation}), u"P;;");
        EXPECT_EQ(answer->Priority, 0u);
    }
}

TEST_F(SpoolerPrinters, HaveDataThatAdministratorsWriteAndUsersRead) {
    // Names and texts of the ANSI functions are converted.
    std::string name = "Gr\xF6\xDF\x65", text("caf\xE9\0", 5), read(10, '\0');
    const auto bytes = [](std::string& buffer) { return reinterpret_cast<LPBYTE>(buffer.data()); };
    const LPWSTR wide_name = Text(u"Größe");
    const HANDLE user = Open(u"LABELS", PRINTER_ACCESS_USE);
    DWORD needed = 0;
    ASSERT_EQ(SetPrinterDataA(printer_, name.data(), REG_SZ, bytes(text), 5), 0u);
    EXPECT_EQ(GetPrinterDataW(user, wide_name, nullptr, bytes(read), 10, &needed), 0u);
    EXPECT_EQ(read, std::string("c\0a\0f\0\xE9\0\0\0", 10));
    EXPECT_EQ(GetPrinterDataA(user, name.data(), nullptr, bytes(read), 5, &needed), 0u);
    EXPECT_EQ(read.substr(0, needed), text);
    EXPECT_EQ(SetPrinterDataW(user, wide_name, REG_BINARY, bytes(read), 1),
              DWORD{ERROR_ACCESS_DENIED});
    EXPECT_EQ(DeletePrinterDataW(user, wide_name), DWORD{ERROR_ACCESS_DENIED});
    EXPECT_EQ(DeletePrinterDataW(printer_, wide_name), 0u);
    EXPECT_EQ(DeletePrinterDataW(printer_, wide_name), DWORD{ERROR_FILE_NOT_FOUND});
}

} // namespace
