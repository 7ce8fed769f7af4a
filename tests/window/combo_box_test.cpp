// Combo boxes.
#include "control_parent.h"

namespace {

const ControlParent::Names kComboCodes = {{CBN_SELCHANGE, "change"},  {CBN_DBLCLK, "double"},
                                          {CBN_SETFOCUS, "focus"},    {CBN_KILLFOCUS, "kill"},
                                          {CBN_EDITCHANGE, "edited"}, {CBN_EDITUPDATE, "editing"},
                                          {CBN_DROPDOWN, "drop"},     {CBN_CLOSEUP, "close"},
                                          {CBN_SELENDOK, "ok"},       {CBN_SELENDCANCEL, "cancel"}};

class ComboParent : public ControlParent {
public:
    explicit ComboParent(DWORD style, const char* items = "abcdef")
        : ControlParent(TEXT("ComboBox"), style, 120, 150, kComboCodes) {
        for (; *items; ++items) Add(Text(3, static_cast<WCHAR>(*items)));
        Took();
    }
    LRESULT Add(const Text& text) const { return SendText(CB_ADDSTRING, 0, text.c_str()); }
    COMBOBOXINFO Info() const {
        COMBOBOXINFO info = {};
        info.cbSize = sizeof(info);
        EXPECT_TRUE(GetComboBoxInfo(Control(), &info));
        return info;
    }
    // The first letters of the items, the selected one in capitals; then the text, and whether the
    // list has dropped down.
    std::string State() const {
        std::string state;
        for (int i = 0; i < Send(CB_GETCOUNT); ++i) {
            const int letter = TextOf(CB_GETLBTEXT, static_cast<WPARAM>(i))[0];
            state += static_cast<char>(Send(CB_GETCURSEL) == i ? toupper(letter) : letter);
        }
        WCHAR text[20];
        GetWindowTextW(Control(), text, 20);
        state += ' ';
        for (const WCHAR* at = text; *at; ++at) state += static_cast<char>(*at);
        return state + (Send(CB_GETDROPPEDSTATE) ? " dropped" : "");
    }
    void ClickArrow() {
        const RECT arrow = Info().rcButton;
        Click((arrow.left + arrow.right) / 2, (arrow.top + arrow.bottom) / 2);
    }
    void ClickItem(int item) {
        RECT rect = {};
        SendMessageW(Info().hwndList, LB_GETITEMRECT, static_cast<WPARAM>(item),
                     reinterpret_cast<LPARAM>(&rect));
        PostMessageW(Info().hwndList, WM_MOUSEMOVE, 0, MAKELPARAM(5, rect.top + 2));
        Click(5, rect.top + 2, Info().hwndList);
    }
    HWND Edit() const { return Info().hwndItem; }
};

TEST(ComboBox, KeepsItsItems) {
    ComboParent combo(CBS_DROPDOWNLIST | CBS_SORT, "");
    EXPECT_EQ(combo.Add(TEXT("beta")), 0);
    EXPECT_EQ(combo.Add(TEXT("Alpha")), 0);
    EXPECT_EQ(combo.Add(TEXT("gamma")), 2);
    EXPECT_EQ(combo.SendText(CB_INSERTSTRING, 1, TEXT("zeta")), 1);
    EXPECT_EQ(combo.State(), "Azbg ");
    EXPECT_EQ(combo.Send(CB_GETCURSEL), CB_ERR);
    EXPECT_EQ(combo.Send(CB_GETLBTEXTLEN, 0), 5);
    EXPECT_EQ(combo.Send(CB_GETLBTEXTLEN, 4), CB_ERR);
    EXPECT_NE(combo.Send(CB_SETITEMDATA, 2, 55), CB_ERR);
    EXPECT_EQ(combo.Send(CB_GETITEMDATA, 2), 55);
    EXPECT_EQ(combo.Send(CB_GETITEMDATA, 4), CB_ERR);
    EXPECT_EQ(combo.SendText(CB_FINDSTRING, static_cast<WPARAM>(-1), TEXT("BE")), 2);
    EXPECT_EQ(combo.SendText(CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), TEXT("be")), CB_ERR);
    EXPECT_EQ(combo.SendText(CB_SELECTSTRING, static_cast<WPARAM>(-1), TEXT("gam")), 3);
    EXPECT_EQ(combo.State(), "AzbG gamma");
    EXPECT_EQ(combo.Send(CB_SETCURSEL, 9), CB_ERR);
    EXPECT_EQ(combo.State(), "AzbG gamma");
    EXPECT_EQ(combo.Send(CB_SETCURSEL, 2), 2);
    EXPECT_EQ(combo.Send(CB_DELETESTRING, 0), 3);
    EXPECT_EQ(combo.State(), "zBg beta");
    EXPECT_EQ(combo.Send(CB_DELETESTRING, 1), 2); // the selected one
    EXPECT_EQ(combo.State(), "zg ");
    combo.Send(CB_SETCURSEL, 1);
    combo.Send(CB_RESETCONTENT);
    EXPECT_EQ(combo.State(), " ");
    EXPECT_EQ(combo.Took(), ""); // a program's acts are not told
}

