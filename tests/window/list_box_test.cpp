// List boxes.
#include "control_parent.h"

namespace {

const ControlParent::Names kListCodes = {{LBN_SELCHANGE, "change"},
                                         {LBN_DBLCLK, "double"},
                                         {LBN_SELCANCEL, "cancel"},
                                         {LBN_SETFOCUS, "focus"},
                                         {LBN_KILLFOCUS, "kill"}};

class ListParent : public ControlParent {
public:
    explicit ListParent(DWORD style, const char* items = "abcdef")
        : ControlParent(TEXT("ListBox"), style, 120, 100, kListCodes) {
        for (; *items; ++items) Add(Text(1, static_cast<WCHAR>(*items)));
        Took();
    }
    LRESULT Add(const Text& text) const { return SendText(LB_ADDSTRING, 0, text.c_str()); }
    // The first letters of the items; capitals are selected.
    std::string Items() const {
        std::string items;
        for (WPARAM i = 0; i < static_cast<WPARAM>(Send(LB_GETCOUNT)); ++i) {
            const int letter = TextOf(LB_GETTEXT, i)[0];
            items += static_cast<char>(Send(LB_GETSEL, i) > 0 ? toupper(letter) : letter);
        }
        return items;
    }
    // The items, and in a list with multiple selection its caret.
    std::string State() const {
        const bool multiple = GetWindowLongPtrW(Control(), GWL_STYLE) & LBS_MULTIPLESEL;
        return Items() + (multiple ? " " + std::to_string(Send(LB_GETCARETINDEX)) : "");
    }
    RECT RectOf(int item) const {
        RECT rect = {};
        Send(LB_GETITEMRECT, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&rect));
        return rect;
    }
    void ClickItem(int item, int key = 0) {
        Hold(key);
        Click(5, RectOf(item).top + 2);
        Hold(0);
    }
    void Press(WPARAM key, int held = 0) {
        Hold(held);
        Key(key);
        Hold(0);
    }
};

TEST(ListBox, KeepsItsItems) {
    ListParent list(LBS_NOTIFY, "");
    EXPECT_EQ(list.Send(LB_GETCURSEL), LB_ERR);
    EXPECT_EQ(list.Add(TEXT("beta")), 0);
    EXPECT_EQ(list.Add(TEXT("Alpha")), 1);
    EXPECT_EQ(list.SendText(LB_INSERTSTRING, 0, TEXT("gamma")), 0);
    EXPECT_EQ(list.SendText(LB_INSERTSTRING, static_cast<WPARAM>(-1), TEXT("beta max")), 3);
    EXPECT_EQ(list.SendText(LB_INSERTSTRING, 9, TEXT("x")), LB_ERR);
    EXPECT_EQ(list.Items(), "gbAb");
    EXPECT_EQ(list.Send(LB_GETTEXTLEN, 3), 8);
    EXPECT_EQ(list.Send(LB_GETTEXTLEN, 4), LB_ERR);
    EXPECT_NE(list.Send(LB_SETITEMDATA, 1, 77), LB_ERR);
    EXPECT_EQ(list.Send(LB_SETITEMDATA, 4, 78), LB_ERR);
    EXPECT_EQ(list.Send(LB_GETITEMDATA, 1), 77);
    EXPECT_EQ(list.Send(LB_GETITEMDATA, 4), LB_ERR);

    const struct {
        UINT message;
        int start;
        LPCWSTR text;
        int found;
    } searches[] = {
        {LB_FINDSTRING, -1, TEXT("BET"), 1},      {LB_FINDSTRING, 1, TEXT("bet"), 3},
        {LB_FINDSTRING, 3, TEXT("bet"), 1},       {LB_FINDSTRING, -1, TEXT("betas"), LB_ERR},
        {LB_FINDSTRINGEXACT, 1, TEXT("BETA"), 1}, {LB_FINDSTRINGEXACT, -1, TEXT("bet"), LB_ERR},
    };
    for (const auto& search : searches)
        EXPECT_EQ(list.SendText(search.message, static_cast<WPARAM>(search.start), search.text),
                  search.found);
    EXPECT_EQ(list.SendText(LB_SELECTSTRING, 1, TEXT("beta")), 3);
    EXPECT_EQ(list.Items(), "gbAB");
    EXPECT_EQ(list.Send(LB_GETCURSEL), 3);

    EXPECT_EQ(list.Send(LB_DELETESTRING, 0), 3);
    EXPECT_EQ(list.Send(LB_DELETESTRING, 3), LB_ERR);
    EXPECT_EQ(list.Send(LB_GETCURSEL), 2);
    EXPECT_EQ(list.Send(LB_GETITEMDATA, 0), 77);
    EXPECT_EQ(list.Send(LB_DELETESTRING, 2), 2); // the selected one
    EXPECT_EQ(list.Send(LB_GETCURSEL), LB_ERR);
    list.Send(LB_RESETCONTENT);
    EXPECT_EQ(list.Items(), "");
    EXPECT_EQ(list.Took(), ""); // a program's acts are not told
}

