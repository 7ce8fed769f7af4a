// Property sheets: what pages are told and when, and what sheets answer.
#include "noting_pages.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <vector>

#ifndef _WIN32
#include <win32host/fault_control.h>
#include <win32host/user.h>
#endif

namespace {

constexpr int kApply = 0x3021;

using PostedMessage = std::pair<UINT, WPARAM>;

PostedMessage Press(WPARAM button) {
    return {PSM_PRESSBUTTON, button};
}
PostedMessage Turn(WPARAM page) {
    return {PSM_SETCURSEL, page};
}

class PropertySheets : public testing::Test {
protected:
    // Opens a sheet of these pages; a modal one after posting it the acts.
    INT_PTR Open(const std::string& letters, DWORD flags = 0, UINT start = 0,
                 std::vector<PostedMessage> acts = {}, DWORD page_flags = 0) {
        std::vector<HPROPSHEETPAGE> handles;
        for (char letter : letters) handles.push_back(pages_.Page(letter, page_flags));
        (void)pages_.Take();
        PROPSHEETHEADERW header = {};
        header.dwSize = sizeof header;
        header.dwFlags = PSH_USECALLBACK | flags;
        header.pszCaption = TEXT("Sheet");
        header.nPages = static_cast<UINT>(handles.size());
        header.nStartPage = start;
        header.phpage = handles.data();
        header.pfnCallback = [](HWND sheet, UINT message, LPARAM) {
            for (const PostedMessage& act :
                 message == PSCB_INITIALIZED ? posted : std::vector<PostedMessage>())
                PostMessageW(sheet, act.first, act.second, 0);
            return 0;
        };
        posted = std::move(acts);
        const INT_PTR answer = PropertySheetW(&header);
        posted.clear();
        if (flags & PSH_MODELESS) sheet_ = reinterpret_cast<HWND>(answer);
        return answer;
    }
    LRESULT Send(UINT message, WPARAM first = 0, LPARAM second = 0) {
        return SendMessageW(sheet_, message, first, second);
    }
    bool ApplyEnabled() { return IsWindowEnabled(GetDlgItem(sheet_, kApply)) != FALSE; }
    // Whether Apply can be pressed after a page says that it has changed or not.
    bool Change(UINT message, char page) {
        Send(message, reinterpret_cast<WPARAM>(pages_.windows[page]));
        return ApplyEnabled();
    }
    std::string TextOf(HWND window) {
        WCHAR text[100];
        const int length = GetWindowTextW(window, text, 100);
        return {text, text + length};
    }
    ~PropertySheets() override {
        if (sheet_) DestroyWindow(sheet_);
    }

