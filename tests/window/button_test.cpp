// Buttons: what they tell their parent, and the states that they take.
#include "parent_window.h"

#include <gtest/gtest.h>

namespace {

const std::map<int, const char*> kButtonCodes = {{BN_CLICKED, "clicked"},
                                                 {BN_DBLCLK, "double"},
                                                 {BN_SETFOCUS, "focused"},
                                                 {BN_KILLFOCUS, "left"}};

constexpr LRESULT kStates = BST_CHECKED | BST_INDETERMINATE | BST_PUSHED | BST_FOCUS;

LRESULT CheckOf(HWND button) {
    return SendMessageW(button, BM_GETCHECK, 0, 0);
}

TEST(Buttons, TakeTheStateOfTheirKindWhenClicked) {
    const struct {
        DWORD style;
        const char* told; // of the first click
        const char* states;
        LRESULT dialog_code;
    } cases[] = {
        {BS_PUSHBUTTON, "clicked", "000", DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON},
        {BS_DEFPUSHBUTTON, "clicked", "000", DLGC_BUTTON | DLGC_DEFPUSHBUTTON},
        {BS_CHECKBOX, "clicked", "000", DLGC_BUTTON},
        {BS_AUTOCHECKBOX, "clicked", "101", DLGC_BUTTON},
        {BS_AUTOCHECKBOX | BS_PUSHLIKE, "clicked", "101", DLGC_BUTTON},
        {BS_3STATE, "clicked", "000", DLGC_BUTTON},
        {BS_AUTO3STATE, "clicked", "120", DLGC_BUTTON},
        {BS_RADIOBUTTON, "clicked", "000", DLGC_BUTTON | DLGC_RADIOBUTTON},
        {BS_AUTORADIOBUTTON, "clicked", "111", DLGC_BUTTON | DLGC_RADIOBUTTON},
        {BS_OWNERDRAW, "clicked", "000", DLGC_BUTTON},
        {BS_PUSHBUTTON | BS_NOTIFY, "focused clicked", "000", DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.style);
        ParentWindow parent(kButtonCodes);
        const HWND button = parent.Make(TEXT("Button"), TEXT("a button"), c.style);
        EXPECT_EQ(SendMessageW(button, WM_GETDLGCODE, 0, 0), c.dialog_code);
        for (int i = 0; i < 3; ++i) {
            Perform(button, "press 5, release 5");
            if (i == 0) {
                EXPECT_EQ(parent.Take(), c.told);
            }
            EXPECT_EQ(CheckOf(button), c.states[i] - '0');
        }
    }
}

TEST(Buttons, AreHeldDownByMouseAndSpace) {
    const std::map<std::string, UINT> messages = {
        {"cancel", WM_CANCELMODE}, {"click", BM_CLICK}, {"state", BM_SETSTATE}};
    const struct {
        DWORD style;
        const char* acts;
        const char* told;
        LRESULT state; // afterwards
    } cases[] = {
        {0, "press 5", "", BST_PUSHED | BST_FOCUS},
        {0, "press 5, move 500", "", BST_FOCUS},
        {0, "press 5, move 500, move 5", "", BST_PUSHED | BST_FOCUS},
        {0, "press 5, move 500, release 500", "", BST_FOCUS},
        {0, "release 5", "", 0},
        {0, "focus, hold space", "", BST_PUSHED | BST_FOCUS},
        {0, "focus, space", "clicked", BST_FOCUS},
        {BS_AUTOCHECKBOX, "focus, space", "clicked", BST_CHECKED | BST_FOCUS},
        {0, "focus, hold space, leave", "", 0},
        {0, "focus, enter", "", BST_FOCUS},
        {0, "press 5, cancel", "", BST_FOCUS},
        {BS_AUTOCHECKBOX, "click", "clicked", BST_CHECKED | BST_FOCUS},
        {0, "state 1", "", BST_PUSHED},
        {0, "press 5, release 5, double 5, release 5", "clicked clicked", BST_FOCUS},
        {BS_RADIOBUTTON, "press 5, release 5, double 5, release 5", "clicked double", BST_FOCUS},
        {BS_OWNERDRAW, "press 5, release 5, double 5, release 5", "clicked double", BST_FOCUS},
        {BS_NOTIFY, "focus, leave", "focused left", 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.acts);
        ParentWindow parent(kButtonCodes);
        const HWND button = parent.Make(TEXT("Button"), TEXT("a button"), c.style);
        Perform(button, c.acts, messages);
        EXPECT_EQ(parent.Take(), c.told);
        EXPECT_EQ(SendMessageW(button, BM_GETSTATE, 0, 0) & kStates, c.state);
        ReleaseCapture();
    }
}

TEST(Buttons, OfARadioGroupAreCheckedOneAtATime) {
    ParentWindow parent(kButtonCodes);
    HWND buttons[6];
    for (int i = 0; i < 6; ++i)
        buttons[i] = parent.Make(TEXT("Button"), TEXT(""),
                                 i == 3 ? BS_AUTOCHECKBOX
                                        : static_cast<DWORD>(BS_AUTORADIOBUTTON) |
                                              (i % 5 == 0 ? WS_GROUP | WS_TABSTOP : 0),
                                 i + 1, 10, 20 * i);
    const auto states = [&] {
        std::string text;
        for (HWND button : buttons) {
            text += static_cast<char>('0' + CheckOf(button));
            if (GetWindowLongPtrW(button, GWL_STYLE) & WS_TABSTOP) text += 't';
        }
        return text;
    };
    Perform(buttons[1], "press 5, release 5");
    EXPECT_EQ(parent.Take(), "clicked2");
    EXPECT_EQ(states(), "01t0000t");
    Perform(buttons[3], "press 5, release 5");
    EXPECT_EQ(states(), "01t0100t");
    Perform(buttons[4], "press 5, release 5");
    EXPECT_EQ(states(), "00011t0t");
    Perform(buttons[5], "press 5, release 5");
    EXPECT_EQ(states(), "00011t1t");
    // A program's own setting leaves the others alone.
    SendMessageW(buttons[0], BM_SETCHECK, BST_CHECKED, 0);
    EXPECT_EQ(states(), "1t0011t1t");
    parent.Take();
    EXPECT_TRUE(CheckRadioButton(parent.Window(), 1, 5, 3));
    EXPECT_EQ(states(), "001t001t");
    EXPECT_EQ(parent.Take(), "");
    EXPECT_TRUE(CheckDlgButton(parent.Window(), 4, BST_CHECKED));
    EXPECT_EQ(IsDlgButtonChecked(parent.Window(), 4), static_cast<UINT>(BST_CHECKED));
    EXPECT_EQ(states(), "001t101t");
    // Going to a radio button by an arrow key chooses it.
    SetFocus(buttons[1]);
    EXPECT_EQ(states(), "001t101t");
    MSG key = {};
    key.hwnd = buttons[1];
    key.message = WM_KEYDOWN;
    key.wParam = VK_UP;
    EXPECT_TRUE(IsDialogMessageW(parent.Window(), &key));
    EXPECT_EQ(parent.Take(), "clicked");
    EXPECT_EQ(states(), "1t00101t");
}

TEST(Buttons, KeepWhatProgramsSet) {
    ParentWindow parent(kButtonCodes);
    EXPECT_EQ(
        SendMessageW(parent.Make(TEXT("Button"), TEXT("group"), BS_GROUPBOX), WM_GETDLGCODE, 0, 0),
        DLGC_STATIC);
    const HWND push = parent.Make(TEXT("Button"), TEXT("push"), BS_DEFPUSHBUTTON);
    SendMessageW(push, BM_SETCHECK, BST_CHECKED, 0);
    EXPECT_EQ(CheckOf(push), 0);
    SendMessageW(push, BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
    EXPECT_EQ(SendMessageW(push, WM_GETDLGCODE, 0, 0), DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON);
    SetWindowTextW(push, TEXT("another"));
    EXPECT_EQ(TextOf(push), TEXT("another"));

    const HWND check = parent.Make(TEXT("Button"), TEXT("check"), BS_AUTOCHECKBOX);
    SendMessageW(check, BM_SETCHECK, BST_INDETERMINATE, 0); // has two states only
    EXPECT_EQ(CheckOf(check), BST_CHECKED);
    const HWND three = parent.Make(TEXT("Button"), TEXT("check"), BS_3STATE);
    SendMessageW(three, BM_SETCHECK, BST_INDETERMINATE, 0);
    EXPECT_EQ(CheckOf(three), BST_INDETERMINATE);
    SendMessageW(three, BM_SETCHECK, 9, 0);
    EXPECT_EQ(CheckOf(three), BST_INDETERMINATE);

    const HWND picture = parent.Make(TEXT("Button"), TEXT(""), BS_BITMAP);
    const HBITMAP bitmap = CreateBitmap(8, 8, 1, 1, nullptr);
    const auto as_parameter = reinterpret_cast<LPARAM>(bitmap);
    EXPECT_EQ(SendMessageW(picture, BM_SETIMAGE, IMAGE_BITMAP, as_parameter), 0);
    EXPECT_EQ(SendMessageW(picture, BM_GETIMAGE, IMAGE_BITMAP, 0), as_parameter);
    EXPECT_EQ(SendMessageW(picture, BM_SETIMAGE, IMAGE_BITMAP, 0), as_parameter);
    DeleteObject(bitmap);
}

TEST(Buttons, ThatTheirOwnerDrawsAskForItWithTheirState) {
    ParentWindow parent({});
    parent.handler = [&](UINT message, WPARAM first, LPARAM second, LRESULT& answer) {
        if (message != WM_DRAWITEM) return false;
        const auto* item = reinterpret_cast<const DRAWITEMSTRUCT*>(second);
        EXPECT_EQ(first, 1u);
        EXPECT_EQ(item->CtlType, static_cast<UINT>(ODT_BUTTON));
        EXPECT_EQ(item->rcItem.right, 100);
        EXPECT_TRUE(item->hDC);
        parent.Note(std::to_string(item->itemState & ~ODS_NOFOCUSRECT & ~ODS_NOACCEL));
        answer = TRUE;
        return true;
    };
    const HWND button = parent.Make(TEXT("Button"), TEXT("mine"), BS_OWNERDRAW);
    const auto drawn = [&] {
        parent.Take();
        InvalidateRect(button, nullptr, TRUE);
        UpdateWindow(button);
        return parent.Take();
    };
    EXPECT_EQ(drawn(), "0");
    SetFocus(button);
    EXPECT_EQ(drawn(), std::to_string(ODS_FOCUS));
    SendMessageW(button, BM_SETSTATE, TRUE, 0);
    EXPECT_EQ(drawn(), std::to_string(ODS_FOCUS | ODS_SELECTED));
    SendMessageW(button, BM_SETSTATE, FALSE, 0);
    EnableWindow(button, FALSE);
    EXPECT_EQ(drawn(), std::to_string(ODS_DISABLED));
}

} // namespace
