// The common property sheets: what page functions are called with, and where their pages go.
#include "noting_pages.h"

#include <compstui.h>

#include <gtest/gtest.h>

#include <functional>

namespace {

// One use of the common property sheets. Page functions are numbers from 0, the root.
class CommonPropertySheets : public testing::Test {
protected:
    using Info = PROPSHEETUI_INFO;

    CommonPropertySheets() { current = this; }

    // Opens the sheet, which is closed with OK.
    LONG Open() {
        noted_.clear();
        result_ = 99;
        pages_.when_shown = [this](HWND sheet) { Act(sheet); };
        return CommonPropertySheetUIW(nullptr, Function<0>, 70, &result_);
    }

    static LONG_PTR Ask(const Info* info, UINT function, LPARAM first = 0, LPARAM second = 0) {
        return info->pfnComPropSheet(info->hComPropSheet, function, first, second);
    }
    HANDLE Add(const Info* info, char letter) {
        const PROPSHEETPAGEW page = pages_.Record(letter);
        return reinterpret_cast<HANDLE>(
            Ask(info, CPSFUNC_ADD_PROPSHEETPAGEW, reinterpret_cast<LPARAM>(&page)));
    }
    template <int number>
    static HANDLE AddFunction(const Info* info) {
        return reinterpret_cast<HANDLE>(Ask(info, CPSFUNC_ADD_PFNPROPSHEETUIW,
                                            reinterpret_cast<LPARAM>(Function<number>),
                                            70 + number));
    }
    void Insert(const Info* info, BYTE mode, HANDLE where, char letter) {
        INSERTPSUIPAGE_INFO asked = {};
        asked.cbSize = sizeof asked;
        asked.Type = PSUIPAGEINSERT_HPROPSHEETPAGE;
        asked.Mode = mode;
        asked.dwData1 = reinterpret_cast<ULONG_PTR>(pages_.Page(letter));
        EXPECT_EQ(Ask(info, CPSFUNC_INSERT_PSUIPAGEW, reinterpret_cast<LPARAM>(where),
                      reinterpret_cast<LPARAM>(&asked)),
                  static_cast<LONG_PTR>(asked.dwData1));
    }

    // The titles of the tabs.
    static std::string Tabs(HWND sheet) {
        std::string titles;
        const HWND tab = PropSheet_GetTabControl(sheet);
        const LRESULT count = SendMessageW(tab, TCM_GETITEMCOUNT, 0, 0);
        for (WPARAM i = 0; i < static_cast<WPARAM>(count); ++i) {
            WCHAR text[20] = {};
            TCITEMW item = {};
            item.mask = TCIF_TEXT;
            item.pszText = text;
            item.cchTextMax = 20;
            SendMessageW(tab, TCM_GETITEMW, i, reinterpret_cast<LPARAM>(&item));
            for (const WCHAR* unit = text; *unit; ++unit) titles += static_cast<char>(*unit);
        }
        return titles;
    }

    // What the functions do besides; by their number.
    std::map<int, std::function<void(Info*)>> build; // at INIT
    std::map<std::pair<int, WORD>, LONG> answers;    // 1 if it is not here
    std::function<void(HWND)> when_shown;            // before it is closed
    WORD header_flags = PSUIHDRF_PROPTITLE;

    NotingPages pages_;
    std::string noted_;
    DWORD result_ = 0;
    std::string title_;

    template <int number>
    static LONG CALLBACK Function(Info* info, LPARAM parameter) {
        return current->Called(number, info, parameter);
    }

private:
    static inline CommonPropertySheets* current = nullptr;

    void Act(HWND sheet) {
        WCHAR text[100];
        const int length = GetWindowTextW(sheet, text, 100);
        title_.assign(text, text + length);
        if (when_shown) when_shown(sheet);
        PostMessageW(sheet, PSM_PRESSBUTTON, PSBTN_OK, 0);
    }