    static inline std::vector<PostedMessage> posted;
    NotingPages pages_;
    HWND sheet_ = nullptr;
};

constexpr char kFirst[] = "A.create A.init A.active A.show ";
constexpr char kToB[] = "A.leave A.hide B.create B.init B.active B.show ";
constexpr char kGoneAtA[] = "A.hide A.destroy A.released B.released";
constexpr char kGoneAtB[] = "A.destroy A.released B.hide B.destroy B.released";

TEST_F(PropertySheets, TellPagesWhatHappensInTheOrderOfTheSystem) {
    const struct {
        const char* name;
        std::vector<PostedMessage> acts;
        std::map<std::pair<char, UINT>, LONG_PTR> answers;
        std::string told; // after the first page
        INT_PTR result;
    } cases[] = {
        {"OK", {Press(PSBTN_OK)}, {}, std::string("A.leave A.apply(1) ") + kGoneAtA, 1},
        {"Cancel", {Press(PSBTN_CANCEL)}, {}, std::string("A.cancel? A.reset(0) ") + kGoneAtA, 0},
        {"closed", {{WM_CLOSE, 0}}, {}, std::string("A.cancel? A.reset(1) ") + kGoneAtA, 0},
        {"Enter", {{WM_KEYDOWN, VK_RETURN}}, {}, std::string("A.leave A.apply(1) ") + kGoneAtA, 1},
        {"Escape",
         {{WM_KEYDOWN, VK_ESCAPE}},
         {},
         std::string("A.cancel? A.reset(0) ") + kGoneAtA,
         0},
        {"OK on another page",
         {Turn(1), Press(PSBTN_OK)},
         {},
         std::string(kToB) + "B.leave A.apply(1) B.apply(1) " + kGoneAtB,
         1},
        {"Apply, then Cancel",
         {Turn(1), Press(PSBTN_APPLYNOW), Press(PSBTN_CANCEL)},
         {},
         std::string(kToB) + "B.leave A.apply(0) B.apply(0) B.active B.cancel? A.reset(0) " +
             "B.reset(0) " + kGoneAtB,
         0},
        {"a page that may not be left",
         {Turn(1), Press(PSBTN_OK), Press(PSBTN_CANCEL)},
         {{{'A', PSN_KILLACTIVE}, TRUE}},
         std::string("A.leave A.leave A.cancel? A.reset(0) ") + kGoneAtA,
         0},
        {"a page that does not want to be cancelled",
         {Press(PSBTN_CANCEL), Press(PSBTN_OK)},
         {{{'A', PSN_QUERYCANCEL}, TRUE}},
         std::string("A.cancel? A.leave A.apply(1) ") + kGoneAtA,
         1},
        {"a page that is not valid and not current",
         {Turn(1), Press(PSBTN_OK), Press(PSBTN_CANCEL)},
         {{{'A', PSN_APPLY}, PSNRET_INVALID}},
         std::string(kToB) + "B.leave A.apply(1) B.hide A.show A.cancel? A.reset(0) B.reset(0) " +
             "A.hide A.destroy A.released B.destroy B.released",
         0},
        {"the same without going there",
         {Turn(1), Press(PSBTN_OK), Press(PSBTN_CANCEL)},
         {{{'A', PSN_APPLY}, PSNRET_INVALID_NOCHANGEPAGE}},
         std::string(kToB) + "B.leave A.apply(1) B.cancel? A.reset(0) B.reset(0) " + kGoneAtB,
         0},
        {"help", // which works only on pages that have some, but can always be asked for
         {Press(PSBTN_HELP), Press(PSBTN_CANCEL)},
         {},
         std::string("A.help A.cancel? A.reset(0) ") + kGoneAtA,
         0},
        {"the system is to start again",
         {{PSM_REBOOTSYSTEM, 0}, Press(PSBTN_OK)},
         {},
         std::string("A.leave A.apply(1) ") + kGoneAtA,
         ID_PSREBOOTSYSTEM},
    };
    for (const auto& each : cases) {
        pages_.answers = each.answers;
        EXPECT_EQ(Open("AB", 0, 0, each.acts), each.result) << each.name;
        EXPECT_EQ(pages_.Take(), kFirst + each.told) << each.name;
    }
    // A page that refuses to be shown is passed over, and is not told of the end.
    pages_.answers = {{{'B', PSN_SETACTIVE}, -1}};
    EXPECT_EQ(Open("ABC", 0, 1, {Press(PSBTN_CANCEL)}), 0);
    EXPECT_EQ(pages_.Take(),
              "B.create B.init B.active C.create C.init C.active C.show C.cancel? B.reset(0) "
              "C.reset(0) A.released B.destroy B.released C.hide C.destroy C.released");
}

TEST_F(PropertySheets, LetApplyBePressedWhileAPageIsChanged) {
    Open("AB", PSH_MODELESS);
    Send(PSM_SETCURSEL, 1);
    EXPECT_FALSE(ApplyEnabled());
    EXPECT_TRUE(Change(PSM_CHANGED, 'A'));
    EXPECT_TRUE(Change(PSM_CHANGED, 'B'));
    EXPECT_TRUE(Change(PSM_UNCHANGED, 'A'));
    EXPECT_FALSE(Change(PSM_UNCHANGED, 'B'));
    EXPECT_TRUE(Change(PSM_CHANGED, 'B'));
    pages_.answers[{'A', PSN_APPLY}] = PSNRET_INVALID_NOCHANGEPAGE;
    Send(WM_COMMAND, kApply);
    EXPECT_TRUE(ApplyEnabled());
    EXPECT_EQ(Send(PSM_APPLY), FALSE);
    pages_.answers.clear();
    Send(WM_COMMAND, kApply);
    EXPECT_FALSE(ApplyEnabled());
    EXPECT_EQ(Send(PSM_APPLY), TRUE);
}

TEST_F(PropertySheets, KnowTheirPages) {
    Open("AB", PSH_MODELESS);
    const HWND tab = PropSheet_GetTabControl(sheet_);
    EXPECT_EQ(GetDlgCtrlID(tab), 0x3020);
    EXPECT_EQ(PropSheet_GetCurrentPageHwnd(sheet_), pages_.windows['A']);
    EXPECT_EQ(Send(PSM_INDEXTOHWND, 1), 0) << "not made yet";
    EXPECT_EQ(Send(PSM_QUERYSIBLINGS), 0);
    EXPECT_EQ(Send(PSM_SETCURSEL, 1), TRUE);
    EXPECT_EQ(Send(PSM_SETCURSEL, 9), FALSE);
    EXPECT_EQ(SendMessageW(tab, TCM_GETCURSEL, 0, 0), 1);
    EXPECT_EQ(Send(PSM_HWNDTOINDEX, reinterpret_cast<WPARAM>(pages_.windows['B'])), 1);
    EXPECT_EQ(Send(PSM_HWNDTOINDEX, reinterpret_cast<WPARAM>(sheet_)), -1);
    (void)pages_.Take();

    // Only pages that were made are asked, up to the first that answers.
    const HPROPSHEETPAGE c = pages_.Page('C');
    EXPECT_EQ(Send(PSM_ADDPAGE, 0, reinterpret_cast<LPARAM>(c)), TRUE);
    EXPECT_EQ(SendMessageW(tab, TCM_GETITEMCOUNT, 0, 0), 3);
    EXPECT_EQ(Send(PSM_QUERYSIBLINGS, 7, 8), 0);
    pages_.answers[{'A', PSM_QUERYSIBLINGS}] = 5;
    EXPECT_EQ(Send(PSM_QUERYSIBLINGS, 7, 8), 5);
    EXPECT_EQ(pages_.Take(), "C.kept A.query B.query A.query");

    const HPROPSHEETPAGE d = pages_.Page('D', PSP_PREMATURE);
    EXPECT_EQ(Send(PSM_INSERTPAGE, 1, reinterpret_cast<LPARAM>(d)), TRUE);
    EXPECT_EQ(Send(PSM_INDEXTOPAGE, 1), reinterpret_cast<LRESULT>(d));
    EXPECT_EQ(SendMessageW(tab, TCM_GETCURSEL, 0, 0), 2);
    Send(PSM_REMOVEPAGE, 2);
    EXPECT_EQ(pages_.Take(), "D.kept D.create D.init B.hide D.active D.show B.destroy B.released");
    Send(PSM_REMOVEPAGE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(c));
    EXPECT_EQ(SendMessageW(tab, TCM_GETITEMCOUNT, 0, 0), 2);
    EXPECT_EQ(SendMessageW(tab, TCM_GETCURSEL, 0, 0), 1);
    EXPECT_EQ(pages_.Take(), "C.released");
}

TEST_F(PropertySheets, ThatAreModelessEndWithoutGoing) {
    Open("AB", PSH_MODELESS);
    Send(PSM_CANCELTOCLOSE);
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(sheet_, IDCANCEL)));
    EXPECT_EQ(TextOf(GetDlgItem(sheet_, IDOK)), "Close");
    Send(PSM_PRESSBUTTON, PSBTN_OK);
    EXPECT_EQ(PropSheet_GetCurrentPageHwnd(sheet_), nullptr);
    EXPECT_TRUE(IsWindow(sheet_));
    EXPECT_EQ(Send(PSM_GETRESULT), 1);
    EXPECT_EQ(pages_.Take(), std::string(kFirst) + "A.leave A.apply(1)");
}