TEST(ListBox, SortsItsItems) {
    ListParent list(LBS_SORT, "");
    const struct {
        LPCWSTR text;
        int place;
    } items[] = {{TEXT("delta"), 0},   {TEXT("Alpha"), 0}, {TEXT("beta"), 1},
                 {TEXT("alpha 2"), 1}, {TEXT("zeta"), 4},  {TEXT("Beta 1"), 3}};
    for (const auto& item : items) EXPECT_EQ(list.Add(item.text), item.place);
    EXPECT_EQ(list.SendText(LB_INSERTSTRING, 0, TEXT("unsorted")), 0);
    EXPECT_EQ(list.Items(), "uAabBdz");
}

TEST(ListBox, WithSingleSelectionFollowsTheUser) {
    ListParent list(LBS_NOTIFY | WS_TABSTOP);
    const std::vector<ControlAct> acts = {
        {"click", [&] { list.ClickItem(1); }, "focus change", "aBcdef"},
        {"the same", [&] { list.ClickItem(1); }, "change", "aBcdef"},
        {"beside", [&] { list.Click(5, 98); }, "", "aBcdef"},
        {"down", [&] { list.Press(VK_DOWN); }, "change", "abCdef"},
        {"end", [&] { list.Press(VK_END); }, "change", "abcdeF"},
        {"down at the end", [&] { list.Press(VK_DOWN); }, "change", "abcdeF"},
        {"home", [&] { list.Press(VK_HOME); }, "change", "Abcdef"},
        {"up at the start", [&] { list.Press(VK_UP); }, "change", "Abcdef"},
        {"letter", [&] { list.Press('D'); }, "change", "abcDef"},
        {"no such", [&] { list.Press('X'); }, "", "abcDef"},
        {"double", [&] { list.DoubleClick(5, list.RectOf(2).top + 2); }, "change double", "abCdef"},
        {"leave", [&] { SetFocus(list.Window()); }, "kill", "abCdef"},
        {"program", [&] { list.Send(LB_SETCURSEL, 4); }, "", "abcdEf"},
        {"program, none", [&] { list.Send(LB_SETCURSEL, static_cast<WPARAM>(-1)); }, "", "abcdef"},
    };
    CheckActs(list, acts);
    EXPECT_EQ(list.Send(WM_GETDLGCODE), DLGC_WANTARROWS | DLGC_WANTCHARS);
    // Without LBS_NOTIFY only the focus is told.
    ListParent silent(0);
    silent.ClickItem(1);
    EXPECT_EQ(silent.Took(), "focus");
    EXPECT_EQ(silent.Items(), "aBcdef");
}

