// The pages for administration, for what a document sends, and for the status monitor.
#include <windows.h>

#include <string>
#include <vector>

#include "pages/advanced/escape_sequences.h"
#include "pages/advanced/pp_advanced.h"
#include "pages/advanced/pp_advanced_administration.h"
#include "pages/advanced/pp_advanced_driver.h"
#include "pages/advanced/pp_advanced_specifications.h"
#include "pages/status/pp_status_communication.h"
#include "pages/status/pp_status_monitor.h"
#include "spooler/driver_utility.h"
#include "support/job_test.h"
#include "support/sheet_of_pages.h"
#include "ui/uwindow.h"
#include "win32host/registry_control.h"

namespace {

enum : int {
    COMMANDS = 494,
    ESCAPE_CHARACTERS = 622,
    UNPRINTABLE_WIDTH = 505,
    NO_COPIES_LIMIT = 509,
    OVERRIDE = 624,
    IMPORT = 600,
    SHARED = 679,
    NOT_SHARED = 680,
    LOCAL_LEVEL = 681,
    NETWORK_LEVEL = 682,
    CONTENTS = 601,
    EXPORT = 602,
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

TEST_F(AdvancedPages, StayChangedUntilTheyAreStored) {
    const auto lock = [](bool on) {
        return win32host::SetKeyReadOnly(
            HKEY_LOCAL_MACHINE,
            TEXT("SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\Dock 3\\PrinterDriverData"),
            on);
    };
    const struct {
        const char* name;
        DLGPROC procedure;
        void (*change)(const SheetOfPages&);
    } cases[] = {
        {"*:ADVANCED/USER_COMMANDS", ppAdvanced::WinProc,
         [](const SheetOfPages& page) { page.Choose(ESCAPE_CHARACTERS, 2); }},
        {"*:ADVANCED/DRIVER_OPTIONS", ppAdvancedDriver::WinProc,
         [](const SheetOfPages& page) { page.Click(NO_COPIES_LIMIT); }},
        {"*:DRIVER/SPECIFICATIONS", ppAdvancedSpecifications::WinProc,
         [](const SheetOfPages& page) { page.Type(UNPRINTABLE_WIDTH, TEXT("2 mm")); }},
    };
    for (const auto& c : cases) {
        Open(c.name, c.procedure);
        ASSERT_TRUE(lock(true));
        EXPECT_TRUE(sheet->Apply()) << c.name << ": nothing is new";
        c.change(*sheet);
        EXPECT_FALSE(sheet->Apply()) << c.name;
        EXPECT_FALSE(sheet->Apply()) << c.name << ": still not stored";
        EXPECT_TRUE(sheet->CanApply()) << c.name;
        ASSERT_TRUE(lock(false));
        EXPECT_TRUE(sheet->Apply()) << c.name;
        EXPECT_FALSE(sheet->CanApply()) << c.name;
    }
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