TEST_F(PropertySheets, AreTurnedByTabsAndKeys) {
    Open("ABC", PSH_MODELESS);
    const HWND tab = PropSheet_GetTabControl(sheet_);
    RECT item = {};
    SendMessageW(tab, TCM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&item));
    const LPARAM point = MAKELONG(item.left + 3, item.top + 3);
    pages_.answers[{'A', PSN_KILLACTIVE}] = TRUE;
    (void)pages_.Take();
    SendMessageW(tab, WM_LBUTTONDOWN, MK_LBUTTON, point);
    SendMessageW(tab, WM_LBUTTONUP, 0, point);
    EXPECT_EQ(pages_.Take(), "A.leave");
    pages_.answers.clear();
    SendMessageW(tab, WM_LBUTTONDOWN, MK_LBUTTON, point);
    SendMessageW(tab, WM_LBUTTONUP, 0, point);
    EXPECT_EQ(pages_.Take(), "A.leave A.hide B.create B.init B.active B.show");

    const auto key = [&](WPARAM code, bool shift) {
        BYTE keys[256] = {};
        keys[VK_CONTROL] = 0x80;
        keys[VK_SHIFT] = shift ? 0x80 : 0;
        SetKeyboardState(keys);
        MSG message = {pages_.windows['B'], WM_KEYDOWN, code, 0, 0, {}};
        EXPECT_TRUE(PropSheet_IsDialogMessage(sheet_, &message));
        keys[VK_CONTROL] = keys[VK_SHIFT] = 0;
        SetKeyboardState(keys);
        return SendMessageW(tab, TCM_GETCURSEL, 0, 0);
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
    header.dwFlags = PSH_MODELESS | PSH_PROPSHEETPAGE | PSH_PROPTITLE;
    header.pszCaption = TEXT("Sheet");
    header.nPages = 2;
    header.ppsp = records;
    sheet_ = reinterpret_cast<HWND>(PropertySheetW(&header));
    ASSERT_TRUE(sheet_);
    RECT units = {0, 0, 300, 250};
    MapDialogRect(sheet_, &units);
    RECT page;
    GetClientRect(pages_.windows['A'], &page);
    EXPECT_EQ(page.right, units.right);
    EXPECT_EQ(page.bottom, units.bottom);
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(pages_.windows['A'], GWL_STYLE));
    EXPECT_EQ(style & (WS_CHILD | WS_CAPTION | WS_DISABLED | DS_CONTROL),
              static_cast<DWORD>(WS_CHILD | DS_CONTROL));
    EXPECT_EQ(GetFocus(), GetDlgItem(pages_.windows['A'], 100));
    EXPECT_EQ(GetNextDlgTabItem(sheet_, GetFocus(), FALSE), GetDlgItem(sheet_, IDOK));
    EXPECT_TRUE(IsWindowVisible(GetDlgItem(sheet_, IDHELP))) << "one page has help";
    EXPECT_TRUE(IsWindowEnabled(GetDlgItem(sheet_, IDHELP)));
    Send(PSM_SETCURSEL, 1);
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(sheet_, IDHELP)));
    EXPECT_EQ(TextOf(sheet_), "Properties for Sheet");
    RECT last, client;
    GetWindowRect(GetDlgItem(sheet_, IDHELP), &last);
    MapWindowPoints(nullptr, sheet_, reinterpret_cast<LPPOINT>(&last), 2);
    GetClientRect(sheet_, &client);
    EXPECT_TRUE(last.right < client.right && last.bottom < client.bottom && last.left > 0);
}

