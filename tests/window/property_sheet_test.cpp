// Property sheets: what pages are told and when, and what sheets answer.
#include "noting_pages.h"

#include <gtest/gtest.h>

#include <vector>

#ifndef _WIN32
#include <win32host/fault_control.h>
#include <win32host/user.h>
#endif

namespace {

constexpr int kSheetApply = 0x3021;

class PropertySheets : public testing::Test {
protected:
    // Opens a sheet of these pages. A modal one is posted a message for each letter of `acts`: of
    // its buttons or its end, or the page to turn to.
    INT_PTR Open(const std::string& letters, DWORD flags, std::string acts = "", UINT start = 0) {
        std::vector<HPROPSHEETPAGE> handles;
        for (char letter : letters) handles.push_back(pages_.Page(letter));
        (void)pages_.Take();
        PROPSHEETHEADERW header = {};
        header.dwSize = sizeof header;
        header.dwFlags = PSH_USECALLBACK | flags;
        header.nPages = static_cast<UINT>(handles.size());
        header.nStartPage = start;
        header.phpage = handles.data();
        header.pfnCallback = [](HWND sheet, UINT message, LPARAM) {
            if (message != PSCB_INITIALIZED) return 0;
            for (char act : posted) Post(sheet, act);
            return 0;
        };
        posted = std::move(acts);
        const INT_PTR answer = PropertySheetW(&header);
        if (flags & PSH_MODELESS) sheet_ = reinterpret_cast<HWND>(answer);
        return answer;
    }
    static void Post(HWND sheet, char act) {
        static const std::map<char, std::pair<UINT, WPARAM>> kActs = {
            {'o', {PSM_PRESSBUTTON, PSBTN_OK}},
            {'c', {PSM_PRESSBUTTON, PSBTN_CANCEL}},
            {'a', {PSM_PRESSBUTTON, PSBTN_APPLYNOW}},
            {'h', {PSM_PRESSBUTTON, PSBTN_HELP}},
            {'x', {WM_CLOSE, 0}},
            {'e', {WM_KEYDOWN, VK_RETURN}},
            {'s', {WM_KEYDOWN, VK_ESCAPE}},
            {'r', {PSM_REBOOTSYSTEM, 0}},
            {'1', {PSM_SETCURSEL, 1}},
            {'2', {PSM_SETCURSEL, 2}}};
        PostMessageW(sheet, kActs.at(act).first, kActs.at(act).second, 0);
    }
    LRESULT Send(UINT message, WPARAM first = 0, LPARAM second = 0) {
        return SendMessageW(sheet_, message, first, second);
    }
    LRESULT Tab(UINT message) {
        return SendMessageW(PropSheet_GetTabControl(sheet_), message, 0, 0);
    }
    // Whether Apply can be pressed after a page says that it has changed or not.
    bool Change(UINT message, char page) {
        Send(message, reinterpret_cast<WPARAM>(pages_.windows[page]));
        return IsWindowEnabled(GetDlgItem(sheet_, kSheetApply)) != FALSE;
    }
    ~PropertySheets() override {
        if (sheet_) DestroyWindow(sheet_);
    }

