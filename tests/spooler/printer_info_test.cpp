#include "spooler/printer_info.h"

#include <cstring>
#include <utility>
#include <vector>

#include "support/model_test.h"

namespace {

// A DEVMODE followed by private bytes.
struct TestDevMode {
    DEVMODEW public_part = {};
    unsigned char private_part[16] = {};

    explicit TestDevMode(SHORT copies) {
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

class PrinterInformation : public PrinterTest {
protected:
    void AddDock(DWORD attributes = 0, DEVMODEW* dev_mode = nullptr) {
        ASSERT_TRUE(AddDriver("Model 1", "ZPLQV.DDT"));
        ASSERT_TRUE(AddPrinter("Dock 3", "Model 1", attributes, dev_mode));
    }
};

} // namespace

TEST_F(PrinterInformation, ComesFromTheSpoolersRecords) {
    AddDock(PRINTER_ATTRIBUTE_ENABLE_BIDI);
    PrinterInfo printer("Dock 3");
    EXPECT_TRUE(printer.IsKnown());
    EXPECT_TRUE(printer.IsLocal());
    EXPECT_TRUE(printer.GetAttributes() & PRINTER_ATTRIBUTE_ENABLE_BIDI);
    EXPECT_EQ(printer.GetDriverVersion(), 3u);
    const std::pair<OString, const char*> cases[] = {
        {printer.GetPrinterName(), "Dock 3"},       {printer.PrinterPart(), "Dock 3"},
        {printer.GetDriverName(), "Model 1"},       {printer.GetServerName(), ""},
        {printer.GetPrintProcessor(), "WinPrint"},  {printer.GetShareName(), "SHARE"},
        {printer.GetDriverFile(), "zplrender.dll"}, {printer.GetPortName(), "FILE:"},
        {printer.GetDataFile(), "ZPLQV.DDT"},       {printer.GetComment(), "A comment"},
        {printer.GetConfigFile(), "zplui.dll"},     {printer.GetDatatype(), "RAW"},
        {printer.GetHelpFile(), "zplui.hlp"},       {printer.GetOEM(), "qv"},
        {printer.GetDefaultDatatype(), "RAW"},      {printer.GetPrefix(), "zpl"}};
    for (const auto& [found, expected] : cases) EXPECT_STREQ(found.nstring(), expected);
    const OStringArray& files = printer.GetDependentFiles();
    ASSERT_EQ(files.GetSize(), 2);
    EXPECT_STREQ(files[0].nstring(), "zplrender.dll");
    EXPECT_STREQ(files[1].nstring(), "zplvenu.dll");
    EXPECT_STREQ(printer.GetDriverDirectory().FilePart().nstring(), "3");

    ASSERT_TRUE(AddDriver("Old", "zpltt.ddt", 3));
    ASSERT_TRUE(AddPrinter("Dock", "Old"));
    PrinterInfo old("Dock");
    EXPECT_TRUE(old.GetManufacturer().IsEmpty() && old.GetHardwareID().IsEmpty());
    EXPECT_STREQ(old.GetOEM().nstring(), "tt");
    EXPECT_EQ(old.GetDependentFiles().GetSize(), 2);
}

TEST_F(PrinterInformation, HasTheMakerOfTheDriverAndNoDevModeOfItsOwn) {
    SkipUnderWine("the spooler forgets makers and gives every printer a DEVMODE");
    AddDock();
    PrinterInfo printer("Dock 3");
    EXPECT_EQ(Text(printer.GetManufacturer()), "Maker");
    EXPECT_EQ(Text(printer.GetHardwareID()), "HW1");
    EXPECT_EQ(Text(printer.GetProvider()), "Provider");
    EXPECT_EQ(printer.GetDevMode(), nullptr);
}

TEST_F(PrinterInformation, SplitsTheServerFromTheName) {
    const std::pair<const char*, const char*> cases[] = {
        {"\\\\SERVER\\LABELS", "LABELS"}, {"LABELS", "LABELS"},     {"a\\b", "a\\b"}, {"", ""},
        {"\\\\SERVER", "\\\\SERVER"},     {"\\LABELS", "\\LABELS"}, {"ab\\c", "c"}};
    for (const auto& [name, part] : cases) {
        EXPECT_STREQ(PrinterInfo(OString(name)).PrinterPart().nstring(), part) << name;
    }
}

TEST_F(PrinterInformation, AnswersTheDevModeThatItHasSet) {
    SkipUnderWine("the spooler writes into the DEVMODEs that it keeps");
    TestDevMode first(7);
    AddDock(0, &first.public_part);
    PrinterInfo printer("Dock 3");
    EXPECT_TRUE(HoldsDevMode(printer, first));
    for (const SHORT copies : {SHORT{2}, SHORT{3}}) {
        TestDevMode dev_mode(copies);
        ASSERT_TRUE(printer.SetDevMode(&dev_mode.public_part));
        EXPECT_TRUE(HoldsDevMode(printer, dev_mode));
        EXPECT_TRUE(HoldsDevMode(PrinterInfo("Dock 3"), dev_mode));
    }
    EXPECT_FALSE(printer.SetDevMode(nullptr));
    EXPECT_STREQ(PrinterInfo("Dock 3").GetComment().nstring(), "A comment");
}

TEST_F(PrinterInformation, IsReadWhateverItsLength) {
    SkipUnderWine("the spooler writes into the DEVMODEs that it keeps");
    // Longer than the room that the spooler gets first.
    constexpr WORD Extra = 20000;
    std::vector<unsigned char> bytes(sizeof(DEVMODEW) + Extra, 0x5A);
    DEVMODEW head = {};
    head.dmSize = sizeof head;
    head.dmDriverExtra = Extra;
    std::memcpy(bytes.data(), &head, sizeof head);
    AddDock(0, reinterpret_cast<DEVMODEW*>(bytes.data()));
    PrinterInfo printer("Dock 3");
    ASSERT_TRUE(printer.GetDevMode());
    EXPECT_EQ(std::memcmp(printer.GetDevMode(), bytes.data(), bytes.size()), 0);
    EXPECT_STREQ(printer.GetComment().nstring(), "A comment");
}
