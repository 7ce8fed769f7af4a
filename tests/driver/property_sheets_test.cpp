// The UI object in property sheets, and the entry points that the common property sheets call.
#include "driver/property_sheets.h"

#include <algorithm>
#include <vector>

#include "spooler/printer_info.h"
#include "support/dev_mode_test.h"
#include "support/job_test.h"
#include "support/staged_driver_test.h"
#include "zplui.h"

namespace {

struct Call {
    HANDLE sheet;
    UINT function;
    LPARAM first, second;
};
std::vector<Call> g_calls;
HANDLE g_pages[4] = {&g_pages[0], &g_pages[1], &g_pages[2], &g_pages[3]};
LONG_PTR g_count = 0;
LONG_PTR g_answer = 1;

// The common property sheets, with `g_count` pages.
LONG_PTR CALLBACK Sheets(HANDLE sheet, UINT function, LPARAM first, LPARAM second) {
    if (function == CPSFUNC_GET_PAGECOUNT) return g_count;
    if (function == CPSFUNC_GET_HPSUIPAGES)
        return std::copy_n(g_pages, second, reinterpret_cast<HANDLE*>(first)) ? second : 0;
    g_calls.push_back({sheet, function, first, second});
    return g_answer;
}

class PropertySheets : public JobTest {
protected:
    void SetUp() override {
        Install({.model = "Resolution=203\n", .method = "Copies.Limit=500\n"});
        g_calls.clear();
        g_count = 4;
        g_answer = 1;
        header_.cbSize = sizeof header_;
        header_.hPrinter = device_.hPrinter = printer();
        header_.pszPrinterName = device_.pszPrinterName = name_;
        info_.pfnComPropSheet = Sheets;
        info_.hComPropSheet = this;
        info_.lParamInit = reinterpret_cast<LPARAM>(&header_);
    }
    LONG Documents(WORD reason, void* parameter = nullptr) {
        info_.Reason = reason;
        return DrvDocumentPropertySheets(&info_, reinterpret_cast<LPARAM>(parameter));
    }
    LONG Devices(WORD reason, void* parameter = nullptr) {
        info_.Reason = reason;
        info_.lParamInit = reinterpret_cast<LPARAM>(&device_);
        return DrvDevicePropertySheets(&info_, reinterpret_cast<LPARAM>(parameter));
    }
    LONG SetResult(LRESULT result) {
        SETRESULT_INFO record = {sizeof record, 0, nullptr, result};
        return Documents(PROPSHEETUI_REASON_SET_RESULT, &record);
    }
    prtui* ui() const { return reinterpret_cast<prtui*>(info_.UserData); }
    int DefaultCopies() {
        const PrinterInfo info(printer());
        return info.GetDevMode() ? info.GetDevMode()->dmCopies : 0;
    }

    WCHAR name_[8] = TEXT("Dock 3");
    DOCUMENTPROPERTYHEADER header_ = {};
    DEVICEPROPERTYHEADER device_ = {};
    PROPSHEETUI_INFO info_ = {};
};

} // namespace

TEST_F(PropertySheets, AnswerNothingWithoutWhatTheyWereOpenedFor) {
    for (WORD reason = 1; reason < 6; ++reason) {
        EXPECT_EQ(Documents(reason, &header_), reason < 4 ? -1 : 1) << reason;
        EXPECT_EQ(Devices(reason, &header_), reason < 4 ? -1 : 1) << reason;
    }
    EXPECT_EQ(DrvDevicePropertySheets(nullptr, 0), -1);
    info_.lParamInit = 0;
    EXPECT_EQ(DrvDevicePropertySheets(&info_, 0), -1);
    EXPECT_EQ(DrvDocumentPropertySheets(&info_, 0), 0);
    EXPECT_EQ(info_.UserData, 0u);
}

TEST_F(PropertySheets, OfAPrinterLiveFromInitToDestroy) {
    device_.Flags = DPS_NOPERMISSION;
    info_.Result = 7;
    ASSERT_EQ(Devices(PROPSHEETUI_REASON_INIT), 1);
    ASSERT_NE(ui(), nullptr);
    EXPECT_TRUE(ui()->no_permission);
    EXPECT_FALSE(ui()->is_default_dm());
    EXPECT_EQ(info_.Result, 0u);
    EXPECT_EQ(ui()->sheet.GetPageCount(), 4);
    EXPECT_EQ(Devices(PROPSHEETUI_REASON_SET_RESULT), -1) << "without a record";
    PROPSHEETUI_INFO_HEADER title = {};
    EXPECT_EQ(Devices(PROPSHEETUI_REASON_GET_INFO_HEADER, &title), 1);
    EXPECT_EQ(title.Flags, PSUIHDRF_PROPTITLE);
    EXPECT_EQ(title.pTitle, name_);
    EXPECT_EQ(title.hInst, ui()->locale.GetModule());
    EXPECT_EQ(title.IconID, 64082u);
    SETRESULT_INFO ok = {sizeof ok, 0, nullptr, CPSUI_OK};
    EXPECT_EQ(Devices(PROPSHEETUI_REASON_SET_RESULT, &ok), 1);
    EXPECT_EQ(info_.Result, ULONG_PTR{CPSUI_OK});
    EXPECT_EQ(Devices(PROPSHEETUI_REASON_DESTROY), 1);
    EXPECT_EQ(Devices(PROPSHEETUI_REASON_DESTROY), -1);
}