TEST(ListBox, WithMultipleSelectionFollowsTheUser) {
    ListParent list(LBS_NOTIFY | LBS_MULTIPLESEL);
    const std::vector<ControlAct> acts = {
        {"click", [&] { list.ClickItem(1); }, "focus change", "aBcdef 1"},
        {"another", [&] { list.ClickItem(3); }, "change", "aBcDef 3"},
        {"again", [&] { list.ClickItem(1); }, "change", "abcDef 1"},
        {"down", [&] { list.Press(VK_DOWN); }, "change", "abcDef 2"},
        {"space",
         [&] {
             list.Press(VK_SPACE);
             list.Took();
         },
         "", "abCDef 2"},
        {"program", [&] { list.Send(LB_SETSEL, TRUE, 5); }, "", "abCDeF 5"},
        {"all", [&] { list.Send(LB_SETSEL, TRUE, -1); }, "", "ABCDEF 5"},
        {"none", [&] { list.Send(LB_SETSEL, FALSE, -1); }, "", "abcdef 5"},
        {"range", [&] { list.Send(LB_SELITEMRANGE, TRUE, MAKELPARAM(1, 3)); }, "", "aBCDef 5"},
        {"range off", [&] { list.Send(LB_SELITEMRANGEEX, 3, 2); }, "", "aBcdef 5"},
        {"caret", [&] { list.Send(LB_SETCARETINDEX, 2); }, "", "aBcdef 2"},
    };
    CheckActs(list, acts);
    list.Send(LB_SETSEL, TRUE, 4);
    EXPECT_EQ(list.Send(LB_GETSELCOUNT), 2);
    int items[6] = {-1, -1, -1};
    EXPECT_EQ(list.Send(LB_GETSELITEMS, 6, reinterpret_cast<LPARAM>(items)), 2);
    EXPECT_EQ(items[0], 1);
    EXPECT_EQ(items[1], 4);
    EXPECT_EQ(items[2], -1);
    EXPECT_EQ(list.Send(LB_SETCURSEL, 1), LB_ERR);
    EXPECT_EQ(list.Send(LB_SETSEL, TRUE, 6), LB_ERR);
    ListParent single(0);
    EXPECT_EQ(single.Send(LB_GETSELCOUNT), LB_ERR);
}

TEST(ListBox, WithExtendedSelectionFollowsTheUser) {
    ListParent list(LBS_NOTIFY | LBS_EXTENDEDSEL);
    const std::vector<ControlAct> acts = {
        {"click", [&] { list.ClickItem(1); }, "focus change", "aBcdef"},
        {"to there", [&] { list.ClickItem(3, VK_SHIFT); }, "change", "aBCDef"},
        {"add", [&] { list.ClickItem(5, VK_CONTROL); }, "change", "aBCDeF"},
        {"remove", [&] { list.ClickItem(2, VK_CONTROL); }, "change", "aBcDeF"},
        {"only one", [&] { list.ClickItem(2); }, "change", "abCdef"},
        {"down", [&] { list.Press(VK_DOWN); }, "change", "abcDef"},
        {"more", [&] { list.Press(VK_DOWN, VK_SHIFT); }, "change", "abcDEf"},
        {"less", [&] { list.Press(VK_UP, VK_SHIFT); }, "change", "abcDef"},
    };
    CheckActs(list, acts);
}

