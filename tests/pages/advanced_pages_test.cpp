// The pages for administration, for what a document sends, and for the status monitor.
#include <windows.h>

#include <richedit.h>

#include <string>
#include <vector>

#include "pages/advanced/escape_sequences.h"
#include "pages/advanced/pp_advanced.h"
#include "pages/advanced/pp_advanced_administration.h"
#include "pages/advanced/pp_advanced_driver.h"
#include "pages/advanced/pp_advanced_specifications.h"
#include "pages/advanced/pp_office_compatibility.h"
#include "pages/advanced/pp_regional.h"
#include "pages/status/pp_status_communication.h"
#include "pages/status/pp_status_monitor.h"
#include "spooler/driver_utility.h"
#include "support/job_test.h"
#include "support/sheet_of_pages.h"
#include "ui/uwindow.h"

namespace {

enum : int {
    COMMANDS = 494,
    SEQUENCES = 493,
    ESCAPE_CHARACTERS = 622,
    INSERT = 666,
    ESC_ITEM = 4927,
    COPIES = 315,
    NO_COPIES_LIMIT = 509,
    OVERRIDE = 624,
    UNPRINTABLE = 505,
    WIDTH_MIN = 516,
    WIDTH_MAX = 518,
    X_RESOLUTION = 626,
    IMPORT = 600,
    SHARED = 679,
    NOT_SHARED = 680,
    LOCAL_LEVEL = 681,
    NETWORK_LEVEL = 682,
    CONTENTS = 601,
    EXPORT = 602,
    LANGUAGES = 351,
    UNITS = 397,
    CODE_PAGES = 691,
    WRITE_TIMEOUT = 631,
    QUERY_INTERVAL = 633,
    MONITOR = 621,
    QUERY_BEFORE_JOB = 624
};

class AdvancedPages : public JobTest {
protected:
    void SetUp() override {
        Install({.model = "Resolution=203\nStock.Minimum.X=4 mm\nStock.Minimum.Y=10 mm\n"
                          "Stock.Maximum.X=104 mm\nStock.Maximum.Y=500 mm\n"
                          "Stock.Default.X=100 mm\nStock.Default.Y=150 mm\n"
                          "Stock.Printable.X=100 mm\nStock.Tracking=Left\n",
                 .method = "Copies.Limit=500\n"});
        InstallLanguage();
    }
    // A sheet of one page.
    void Open(const char* name, DLGPROC procedure, bool restricted = false) {
        sheet.reset();
        ui = OpenUI();
        ui->restricted = restricted;
        ui->locale.SetNewUnits(prtlocale::MILLIMETRES);
        PROPSHEETPAGEW page = {};
        page.dwSize = sizeof page;
        page.dwFlags = PSP_DLGINDIRECT;
        page.hInstance = DriverUtility::GetModuleHandle();
        page.pResource = static_cast<LPCDLGTEMPLATEW>(ui->locale.GetDialog(name, nullptr));
        page.pfnDlgProc = procedure;
        page.lParam = reinterpret_cast<LPARAM>(ui.get());
        sheet = std::make_unique<SheetOfPages>(std::vector{CreatePropertySheetPageW(&page)});
        ASSERT_TRUE(sheet->Page());
        EXPECT_FALSE(sheet->CanApply());
    }
    void TypeAndLeave(int id, const WCHAR* text) const {
        sheet->Type(id, text);
        sheet->Command(id, EN_KILLFOCUS);
    }
    std::string Shown(int id) const { return Text(TextOfWindow(sheet->Item(id))); }
    bool IsEnabled(int id) const { return IsWindowEnabled(sheet->Item(id)) != FALSE; }
    int Selected(int id) const {
        return static_cast<int>(SendMessageW(sheet->Item(id), CB_GETCURSEL, 0, 0));
    }
    void Cancel() const {
        const PSHNOTIFY reset = {{sheet->window(), 0, static_cast<UINT>(PSN_RESET)}, 0};
        SendMessageW(sheet->Page(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&reset));
    }
    // The characters of the commands, the coloured ones as "*".
    std::string Colours() const {
        const HWND edit = sheet->Item(COMMANDS);
        std::string all = Shown(COMMANDS);
        for (size_t i = 0; i < all.size(); ++i) {
            CHARFORMAT2W format = {};
            format.cbSize = sizeof format;
            SendMessageW(edit, EM_SETSEL, i, static_cast<LPARAM>(i + 1));
            SendMessageW(edit, EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
            if (format.crTextColor == 0xE0) all[i] = '*';
        }
        return all;
    }
    std::string Command(int number) const {
        return std::string(ui->devmode.GetConfiguration()->user[number]);
    }

    std::unique_ptr<prtui> ui;
    std::unique_ptr<SheetOfPages> sheet;
};

} // namespace

TEST(EscapeSequences, AreFoundInALine) {
    const struct {
        const char* text;
        const char* sequences; // as "*"
        char escape = '^';
    } cases[] = {{"^XA^<ESC>^#1B^?C:\\a.prn", "**A********************"},
                 {"a^", "a*"},
                 {"^\r\nXA", "*\nXA"},
                 {"^<ESC\r\n>", "*****\n>"},
                 {"^#1", "***"},
                 {"^^XA", "**XA"},
                 {"~XA^XA", "**A^XA", '~'},
                 {"^XA", "^XA", '\0'}};
    for (const auto& c : cases) {
        std::string shown = c.text;
        std::erase(shown, '\r');
        OTypedArray<TextRange> ranges;
        FindEscapeSequences(c.text, c.escape, ranges);
        for (int i = 0; i < ranges.GetSize(); ++i)
            for (int at = ranges[i].start; at < ranges[i].end; ++at)
                shown[static_cast<size_t>(at)] = '*';
        EXPECT_EQ(shown, c.sequences) << c.text;
    }
    EXPECT_STREQ(ControlCharName('\x1B'), "ESC");
    EXPECT_STREQ(ControlCharName('\x7F'), "DEL");
    EXPECT_STREQ(ControlCharName('\x80'), "");
}

TEST_F(AdvancedPages, ColourAndStoreTheCommandsOfADocument) {
    Open("*:ADVANCED/USER_COMMANDS", ppAdvanced::WinProc);
    EXPECT_EQ(Selected(ESCAPE_CHARACTERS), 1); // "^"
    sheet->Type(COMMANDS, TEXT("a^XA"));
    SendMessageW(sheet->Item(COMMANDS), EM_SETSEL, 1, 1);
    sheet->Command(ESC_ITEM, 0);
    EXPECT_TRUE(sheet->CanApply());
    EXPECT_EQ(Shown(COMMANDS), "a^<ESC>^XA");
    EXPECT_EQ(Colours(), "a********A");

    // The second item is the third sequence.
    SendMessageW(sheet->Item(SEQUENCES), LB_SETCURSEL, 1, 0);
    sheet->Command(SEQUENCES, LBN_SELCHANGE);
    EXPECT_EQ(Shown(COMMANDS), "");
    sheet->Type(COMMANDS, TEXT("~JA"));
    sheet->Choose(ESCAPE_CHARACTERS, 2);
    EXPECT_EQ(Colours(), "**A");
    sheet->Choose(ESCAPE_CHARACTERS, 0);
    EXPECT_EQ(Colours(), "~JA");
    EXPECT_FALSE(IsEnabled(INSERT));
    sheet->Choose(ESCAPE_CHARACTERS, 2);

    EXPECT_EQ(Command(0), "");
    EXPECT_TRUE(sheet->Apply());
    EXPECT_EQ(Command(0), "a^<ESC>^XA");
    EXPECT_EQ(Command(2), "~JA");
    EXPECT_EQ(Text(Registry().GetString("Settings:Function Character", "")), "~");
    EXPECT_FALSE(sheet->CanApply());
}

TEST_F(AdvancedPages, LimitCopies) {
    Open("*:ADVANCED/DRIVER_OPTIONS", ppAdvancedDriver::WinProc);
    TypeAndLeave(COPIES, TEXT("900"));
    EXPECT_EQ(Shown(COPIES), "500");
    sheet->Click(NO_COPIES_LIMIT);
    TypeAndLeave(COPIES, TEXT("900"));
    EXPECT_EQ(Shown(COPIES), "900");
    EXPECT_TRUE(sheet->Apply());
    EXPECT_EQ(ui->devmode.GetCopies(), 900);
    EXPECT_EQ(Registry().GetByte("Settings:Disable Copies Limit", 0), 1);
}

TEST_F(AdvancedPages, OverrideSpecifications) {
    Open("*:DRIVER/SPECIFICATIONS", ppAdvancedSpecifications::WinProc);
    TypeAndLeave(UNPRINTABLE, TEXT("9 mm"));
    EXPECT_EQ(Shown(UNPRINTABLE), "4.0 mm"); // all that the head leaves
    EXPECT_TRUE(sheet->Apply());

    prtreg stored = Registry();
    EXPECT_EQ(stored.GetDWORD("Settings:Unprintable Width", 0), 4000U);
    EXPECT_FALSE(stored.GetKeyInfo("Settings:Specifications", nullptr, nullptr));
    DriverSettings settings;
    settings.Load(stored);
    settings.OverrideSpecifications(true);
    settings.SetXResolution(10);
    settings.SetPrintableWidth(60000);
    settings.SetPaperWidthMin(90000);
    settings.SetPaperWidthMax(80000);
    settings.SetTracking(1);
    settings.Save(stored);
    Model()->FlushDataCache();

    Open("*:DRIVER/SPECIFICATIONS", ppAdvancedSpecifications::WinProc);
    EXPECT_EQ(Shown(X_RESOLUTION), "24");
    EXPECT_EQ(Shown(WIDTH_MIN), "80.0 mm");
    TypeAndLeave(WIDTH_MAX, TEXT("4000 mm"));
    EXPECT_EQ(Shown(WIDTH_MAX), "3048.0 mm");
    EXPECT_EQ(Shown(WIDTH_MIN), "90.0 mm");
    sheet->Choose(625, 1); // the centre: there is no margin
    sheet->Command(WIDTH_MAX, EN_KILLFOCUS);
    EXPECT_EQ(Shown(UNPRINTABLE), "");
    EXPECT_FALSE(IsEnabled(UNPRINTABLE));
    sheet->Click(OVERRIDE);
    EXPECT_TRUE(sheet->Apply());
    EXPECT_FALSE(stored.GetKeyInfo("Settings:Specifications", nullptr, nullptr));
    EXPECT_EQ(ui->model->GetXResolution(), 203);
}

TEST_F(AdvancedPages, PutBackWhatWasImported) {
    prtreg stored = Registry();
    stored.SetInt("Settings:Local Access Level", 2);
    stored.SetInt("Settings:Network Access Level", 1);
    Open("*:DRIVER/ADMINISTRATION", ppAdvancedAdministration::WinProc);
    // Users of other computers may not do more.
    EXPECT_EQ(Selected(LOCAL_LEVEL), 1);
    EXPECT_EQ(Selected(NETWORK_LEVEL), 2);
    SendMessageW(sheet->Item(CONTENTS), LB_SETSEL, FALSE, -1);
    sheet->Command(CONTENTS, LBN_SELCHANGE);
    EXPECT_FALSE(IsEnabled(EXPORT));

    StockRecord record = {};
    record.width = record.length = 50000;
    record.flags = StockRecord::GLOBAL;
    const std::string file =
        "<driver version='6.6'>\n<stock>\nName=Big\nData=" + Encoded(&record, sizeof record) +
        "\n</stock>\n";
    WriteFile("in.kds", file);
    ui->Settings_Import(TEXT("C:\\in.kds"), SETTINGS_STOCKS, nullptr);
    EXPECT_TRUE(ui->stocks.NameList::Find("Big"));
    Cancel();
    EXPECT_FALSE(ui->stocks.NameList::Find("Big"));
    ui->Settings_Import(TEXT("C:\\in.kds"), SETTINGS_STOCKS, nullptr);
    EXPECT_TRUE(sheet->Apply());
    Cancel();
    EXPECT_TRUE(ui->stocks.NameList::Find("Big"));
    EXPECT_EQ(stored.GetInt("Settings:Network Access Level", 0), 2);
    EXPECT_TRUE(OpenUI()->stocks.NameList::Find("Big"));
}

TEST_F(AdvancedPages, LetRestrictedUsersExportAndWriteCommands) {
    Open("*:DRIVER/ADMINISTRATION", ppAdvancedAdministration::WinProc, true);
    EXPECT_TRUE(IsEnabled(EXPORT));
    EXPECT_TRUE(IsEnabled(CONTENTS));
    for (const int id : {IMPORT, SHARED, NOT_SHARED, LOCAL_LEVEL, NETWORK_LEVEL})
        EXPECT_FALSE(IsEnabled(id));
    Open("*:ADVANCED/USER_COMMANDS", ppAdvanced::WinProc, true);
    EXPECT_TRUE(IsEnabled(COMMANDS));
    EXPECT_FALSE(IsEnabled(ESCAPE_CHARACTERS));
    Open("*:DRIVER/SPECIFICATIONS", ppAdvancedSpecifications::WinProc, true);
    EXPECT_FALSE(IsEnabled(OVERRIDE));
}

TEST_F(AdvancedPages, StopSendingSettingsOnceTheyAreShared) {
    Registry().SetDWORD("PRINT:Printers/[PRINTER]/Attributes", PRINTER_ATTRIBUTE_ENABLE_BIDI);
    Registry().SetByte("Settings:Network Sharing", 0);
    Open("*:DRIVER/ADMINISTRATION", ppAdvancedAdministration::WinProc);
    ASSERT_TRUE(IsEnabled(SHARED));
    EXPECT_TRUE(sheet->Apply());
    EXPECT_TRUE(ui->commit_shadow);
    sheet->Click(SHARED);
    EXPECT_TRUE(sheet->CanApply());
    EXPECT_TRUE(sheet->Apply());
    EXPECT_FALSE(ui->commit_shadow);
    EXPECT_EQ(Registry().GetByte("Settings:Network Sharing", 0), 1);
}

TEST_F(AdvancedPages, ChooseALanguageAndUnits) {
    Open("*:DRIVER/REGIONAL_OPTIONS", ppRegional::WinProc);
    EXPECT_EQ(Selected(LANGUAGES), 0);
    sheet->Choose(LANGUAGES, 1);
    sheet->Choose(UNITS, 3);
    EXPECT_TRUE(sheet->Apply());
    EXPECT_STREQ(ui->locale.GetUserLanguage(), "enu");
    EXPECT_TRUE(ui->locale.is_cm());
    EXPECT_EQ(Text(Registry().GetString("UserSettings:Language", "")), "enu");
    EXPECT_EQ(Registry().GetInt("UserSettings:Measurement System", 0), 3);
}

TEST_F(AdvancedPages, OfferCodePagesToOfficePrograms) {
    OStringArray pages;
    pages.Add("1253");
    pages.Add("437"); // is not offered
    Registry().SetMultiString("Settings:Additional Code Pages", pages);
    Open("*:FONTS/^OFFICE_COMPATIBILITY", ppOfficeCompatibility::WinProc);
    const HWND list = sheet->Item(CODE_PAGES);
    EXPECT_EQ(ListView_GetItemCount(list), 14);
    EXPECT_EQ(ListView_GetNextItem(list, -1, LVNI_SELECTED), 3);
    ListView_SetItemState(list, 13, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_TRUE(sheet->Apply());
    pages.SetSize(0);
    EXPECT_TRUE(Registry().GetMultiString("Settings:Additional Code Pages", pages));
    ASSERT_EQ(pages.GetSize(), 2);
    EXPECT_EQ(Text(pages[0]), "1253");
    EXPECT_EQ(Text(pages[1]), "950");
}

TEST_F(AdvancedPages, KeepTheMonitorWithinItsLimits) {
    Open("*:STATUS/MONITORING", ppStatusMonitor::WinProc);
    EXPECT_FALSE(IsEnabled(QUERY_BEFORE_JOB));
    sheet->Click(MONITOR);
    EXPECT_TRUE(IsEnabled(QUERY_BEFORE_JOB));
    EXPECT_EQ(IsDlgButtonChecked(sheet->Page(), QUERY_BEFORE_JOB), UINT{BST_CHECKED});
    EXPECT_TRUE(sheet->Apply());

    Open("*:STATUS/COMMUNICATIONS", ppStatusCommunication::WinProc);
    EXPECT_TRUE(IsEnabled(QUERY_INTERVAL));
    TypeAndLeave(QUERY_INTERVAL, TEXT("50"));
    TypeAndLeave(WRITE_TIMEOUT, TEXT("700000"));
    EXPECT_EQ(Shown(QUERY_INTERVAL), "100");
    EXPECT_EQ(Shown(WRITE_TIMEOUT), "600000");
    EXPECT_TRUE(sheet->Apply());
    EXPECT_EQ(Registry().GetDWORD("Settings:Status/Query Interval", 0), 100U);
}