    LONG Called(int number, Info* info, LPARAM parameter) {
        static const char* const kReasons[] = {"init", "header", "destroy", "result", "icon"};
        std::string what = std::to_string(number) + "." + kReasons[info->Reason];
        switch (info->Reason) {
        case PROPSHEETUI_REASON_INIT:
            EXPECT_EQ(info->lParamInit, 70 + number);
            info->UserData = static_cast<ULONG_PTR>(number) + 1;
            break;
        case PROPSHEETUI_REASON_GET_INFO_HEADER: {
            auto* header = reinterpret_cast<PROPSHEETUI_INFO_HEADER*>(parameter);
            header->Flags = header_flags;
            header->pTitle = const_cast<LPWSTR>(TEXT("Printer"));
            break;
        }
        case PROPSHEETUI_REASON_SET_RESULT:
            what +=
                ":" + std::to_string(reinterpret_cast<const SETRESULT_INFO*>(parameter)->Result);
            break;
        case PROPSHEETUI_REASON_DESTROY:
            if (parameter != 0) what += ":shown";
            break;
        default:
            break;
        }
        noted_ += what + " ";
        EXPECT_EQ(info->UserData, static_cast<ULONG_PTR>(number) + 1);
        if (info->Reason == PROPSHEETUI_REASON_INIT && build[number]) build[number](info);
        const auto answer = answers.find({number, info->Reason});
        return answer == answers.end() ? 1 : answer->second;
    }
};

TEST_F(CommonPropertySheets, AskFunctionsForPagesAndEndWhatHasBegun) {
    const struct {
        int refusing; // this function answers this reason with 0; -1: none
        WORD reason;
        bool pages;
        LONG answer;
        const char* told;
    } cases[] = {
        {-1, 0, true, 1, "0.init 1.init 0.header 1.destroy:shown 0.destroy:shown "},
        {0, 0, true, ERR_CPSUI_GETLASTERROR, "0.init 1.init 1.destroy 0.destroy "},
        {1, 0, true, 1, "0.init 1.init 1.destroy 0.header 0.destroy:shown "},
        {0, 1, true, ERR_CPSUI_GETLASTERROR, "0.init 1.init 0.header 1.destroy 0.destroy "},
        {-1, 0, false, ERR_CPSUI_NO_PROPSHEETPAGE, "0.init 1.init 0.header 1.destroy 0.destroy "},
    };
    for (const auto& each : cases) {
        answers = {{{each.refusing, each.reason}, 0}};
        build[0] = [&](Info* info) {
            if (each.pages) Add(info, 'A');
            EXPECT_EQ(AddFunction<1>(info) == nullptr, each.refusing == 1);
        };
        build[1] = [&](Info* info) {
            if (each.pages) Add(info, 'B');
        };
        when_shown = [&](HWND sheet) { EXPECT_EQ(Tabs(sheet), each.refusing == 1 ? "A" : "AB"); };
        EXPECT_EQ(Open(), each.answer) << each.told;
        EXPECT_EQ(noted_, each.told);
        EXPECT_EQ(result_, static_cast<DWORD>(CPSUI_CANCEL)) << "nobody said otherwise";
    }
    EXPECT_EQ(title_, "Printer Properties");
    header_flags = PSUIHDRF_EXACT_PTITLE | PSUIHDRF_PROPTITLE | PSUIHDRF_NOAPPLYNOW;
    build.erase(1);
    build[0] = [this](Info* info) { Add(info, 'A'); };
    when_shown = [](HWND sheet) {
        EXPECT_FALSE(IsWindowVisible(GetDlgItem(sheet, 0x3021)));
        SendMessageW(sheet, PSM_REBOOTSYSTEM, 0, 0);
    };
    answers.clear();
    EXPECT_EQ(Open(), 1);
    EXPECT_EQ(title_, "Printer");
    EXPECT_EQ(result_, static_cast<DWORD>(CPSUI_REBOOTSYSTEM));
}

TEST_F(CommonPropertySheets, PutPagesWhereTheyAreWanted) {
    Info* root = nullptr;
    HANDLE child = nullptr;
    HANDLE handles[9] = {};
    build[0] = [&](Info* info) {
        root = info;
        const HANDLE b = Add(info, 'B');
        child = AddFunction<1>(info);
        Insert(info, INSPSUIPAGE_MODE_FIRST_CHILD, nullptr, 'A');
        Insert(info, INSPSUIPAGE_MODE_AFTER, b, 'C');
        Insert(info, INSPSUIPAGE_MODE_BEFORE, child, 'D');
        Insert(info, INSPSUIPAGE_MODE_FIRST_CHILD, child, 'E');
        Insert(info, INSPSUIPAGE_MODE_LAST_CHILD, child, 'G');
        Insert(info, INSPSUIPAGE_MODE_LAST_CHILD, nullptr, 'I');
        AddFunction<2>(info);
        EXPECT_EQ(Ask(info, CPSFUNC_GET_PAGECOUNT), 9);
        EXPECT_EQ(Ask(info, CPSFUNC_GET_HPSUIPAGES, reinterpret_cast<LPARAM>(handles), 2), 2);
        EXPECT_TRUE(handles[1] == b && !handles[2]);
        EXPECT_EQ(Ask(info, CPSFUNC_GET_HPSUIPAGES, reinterpret_cast<LPARAM>(handles), 9), 9);
        EXPECT_EQ(Ask(info, CPSFUNC_SET_HSTARTPAGE, reinterpret_cast<LPARAM>(child), 1), 1);
        EXPECT_EQ(Ask(info, CPSFUNC_SET_HSTARTPAGE, 0, 99), 0);
        EXPECT_EQ(Ask(info, CPSFUNC_SET_PSUIPAGE_TITLEW, reinterpret_cast<LPARAM>(b),
                      reinterpret_cast<LPARAM>(TEXT("b"))),
                  1);
    };
    build[1] = [this](Info* info) { Add(info, 'F'); };
    build[2] = [this](Info* info) { Insert(info, INSPSUIPAGE_MODE_INDEX, nullptr, 'H'); };
    when_shown = [&](HWND sheet) {
        EXPECT_EQ(Tabs(sheet), "AbCDEFGIH");
        // The handles are those of the sheet's pages.
        EXPECT_EQ(SendMessageW(sheet, PSM_INDEXTOPAGE, 5, 0),
                  reinterpret_cast<LRESULT>(handles[5]));
        EXPECT_EQ(PropSheet_GetCurrentPageHwnd(sheet), pages_.windows['F']);
        // Pages come and go while it is shown.
        Insert(root, INSPSUIPAGE_MODE_LAST_CHILD, child, 'X');
        EXPECT_EQ(Tabs(sheet), "AbCDEFGXIH");
        EXPECT_EQ(Ask(root, CPSFUNC_DELETE_HCOMPROPSHEET, reinterpret_cast<LPARAM>(child)), 1);
        EXPECT_EQ(Ask(root, CPSFUNC_DELETE_HCOMPROPSHEET, reinterpret_cast<LPARAM>(child)), 0);
        EXPECT_EQ(Tabs(sheet), "AbCDIH");
    };
    EXPECT_EQ(Open(), 1);
}

TEST_F(CommonPropertySheets, PassTheUsersAnswerUpAsLongAsFunctionsAgree) {
    HANDLE page = nullptr;
    const Info* sheet = nullptr;
    build[0] = [](Info* info) { AddFunction<1>(info); };
    build[1] = [&](Info* info) {
        page = Add(info, 'A');
        sheet = info;
    };
    const auto told = [&](bool unknown, LRESULT answer) {
        when_shown = [&, unknown, answer](HWND) {
            noted_.clear();
            const auto about = reinterpret_cast<LPARAM>(unknown ? &page : page);
            EXPECT_EQ(Ask(sheet, CPSFUNC_SET_RESULT, about, CPSUI_OK), answer);
        };
        EXPECT_EQ(Open(), 1);
        return noted_.substr(0, noted_.find("1.destroy"));
    };
    EXPECT_EQ(told(false, 2), "1.result:1 0.result:1 ");
    EXPECT_EQ(result_, static_cast<DWORD>(CPSUI_OK));
    EXPECT_EQ(told(true, 0), "");
    answers[{1, PROPSHEETUI_REASON_SET_RESULT}] = 0;
    EXPECT_EQ(told(false, 0), "1.result:1 ");
    EXPECT_EQ(result_, static_cast<DWORD>(CPSUI_CANCEL));
}

} // namespace