    static inline std::string posted;
    NotingPages pages_;
    HWND sheet_ = nullptr;
};

constexpr char kToB[] = "A.leave A.hide B.create B.init B.active B.show ";
constexpr char kAtA[] = "A.hide A.destroy A.released B.released";
constexpr char kAtB[] = "A.destroy A.released B.hide B.destroy B.released";
constexpr char kBackAtA[] = "A.hide A.destroy A.released B.destroy B.released";

TEST_F(PropertySheets, TellPagesWhatHappensInTheOrderOfTheSystem) {
    const struct {
        const char* acts;
        UINT asked; // what page A answers this with
        LONG_PTR answer;
        std::string told; // after A was shown
        const char* end;
        INT_PTR result;
    } cases[] = {
        {"o", 0, 0, "A.leave A.apply(1) ", kAtA, 1},
        {"c", 0, 0, "A.cancel? A.reset(0) ", kAtA, 0},
        {"x", 0, 0, "A.cancel? A.reset(1) ", kAtA, 0},
        {"e", 0, 0, "A.leave A.apply(1) ", kAtA, 1},
        {"s", 0, 0, "A.cancel? A.reset(0) ", kAtA, 0},
        {"hc", 0, 0, "A.help A.cancel? A.reset(0) ", kAtA, 0},
        {"ro", 0, 0, "A.leave A.apply(1) ", kAtA, ID_PSREBOOTSYSTEM},
        {"1o", 0, 0, kToB + std::string("B.leave A.apply(1) B.apply(1) "), kAtB, 1},
        {"1ac", 0, 0,
         kToB +
             std::string("B.leave A.apply(0) B.apply(0) B.active B.cancel? A.reset(0) B.reset(0) "),
         kAtB, 0},
        {"1oc", PSN_KILLACTIVE, TRUE, "A.leave A.leave A.cancel? A.reset(0) ", kAtA, 0},
        {"co", PSN_QUERYCANCEL, TRUE, "A.cancel? A.leave A.apply(1) ", kAtA, 1},
        {"1oc", PSN_APPLY, PSNRET_INVALID,
         kToB + std::string("B.leave A.apply(1) B.hide A.show A.cancel? A.reset(0) B.reset(0) "),
         kBackAtA, 0},
        {"1oc", PSN_APPLY, PSNRET_INVALID_NOCHANGEPAGE,
         kToB + std::string("B.leave A.apply(1) B.cancel? A.reset(0) B.reset(0) "), kAtB, 0},
    };
    for (const auto& each : cases) {
        pages_.answers.clear();
        if (each.asked != 0) pages_.answers[{'A', each.asked}] = each.answer;
        EXPECT_EQ(Open("AB", 0, each.acts), each.result) << each.acts << each.asked;
        EXPECT_EQ(pages_.Take(), "A.create A.init A.active A.show " + each.told + each.end)
            << each.acts << each.asked;
    }
    // A page that refuses to be shown is passed over.
    pages_.answers = {{{'B', PSN_SETACTIVE}, -1}};
    EXPECT_EQ(Open("ABC", 0, "c", 1), 0);
    EXPECT_EQ(pages_.Take(),
              "B.create B.init B.active C.create C.init C.active C.show C.cancel? B.reset(0) "
              "C.reset(0) A.released B.destroy B.released C.hide C.destroy C.released");
}

TEST_F(PropertySheets, LetApplyBePressedWhileAPageIsChanged) {
    Open("AB", PSH_MODELESS);
    Send(PSM_SETCURSEL, 1);
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(sheet_, kSheetApply)));
    EXPECT_TRUE(Change(PSM_CHANGED, 'A'));
    EXPECT_TRUE(Change(PSM_CHANGED, 'B'));
    EXPECT_TRUE(Change(PSM_UNCHANGED, 'A'));
    EXPECT_FALSE(Change(PSM_UNCHANGED, 'B'));
    EXPECT_TRUE(Change(PSM_CHANGED, 'B'));
    pages_.answers[{'A', PSN_APPLY}] = PSNRET_INVALID_NOCHANGEPAGE;
    EXPECT_EQ(Send(PSM_APPLY), FALSE);
    EXPECT_TRUE(IsWindowEnabled(GetDlgItem(sheet_, kSheetApply)));
    pages_.answers.clear();
    Send(WM_COMMAND, kSheetApply);
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(sheet_, kSheetApply)));
}

TEST_F(PropertySheets, KnowTheirPages) {
    Open("AB", PSH_MODELESS);
    EXPECT_EQ(PropSheet_GetCurrentPageHwnd(sheet_), pages_.windows['A']);
    EXPECT_EQ(Send(PSM_INDEXTOHWND, 1), 0) << "not made yet";
    EXPECT_EQ(Send(PSM_SETCURSEL, 1), TRUE);
    EXPECT_EQ(Send(PSM_SETCURSEL, 9), FALSE);
    EXPECT_EQ(Send(PSM_HWNDTOINDEX, reinterpret_cast<WPARAM>(pages_.windows['B'])), 1);
    EXPECT_EQ(Send(PSM_HWNDTOINDEX, reinterpret_cast<WPARAM>(sheet_)), -1);
    (void)pages_.Take();

    // Only pages that were made are asked, up to the first that answers.
    const HPROPSHEETPAGE c = pages_.Page('C');
    EXPECT_EQ(Send(PSM_ADDPAGE, 0, reinterpret_cast<LPARAM>(c)), TRUE);
    EXPECT_EQ(Send(PSM_QUERYSIBLINGS, 7, 8), 0);
    pages_.answers[{'A', PSM_QUERYSIBLINGS}] = 5;
    EXPECT_EQ(Send(PSM_QUERYSIBLINGS, 7, 8), 5);
    EXPECT_EQ(pages_.Take(), "C.kept A.query B.query A.query");

    const HPROPSHEETPAGE d = pages_.Page('D', PSP_PREMATURE);
    EXPECT_EQ(Send(PSM_INSERTPAGE, 1, reinterpret_cast<LPARAM>(d)), TRUE);
    EXPECT_EQ(Send(PSM_INDEXTOPAGE, 1), reinterpret_cast<LRESULT>(d));
    EXPECT_EQ(Tab(TCM_GETCURSEL), 2);
    Send(PSM_REMOVEPAGE, 2);
    EXPECT_EQ(pages_.Take(), "D.kept D.create D.init B.hide D.active D.show B.destroy B.released");
    Send(PSM_REMOVEPAGE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(c));
    EXPECT_EQ(Tab(TCM_GETITEMCOUNT) * 10 + Tab(TCM_GETCURSEL), 21);

    // A modeless sheet that was closed is there until its owner destroys it.
    Send(PSM_PRESSBUTTON, PSBTN_OK);
    EXPECT_EQ(PropSheet_GetCurrentPageHwnd(sheet_), nullptr);
    EXPECT_TRUE(IsWindow(sheet_));
}