TEST_F(PropertySheets, AreToldOfTheUsersAnswerThroughThePageBeforeTheLastTwo) {
    const auto last = [] { return g_calls.back(); };
    for (const LONG_PTR count : {4, 3, 2, 0}) {
        g_count = count;
        ASSERT_EQ(Documents(PROPSHEETUI_REASON_INIT), 1);
        const auto page = reinterpret_cast<LPARAM>(count < 3 ? nullptr : g_pages[count - 3]);
        g_answer = 1;
        EXPECT_TRUE(ui()->Apply());
        EXPECT_TRUE(last().sheet == this && last().function == CPSFUNC_SET_RESULT &&
                    last().first == page && last().second == CPSUI_OK)
            << count;
        g_answer = 0;
        EXPECT_FALSE(ui()->Cancel());
        EXPECT_TRUE(last().first == page && last().second == CPSUI_CANCEL) << count;
        Documents(PROPSHEETUI_REASON_DESTROY);
    }
    info_.pfnComPropSheet = nullptr;
    ASSERT_EQ(Documents(PROPSHEETUI_REASON_INIT), 1);
    EXPECT_TRUE(ui()->Apply() && ui()->Cancel());
    Documents(PROPSHEETUI_REASON_DESTROY);
}

TEST_F(PropertySheets, GiveTheSettingsBackAsTheUserAndTheProgramWant) {
    const struct {
        const char* what;
        DWORD mode;
        LRESULT result;
        bool applied, in_place;
        DWORD room;
        int out, defaults; // copies
    } cases[] = {
        {"copy", DM_COPY, CPSUI_OK, true, false, 0, 7, 1},
        {"copy, not applied by a page", DM_COPY, CPSUI_OK, false, false, DEV_MODE_SIZE, 7, 1},
        {"too little room", DM_COPY, CPSUI_OK, true, false, DEV_MODE_SIZE - 1, 3, 1},
        {"one buffer", DM_COPY, CPSUI_OK, true, true, 0, 7, 1},
        {"nothing asked", DM_IN_PROMPT, CPSUI_OK, true, false, 0, 3, 1},
        {"cancelled", DM_COPY, CPSUI_CANCEL, false, false, 0, 1, 1},
        {"cancelled after it was applied", DM_COPY, CPSUI_CANCEL, true, false, 0, 7, 1},
        {"cancelled, nothing asked", DM_UPDATE, CPSUI_CANCEL, true, false, 0, 3, 1},
        {"another answer", DM_COPY | DM_UPDATE, 5, true, false, 0, 3, 1},
        {"update", DM_UPDATE, CPSUI_OK, true, false, 0, 7, 7},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        DevMode out;
        out.CreateDefault(Model().get());
        out.SetCopies(3);
        header_.fMode = c.mode;
        header_.pdmOut = out.GetDevMode();
        header_.pdmIn = c.in_place ? header_.pdmOut : nullptr;
        header_.cbOut = c.room;
        ASSERT_EQ(Documents(PROPSHEETUI_REASON_INIT), 1);
        EXPECT_EQ(ui()->is_default_dm(), (c.mode & DM_UPDATE) != 0);
        ui()->devmode.SetCopies(7);
        EXPECT_TRUE(!c.applied || ui()->Apply());
        EXPECT_EQ(ui()->devmode_saved.GetCopies(), c.applied ? 7 : 1);
        EXPECT_EQ(SetResult(c.result), 1);
        EXPECT_EQ(info_.Result, static_cast<ULONG_PTR>(c.result));
        EXPECT_EQ(out.GetCopies(), c.out);
        EXPECT_TRUE(c.defaults == 1 || DefaultCopies() == c.defaults);
        Documents(PROPSHEETUI_REASON_DESTROY);
    }
}

TEST_F(PropertySheets, MergeIntoAShortBufferOfAnOlderProgramAndIntoNone) {
    ForeignDevMode old(156, 0, "Dock 3");
    header_.fMode = DM_COPY;
    header_.pdmIn = header_.pdmOut = old.dev_mode();
    ASSERT_EQ(Documents(PROPSHEETUI_REASON_INIT), 1);
    ui()->devmode.SetCopies(7);
    EXPECT_EQ(SetResult(CPSUI_OK), 1);
    EXPECT_TRUE(old->dmCopies == 7 && old->dmSize == 156);
    header_.pdmIn = header_.pdmOut = nullptr;
    for (const LRESULT result : {CPSUI_OK, CPSUI_CANCEL}) EXPECT_EQ(SetResult(result), 1);
    Documents(PROPSHEETUI_REASON_DESTROY);
}
