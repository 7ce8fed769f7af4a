#include "driver/printer_info.h"

#include <cstring>
#include <vector>

#include "support/printer_test.h"

namespace {

// A DEVMODE with private bytes behind it.
struct TestDevMode {
    DEVMODEW public_part = {};
    unsigned char private_part[16] = {};

    explicit TestDevMode(SHORT copies = 1) {
        public_part.dmSize = sizeof(DEVMODEW);
        public_part.dmDriverExtra = sizeof private_part;
        public_part.dmFields = DM_COPIES;
        public_part.dmCopies = copies;
        std::memset(private_part, 0x5A, sizeof private_part);
    }
};

bool HoldsDevMode(const PrinterInfo& printer, const TestDevMode& expected) {
    const DEVMODEW* found = printer.GetDevMode();
    return found && std::memcmp(found, &expected, sizeof expected) == 0;
}

class PrinterInformation : public PrinterTest {};

} // namespace

TEST_F(PrinterInformation, ComesFromTheSpoolersRecords) {
    ASSERT_TRUE(AddDriver("Model 1", "ZPLQV.DDT"));
    ASSERT_TRUE(AddPrinter("Dock 3", "Model 1", PRINTER_ATTRIBUTE_ENABLE_BIDI));
    PrinterInfo printer("Dock 3");
    EXPECT_TRUE(printer.IsKnown());
    EXPECT_TRUE(printer.IsLocal());
    EXPECT_EQ(printer.GetDevMode(), nullptr);
    EXPECT_TRUE(printer.GetAttributes() & PRINTER_ATTRIBUTE_ENABLE_BIDI);
    EXPECT_EQ(printer.GetDriverVersion(), 3u);
    const struct {
        OString found;
        const char* expected;
    } cases[] = {
        {printer.GetPrinterName(), "Dock 3"},
        {printer.PrinterPart(), "Dock 3"},
        {printer.GetServerName(), ""},
        {printer.GetShareName(), "SHARE"},
        {printer.GetPortName(), "FILE:"},
        {printer.GetDriverName(), "Model 1"},
        {printer.GetComment(), "A comment"},
        {printer.GetPrintProcessor(), "WinPrint"},
        {printer.GetDatatype(), "RAW"},
        {printer.GetDriverFile(), "zplui.dll"},
        {printer.GetDataFile(), "ZPLQV.DDT"},
        {printer.GetConfigFile(), "zplui.dll"},
        {printer.GetHelpFile(), "zplui.hlp"},
        {printer.GetDefaultDatatype(), "RAW"},
        {printer.GetManufacturer(), "Maker"},
        {printer.GetHardwareID(), "HW1"},
        {printer.GetProvider(), "Provider"},
        {printer.GetPrefix(), "zpl"},
        {printer.GetOEM(), "qv"},
    };
    for (const auto& c : cases) EXPECT_STREQ(c.found.nstring(), c.expected);
    const OStringArray& files = printer.GetDependentFiles();
    ASSERT_EQ(files.GetSize(), 2);
    EXPECT_STREQ(files[0].nstring(), "zplrender.dll");
    EXPECT_STREQ(files[1].nstring(), "zplvenu.dll");
    EXPECT_STREQ(printer.GetDriverDirectory().FilePart().nstring(), "3");
}

TEST_F(PrinterInformation, IsTheSameThroughAHandleWhichStaysOpen) {
    ASSERT_TRUE(AddDriver("Model 1", "zplqv.ddt"));
    ASSERT_TRUE(AddPrinter("Dock 3", "Model 1"));
    WCHAR name[] = TEXT("dock 3");
    HANDLE handle = nullptr;
    ASSERT_TRUE(OpenPrinterW(name, &handle, nullptr));
    {
        PrinterInfo printer(handle);
        EXPECT_STREQ(printer.GetDataFile().nstring(), "zplqv.ddt");
        EXPECT_STREQ(printer.GetPrinterName().nstring(), "Dock 3");
    }
    EXPECT_TRUE(ClosePrinter(handle));
}

TEST_F(PrinterInformation, OfAnUnknownPrinterIsEmpty) {
    PrinterInfo by_name("Nowhere");
    PrinterInfo no_handle(nullptr);
    for (const PrinterInfo* printer : {&by_name, &no_handle}) {
        EXPECT_FALSE(printer->IsKnown());
        EXPECT_TRUE(printer->IsLocal());
        EXPECT_EQ(printer->GetDevMode(), nullptr);
        EXPECT_TRUE(printer->GetDriverName().IsEmpty());
        EXPECT_TRUE(printer->GetDataFile().IsEmpty());
        EXPECT_TRUE(printer->GetPrefix().IsEmpty());
        EXPECT_EQ(printer->GetDependentFiles().GetSize(), 0);
    }
    TestDevMode dev_mode;
    EXPECT_FALSE(by_name.SetDevMode(&dev_mode.public_part));
    EXPECT_FALSE(no_handle.SetDevMode(&dev_mode.public_part));
}