TEST_F(PropertySheets, AreTurnedByTabsAndKeys) {
    Open("ABC", PSH_MODELESS);
    const HWND tab = PropSheet_GetTabControl(sheet_);
    RECT item = {};
    SendMessageW(tab, TCM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&item));
    for (LONG_PTR stays : {TRUE, FALSE}) {
        pages_.answers[{'A', PSN_KILLACTIVE}] = stays;
        SendMessageW(tab, WM_LBUTTONDOWN, MK_LBUTTON, MAKELONG(item.left + 3, item.top + 3));
        SendMessageW(tab, WM_LBUTTONUP, 0, MAKELONG(item.left + 3, item.top + 3));
        EXPECT_EQ(Tab(TCM_GETCURSEL), stays ? 0 : 1);
    }
    const auto key = [&](WPARAM code, bool shift) {
        BYTE keys[256] = {};
        keys[VK_CONTROL] = 0x80;
        keys[VK_SHIFT] = shift ? 0x80 : 0;
        SetKeyboardState(keys);
        MSG message = {pages_.windows['B'], WM_KEYDOWN, code, 0, 0, {}};
        EXPECT_TRUE(PropSheet_IsDialogMessage(sheet_, &message));
        keys[VK_CONTROL] = keys[VK_SHIFT] = 0;
        SetKeyboardState(keys);
        return Tab(TCM_GETCURSEL);
    };
    EXPECT_EQ(key(VK_TAB, false), 2);
    EXPECT_EQ(key(VK_TAB, false), 0);
    EXPECT_EQ(key(VK_TAB, true), 2);
    EXPECT_EQ(key(VK_PRIOR, false), 1);
}

TEST_F(PropertySheets, AreAsLargeAsTheLargestPageNeeds) {
    const PROPSHEETPAGEW records[] = {pages_.Record('A', PSP_HASHELP, 300, 60),
                                      pages_.Record('B', 0, 100, 250)};
    PROPSHEETHEADERW header = {};
    header.dwSize = sizeof header;
    header.dwFlags = PSH_MODELESS | PSH_PROPSHEETPAGE;
    header.nPages = 2;
    header.ppsp = records;
    sheet_ = reinterpret_cast<HWND>(PropertySheetW(&header));
    ASSERT_TRUE(sheet_);
    RECT units = {0, 0, 300, 250}, page;
    MapDialogRect(sheet_, &units);
    GetClientRect(pages_.windows['A'], &page);
    EXPECT_TRUE(page.right == units.right && page.bottom == units.bottom);
    EXPECT_EQ(GetFocus(), GetDlgItem(pages_.windows['A'], 100));
    EXPECT_EQ(GetNextDlgTabItem(sheet_, GetFocus(), FALSE), GetDlgItem(sheet_, IDOK));
    EXPECT_TRUE(IsWindowVisible(GetDlgItem(sheet_, IDHELP))) << "one page has help";
    Send(PSM_SETCURSEL, 1);
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(sheet_, IDHELP)));
}

#ifndef _WIN32
TEST_F(PropertySheets, LeaveNothingBehind) {
    const auto count = [] {
        const auto left = win32host::CountWindows();
        return left.windows + left.timers + left.hooks + win32host::OpenHandles();
    };
    size_t before = 0;
    for (int i = 0; i < 200; ++i) {
        if (i == 1) before = count(); // what is made once stays
        Open("ABC", 0, i % 2 ? "2o" : "2c");
    }
    EXPECT_EQ(count(), before);
}
#endif

} // namespace
