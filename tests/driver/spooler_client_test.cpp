// A program that uses printers through the spooler alone: what it gets is what the module says.
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "support/build_folders.h"
#include "support/spooler_answer.h"
#include "support/staged_driver_test.h"
#include "support/wide.h"
#include "zplui.h"

namespace {

using Bytes = std::vector<BYTE>;

DEVMODEW* In(Bytes& bytes) {
    return reinterpret_cast<DEVMODEW*>(bytes.data());
}

template <class Info>
Answer<Info> Record(HANDLE printer, DWORD level) {
    return Answer<Info>([&](BYTE* buffer, DWORD size, DWORD* needed) {
        return GetPrinterW(printer, level, buffer, size, needed);
    });
}

class SpoolerClient : public StagedDriverTest {
protected:
    void SetUp() override {
        Install({.model = "Resolution=203,300x600\nColor=yes\nColor.Process=CMYK\n"
                          "Ports.PNP.ID=ID1\nStock.Default.X=4 in\nStock.Default.Y=6 in\n"
                          "Stock.Maximum.X=114 mm\nStock.Maximum.Y=990 mm\n",
                 .method = "Copies.Limit=500\n"});
        PRINTER_DEFAULTSW all = {nullptr, nullptr, PRINTER_ALL_ACCESS};
        ASSERT_TRUE(OpenPrinterW(name_, &printer_, &all));
    }
    void TearDown() override { ClosePrinter(printer_); }

    LONG Ask(DEVMODEW* out, DEVMODEW* in, DWORD mode) {
        return DocumentPropertiesW(nullptr, printer_, name_, out, in, mode);
    }

    WCHAR name_[8] = TEXT("Dock 3");
    HANDLE printer_ = nullptr;
};

} // namespace

TEST_F(SpoolerClient, FindsTheDriversFilesWhereTheSpoolerPutsThem) {
    const Answer<DRIVER_INFO_3W> driver([&](BYTE* buffer, DWORD size, DWORD* needed) {
        return GetPrinterDriverW(printer_, nullptr, 3, buffer, size, needed);
    });
    ASSERT_TRUE(driver.good());
    EXPECT_EQ(driver->cVersion, 3u);
    EXPECT_STREQ(OString(driver->pName).nstring(), "Model 1");
    for (const WCHAR* file : {driver->pDriverPath, driver->pDataFile, driver->pConfigFile}) {
        const OString path(file);
        EXPECT_EQ(OString(path.PathPart()), DriverFolder()) << Text(path);
        const OString name = path.FilePart();
        const auto size = std::filesystem::file_size(OnDriveC(path.nstring() + 3));
        EXPECT_EQ(size, name == "zplui.dll" ? std::filesystem::file_size(Built("/bin/zplui.dll"))
                                            : static_cast<size_t>(name.GetLength()))
            << Text(path);
    }
}

TEST_F(SpoolerClient, GetsTheCapabilitiesThatTheModuleHas) {
    const auto ask = Export<decltype(DrvDeviceCapabilities)>("DrvDeviceCapabilities");
    ASSERT_TRUE(ask);
    const auto both = [&](WORD capability, BYTE* output, BYTE* expected) {
        const auto direct = static_cast<int>(ask(printer_, name_, capability, expected, nullptr));
        EXPECT_EQ(DeviceCapabilitiesW(name_, TEXT("FILE:"), capability,
                                      reinterpret_cast<WCHAR*>(output), nullptr),
                  direct)
            << capability;
        return direct;
    };
    for (WORD capability = 0; capability <= 35; ++capability) both(capability, nullptr, nullptr);
    for (const int capability :
         {DC_PAPERS, DC_PAPERSIZE, DC_MINEXTENT, DC_MAXEXTENT, DC_BINS, DC_BINNAMES,
          DC_ENUMRESOLUTIONS, DC_FILEDEPENDENCIES, DC_PAPERNAMES, DC_PERSONALITY, DC_NUP}) {
        Bytes output(1024, 0xEE), expected(1024, 0xEE);
        EXPECT_GT(both(static_cast<WORD>(capability), output.data(), expected.data()), 0);
        EXPECT_TRUE(output == expected) << capability;
        EXPECT_NE(output[0], 0xEE) << capability;
    }
}

