// What a printer gets when it is added, connected to and upgraded.
#include <win32host/control.h>
#include <winddiui.h>

#include <string>

#include "model/driver_settings.h"
#include "settings/preset_list.h"
#include "settings/stock_list.h"
#include "spooler/driver_utility.h"
#include "spooler/platform_flags.h"
#include "spooler/printer_info.h"
#include "support/dev_mode_test.h"
#include "zplui.h"

namespace {

class PrinterEvent : public DevModeTest {
protected:
    void SetUp() override {
        Install(Tables("Ports.PNP.ID=ID1,ID2\nStock.Maximum.X=200 mm\nStock.Maximum.Y=200 mm\n"));
    }

    static BOOL Raise(int event, const char* printer = "Dock 3") {
        const OString name(printer);
        return DrvPrinterEvent(const_cast<WCHAR*>(name.wstring()), event, PRINTER_EVENT_FLAG_NO_UI,
                               0);
    }
    static BOOL Upgrade(const char* printer = "Dock 3") {
        const OString name(printer);
        DRIVER_UPGRADE_INFO_1W info = {};
        info.pPrinterName = const_cast<WCHAR*>(name.wstring());
        SetLastError(0);
        return DrvUpgradePrinter(1, reinterpret_cast<BYTE*>(&info));
    }

    // A default settings file with two stocks, one of the family's, and a preset.
    void WriteDefaults(const std::string& name = "oqvxxenu.kds") {
        StockRecord record = {50000, 25000, 0, 0, 0, 0, Stock::GLOBAL};
        std::string text = "<driver version='6.6'>\r\n\r\n<stock>\r\nName=shared\r\nData=" +
                           Encoded(&record, sizeof record) + "\r\n</stock>\r\n";
        record.flags |= Stock::PREDEFINED;
        text += "<stock>\r\nName=Gr\xC3\xB6\xC3\x9F"
                "e\r\nData=" +
                Encoded(&record, sizeof record) + "\r\n</stock>\r\n";
        DevMode mode;
        mode.CreateDefault(Model().get());
        mode.SetOrientation(1);
        std::string preset("DM32\xE4\x05\0\0", 8);
        preset.append(reinterpret_cast<const char*>(mode.GetDevMode()), 1508);
        text += "<preset>\r\nName=Draft\r\nData=" + Encoded(preset.data(), preset.size()) +
                "\r\n</preset>\r\n";
        const std::string folder = DriverUtility::GetDriverDirectory().nstring();
        WriteFile(folder.substr(3) + "\\" + name, text);
    }

    // The names of stocks and presets.
    static std::string Defaults() {
        const auto model = Model();
        StockList stocks(model.get());
        stocks.Load(model.get());
        PresetList presets;
        presets.Load(model.get());
        std::string all;
        for (const Stock* stock = stocks.GetNext(nullptr); stock; stock = stocks.GetNext(stock))
            all += Text(stock->GetName()) + (stock->is_predefined() ? "* " : " ");
        for (const Preset* preset = presets.GetNext(nullptr); preset;
             preset = presets.GetNext(preset))
            all += Text(preset->GetName());
        return all;
    }

    static void SetDefaultDevMode(DEVMODEW* mode) {
        EXPECT_TRUE(PrinterInfo(OString("Dock 3")).SetDevMode(mode));
    }
    // Sets the printer data that tell whether an operation has done its work to other values.
    static void Spoil() {
        prtreg registry = Registry();
        registry.Delete("DATA:Plug And Play IDs", false);
        DriverSettings settings;
        settings.SetMonitorStatus(true);
        settings.Save(registry);
        DevMode mode;
        mode.CreateDefault(Model().get());
        mode.SetCopies(999);
        mode.GetDevMode()->dmOrientation = 7;
        mode.GetDevMode()->dmFormName[0] = 'x';
        SetDefaultDevMode(mode.GetDevMode());
    }
    static std::string Identifiers() {
        OStringArray ids;
        Registry().GetMultiString("DATA:Plug And Play IDs", ids);
        return Text(ids);
    }
    static int DefaultCopies() { return PrinterInfo(OString("Dock 3")).GetDevMode()->dmCopies; }
};

const std::string kDefaults = "USER Gr\xF6\xDF"
                              "e* shared Draft";

} // namespace

TEST_F(PrinterEvent, GivesPrintersTheirDefaultsOnceHoweverOftenTheyAreInstalled) {
    WriteDefaults();
    WriteDefaults("ottxxenu.kds");
    Spoil();
    EXPECT_EQ(Defaults(), "USER ");
    EXPECT_TRUE(Raise(PRINTER_EVENT_INITIALIZE));
    EXPECT_EQ(Defaults(), kDefaults);
    EXPECT_EQ(Identifiers(), "ID1,ID2");
    prtreg registry = Registry();
    DriverSettings settings;
    settings.Load(registry);
    EXPECT_FALSE(settings.MonitorStatus());
    EXPECT_EQ(DefaultCopies(), 500) << "the most that the model prints";

    Spoil();
    EXPECT_TRUE(Raise(PRINTER_EVENT_INITIALIZE));
    EXPECT_TRUE(Raise(PRINTER_EVENT_ADD_CONNECTION));
    EXPECT_TRUE(Upgrade());
    EXPECT_EQ(Defaults(), kDefaults);
}

