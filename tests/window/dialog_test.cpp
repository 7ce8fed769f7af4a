// Dialogs from templates, and their keys.
#include "dialog_builder.h"
#include "recorder.h"

#include <gtest/gtest.h>

namespace {

std::string g_noted;
INT_PTR g_end_at_init = 0;

INT_PTR CALLBACK NotingProcedure(HWND dialog, UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_SETFONT:
        g_noted += "font ";
        return FALSE;
    case WM_INITDIALOG:
        g_noted += "init:" + std::to_string(second) + " ";
        if (g_end_at_init) EndDialog(dialog, g_end_at_init);
        return TRUE;
    case WM_COMMAND:
        if (HIWORD(first) != 0) return FALSE;
        g_noted += "command:" + std::to_string(LOWORD(first)) + " ";
        if (LOWORD(first) == IDOK || LOWORD(first) == IDCANCEL) EndDialog(dialog, LOWORD(first));
        return TRUE;
    case WM_DESTROY:
        g_noted += "destroy ";
        return FALSE;
    default:
        return FALSE;
    }
}

void Key(HWND dialog, WPARAM key) {
    MSG message = {GetFocus(), WM_KEYDOWN, key, 1, 0, {}};
    IsDialogMessageW(dialog, &message);
}

DialogBuilder Form(bool extended) {
    DialogBuilder builder(extended, WS_POPUP | WS_CAPTION | WS_VISIBLE, 10, 10, 120, 80);
    builder.Add(TEXT("Static"), TEXT("&Width"), 100, 0, 5, 5, 40, 10);
    builder.Add(TEXT("Button"), TEXT("one"), 101, WS_TABSTOP, 5, 20, 40, 14);
    builder.Add(TEXT("Button"), TEXT("off"), 102, WS_TABSTOP | WS_DISABLED, 5, 40, 40, 14);
    builder.Add(TEXT("Button"), TEXT("OK"), IDOK, WS_TABSTOP | 1, 5, 60, 40, 14);
    return builder;
}

TEST(Dialogs, AreMadeFromTemplatesOfBothForms) {
    for (bool extended : {false, true}) {
        g_noted.clear();
        const DialogBuilder form = Form(extended);
        const HWND dialog =
            CreateDialogIndirectParamW(nullptr, form.Get(), nullptr, NotingProcedure, 7);
        ASSERT_TRUE(dialog) << extended;
        EXPECT_EQ(g_noted, "font init:7 ");
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, 101));
        EXPECT_EQ(GetDlgCtrlID(GetNextDlgTabItem(dialog, GetDlgItem(dialog, 101), FALSE)), IDOK);
        EXPECT_EQ(GetNextDlgTabItem(dialog, GetDlgItem(dialog, 101), TRUE),
                  GetDlgItem(dialog, IDOK));
        EXPECT_EQ(SendMessageW(dialog, DM_GETDEFID, 0, 0), MAKELONG(IDOK, DC_HASDEFID));
        RECT unit = {4, 8, 40, 80};
        MapDialogRect(dialog, &unit);
        EXPECT_EQ(unit.right, unit.left * 10);
        EXPECT_EQ(unit.bottom, unit.top * 10);
        RECT client;
        GetClientRect(dialog, &client);
        EXPECT_EQ(client.right, unit.right * 3);
        EXPECT_EQ(client.bottom, unit.bottom);
        EXPECT_TRUE(SendMessageW(dialog, WM_GETFONT, 0, 0));
        DestroyWindow(dialog);
        EXPECT_EQ(g_noted, "font init:7 destroy ");
    }
}

TEST(Dialogs, AreCutTemplatesRefused) {
    const DialogBuilder builder(true, WS_POPUP, 0, 0, 10, 10);
    const HWND dialog = CreateDialogIndirectParamW(nullptr, nullptr, nullptr, NotingProcedure, 0);
    EXPECT_EQ(dialog, nullptr);
}

TEST(Dialogs, MoveAndPressByKeys) {
    g_noted.clear();
    const DialogBuilder form = Form(true);
    const HWND dialog =
        CreateDialogIndirectParamW(nullptr, form.Get(), nullptr, NotingProcedure, 0);
    ASSERT_TRUE(dialog);
    g_noted.clear();
    Key(dialog, VK_TAB);
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDOK));
    Key(dialog, VK_TAB);
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog, 101));
    Key(dialog, VK_RETURN); // a push button that has the focus is the default one
    Key(dialog, VK_ESCAPE);
    EXPECT_EQ(g_noted, "command:101 command:2 ");
    DestroyWindow(dialog);
}

TEST(Dialogs, EndWithTheirResult) {
    Recorder owner({{WM_ENABLE, "enable"}, {WM_ENTERIDLE, "idle"}});
    ShowWindow(owner.Window(), SW_SHOW);
    owner.Take();
    bool disabled = false;
    owner.handler = [&](UINT message, WPARAM, LPARAM dialog, LRESULT&) {
        if (message != WM_ENTERIDLE) return false;
        disabled = !IsWindowEnabled(owner.Window());
        PostMessageW(reinterpret_cast<HWND>(dialog), WM_COMMAND, IDOK, 0);
        return false;
    };
    const DialogBuilder form = Form(true);
    g_noted.clear();
    EXPECT_EQ(DialogBoxIndirectParamW(nullptr, form.Get(), owner.Window(), NotingProcedure, 3),
              IDOK);
    EXPECT_TRUE(disabled);
    EXPECT_TRUE(IsWindowEnabled(owner.Window()));
    EXPECT_EQ(g_noted, "font init:3 command:1 destroy ");
    EXPECT_EQ(GetActiveWindow(), owner.Window());

    // Ended before it was shown.
    g_noted.clear();
    g_end_at_init = 77;
    EXPECT_EQ(DialogBoxIndirectParamW(nullptr, form.Get(), owner.Window(), NotingProcedure, 4), 77);
    g_end_at_init = 0;
    EXPECT_EQ(g_noted, "font init:4 destroy ");
    EXPECT_TRUE(IsWindowEnabled(owner.Window()));
}

} // namespace