TEST(ComboBox, WithAListToDropDownFollowsTheUser) {
    ComboParent combo(CBS_DROPDOWNLIST | WS_TABSTOP);
    EXPECT_EQ(combo.Send(WM_GETDLGCODE), DLGC_WANTARROWS | DLGC_WANTCHARS);
    CheckActs(combo,
              {{"program", [&] { combo.Send(CB_SETCURSEL, 1); }, "", "aBcdef bbb"},
               {"focus", [&] { SetFocus(combo.Control()); }, "focus", "aBcdef bbb"},
               {"down", [&] { combo.Key(VK_DOWN); }, "ok change", "abCdef ccc"},
               {"end", [&] { combo.Key(VK_END); }, "ok change", "abcdeF fff"},
               {"down at the end", [&] { combo.Key(VK_DOWN); }, "ok change", "abcdeF fff"},
               {"letter", [&] { combo.Key('B'); }, "ok change", "aBcdef bbb"},
               {"no such", [&] { combo.Key('X'); }, "", "aBcdef bbb"},
               {"F4", [&] { combo.Key(VK_F4); }, "drop", "aBcdef bbb dropped"},
               {"down", [&] { combo.Key(VK_DOWN); }, "change", "abCdef ccc dropped"},
               {"Enter", [&] { combo.Key(VK_RETURN); }, "ok close", "abCdef ccc"},
               {"F4", [&] { combo.Key(VK_F4); }, "drop", "abCdef ccc dropped"},
               {"down", [&] { combo.Key(VK_DOWN); }, "change", "abcDef ddd dropped"},
               {"Escape", [&] { combo.Key(VK_ESCAPE); }, "cancel close", "abcDef ddd"},
               {"F4", [&] { combo.Key(VK_F4); }, "drop", "abcDef ddd dropped"},
               {"F4 again", [&] { combo.Key(VK_F4); }, "cancel close", "abcDef ddd"},
               {"arrow", [&] { combo.ClickArrow(); }, "drop", "abcDef ddd dropped"},
               {"item", [&] { combo.ClickItem(4); }, "ok close change", "abcdEf eee"},
               {"arrow", [&] { combo.ClickArrow(); }, "drop", "abcdEf eee dropped"},
               {"the same item", [&] { combo.ClickItem(4); }, "ok close change", "abcdEf eee"},
               {"show", [&] { combo.Send(CB_SHOWDROPDOWN, TRUE); }, "drop", "abcdEf eee dropped"},
               {"hide", [&] { combo.Send(CB_SHOWDROPDOWN, FALSE); }, "cancel close", "abcdEf eee"},
               {"arrow", [&] { combo.ClickArrow(); }, "drop", "abcdEf eee dropped"},
               {"leave", [&] { SetFocus(combo.Window()); }, "cancel close kill", "abcdEf eee"}});
}