TEST_F(PropertySheets, PagesGetACopyOfTheirRecordWithWhatFollows) {
    struct {
        PROPSHEETPAGEW page;
        char text[8];
    } record = {pages_.Record('A'), "follows"};
    static std::string seen;
    record.page.dwSize = sizeof record;
    record.page.pfnDlgProc = [](HWND, UINT message, WPARAM, LPARAM second) -> INT_PTR {
        if (message != WM_INITDIALOG) return FALSE;
        const auto* got = reinterpret_cast<const decltype(record)*>(second);
        seen = got->page.dwSize == sizeof *got ? got->text : "short";
        return FALSE;
    };
    const HPROPSHEETPAGE page = CreatePropertySheetPageW(&record.page);
    std::memset(record.text, 'x', sizeof record.text);
    PROPSHEETHEADERW header = {};
    header.dwSize = sizeof header;
    header.dwFlags = PSH_MODELESS;
    header.nPages = 1;
    header.phpage = const_cast<HPROPSHEETPAGE*>(&page);
    sheet_ = reinterpret_cast<HWND>(PropertySheetW(&header));
    EXPECT_EQ(seen, "follows");
    PROPSHEETPAGEW small = pages_.Record('B');
    small.dwSize = 8;
    EXPECT_EQ(CreatePropertySheetPageW(&small), nullptr);
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
        Open("ABC", 0, 0, {Turn(2), Press(i % 2 ? PSBTN_OK : PSBTN_CANCEL)});
    }
    EXPECT_EQ(count(), before);
}
#endif

} // namespace