TEST_F(PrinterEvent, OfAConnectionLeavesTheDevModeAloneAndAnUpgradeThePlugAndPlayIdentifiers) {
    WriteDefaults();
    for (const bool upgrade : {false, true}) {
        Spoil();
        EXPECT_TRUE(upgrade ? Upgrade() : Raise(PRINTER_EVENT_ADD_CONNECTION));
        EXPECT_EQ(Defaults(), kDefaults);
        EXPECT_EQ(Identifiers(), upgrade ? "" : "ID1,ID2");
        EXPECT_EQ(DefaultCopies(), upgrade ? 500 : 999);
    }
}

TEST_F(PrinterEvent, MakesADefaultDevModeOfWhateverThereWasWithoutDefaultSettings) {
    ForeignDevMode older(188, 40, "Dock 3");
    older->dmFields = DM_ORIENTATION | DM_COPIES;
    older->dmOrientation = DMORIENT_LANDSCAPE;
    older->dmCopies = 3;
    SetDefaultDevMode(older.dev_mode());
    EXPECT_TRUE(Upgrade());
    const PrinterInfo info(OString("Dock 3"));
    ASSERT_NE(info.GetDevMode(), nullptr);
    EXPECT_EQ(info.GetDevMode()->dmSize + info.GetDevMode()->dmDriverExtra, 1508);
    EXPECT_EQ(info.GetDevMode()->dmOrientation, DMORIENT_LANDSCAPE);
    EXPECT_EQ(info.GetDevMode()->dmCopies, 3);
    EXPECT_EQ(Defaults(), "USER ");
    EXPECT_FALSE(OFile::Exists(DriverUtility::GetDriverDirectory() + "\\oqvxxenu.kds"));
}

TEST_F(PrinterEvent, OfAnotherKindOrPrinterDoesNothing) {
    WriteDefaults();
    for (int event : {0, 2, 4, 5, 6, 7, 99}) EXPECT_FALSE(Raise(event)) << event;
    EXPECT_FALSE(Raise(PRINTER_EVENT_INITIALIZE, "Nowhere"));
    EXPECT_TRUE(Raise(PRINTER_EVENT_ADD_CONNECTION, "Nowhere"));
    EXPECT_FALSE(Raise(PRINTER_EVENT_INITIALIZE, ""));
    EXPECT_FALSE(DrvPrinterEvent(nullptr, PRINTER_EVENT_INITIALIZE, 0, 0));
    EXPECT_TRUE(DrvPrinterEvent(nullptr, PRINTER_EVENT_ADD_CONNECTION, 0, 0));
    DRIVER_UPGRADE_INFO_1W unnamed = {};
    for (BYTE* info : {static_cast<BYTE*>(nullptr), reinterpret_cast<BYTE*>(&unnamed)}) {
        EXPECT_FALSE(Upgrade("Nowhere"));
        EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
        SetLastError(0);
        EXPECT_FALSE(DrvUpgradePrinter(1, info));
        EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    }
    EXPECT_EQ(Defaults(), "USER ");
}

TEST_F(PrinterEvent, RefusesASystemThatTheDriverDoesNotFit) {
    WriteDefaults();
    SetPlatformFlags("C:\\drivers\\2");
    win32host::SetVersion(2, 5, 1, 2600);
    const char mark[] = "DATA:Self-Destruct Sequence Initiated";
    const struct {
        const char* what;
        BOOL (*call)();
        size_t boxes;
        bool marks;
        DWORD error;
    } cases[] = {
        {"connection", [] { return Raise(PRINTER_EVENT_ADD_CONNECTION); }, 1, false, 0},
        {"upgrade", [] { return Upgrade(); }, 0, true, ERROR_BAD_DRIVER},
        {"new printer", [] { return Raise(PRINTER_EVENT_INITIALIZE); }, 1, true, 0},
    };
    for (const auto& c : cases) {
        Registry().Delete(mark, false);
        SetLastError(0);
        EXPECT_FALSE(c.call()) << c.what;
        EXPECT_TRUE(!c.error || GetLastError() == c.error) << c.what;
        const auto boxes = win32host::TakeMessageBoxes();
        EXPECT_EQ(boxes.size(), c.boxes) << c.what;
        for (const auto& box : boxes) {
            EXPECT_EQ(box.type, UINT{MB_ICONERROR | MB_OK});
            EXPECT_EQ(box.caption, TEXT("Incorrect Driver Version"));
        }
        EXPECT_EQ(Registry().GetSize(mark) == 1, c.marks) << c.what;
        EXPECT_EQ(Registry().GetByte(mark, 0), c.marks ? 0xFF : 0) << c.what;
        EXPECT_EQ(Defaults(), "USER ") << c.what;
    }
}