TEST_F(PrinterInformation, OfADriverWithoutLevelSixLacksItsMakerOnly) {
    ASSERT_TRUE(AddDriver("Old", "zpltt.ddt", 3));
    ASSERT_TRUE(AddPrinter("Dock", "Old"));
    PrinterInfo printer("Dock");
    EXPECT_STREQ(printer.GetManufacturer().nstring(), "");
    EXPECT_STREQ(printer.GetHardwareID().nstring(), "");
    EXPECT_STREQ(printer.GetOEM().nstring(), "tt");
    EXPECT_EQ(printer.GetDependentFiles().GetSize(), 2);
}

TEST_F(PrinterInformation, CutsShortDataFileNames) {
    const struct {
        const char* file;
        const char* prefix;
        const char* oem;
    } cases[] = {{"ABCDE.DDT", "abc", "de"}, {"ab", "ab", ""}, {"abcd", "abc", "d"}};
    for (const auto& c : cases) {
        ASSERT_TRUE(AddDriver(c.file, c.file));
        ASSERT_TRUE(AddPrinter(c.file, c.file));
        PrinterInfo printer((OString(c.file)));
        EXPECT_STREQ(printer.GetPrefix().nstring(), c.prefix);
        EXPECT_STREQ(printer.GetOEM().nstring(), c.oem);
    }
}

TEST_F(PrinterInformation, SplitsTheServerFromTheName) {
    const struct {
        const char* name;
        const char* part;
    } cases[] = {{"\\\\SERVER\\LABELS", "LABELS"},
                 {"LABELS", "LABELS"},
                 {"\\LABELS", "\\LABELS"},
                 {"\\\\SERVER", "\\\\SERVER"},
                 {"a\\b", "a\\b"},
                 {"ab\\c", "c"},
                 {"", ""}};
    for (const auto& c : cases) {
        EXPECT_STREQ(PrinterInfo(OString(c.name)).PrinterPart().nstring(), c.part) << c.name;
    }
}

TEST_F(PrinterInformation, KeepsTheWholeDefaultDevMode) {
    TestDevMode dev_mode(7);
    ASSERT_TRUE(AddDriver("Model 1", "zplqv.ddt"));
    ASSERT_TRUE(AddPrinter("Dock", "Model 1", 0, &dev_mode.public_part));
    EXPECT_TRUE(HoldsDevMode(PrinterInfo("Dock"), dev_mode));
}

TEST_F(PrinterInformation, AnswersTheDevModeThatItHasSet) {
    ASSERT_TRUE(AddDriver("Model 1", "zplqv.ddt"));
    ASSERT_TRUE(AddPrinter("Dock", "Model 1"));
    PrinterInfo printer("Dock");
    ASSERT_EQ(printer.GetDevMode(), nullptr);
    for (const SHORT copies : {SHORT{2}, SHORT{3}}) {
        TestDevMode dev_mode(copies);
        ASSERT_TRUE(printer.SetDevMode(&dev_mode.public_part));
        EXPECT_TRUE(HoldsDevMode(printer, dev_mode));
        EXPECT_TRUE(HoldsDevMode(PrinterInfo("Dock"), dev_mode));
    }
    EXPECT_FALSE(printer.SetDevMode(nullptr));
    EXPECT_STREQ(PrinterInfo("Dock").GetComment().nstring(), "A comment");
}

TEST_F(PrinterInformation, NeedsFullAccessToSetTheDevMode) {
    ASSERT_TRUE(AddDriver("Model 1", "zplqv.ddt"));
    ASSERT_TRUE(AddPrinter("Dock", "Model 1"));
    WCHAR name[] = TEXT("Dock");
    PRINTER_DEFAULTSW use = {nullptr, nullptr, PRINTER_ACCESS_USE};
    HANDLE handle = nullptr;
    ASSERT_TRUE(OpenPrinterW(name, &handle, &use));
    TestDevMode dev_mode;
    PrinterInfo printer(handle);
    ASSERT_EQ(printer.GetDevMode(), nullptr);
    EXPECT_FALSE(printer.SetDevMode(&dev_mode.public_part));
    EXPECT_EQ(printer.GetDevMode(), nullptr);
    ClosePrinter(handle);
}

TEST_F(PrinterInformation, TellsAConnectionFromALocalPrinter) {
    OnServer("SRV1", [&] {
        ASSERT_TRUE(AddDriver("Model 1", "zplqv.ddt"));
        ASSERT_TRUE(AddPrinter("Dock3", "Model 1", PRINTER_ATTRIBUTE_SHARED));
    });
    WCHAR name[] = TEXT("\\\\SRV1\\Dock3");
    ASSERT_TRUE(AddPrinterConnectionW(name));
    PrinterInfo printer((OString(name)));
    EXPECT_FALSE(printer.IsLocal());
    EXPECT_STREQ(printer.GetServerName().nstring(), "\\\\SRV1");
    EXPECT_STREQ(printer.PrinterPart().nstring(), "Dock3");
    EXPECT_STREQ(printer.GetDataFile().nstring(), "zplqv.ddt");
}
