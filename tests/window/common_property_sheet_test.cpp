// The common property sheets: what page functions are called with, and where their pages go.
#include "noting_pages.h"

#include <compstui.h>

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace {

// One use of the common property sheets. Page functions are numbers from 0, the root.
class CommonPropertySheets : public testing::Test {
protected:
    using Info = PROPSHEETUI_INFO;

    CommonPropertySheets() { current = this; }

    // Opens the sheet. It is closed by `acts`, messages that are posted to it.
    LONG Open(std::vector<std::pair<UINT, WPARAM>> acts = {{PSM_PRESSBUTTON, PSBTN_OK}}) {
        acts_ = std::move(acts);
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
    static HANDLE AddFunction(const Info* info, LPARAM parameter) {
        return reinterpret_cast<HANDLE>(Ask(info, CPSFUNC_ADD_PFNPROPSHEETUIW,
                                            reinterpret_cast<LPARAM>(Function<number>), parameter));
    }
    HANDLE Insert(const Info* info, BYTE mode, HANDLE where, BYTE type, ULONG_PTR first,
                  ULONG_PTR second = 0) {
        INSERTPSUIPAGE_INFO asked = {};
        asked.cbSize = sizeof asked;
        asked.Type = type;
        asked.Mode = mode;
        asked.dwData1 = first;
        asked.dwData2 = second;
        return reinterpret_cast<HANDLE>(Ask(info, CPSFUNC_INSERT_PSUIPAGEW,
                                            reinterpret_cast<LPARAM>(where),
                                            reinterpret_cast<LPARAM>(&asked)));
    }
    HANDLE InsertPage(const Info* info, BYTE mode, HANDLE where, char letter) {
        return Insert(info, mode, where, PSUIPAGEINSERT_HPROPSHEETPAGE,
                      reinterpret_cast<ULONG_PTR>(pages_.Page(letter)));
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
    std::function<void(HWND)> when_shown;            // before the acts
    WORD header_flags = PSUIHDRF_PROPTITLE;

    NotingPages pages_;
    std::string noted_;
    DWORD result_ = 0;
    std::string title_;

    HANDLE start_ = nullptr;

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
        for (const auto& [message, first] : acts_) PostMessageW(sheet, message, first, 0);
    }

    LONG Called(int number, Info* info, LPARAM parameter) {
        static const char* const kReasons[] = {"init", "header", "destroy", "result", "icon"};
        std::string what = std::to_string(number) + "." + kReasons[info->Reason];
        switch (info->Reason) {
        case PROPSHEETUI_REASON_INIT:
            what += ":" + std::to_string(info->lParamInit);
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

    std::vector<std::pair<UINT, WPARAM>> acts_;
};

TEST_F(CommonPropertySheets, AskFunctionsForPagesAndLetThemEnd) {
    build[0] = [this](Info* info) {
        Add(info, 'A');
        AddFunction<1>(info, 71);
    };
    build[1] = [this](Info* info) { Add(info, 'B'); };
    when_shown = [](HWND sheet) { EXPECT_EQ(Tabs(sheet), "AB"); };
    EXPECT_EQ(Open(), 1);
    EXPECT_EQ(noted_, "0.init:70 1.init:71 0.header 1.destroy:shown 0.destroy:shown ");
    EXPECT_EQ(title_, "Printer Properties");
    EXPECT_EQ(result_, static_cast<DWORD>(CPSUI_CANCEL)) << "nobody said otherwise";
    header_flags = PSUIHDRF_EXACT_PTITLE | PSUIHDRF_PROPTITLE | PSUIHDRF_NOAPPLYNOW;
    when_shown = [](HWND sheet) { EXPECT_FALSE(IsWindowVisible(GetDlgItem(sheet, 0x3021))); };
    EXPECT_EQ(Open({{PSM_REBOOTSYSTEM, 0}, {PSM_PRESSBUTTON, PSBTN_OK}}), 1);
    EXPECT_EQ(title_, "Printer");
    EXPECT_EQ(result_, static_cast<DWORD>(CPSUI_REBOOTSYSTEM));
}

TEST_F(CommonPropertySheets, EndWhatHasBegunWhenSomethingFails) {
    const struct {
        const char* name;
        std::map<std::pair<int, WORD>, LONG> answers;
        bool pages;
        LONG answer;
        const char* told;
    } cases[] = {
        {"root",
         {{{0, 0}, -1}},
         true,
         ERR_CPSUI_GETLASTERROR,
         "0.init:70 1.init:71 1.destroy 0.destroy "},
        {"child",
         {{{1, 0}, 0}},
         true,
         1,
         "0.init:70 1.init:71 1.destroy 0.header 0.destroy:shown "},
        {"header",
         {{{0, 1}, 0}},
         true,
         ERR_CPSUI_GETLASTERROR,
         "0.init:70 1.init:71 0.header 1.destroy 0.destroy "},
        {"pages",
         {},
         false,
         ERR_CPSUI_NO_PROPSHEETPAGE,
         "0.init:70 1.init:71 0.header 1.destroy 0.destroy "},
    };
    for (const auto& each : cases) {
        answers = each.answers;
        build[0] = [&](Info* info) {
            if (each.pages) Add(info, 'A');
            const HANDLE child = AddFunction<1>(info, 71);
            EXPECT_EQ(child != nullptr, answers.count({1, 0}) == 0) << each.name;
        };
        build[1] = [&](Info* info) {
            if (each.pages) Add(info, 'B');
        };
        when_shown = [](HWND sheet) { EXPECT_EQ(Tabs(sheet), "A") << "of a child that failed"; };
        EXPECT_EQ(Open(), each.answer) << each.name;
        EXPECT_EQ(noted_, each.told) << each.name;
        EXPECT_EQ(result_, static_cast<DWORD>(CPSUI_CANCEL)) << each.name;
    }
    EXPECT_LT(CommonPropertySheetUIW(nullptr, nullptr, 0, nullptr), 0);
}

TEST_F(CommonPropertySheets, InsertPagesWhereTheyAreWanted) {
    build[0] = [this](Info* info) {
        const HANDLE b = Add(info, 'B');
        const HANDLE child = AddFunction<1>(info, 0);
        InsertPage(info, INSPSUIPAGE_MODE_FIRST_CHILD, nullptr, 'A');
        InsertPage(info, INSPSUIPAGE_MODE_AFTER, b, 'C');
        InsertPage(info, INSPSUIPAGE_MODE_BEFORE, child, 'D');
        InsertPage(info, INSPSUIPAGE_MODE_FIRST_CHILD, child, 'E');
        InsertPage(info, INSPSUIPAGE_MODE_LAST_CHILD, child, 'G');
        InsertPage(info, INSPSUIPAGE_MODE_LAST_CHILD, nullptr, 'I');
        Insert(info, INSPSUIPAGE_MODE_AFTER, child, PSUIPAGEINSERT_PFNPROPSHEETUI,
               reinterpret_cast<ULONG_PTR>(&Function<2>), 5);
        // Neither of these has a place.
        const HPROPSHEETPAGE x = pages_.Page('X');
        for (const BYTE mode : {BYTE{INSPSUIPAGE_MODE_AFTER}, BYTE{INSPSUIPAGE_MODE_FIRST_CHILD}})
            EXPECT_EQ(Insert(info, mode, &result_, PSUIPAGEINSERT_HPROPSHEETPAGE,
                             reinterpret_cast<ULONG_PTR>(x)),
                      nullptr);
        DestroyPropertySheetPage(x);

        EXPECT_EQ(Ask(info, CPSFUNC_GET_PAGECOUNT), 9);
        HANDLE handles[9] = {};
        EXPECT_EQ(Ask(info, CPSFUNC_GET_HPSUIPAGES, reinterpret_cast<LPARAM>(handles), 4), 4);
        EXPECT_EQ(handles[1], b);
        EXPECT_EQ(handles[4], nullptr);
        EXPECT_EQ(Ask(info, CPSFUNC_GET_HPSUIPAGES, reinterpret_cast<LPARAM>(handles), 9), 9);
        start_ = handles[5];
        EXPECT_EQ(Ask(info, CPSFUNC_SET_HSTARTPAGE, reinterpret_cast<LPARAM>(child), 1), 1);
        EXPECT_EQ(Ask(info, CPSFUNC_SET_HSTARTPAGE, 0, 99), 0);
        EXPECT_EQ(Ask(info, CPSFUNC_SET_PSUIPAGE_TITLEW, reinterpret_cast<LPARAM>(b),
                      reinterpret_cast<LPARAM>(TEXT("b"))),
                  1);
    };
    build[1] = [this](Info* info) { Add(info, 'F'); };
    build[2] = [this](Info* info) {
        EXPECT_EQ(info->lParamInit, 5);
        InsertPage(info, INSPSUIPAGE_MODE_INDEX, nullptr, 'H');
    };
    when_shown = [this](HWND sheet) {
        EXPECT_EQ(Tabs(sheet), "AbCDEFGHI");
        // The handles are those of the sheet's pages.
        EXPECT_EQ(SendMessageW(sheet, PSM_HWNDTOINDEX,
                               reinterpret_cast<WPARAM>(PropSheet_GetCurrentPageHwnd(sheet)), 0),
                  5);
        EXPECT_EQ(SendMessageW(sheet, PSM_INDEXTOPAGE, 5, 0), reinterpret_cast<LRESULT>(start_));
    };
    EXPECT_EQ(Open(), 1);
}

TEST_F(CommonPropertySheets, PassTheUsersAnswerUpAsLongAsFunctionsAgree) {
    HANDLE page = nullptr;
    const Info* sheet = nullptr;
    build[0] = [](Info* info) { AddFunction<1>(info, 0); };
    build[1] = [&](Info* info) {
        page = Add(info, 'A');
        sheet = info;
    };
    const auto told = [&](LPARAM about, LRESULT answer) {
        when_shown = [&, about, answer](HWND) {
            noted_.clear();
            EXPECT_EQ(Ask(sheet, CPSFUNC_SET_RESULT, about ? about : reinterpret_cast<LPARAM>(page),
                          CPSUI_OK),
                      answer);
        };
        EXPECT_EQ(Open(), 1);
        return noted_.substr(0, noted_.find("1.destroy"));
    };
    EXPECT_EQ(told(0, 2), "1.result:1 0.result:1 ");
    EXPECT_EQ(result_, static_cast<DWORD>(CPSUI_OK));
    answers[{1, PROPSHEETUI_REASON_SET_RESULT}] = 0;
    EXPECT_EQ(told(0, 0), "1.result:1 ");
    EXPECT_EQ(result_, static_cast<DWORD>(CPSUI_CANCEL));
    EXPECT_EQ(told(1, 0), "") << "no page has this handle";
}

TEST_F(CommonPropertySheets, ChangeWhileTheyAreShown) {
    Info* root = nullptr;
    HANDLE child = nullptr;
    build[0] = [&](Info* info) {
        root = info;
        Add(info, 'A');
        child = AddFunction<1>(info, 0);
        Add(info, 'D');
    };
    build[1] = [this](Info* info) {
        Add(info, 'B');
        Add(info, 'C');
    };
    when_shown = [&](HWND sheet) {
        InsertPage(root, INSPSUIPAGE_MODE_LAST_CHILD, child, 'X');
        EXPECT_EQ(Tabs(sheet), "ABCXD");
        EXPECT_EQ(Ask(root, CPSFUNC_DELETE_HCOMPROPSHEET, reinterpret_cast<LPARAM>(child)), 1);
        EXPECT_EQ(Tabs(sheet), "AD");
        EXPECT_EQ(noted_, "0.init:70 1.init:0 0.header 1.destroy ");
        EXPECT_EQ(Ask(root, CPSFUNC_DELETE_HCOMPROPSHEET, reinterpret_cast<LPARAM>(child)), 0);
    };
    EXPECT_EQ(Open(), 1);
}

TEST_F(CommonPropertySheets, KeepDataAndTexts) {
    build[0] = [this](Info* info) {
        Add(info, 'A');
        BYTE bytes[] = {1, 2, 3};
        CPSUIDATABLOCK block = {sizeof bytes, bytes};
        const auto parameter = reinterpret_cast<LPARAM>(&block);
        EXPECT_EQ(Ask(info, CPSFUNC_SET_DATABLOCK, parameter), 1);
        bytes[0] = bytes[2] = 9;
        block.cbData = 2;
        EXPECT_EQ(Ask(info, CPSFUNC_QUERY_DATABLOCK, parameter), 3);
        EXPECT_EQ(bytes[0] * 10 + bytes[2], 19);
        WCHAR text[5];
        EXPECT_EQ(Ask(info, CPSFUNC_LOAD_CPSUI_STRINGW, reinterpret_cast<LPARAM>(text),
                      MAKELONG(5, 64717)),
                  4);
        EXPECT_EQ(std::basic_string<WCHAR>(text), TEXT("Prin"));
        EXPECT_EQ(Ask(info, 99), ERR_CPSUI_FUNCTION_NOT_IMPLEMENTED);
    };
    when_shown = [this](HWND) {
        EXPECT_TRUE(SetCPSUIUserData(pages_.windows['A'], 7));
        EXPECT_EQ(GetCPSUIUserData(pages_.windows['A']), 7u);
    };
    EXPECT_EQ(Open(), 1);
}

} // namespace
