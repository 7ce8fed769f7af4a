// Sheets that are opened and closed again and again.
#include <windows.h>

#include <compstui.h>
#include <win32host/user.h>

#include <vector>

#include "support/job_test.h"
#include "support/sheet_of_pages.h"

namespace {

std::vector<HPROPSHEETPAGE> g_pages_of_sheet;

LONG_PTR CALLBACK CollectPages(HANDLE, UINT function, LPARAM, LPARAM second) {
    if (function != CPSFUNC_INSERT_PSUIPAGEW) return 0;
    g_pages_of_sheet.push_back(reinterpret_cast<HPROPSHEETPAGE>(
        reinterpret_cast<const INSERTPSUIPAGE_INFO*>(second)->dwData1));
    return 1;
}

} // namespace

using RepeatedSheets = JobTest;

TEST_F(RepeatedSheets, LeaveNothingBehind) {
    Install({.model = "Resolution=203\n"});
    InstallLanguage();
    const win32host::WindowCounts before = win32host::CountWindows();
    for (int round = 0; round < 200; ++round) {
        const auto ui = OpenUI(nullptr, DM_UPDATE);
        PROPSHEETUI_INFO info = {};
        info.pfnComPropSheet = CollectPages;
        g_pages_of_sheet.clear();
        if (round % 2) {
            const DEVICEPROPERTYHEADER header = {};
            ui->InitDevSheets(&info, &header);
        } else {
            DOCUMENTPROPERTYHEADER header = {};
            header.fMode = DM_UPDATE;
            ui->InitDocSheets(&info, &header);
        }
        const SheetOfPages sheet(g_pages_of_sheet);
        for (int page = 0; page < sheet.PageCount(); ++page) sheet.Show(page);
    }
    const win32host::WindowCounts after = win32host::CountWindows();
    EXPECT_EQ(after.windows, before.windows);
    EXPECT_EQ(after.timers, before.timers);
    EXPECT_EQ(after.hooks, before.hooks);
}