TEST_F(SpoolerClient, GetsDocumentSettingsWithoutAPrompt) {
    const auto ask = Export<decltype(DrvDocumentPropertySheets)>("DrvDocumentPropertySheets");
    ASSERT_TRUE(ask);
    ASSERT_EQ(Ask(nullptr, nullptr, 0), LONG{DEV_MODE_SIZE});
    Bytes out(DEV_MODE_SIZE), direct(DEV_MODE_SIZE);
    ASSERT_EQ(Ask(In(out), nullptr, DM_OUT_BUFFER), IDOK);
    DOCUMENTPROPERTYHEADER header = {};
    header.cbSize = sizeof header;
    header.hPrinter = printer_;
    header.pdmOut = In(direct);
    header.fMode = DM_OUT_BUFFER;
    EXPECT_EQ(ask(nullptr, reinterpret_cast<LPARAM>(&header)), IDOK);
    EXPECT_TRUE(out == direct);
    header.hPrinter = nullptr; // and a name, as some spoolers ask
    header.pszPrinterName = name_;
    direct.assign(DEV_MODE_SIZE, 0);
    EXPECT_EQ(ask(nullptr, reinterpret_cast<LPARAM>(&header)), IDOK);
    EXPECT_TRUE(out == direct);
    EXPECT_STREQ(OString(In(out)->dmDeviceName).nstring(), "Dock 3");
    // Wine's spooler has the printer's defaults made before it knows the printer.
    EXPECT_EQ(In(out)->dmPaperLength, RunsUnderWine() ? 0 : 1524);

    // Settings that lie in the buffer already are changed where they are.
    In(out)->dmCopies = 501;
    In(out)->dmOrientation = DMORIENT_LANDSCAPE;
    EXPECT_EQ(Ask(In(out), In(out), DM_IN_BUFFER | DM_OUT_BUFFER), IDOK);
    EXPECT_EQ(In(out)->dmCopies, 500) << "the most that the model prints";
    EXPECT_EQ(In(out)->dmOrientation, DMORIENT_LANDSCAPE);
    EXPECT_EQ(Ask(In(out), nullptr, DM_OUT_BUFFER), IDOK);
    EXPECT_EQ(In(out)->dmCopies, 1);
}

TEST_F(SpoolerClient, SetsThePrintersDefaultsWhichProgramsThenGet) {
    Bytes settings(DEV_MODE_SIZE), found(DEV_MODE_SIZE);
    ASSERT_EQ(Ask(In(settings), nullptr, DM_OUT_BUFFER), IDOK);
    for (const DWORD level : {DWORD{2}, DWORD{8}}) {
        SCOPED_TRACE(level);
        const auto record = Record<PRINTER_INFO_2W>(printer_, 2);
        ASSERT_TRUE(record.good());
        PRINTER_INFO_2W info = record[0];
        PRINTER_INFO_8W defaults = {In(settings)};
        WCHAR comment[] = TEXT("changed");
        info.pComment = comment;
        info.pDevMode = In(settings);
        In(settings)->dmCopies = static_cast<SHORT>(40 + level);
        settings[DEV_MODE_SIZE - 100] = static_cast<BYTE>(level); // private
        ASSERT_TRUE(SetPrinterW(
            printer_, level,
            level == 2 ? reinterpret_cast<BYTE*>(&info) : reinterpret_cast<BYTE*>(&defaults), 0));
        const auto of_printer = Record<PRINTER_INFO_2W>(printer_, 2);
        const auto alone = Record<PRINTER_INFO_8W>(printer_, 8);
        ASSERT_TRUE(of_printer.good() && alone.good());
        EXPECT_STREQ(OString(of_printer->pComment).nstring(), "changed");
        for (const DEVMODEW* stored : {of_printer->pDevMode, alone->pDevMode}) {
            ASSERT_TRUE(stored);
            ASSERT_EQ(stored->dmSize + stored->dmDriverExtra, int{DEV_MODE_SIZE});
            EXPECT_EQ(stored->dmCopies, In(settings)->dmCopies);
            EXPECT_EQ(std::memcmp(reinterpret_cast<const BYTE*>(stored) + stored->dmSize,
                                  settings.data() + stored->dmSize, stored->dmDriverExtra),
                      0);
        }
        EXPECT_EQ(Ask(In(found), nullptr, DM_OUT_BUFFER), IDOK);
        EXPECT_EQ(In(found)->dmCopies, In(settings)->dmCopies);
        EXPECT_EQ(found[DEV_MODE_SIZE - 100], level);
    }
    const auto first = Record<PRINTER_INFO_1W>(printer_, 1);
    const auto fourth = Record<PRINTER_INFO_4W>(printer_, 4);
    EXPECT_STREQ(OString(first->pName).nstring(), "Dock 3");
    EXPECT_STREQ(OString(fourth->pPrinterName).nstring(), "Dock 3");
}