TEST(ComboBox, WithAFieldFollowsTheUser) {
    ComboParent combo(CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_TABSTOP);
    EXPECT_EQ(GetDlgCtrlID(combo.Edit()), 1001);
    std::string at_change;
    combo.handler = [&](UINT message, WPARAM first, LPARAM, LRESULT&) {
        if (message == WM_COMMAND && HIWORD(first) == CBN_SELCHANGE) at_change = combo.State();
        return false;
    };
    CheckActs(combo,
              {{"program", [&] { combo.Send(CB_SETCURSEL, 1); }, "", "aBcdef bbb"},
               {"text", [&] { SetWindowTextW(combo.Control(), TEXT("new")); }, "", "aBcdef new"},
               {"focus", [&] { SetFocus(combo.Control()); }, "focus", "aBcdef new"},
               {"typed", [&] { combo.Key('X', combo.Edit()); }, "editing edited", "abcdef x"},
               {"down", [&] { combo.Key(VK_DOWN, combo.Edit()); }, "ok change", "Abcdef aaa"},
               {"F4", [&] { combo.Key(VK_F4, combo.Edit()); }, "drop", "Abcdef aaa dropped"},
               {"item", [&] { combo.ClickItem(4); }, "ok close change", "abcdEf eee"},
               {"leave", [&] { SetFocus(combo.Window()); }, "cancel kill", "abcdEf eee"}});
    EXPECT_EQ(at_change, "abcdEf aaa"); // the field is changed after that
    combo.Send(CB_LIMITTEXT, 2);
    SetFocus(combo.Control());
    EXPECT_EQ(GetFocus(), combo.Edit());
    combo.Send(CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
    combo.Key('X', combo.Edit());
    combo.Key('Y', combo.Edit());
    combo.Key('Z', combo.Edit());
    EXPECT_EQ(combo.State(), "abcdef xy");
    EXPECT_EQ(combo.Send(CB_GETEDITSEL), MAKELONG(2, 2));
}

TEST(ComboBox, WithAListBelowFollowsTheUser) {
    ComboParent combo(CBS_SIMPLE | WS_TABSTOP);
    CheckActs(combo, {{"program", [&] { combo.Send(CB_SETCURSEL, 1); }, "", "aBcdef bbb"},
                      {"item", [&] { combo.ClickItem(2); }, "focus ok change", "abCdef ccc"},
                      {"key", [&] { combo.Key(VK_DOWN, combo.Edit()); }, "change", "abcDef ddd"}});
}

TEST(ComboBox, HasItsPlaces) {
    ComboParent combo(CBS_DROPDOWNLIST | WS_VSCROLL, "abcdefghijklmnopqrstuvwxyz");
    RECT rect;
    GetWindowRect(combo.Control(), &rect);
    RECT list;
    combo.Send(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&list));
    EXPECT_EQ(list.left, rect.left);
    EXPECT_EQ(list.top, rect.top);
    EXPECT_LT(rect.bottom - rect.top, 40);
    combo.Send(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), 30);
    GetWindowRect(combo.Control(), &rect);
    EXPECT_EQ(rect.bottom - rect.top, 36);
    EXPECT_EQ(combo.Send(CB_SETDROPPEDWIDTH, 200), 200);
    EXPECT_EQ(combo.Send(CB_GETDROPPEDWIDTH), 200);
    combo.Send(CB_SHOWDROPDOWN, TRUE);
    GetWindowRect(combo.Info().hwndList, &list);
    EXPECT_EQ(list.right - list.left, 200);
    EXPECT_EQ(list.top, rect.bottom);
    // Its own size is that of the closed box; the height that it is given is the list's.
    MoveWindow(combo.Control(), 5, 5, 90, 200, TRUE);
    GetWindowRect(combo.Control(), &rect);
    EXPECT_EQ(rect.bottom - rect.top, 36);
    EXPECT_EQ(rect.right - rect.left, 90);
}

TEST(ComboBox, LetsItsOwnerDraw) {
    std::string told;
    Recorder parent({});
    parent.handler = [&](UINT message, WPARAM, LPARAM second, LRESULT&) {
        if (message == WM_MEASUREITEM) {
            auto& measure = *reinterpret_cast<MEASUREITEMSTRUCT*>(second);
            EXPECT_EQ(measure.CtlType, static_cast<UINT>(ODT_COMBOBOX));
            EXPECT_EQ(measure.CtlID, 7u);
            measure.itemHeight = 25;
            told += "measure" + std::to_string(static_cast<int>(measure.itemID)) + " ";
        } else if (message == WM_DELETEITEM) {
            const auto& item = *reinterpret_cast<const DELETEITEMSTRUCT*>(second);
            EXPECT_EQ(item.CtlType, static_cast<UINT>(ODT_COMBOBOX));
            told += "delete" + std::to_string(item.itemData) + " ";
        } else {
            return false;
        }
        return true;
    };
    const HWND combo = CreateWindowExW(
        0, TEXT("ComboBox"), TEXT(""), WS_CHILD | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED, 0, 0, 100,
        100, parent.Window(), reinterpret_cast<HMENU>(INT_PTR(7)), nullptr, nullptr);
    EXPECT_EQ(told, "measure-1 measure0 ");
    told.clear();
    EXPECT_EQ(SendMessageW(combo, CB_ADDSTRING, 0, 44), 0);
    EXPECT_EQ(SendMessageW(combo, CB_GETITEMDATA, 0, 0), 44);
    EXPECT_EQ(SendMessageW(combo, CB_GETITEMHEIGHT, 0, 0), 25);
    SendMessageW(combo, CB_RESETCONTENT, 0, 0);
    EXPECT_EQ(told, "delete44 ");
}

} // namespace
