// The settings interface for programs: what is stored, and what a user below the printer's access
// level can and cannot do.
#include <win32host/control.h>

#include "keys/network_policy.h"
#include "keys/user_info.h"
#include "spooler/printer_info.h"
#include "support/job_test.h"
#include "ui/prtui.h"
#include "zplui.h"

namespace {

class SettingsInterface : public JobTest {
protected:
    void SetUp() override {
        Install({.model = "Resolution=203\nStock.Maximum.X=110 mm\nStock.Maximum.Y=990 mm\n"
                          "Stock.Default.X=4 in\nPorts.PNP.ID=ID1\n"});
        WriteFile("in.kds", "<driver version='6.6'>\r\n<stock>\r\nName=Tag\r\n"
                            "Data=UMMAAKhhAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA==\r\n</stock>\r\n"
                            "<options model='Model 1'>\r\n[DATA:\\Settings]\r\n"
                            "\"New\"=dword:00000001\r\n</options>\r\n");
    }
    static bool Has(HANDLE settings) {
        return static_cast<prtui*>(settings)->stocks.Find("Tag") != nullptr;
    }
};

class RestrictedUser : public SettingsInterface {
protected:
    void SetUp() override {
        SkipUnderWine("the user is the one that Wine runs as");
        SettingsInterface::SetUp();
        NetworkPolicy("Dock 3").SetLocalAccessLevel(USER_LEVEL_ADMIN);
        // The spooler lets this one change printers.
        win32host::SetUser({TEXT("kim"),
                            TEXT("DESK7"),
                            TEXT("DESK7"),
                            {{win32host::Group::Builtin, TEXT("Power Users"), TEXT(""), 547}},
                            1007});
    }
};

} // namespace

TEST_F(SettingsInterface, StoresWhatIsImportedWhenItIsSaved) {
    const HANDLE first = DAL_Printer_Open(printer());
    const HANDLE second = DAL_Printer_Open(printer());
    ASSERT_TRUE(first && second);
    DAL_Settings_Import(first, TEXT("C:\\in.kds"), DAL_SETTINGS_PRESETS);
    EXPECT_FALSE(Has(first));
    DAL_Settings_Import(first, TEXT("C:\\in.kds"), DAL_SETTINGS_STOCKS);
    EXPECT_TRUE(Has(first));
    DAL_Settings_Load(second);
    EXPECT_FALSE(Has(second));
    DAL_Settings_Save(first);
    EXPECT_EQ(GetLastError(), DWORD{NO_ERROR});
    DAL_Settings_Load(second);
    EXPECT_TRUE(Has(second));
    DAL_Settings_Export(second, TEXT("C:\\out.kds"), DAL_SETTINGS_STOCKS);
    EXPECT_NE(BytesOf(OnDriveC("out.kds")).find("Name=Tag\r\n"), std::string::npos);
    DAL_Printer_Close(first);
    DAL_Printer_Close(second);
}

TEST_F(SettingsInterface, DoesNothingWithoutSettingsOrWithoutAFile) {
    DAL_Printer_Close(nullptr);
    // An unknown printer has the model of its defaults.
    for (const HANDLE settings : {HANDLE{nullptr}, DAL_Printer_Open(nullptr)}) {
        DAL_Settings_Load(settings);
        DAL_Settings_Import(settings, TEXT("C:\\in.kds"), 0x10F);
        DAL_Settings_Export(settings, TEXT("C:\\out.kds"), 0x10F);
        DAL_Settings_Import(settings, nullptr, 0x10F);
        DAL_Settings_Export(settings, nullptr, 0x10F);
        DAL_Settings_Save(settings);
        DAL_Printer_Close(settings);
    }
}

TEST_F(RestrictedUser, StoresSettings) {
    HANDLE settings = DAL_Printer_Open(printer());
    EXPECT_TRUE(static_cast<prtui*>(settings)->restricted);
    DAL_Settings_Import(settings, TEXT("C:\\in.kds"), 0x10F);
    DAL_Printer_Close(settings);
    settings = DAL_Printer_Open(printer());
    EXPECT_TRUE(Has(settings));
    EXPECT_EQ(Registry().GetDWORD("Settings:New", 0), 1u);
    DAL_Printer_Close(settings);
}

TEST_F(RestrictedUser, SetsPrintersUpAndTheirDefaults) {
    static WCHAR name[] = TEXT("Dock 3");
    EXPECT_TRUE(DrvPrinterEvent(name, PRINTER_EVENT_INITIALIZE, 0, 0));
    EXPECT_GT(Registry().GetSize("DATA:Plug And Play IDs"), 0);
    DRIVER_UPGRADE_INFO_1W info = {name, nullptr};
    EXPECT_TRUE(DrvUpgradePrinter(1, reinterpret_cast<BYTE*>(&info)));

    prtui* const ui = static_cast<prtui*>(DAL_Printer_Open(printer()));
    ui->devmode.GetDevMode()->dmCopies = 17;
    DOCUMENTPROPERTYHEADER header = {};
    header.fMode = DM_UPDATE;
    PROPSHEETUI_INFO sheet = {};
    SETRESULT_INFO result = {};
    result.Result = CPSUI_OK;
    EXPECT_EQ(ui->ReasonSetResult(&sheet, &result, &header), 1);
    EXPECT_EQ(PrinterInfo(printer()).GetDevMode()->dmCopies, 17);
    DAL_Printer_Close(ui);
}

TEST_F(RestrictedUser, IsRefusedWhatAPageWouldRefuse) {
    const HANDLE settings = DAL_Printer_Open(printer());
    static_cast<prtui*>(settings)->fonts.AddTail(new DownloadedFont);
    for (int action = 0; action <= DAL_ACTION_LAST; ++action) {
        if (!(DAL_Action_Supported(settings, action) & DAL_ACTION_ADMINISTRATIVE)) continue;
        EXPECT_FALSE(DAL_Action_Run(settings, action, TEXT("C:\\in.kds"))) << action;
    }
    DAL_FONT font = {};
    EXPECT_FALSE(DAL_Fonts_Verify(settings) || DAL_Fonts_Resend(settings));
    EXPECT_FALSE(DAL_Font_Download(settings, &font) || DAL_Font_Delete(settings, 0));
    EXPECT_TRUE(TakeJobs().empty());
    EXPECT_TRUE(DAL_Action_Run(settings, 12, nullptr)) << "everyone may print its configuration";
    EXPECT_EQ(TakeJobs().size(), 1u);
    DAL_Printer_Close(settings);
}