TEST(ListBox, ScrollsAndFindsPlaces) {
    ListParent list(WS_VSCROLL | LBS_NOTIFY, "abcdefghijklmnopqrst");
    const int height = static_cast<int>(list.Send(LB_GETITEMHEIGHT));
    EXPECT_EQ(list.RectOf(2).top, 2 * height);
    EXPECT_EQ(list.RectOf(2).bottom, 3 * height);
    RECT client;
    GetClientRect(list.Control(), &client);
    EXPECT_EQ(client.bottom % height, 0); // only whole items are shown
    const int page = client.bottom / height;
    EXPECT_EQ(list.Send(LB_SETTOPINDEX, 3), LB_OKAY);
    EXPECT_EQ(list.Send(LB_GETTOPINDEX), 3);
    EXPECT_EQ(list.RectOf(2).top, -height);
    EXPECT_EQ(list.Send(LB_ITEMFROMPOINT, 0, MAKELPARAM(5, height + 1)), 4);
    EXPECT_EQ(HIWORD(list.Send(LB_ITEMFROMPOINT, 0, MAKELPARAM(5, 400))), 1);
    list.Send(LB_SETTOPINDEX, 19);
    EXPECT_EQ(list.Send(LB_GETTOPINDEX), 20 - page);
    SCROLLINFO info = {sizeof(info), SIF_ALL, 0, 0, 0, 0, 0};
    EXPECT_TRUE(GetScrollInfo(list.Control(), SB_VERT, &info));
    EXPECT_EQ(info.nMax, 19);
    EXPECT_EQ(info.nPage, static_cast<UINT>(page));
    EXPECT_EQ(info.nPos, 20 - page);
    list.Send(LB_SETCURSEL, 0); // what is selected is scrolled into view
    EXPECT_EQ(list.Send(LB_GETTOPINDEX), 0);
    list.Press(VK_NEXT);
    EXPECT_EQ(list.Send(LB_GETCURSEL), page - 1);
    list.Press(VK_NEXT);
    EXPECT_EQ(list.Send(LB_GETCURSEL), 2 * page - 2);
    list.Send(WM_VSCROLL, SB_BOTTOM);
    EXPECT_EQ(list.Send(LB_GETTOPINDEX), 20 - page);
    list.Send(WM_VSCROLL, SB_LINEUP);
    EXPECT_EQ(list.Send(LB_GETTOPINDEX), 19 - page);
}

TEST(ListBox, LetsItsOwnerDraw) {
    std::string told;
    Recorder parent({});
    parent.handler = [&](UINT message, WPARAM first, LPARAM second, LRESULT& answer) {
        if (message == WM_MEASUREITEM) {
            auto& measure = *reinterpret_cast<MEASUREITEMSTRUCT*>(second);
            EXPECT_EQ(measure.CtlType, static_cast<UINT>(ODT_LISTBOX));
            measure.itemHeight = 33;
            told += "measure" + std::to_string(first) + " ";
        } else if (message == WM_DELETEITEM) {
            told += "delete" +
                    std::to_string(reinterpret_cast<const DELETEITEMSTRUCT*>(second)->itemData) +
                    " ";
        } else if (message == WM_COMPAREITEM) {
            const auto& pair = *reinterpret_cast<const COMPAREITEMSTRUCT*>(second);
            answer = pair.itemData1 < pair.itemData2 ? -1 : pair.itemData1 > pair.itemData2;
        } else {
            return false;
        }
        return true;
    };
    const HWND list = CreateWindowExW(
        0, TEXT("ListBox"), TEXT(""), WS_CHILD | LBS_OWNERDRAWFIXED | LBS_SORT, 0, 0, 100, 100,
        parent.Window(), reinterpret_cast<HMENU>(INT_PTR(7)), nullptr, nullptr);
    EXPECT_EQ(told, "measure7 ");
    EXPECT_EQ(SendMessageW(list, LB_GETITEMHEIGHT, 0, 0), 33);
    // Without LBS_HASSTRINGS items have only their data.
    for (LPARAM data : {30, 10, 20}) SendMessageW(list, LB_ADDSTRING, 0, data);
    EXPECT_EQ(SendMessageW(list, LB_GETITEMDATA, 0, 0), 10);
    EXPECT_EQ(SendMessageW(list, LB_GETITEMDATA, 1, 0), 20);
    LPARAM data = 0;
    SendMessageW(list, LB_GETTEXT, 2, reinterpret_cast<LPARAM>(&data));
    EXPECT_EQ(data, 30);
    told.clear();
    SendMessageW(list, LB_DELETESTRING, 1, 0);
    EXPECT_EQ(told, "delete20 ");
}

} // namespace
