// The property sheets of printers, as programs and the folder of printers open them.
#include "platform/spooler_test.h"
#include "printer_sheets/general_page.h"
#include "printer_sheets/printer_sheets.h"

#include <prsht.h>

#include <win32host/user.h>

namespace {

using namespace printer_sheets;

class PrinterSheets : public LabelsTest {
protected:
    // Somebody who does this with the sheet that opens next, and then presses a button of it.
    static void Act(WPARAM button, std::function<void(HWND sheet)> act) {
        win32host::WhenIdle([=] {
            win32host::WhenIdle(nullptr);
            const HWND sheet = FindWindowW(TEXT("#32770"), TEXT("LABELS Properties"));
            if (!sheet) return false;
            act(sheet);
            SendMessageW(sheet, PSM_PRESSBUTTON, button, 0);
            return false;
        });
    }
};

TEST_F(PrinterSheets, OfDocumentsAnswerWhatTheUserDecides) {
    EXPECT_EQ(DocumentPropertiesW(nullptr, printer_, nullptr, nullptr, nullptr, DM_IN_PROMPT), -1)
        << "a driver that does not begin";
    for (const bool applies : {false, true}) {
        for (const WPARAM button : {PSBTN_OK, PSBTN_CANCEL}) {
            Act(button, [&](HWND sheet) {
                if (applies) SendMessageW(sheet, PSM_PRESSBUTTON, PSBTN_APPLYNOW, 0);
            });
            std::vector<BYTE> output;
            EXPECT_EQ(ShowDocument(nullptr, printer_, u"LABELS", nullptr, output),
                      button == PSBTN_OK ? Ended::Confirmed : Ended::Cancelled);
            ASSERT_EQ(output.empty(), !applies && button == PSBTN_CANCEL);
            if (output.empty()) continue;
            EXPECT_EQ(reinterpret_cast<DEVMODEW*>(output.data())->dmCopies, 9);
        }
    }
}

TEST_F(PrinterSheets, OfTheDeviceBeginWithTheSystemsPage) {
    static std::u16string set; // what drivers wait for
    const HHOOK hook = SetWindowsHookExW(
        WH_CALLWNDPROC,
        [](int code, WPARAM first, LPARAM second) -> LRESULT {
            const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(second);
            const int id = GetDlgCtrlID(sent.hwnd);
            if (sent.message == WM_SETTEXT && id == kComment) set += u"comment ";
            if (sent.message == BM_SETCHECK && id == kAlwaysAvailable) set += u"check ";
            return CallNextHookEx(nullptr, code, first, second);
        },
        nullptr, GetCurrentThreadId());
    Act(PSBTN_OK, [&](HWND sheet) {
        UnhookWindowsHookEx(hook);
        EXPECT_EQ(set, u"comment check ");
        const HWND page = PropSheet_GetCurrentPageHwnd(sheet);
        SendDlgItemMessageW(page, kTestPage, BM_CLICK, 0, 0);
        SendDlgItemMessageW(page, kComment, EM_REPLACESEL, FALSE,
                            reinterpret_cast<LPARAM>(u"by the door"));
        SendMessageW(sheet, PSM_SETCURSEL, 1, 0);
    });
    EXPECT_EQ(ShowDevice(nullptr, printer_, u"LABELS", true), Ended::Confirmed);
    EXPECT_EQ(std::u16string(PrinterInfo2(printer_)->pComment), u"by the door");
    EXPECT_NE(TakeNotes().find(u"start doc Test Page"), std::u16string::npos);

    Act(PSBTN_OK, [](HWND sheet) {
        const HWND page = PropSheet_GetCurrentPageHwnd(sheet);
        EXPECT_TRUE(GetWindowLongW(GetDlgItem(page, kComment), GWL_STYLE) & ES_READONLY);
    });
    EXPECT_EQ(ShowDevice(nullptr, Open(u"LABELS", PRINTER_ACCESS_USE), u"LABELS", false),
              Ended::Cancelled)
        << "only the driver says what was confirmed";
}

} // namespace
