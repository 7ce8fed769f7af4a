// Document settings, from a program's question to the spooler down to the module and back.
#include <cstring>
#include <vector>

#include "spooler/open_printer.h"
#include "spooler/printer_info.h"
#include "support/dev_mode_test.h"
#include "support/staged_driver_test.h"
#include "zplui.h"

namespace {

using Bytes = std::vector<char>;

DEVMODEW* In(Bytes& bytes) {
    return reinterpret_cast<DEVMODEW*>(bytes.data());
}

class DocumentSettings : public StagedDriverTest {
protected:
    void SetUp() override {
        Install({.model = "Resolution=203,300x600\n"
                          "Stock.Default.X=4 in\nStock.Default.Y=6 in\n",
                 .method = "Copies.Limit=500\n"});
        PRINTER_DEFAULTSW all = {nullptr, nullptr, PRINTER_ALL_ACCESS};
        ASSERT_TRUE(OpenPrinterW(const_cast<WCHAR*>(TEXT("Dock 3")), &printer_, &all));
    }
    void TearDown() override { ClosePrinter(printer_); }

    LONG Ask(DEVMODEW* out, DEVMODEW* in, DWORD mode) const {
        return DocumentPropertiesW(nullptr, printer_, nullptr, out, in, mode);
    }
    // The settings that a program gets for `in`, which may be null. Empty if it gets none.
    Bytes Made(DEVMODEW* in = nullptr) const {
        Bytes out(DEV_MODE_SIZE);
        const DWORD mode = in ? DM_IN_BUFFER | DM_OUT_BUFFER : DM_OUT_BUFFER;
        return Ask(In(out), in, mode) == IDOK ? out : Bytes();
    }
    int SetDefaults(DEVMODEW* settings) const {
        PRINTER_INFO_8W info = {settings};
        return SetPrinterW(printer_, 8, reinterpret_cast<BYTE*>(&info), 0);
    }

    HANDLE printer_ = nullptr;
};

} // namespace

TEST_F(DocumentSettings, AreTheDefaultsThenThePrintersThenTheProgramsOwn) {
    EXPECT_EQ(Ask(nullptr, nullptr, DM_OUT_BUFFER), 1508);
    EXPECT_EQ(Ask(nullptr, nullptr, 0), 1508);
    Bytes usual = Made();
    ASSERT_EQ(usual.size(), DEV_MODE_SIZE);
    EXPECT_EQ(Text(OString(In(usual)->dmDeviceName)), "Dock 3");
    SkipUnderWine("the spooler makes and keeps DEVMODEs without the driver");
    EXPECT_EQ(In(usual)->dmPaperLength, 1524);
    EXPECT_EQ(In(usual)->dmCopies, 1);

    // An older program's settings become the printer's, in the current layout.
    ForeignDevMode old(156, 0, "Dock 3");
    old->dmFields = DM_COPIES | DM_ORIENTATION | DM_PRINTQUALITY | DM_YRESOLUTION;
    old->dmCopies = 7;
    old->dmOrientation = DMORIENT_LANDSCAPE;
    old->dmPrintQuality = 300;
    old->dmYResolution = 600;
    ASSERT_TRUE(SetDefaults(old.dev_mode()));
    const DEVMODEW* stored = nullptr;
    const PrinterInfo info(printer_);
    ASSERT_NE(stored = info.GetDevMode(), nullptr);
    EXPECT_EQ(stored->dmSize, 220);
    Bytes of_printer = Made();
    EXPECT_EQ(In(of_printer)->dmCopies, 7);
    EXPECT_EQ(In(of_printer)->dmOrientation, DMORIENT_LANDSCAPE);
    EXPECT_EQ(In(of_printer)->dmYResolution, 600);

    ForeignDevMode own(220, 0);
    own->dmFields = DM_COPIES | DM_YRESOLUTION;
    own->dmCopies = 501;
    own->dmYResolution = 600;
    Bytes of_program = Made(own.dev_mode());
    EXPECT_EQ(In(of_program)->dmCopies, 500);
    EXPECT_EQ(In(of_program)->dmOrientation, DMORIENT_LANDSCAPE);
    EXPECT_EQ(In(of_program)->dmYResolution, 203) << "not this device's resolution";

    // One buffer for both, and an input that must be ignored.
    Bytes both = usual;
    In(both)->dmCopies = 9;
    EXPECT_EQ(Ask(In(both), In(both), DM_IN_BUFFER | DM_OUT_BUFFER), IDOK);
    EXPECT_EQ(In(both)->dmCopies, 9);
    EXPECT_EQ(Ask(In(both), In(usual), DM_OUT_BUFFER), IDOK);
    EXPECT_EQ(both, of_printer);
    EXPECT_EQ(Ask(In(both), In(usual), DM_IN_BUFFER), IDOK);
    EXPECT_EQ(both, of_printer) << "nothing is stored";
}

using DocumentPropertySheets = DevModeTest;

TEST_F(DocumentPropertySheets, AnswerAsTheHeaderAsks) {
    Install(Tables());
    DevMode expected;
    expected.CreateDefault(Model().get());
    DOCUMENTPROPERTYHEADER header = {};
    const auto call = [&] {
        return DrvDocumentPropertySheets(nullptr, reinterpret_cast<LPARAM>(&header));
    };
    const OpenPrinter printer(OString("Dock 3"), PRINTER_ACCESS_USE);
    header.cbSize = sizeof header;
    header.hPrinter = printer.Get();
    Bytes out(DEV_MODE_SIZE, 'x');
    header.pdmOut = In(out);
    EXPECT_EQ(call(), 1508);
    EXPECT_EQ(header.cbOut, 1508u);
    header.fMode = DM_OUT_BUFFER;
    header.cbOut = 1507;
    EXPECT_EQ(call(), 0);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INSUFFICIENT_BUFFER));
    EXPECT_EQ(out, Bytes(DEV_MODE_SIZE, 'x'));
    header.cbOut = 0;
    EXPECT_EQ(call(), IDOK);
    EXPECT_EQ(DrvDocumentPropertySheets(nullptr, 0), 0);
    SkipUnderWine("the spooler gives every printer a DEVMODE");
    EXPECT_EQ(std::memcmp(out.data(), expected.GetDevMode(), DEV_MODE_SIZE), 0);
    WCHAR name[] = TEXT("Dock 3");
    header.hPrinter = nullptr; // and a name, as some spoolers ask
    header.pszPrinterName = name;
    header.cbOut = 1508;
    header.fMode = DM_OUT_BUFFER | DM_IN_BUFFER | DM_IN_PROMPT; // without an input
    out.assign(DEV_MODE_SIZE, 'x');
    EXPECT_EQ(call(), IDOK);
    EXPECT_EQ(std::memcmp(out.data(), expected.GetDevMode(), DEV_MODE_SIZE), 0);
}
