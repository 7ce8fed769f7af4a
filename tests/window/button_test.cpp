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
            act::Click(5, 5)(button);
            if (i == 0) {
                EXPECT_EQ(parent.Take(), c.told);
            }
            EXPECT_EQ(CheckOf(button), c.states[i] - '0');
        }
    }
}

TEST(Buttons, AreHeldDownByMouseAndSpace) {
    const struct {
        const char* what;
        DWORD style;
        std::vector<Act> acts;
        const char* told;
        LRESULT state; // afterwards
    } cases[] = {
        {"press", 0, {act::Press(5, 5)}, "", BST_PUSHED | BST_FOCUS},
        {"press and leave", 0, {act::Press(5, 5), act::MoveTo(500, 5)}, "", BST_FOCUS},
        {"press, leave, come back",
         0,
         {act::Press(5, 5), act::MoveTo(500, 5), act::MoveTo(5, 5)},
         "",
         BST_PUSHED | BST_FOCUS},
        {"release outside",
         0,
         {act::Press(5, 5), act::MoveTo(500, 5), act::Release(500, 5)},
         "",
         BST_FOCUS},
        {"release without a press", 0, {act::Release(5, 5)}, "", 0},
        {"space down",
         0,
         {act::Focus(), act::Send(WM_KEYDOWN, VK_SPACE)},
         "",
         BST_PUSHED | BST_FOCUS},
        {"space", 0, {act::Focus(), act::Key(VK_SPACE)}, "clicked", BST_FOCUS},
        {"space on a box",
         BS_AUTOCHECKBOX,
         {act::Focus(), act::Key(VK_SPACE)},
         "clicked",
         BST_CHECKED | BST_FOCUS},
        {"space up elsewhere",
         0,
         {act::Focus(), act::Send(WM_KEYDOWN, VK_SPACE), act::Leave()},
         "",
         0},
        {"enter", 0, {act::Focus(), act::Key(VK_RETURN)}, "", BST_FOCUS},
        {"mode cancelled", 0, {act::Press(5, 5), act::Send(WM_CANCELMODE)}, "", BST_FOCUS},
        {"BM_CLICK", BS_AUTOCHECKBOX, {act::Send(BM_CLICK)}, "clicked", BST_CHECKED | BST_FOCUS},
        {"BM_SETSTATE", 0, {act::Send(BM_SETSTATE, TRUE)}, "", BST_PUSHED},
        {"double click",
         0,
         {act::Click(5, 5), act::Send(WM_LBUTTONDBLCLK, 0, 0x50005), act::Release(5, 5)},
         "clicked clicked",
         BST_FOCUS},
        {"double click of a radio button",
         BS_RADIOBUTTON,
         {act::Click(5, 5), act::Send(WM_LBUTTONDBLCLK, 0, 0x50005), act::Release(5, 5)},
         "clicked double",
         BST_FOCUS},
        {"double click of an owner-drawn one",
         BS_OWNERDRAW,
         {act::Click(5, 5), act::Send(WM_LBUTTONDBLCLK, 0, 0x50005), act::Release(5, 5)},
         "clicked double",
         BST_FOCUS},
        {"focus comes and goes", BS_NOTIFY, {act::Focus(), act::Leave()}, "focused left", 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ParentWindow parent(kButtonCodes);
        const HWND button = parent.Make(TEXT("Button"), TEXT("a button"), c.style);
        for (const Act& act : c.acts) act(button);
        EXPECT_EQ(parent.Take(), c.told);
        EXPECT_EQ(SendMessageW(button, BM_GETSTATE, 0, 0) & kStates, c.state);
        if (GetCapture() == button) ReleaseCapture();
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
    act::Click(5, 5)(buttons[1]);
    EXPECT_EQ(parent.Take(), "clicked2");
    EXPECT_EQ(states(), "01t0000t");
    act::Click(5, 5)(buttons[3]);
    EXPECT_EQ(states(), "01t0100t");
    act::Click(5, 5)(buttons[4]);
    EXPECT_EQ(states(), "00011t0t");
    act::Click(5, 5)(buttons[5]);
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

TEST(Buttons, AskTheirParentForTheirColours) {
    const struct {
        DWORD style;
        UINT asks;
    } cases[] = {{BS_PUSHBUTTON, WM_CTLCOLORBTN},
                 {BS_OWNERDRAW, WM_CTLCOLORBTN},
                 {BS_AUTOCHECKBOX, WM_CTLCOLORSTATIC},
                 {BS_AUTORADIOBUTTON, WM_CTLCOLORSTATIC},
                 {BS_GROUPBOX, WM_CTLCOLORSTATIC}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.style);
        ParentWindow parent({});
        HWND button = nullptr;
        bool asked = false;
        parent.handler = [&](UINT message, WPARAM, LPARAM second, LRESULT&) {
            if (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC) {
                EXPECT_EQ(message, c.asks);
                EXPECT_EQ(reinterpret_cast<HWND>(second), button);
                asked = true;
            }
            return false;
        };
        button = parent.Make(TEXT("Button"), TEXT("a button"), c.style);
        InvalidateRect(button, nullptr, TRUE);
        UpdateWindow(button);
        EXPECT_TRUE(asked);
    }
}

} // namespace
