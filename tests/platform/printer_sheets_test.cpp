// The property sheets of printers, as programs and the folder of printers open them.
#include "platform/spooler_test.h"
#include "printer_sheets/general_page.h"
#include "printer_sheets/printer_sheets.h"

#include <commctrl.h>
#include <prsht.h>

#include <win32host/user.h>

namespace {

using namespace printer_sheets;

class PrinterSheets : public LabelsTest {
protected:
    ~PrinterSheets() override { win32host::WhenIdle(nullptr); }

    // Somebody who does this with the sheet that opens and then presses a button of it.
    void Act(WPARAM button, std::function<void(HWND sheet)> act = {}) {
        win32host::WhenIdle([=, this] {
            const HWND sheet = FindWindowW(TEXT("#32770"), nullptr);
            if (!sheet) return false;
            title_ = TitleOf(sheet);
            win32host::WhenIdle(nullptr);
            if (act) act(sheet);
            SendMessageW(sheet, PSM_PRESSBUTTON, button, 0);
            return false;
        });
    }
    static std::u16string TitleOf(HWND window) {
        WCHAR text[100] = {};
        GetWindowTextW(window, text, 100);
        return text;
    }
    static std::u16string TabOf(HWND sheet, WPARAM position) {
        WCHAR text[50] = {};
        TCITEMW item = {};
        item.mask = TCIF_TEXT;
        item.pszText = text;
        item.cchTextMax = 50;
        SendMessageW(PropSheet_GetTabControl(sheet), TCM_GETITEMW, position,
                     reinterpret_cast<LPARAM>(&item));
        return text;
    }

    std::u16string title_;
};

TEST_F(PrinterSheets, OfDocumentsAnswerWhatTheUserDecides) {
    const struct {
        std::vector<WPARAM> first;
        WPARAM button;
        Ended ended;
        size_t bytes;
    } cases[] = {
        {{}, PSBTN_OK, Ended::Confirmed, sizeof(DEVMODEW) + 8},
        {{}, PSBTN_CANCEL, Ended::Cancelled, 0},
        {{PSBTN_APPLYNOW}, PSBTN_CANCEL, Ended::Cancelled, sizeof(DEVMODEW) + 8},
    };
    for (const auto& each : cases) {
        Act(each.button, [&](HWND sheet) {
            for (WPARAM button : each.first) SendMessageW(sheet, PSM_PRESSBUTTON, button, 0);
        });
        std::vector<BYTE> output;
        EXPECT_EQ(ShowDocument(nullptr, printer_, u"LABELS", nullptr, output), each.ended);
        EXPECT_EQ(title_, u"LABELS Properties");
        ASSERT_EQ(output.size(), each.bytes);
        if (output.empty()) continue;
        EXPECT_EQ(reinterpret_cast<const DEVMODEW*>(output.data())->dmCopies, 9);
    }
    // A driver that does not begin.
    EXPECT_EQ(DocumentPropertiesW(nullptr, printer_, nullptr, nullptr, nullptr, DM_IN_PROMPT), -1);
}

TEST_F(PrinterSheets, OfTheDeviceBeginWithTheSystemsPage) {
    static std::vector<std::pair<UINT, int>> set;
    const HHOOK hook = SetWindowsHookExW(
        WH_CALLWNDPROC,
        [](int code, WPARAM first, LPARAM second) -> LRESULT {
            const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(second);
            const int id = GetDlgCtrlID(sent.hwnd);
            if ((sent.message == WM_SETTEXT && id == kComment) ||
                (sent.message == BM_SETCHECK && id == kAlwaysAvailable))
                set.emplace_back(sent.message, id);
            return CallNextHookEx(nullptr, code, first, second);
        },
        nullptr, GetCurrentThreadId());
    Act(PSBTN_OK, [&](HWND sheet) {
        UnhookWindowsHookEx(hook);
        const std::vector<std::pair<UINT, int>> expected = {{WM_SETTEXT, kComment},
                                                            {BM_SETCHECK, kAlwaysAvailable}};
        EXPECT_EQ(set, expected) << "drivers wait for these";
        EXPECT_EQ(TabOf(sheet, 0) + u' ' + TabOf(sheet, 1), u"General Driver");
        const HWND page = PropSheet_GetCurrentPageHwnd(sheet);
        EXPECT_EQ(TitleOf(GetDlgItem(page, kTestPage)), u"Print &Test Page");
        SendDlgItemMessageW(page, kTestPage, BM_CLICK, 0, 0);
        SetDlgItemTextW(page, kComment, u"by the door");
        SendMessageW(page, WM_COMMAND, MAKEWPARAM(kComment, EN_CHANGE),
                     reinterpret_cast<LPARAM>(GetDlgItem(page, kComment)));
        SendMessageW(sheet, PSM_SETCURSEL, 1, 0);
    });
    EXPECT_EQ(ShowDevice(nullptr, printer_, u"LABELS", true), Ended::Confirmed);
    EXPECT_EQ(title_, u"LABELS Properties");
    EXPECT_EQ(std::u16string(PrinterInfo2(printer_)->pComment), u"by the door");
    EXPECT_NE(TakeNotes().find(u"start doc Test Page"), std::u16string::npos);
}

TEST_F(PrinterSheets, ThatMayNotBeChangedSayNothingToTheSpooler) {
    Act(PSBTN_OK, [](HWND sheet) {
        const HWND page = PropSheet_GetCurrentPageHwnd(sheet);
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(page, kAlwaysAvailable)));
        EXPECT_TRUE(GetWindowLongW(GetDlgItem(page, kComment), GWL_STYLE) & ES_READONLY);
    });
    EXPECT_EQ(ShowDevice(nullptr, Open(u"LABELS", PRINTER_ACCESS_USE), u"LABELS", false),
              Ended::Cancelled);
    Act(PSBTN_OK);
    EXPECT_EQ(ShowDefaults(nullptr, printer_, u"LABELS", true), Ended::Confirmed);
}

} // namespace