TEST_F(SpoolerClient, FindsWhatTheModuleHasStoredForANewPrinter) {
    // Wine's spooler tells drivers of nothing.
    const auto raise = Export<decltype(DrvPrinterEvent)>("DrvPrinterEvent");
    ASSERT_TRUE(raise);
    EXPECT_TRUE(!RunsUnderWine() ||
                raise(name_, PRINTER_EVENT_INITIALIZE, PRINTER_EVENT_FLAG_NO_UI, 0));
    const auto data = [&](const WCHAR* key, const WCHAR* name) {
        DWORD type = 0, size = 0;
        GetPrinterDataExW(printer_, key, name, &type, nullptr, 0, &size);
        Bytes bytes(size);
        EXPECT_EQ(GetPrinterDataExW(printer_, key, name, &type, bytes.data(), size, &size), 0u);
        return bytes;
    };
    EXPECT_FALSE(data(TEXT("PrinterDriverData"), TEXT("Plug And Play IDs")).empty());

    // A program's own data, and the module's key map that finds it.
    BYTE value[] = {1, 2, 3};
    ASSERT_EQ(
        SetPrinterDataExW(printer_, TEXT("PrinterDriverData"), TEXT("Own"), REG_BINARY, value, 3),
        0u);
    EXPECT_EQ(data(TEXT("PrinterDriverData"), TEXT("Own")), Bytes(value, value + 3));
    uint32_t size = 0, type = 0;
    EXPECT_TRUE(prtreg(OString(name_)).GetInfo("DATA:Own", &size, &type));
    EXPECT_EQ(size, 3u);
}

TEST_F(SpoolerClient, FindsThePrinterAmongAllAndItsPortToo) {
    DWORD count = 0;
    const Answer<PRINTER_INFO_4W> printers([&](BYTE* buffer, DWORD size, DWORD* needed) {
        return EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 4, buffer, size, needed, &count);
    });
    ASSERT_EQ(count, 1u);
    EXPECT_STREQ(OString(printers->pPrinterName).nstring(), "Dock 3");
    const Answer<PORT_INFO_2W> ports([&](BYTE* buffer, DWORD size, DWORD* needed) {
        return EnumPortsW(nullptr, 2, buffer, size, needed, &count);
    });
    bool found = false;
    for (DWORD i = 0; i < count; ++i) {
        if (OString(ports[i].pPortName) != "FILE:") continue;
        found = true;
        EXPECT_STREQ(OString(ports[i].pMonitorName).nstring(), "Local Monitor");
        EXPECT_TRUE(ports[i].fPortType & PORT_TYPE_WRITE);
    }
    EXPECT_TRUE(found);
}
