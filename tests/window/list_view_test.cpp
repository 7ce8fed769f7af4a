// List views in report mode, with their headers.
#include "control_parent.h"

namespace {

const ControlParent::Names kViewCodes = {
    {static_cast<int>(LVN_ITEMCHANGED), "changed"},
    {static_cast<int>(LVN_INSERTITEM), "insert"},
    {static_cast<int>(LVN_DELETEITEM), "delete"},
    {static_cast<int>(LVN_DELETEALLITEMS), "deleteall"},
    {static_cast<int>(LVN_COLUMNCLICK), "column"},
    {static_cast<int>(LVN_ITEMACTIVATE), "activate"},
    {static_cast<int>(LVN_KEYDOWN), "key"},
    {static_cast<int>(NM_CLICK), "click"},
    {static_cast<int>(NM_DBLCLK), "double"},
    {static_cast<int>(NM_RETURN), "return"},
    {static_cast<int>(NM_SETFOCUS), "focus"},
    {static_cast<int>(NM_KILLFOCUS), "kill"},
};

class ViewParent : public ControlParent {
public:
    explicit ViewParent(DWORD style, const char* items = "abcd", DWORD extended = 0)
        : ControlParent(WC_LISTVIEWW, style | LVS_REPORT, 250, 150, kViewCodes) {
        ListView_SetExtendedListViewStyle(Control(), extended);
        for (int column = 0; column < 3; ++column)
            AddColumn(column, Text(TEXT("Column ")) + static_cast<WCHAR>('1' + column), 70);
        for (; *items; ++items) Add(Text(3, static_cast<WCHAR>(*items)), *items);
        Took();
        details = [](const NMHDR& head) -> std::string {
            if (head.code == LVN_KEYDOWN || head.code == NM_SETFOCUS || head.code == NM_KILLFOCUS ||
                head.code == NM_RETURN || head.code == LVN_ITEMACTIVATE)
                return "";
            const auto& record = reinterpret_cast<const NMLISTVIEW&>(head);
            if (head.code == LVN_COLUMNCLICK) return std::to_string(record.iSubItem);
            const std::string item = std::to_string(record.iItem);
            if (head.code != LVN_ITEMCHANGED) return item;
            return item + ":" + States(record.uOldState) + ">" + States(record.uNewState);
        };
    }
    static std::string States(UINT states) {
        std::string text;
        if (states & LVIS_FOCUSED) text += "f";
        if (states & LVIS_SELECTED) text += "s";
        if (states >> 12) text += std::to_string(states >> 12);
        return text;
    }
    int AddColumn(int at, Text text, int width) const {
        LVCOLUMNW column = {};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM | LVCF_FMT;
        column.fmt = at == 1 ? LVCFMT_RIGHT : LVCFMT_LEFT;
        column.pszText = text.data();
        column.cx = width;
        column.iSubItem = at;
        return ListView_InsertColumn(Control(), at, &column);
    }
    int Add(Text text, LPARAM data, int at = 999) const {
        LVITEMW item = {};
        item.mask = LVIF_TEXT | LVIF_PARAM;
        item.iItem = at;
        item.pszText = text.data();
        item.lParam = data;
        return ListView_InsertItem(Control(), &item);
    }
    Text TextAt(int at, int sub_item) const {
        WCHAR text[50] = {};
        ListView_GetItemText(Control(), at, sub_item, text, 50);
        return text;
    }
    LPARAM DataAt(int at) const {
        LVITEMW item = {};
        item.mask = LVIF_PARAM;
        item.iItem = at;
        return ListView_GetItem(Control(), &item) ? item.lParam : -1;
    }
    // The first letters of the items; capitals are selected, a point follows the focused one.
    std::string State() const {
        std::string items;
        for (int at = 0; at < ListView_GetItemCount(Control()); ++at) {
            const int letter = TextAt(at, 0)[0];
            const UINT state = ListView_GetItemState(Control(), at, LVIS_SELECTED | LVIS_FOCUSED);
            items += static_cast<char>(state & LVIS_SELECTED ? toupper(letter) : letter);
            if (state & LVIS_FOCUSED) items += '.';
        }
        return items;
    }
    RECT RectOf(int at, int part = LVIR_BOUNDS) const {
        RECT rect = {};
        EXPECT_TRUE(ListView_GetItemRect(Control(), at, &rect, part)) << at;
        return rect;
    }
    void ClickItem(int at, int held = 0) {
        const RECT rect = RectOf(at, LVIR_LABEL);
        Hold(held);
        Click(rect.left + 5, (rect.top + rect.bottom) / 2);
        Hold(0);
    }
    void Press(WPARAM key, int held = 0) {
        Hold(held);
        Key(key);
        Hold(0);
    }
    void SetState(int at, UINT state, UINT mask) const {
        ListView_SetItemState(Control(), at, state, mask);
    }
};

TEST(ListView, KeepsItsItems) {
    ViewParent view(0, "");
    EXPECT_EQ(view.Add(TEXT("beta"), 2), 0);
    EXPECT_EQ(view.Add(TEXT("alpha"), 1, 0), 0);
    EXPECT_EQ(view.Add(TEXT("gamma"), 3), 2);
    EXPECT_EQ(view.Took(), "insert0 insert0 insert2");
    EXPECT_EQ(view.State(), "abg");
    ListView_SetItemText(view.Control(), 1, 2, const_cast<LPWSTR>(TEXT("more")));
    EXPECT_EQ(view.TextAt(1, 2), TEXT("more"));
    EXPECT_EQ(view.TextAt(1, 1), TEXT(""));
    EXPECT_EQ(view.TextAt(0, 2), TEXT(""));
    WCHAR narrow[3];
    LVITEMW item = {};
    item.pszText = narrow;
    item.cchTextMax = 3;
    EXPECT_EQ(view.Send(LVM_GETITEMTEXTW, 0, reinterpret_cast<LPARAM>(&item)), 2);
    EXPECT_EQ(ControlParent::Text(narrow), TEXT("al"));
    item = {};
    item.mask = LVIF_PARAM | LVIF_STATE;
    item.iItem = 1;
    item.lParam = 22;
    item.state = item.stateMask = LVIS_SELECTED;
    view.Took();
    EXPECT_TRUE(ListView_SetItem(view.Control(), &item));
    EXPECT_EQ(view.DataAt(1), 22);
    EXPECT_EQ(view.State(), "aBg");
    EXPECT_EQ(view.DataAt(3), -1);

    LVFINDINFOW find = {};
    const struct {
        UINT flags;
        LPCWSTR text;
        LPARAM data;
        int start;
        int found;
    } searches[] = {
        {LVFI_PARAM, nullptr, 22, -1, 1},
        {LVFI_PARAM, nullptr, 2, -1, -1},
        {LVFI_STRING, TEXT("GAMMA"), 0, -1, 2},
        {LVFI_STRING, TEXT("gam"), 0, -1, -1},
        {LVFI_PARTIAL, TEXT("gam"), 0, -1, 2},
        {LVFI_STRING, TEXT("alpha"), 0, 0, -1},
        {LVFI_STRING | LVFI_WRAP, TEXT("alpha"), 0, 0, 0},
    };
    for (const auto& search : searches) {
        find.flags = search.flags;
        find.psz = search.text;
        find.lParam = search.data;
        EXPECT_EQ(ListView_FindItem(view.Control(), search.start, &find), search.found);
    }
    view.Took();
    EXPECT_TRUE(ListView_DeleteItem(view.Control(), 0));
    EXPECT_FALSE(ListView_DeleteItem(view.Control(), 2));
    EXPECT_EQ(view.Took(), "delete0");
    EXPECT_EQ(view.State(), "Bg");
    EXPECT_TRUE(ListView_DeleteAllItems(view.Control()));
    EXPECT_EQ(view.Took(), "deleteall-1 delete1 delete0");
    EXPECT_EQ(ListView_GetItemCount(view.Control()), 0);
}

TEST(ListView, KeepsItsColumns) {
    ViewParent view(0);
    EXPECT_EQ(Header_GetItemCount(ListView_GetHeader(view.Control())), 3);
    EXPECT_EQ(ListView_GetColumnWidth(view.Control(), 1), 70);
    EXPECT_TRUE(ListView_SetColumnWidth(view.Control(), 1, 90));
    WCHAR text[20];
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT | LVCF_SUBITEM;
    column.pszText = text;
    column.cchTextMax = 20;
    EXPECT_TRUE(ListView_GetColumn(view.Control(), 1, &column));
    EXPECT_EQ(ControlParent::Text(text), TEXT("Column 2"));
    EXPECT_EQ(column.cx, 90);
    EXPECT_EQ(column.fmt & LVCFMT_JUSTIFYMASK, LVCFMT_RIGHT);
    EXPECT_EQ(column.iSubItem, 1);
    column.mask = LVCF_TEXT;
    column.pszText = const_cast<LPWSTR>(TEXT("other"));
    EXPECT_TRUE(ListView_SetColumn(view.Control(), 1, &column));
    HDITEMW title = {};
    title.mask = HDI_TEXT | HDI_WIDTH;
    title.pszText = text;
    title.cchTextMax = 20;
    EXPECT_TRUE(Header_GetItem(ListView_GetHeader(view.Control()), 1, &title));
    EXPECT_EQ(ControlParent::Text(text), TEXT("other"));
    EXPECT_EQ(title.cxy, 90);

    int order[3] = {2, 0, 1};
    EXPECT_TRUE(ListView_SetColumnOrderArray(view.Control(), 3, order));
    order[0] = order[1] = order[2] = -1;
    EXPECT_TRUE(ListView_GetColumnOrderArray(view.Control(), 3, order));
    EXPECT_EQ(order[0], 2);
    EXPECT_EQ(order[2], 1);
    RECT rect = {};
    ListView_GetSubItemRect(view.Control(), 0, 2, LVIR_BOUNDS, &rect);
    EXPECT_EQ(rect.left, 0);
    EXPECT_EQ(rect.right, 70);

    // As wide as the widest item, or at least the title; the last one takes what is left.
    ListView_SetItemText(view.Control(), 0, 1,
                         const_cast<LPWSTR>(TEXT("a text that is far from short")));
    EXPECT_TRUE(ListView_SetColumnWidth(view.Control(), 1, LVSCW_AUTOSIZE));
    EXPECT_GT(ListView_GetColumnWidth(view.Control(), 1), 100);
    EXPECT_TRUE(ListView_SetColumnWidth(view.Control(), 0, LVSCW_AUTOSIZE_USEHEADER));
    EXPECT_GT(ListView_GetColumnWidth(view.Control(), 0), 40);
    EXPECT_TRUE(ListView_DeleteColumn(view.Control(), 1));
    EXPECT_EQ(view.TextAt(0, 1), TEXT(""));
    EXPECT_FALSE(ListView_DeleteColumn(view.Control(), 2));
}

TEST(ListView, SelectsForProgramsAndTells) {
    ViewParent view(0);
    CheckActs(
        view,
        {{"select", [&] { view.SetState(1, LVIS_SELECTED, LVIS_SELECTED); }, "changed1:>s", "aBcd"},
         {"the same", [&] { view.SetState(1, LVIS_SELECTED, LVIS_SELECTED); }, "", "aBcd"},
         {"focus", [&] { view.SetState(2, LVIS_FOCUSED, LVIS_FOCUSED); }, "changed2:>f", "aBc.d"},
         {"more", [&] { view.SetState(2, LVIS_SELECTED, LVIS_SELECTED); }, "changed2:f>fs",
          "aBC.d"},
         {"none", [&] { view.SetState(-1, 0, LVIS_SELECTED); }, "changed1:s> changed2:fs>f",
          "abc.d"}});
    view.handler = [](UINT message, WPARAM, LPARAM second, LRESULT& answer) {
        answer = message == WM_NOTIFY &&
                 reinterpret_cast<const NMHDR*>(second)->code == LVN_ITEMCHANGING;
        return answer != 0;
    };
    view.SetState(0, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_EQ(view.Took(), "");
    EXPECT_EQ(view.State(), "abc.d");
    view.handler = nullptr;
    view.SetState(0, LVIS_SELECTED, LVIS_SELECTED);
    view.SetState(3, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_EQ(ListView_GetSelectedCount(view.Control()), 2u);
    EXPECT_EQ(ListView_GetNextItem(view.Control(), -1, LVNI_SELECTED), 0);
    EXPECT_EQ(ListView_GetNextItem(view.Control(), 0, LVNI_SELECTED), 3);
    EXPECT_EQ(ListView_GetNextItem(view.Control(), 3, LVNI_SELECTED), -1);
    EXPECT_EQ(ListView_GetNextItem(view.Control(), -1, LVNI_FOCUSED), 2);
    EXPECT_EQ(ListView_GetNextItem(view.Control(), 1, LVNI_ALL), 2);
    view.Took();
    ViewParent single(LVS_SINGLESEL);
    single.SetState(1, LVIS_SELECTED, LVIS_SELECTED);
    single.SetState(2, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_EQ(single.State(), "abCd");
}

TEST(ListView, FollowsTheUser) {
    ViewParent view(LVS_SHOWSELALWAYS | WS_TABSTOP, "abcd", LVS_EX_FULLROWSELECT);
    EXPECT_EQ(view.Send(WM_GETDLGCODE), DLGC_WANTARROWS | DLGC_WANTCHARS);
    CheckActs(view, {{"click", [&] { view.ClickItem(1); }, "changed1:>fs focus click1", "aB.cd"},
                     {"another", [&] { view.ClickItem(2); },
                      "changed1:fs>f changed1:f> changed2:>fs "
                      "click2",
                      "abC.d"},
                     {"add", [&] { view.ClickItem(0, VK_CONTROL); },
                      "changed2:fs>s changed0:>fs click0", "A.bCd"},
                     {"range", [&] { view.ClickItem(3, VK_SHIFT); },
                      "changed1:>s changed3:>s changed0:fs>s changed3:s>fs click3", "ABCD."},
                     {"beside", [&] { view.Click(240, 140); },
                      "changed0:s> changed1:s> changed2:s> changed3:fs>f click-1", "abcd."},
                     {"up", [&] { view.Press(VK_UP); }, "key changed3:f> changed2:>fs", "abC.d"},
                     {"home", [&] { view.Press(VK_HOME); },
                      "key changed2:fs>f changed2:f> changed0:>fs", "A.bcd"},
                     {"more", [&] { view.Press(VK_DOWN, VK_SHIFT); },
                      "key changed1:>s changed0:fs>s changed1:s>fs", "AB.cd"},
                     {"letter", [&] { view.Press('D'); },
                      "key changed0:s> changed1:fs>f changed1:f> changed3:>fs", "abcD."},
                     {"enter", [&] { view.Press(VK_RETURN); }, "key return activate", "abcD."},
                     {"leave", [&] { SetFocus(view.Window()); }, "kill", "abcD."}});
}

TEST(ListView, TellsOfDoubleClicksInOrder) {
    ViewParent view(LVS_SINGLESEL, "abcd", LVS_EX_FULLROWSELECT);
    const RECT rect = view.RectOf(1);
    view.DoubleClick(rect.left + 100, rect.top + 5);
    EXPECT_EQ(view.Took(), "changed1:>fs focus click1 double1 activate");
    EXPECT_EQ(view.State(), "aB.cd");
    view.DoubleClick(rect.left + 100, 140); // on no item
    EXPECT_EQ(view.Took(), "changed1:fs>f click-1 double-1");
    EXPECT_EQ(view.State(), "ab.cd");
}

TEST(ListView, HasCheckBoxes) {
    ViewParent view(0, "", LVS_EX_CHECKBOXES);
    view.Add(TEXT("a"), 0);
    view.Add(TEXT("b"), 0);
    EXPECT_EQ(view.Took(), "insert0 insert1");
    EXPECT_FALSE(ListView_GetCheckState(view.Control(), 0));
    ListView_SetCheckState(view.Control(), 0, TRUE);
    EXPECT_TRUE(ListView_GetCheckState(view.Control(), 0));
    EXPECT_EQ(view.Took(), "changed0:1>2");
    const RECT label = view.RectOf(1, LVIR_LABEL);
    EXPECT_GT(label.left, 12);
    view.Click(8, (label.top + label.bottom) / 2);
    EXPECT_EQ(view.Took(), "click1 changed1:1>2");
    EXPECT_TRUE(ListView_GetCheckState(view.Control(), 1));
    view.ClickItem(1);
    EXPECT_TRUE(ListView_GetCheckState(view.Control(), 1));
    view.Took();
    view.Press(VK_SPACE);
    EXPECT_EQ(view.Took(), "key changed1:fs2>fs1");
    EXPECT_FALSE(ListView_GetCheckState(view.Control(), 1));
}

int CALLBACK Backwards(LPARAM first, LPARAM second, LPARAM factor) {
    return static_cast<int>((second - first) * factor);
}

TEST(ListView, Sorts) {
    ViewParent view(0, "bdac");
    view.SetState(1, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    view.Took();
    EXPECT_TRUE(ListView_SortItems(view.Control(), Backwards, 1));
    EXPECT_EQ(view.State(), "D.cba"); // what is selected moves along
    EXPECT_TRUE(ListView_SortItems(view.Control(), Backwards, -1));
    EXPECT_EQ(view.State(), "abcD.");
    EXPECT_EQ(view.Took(), "");
    ViewParent up(LVS_SORTASCENDING, "bdac");
    EXPECT_EQ(up.State(), "abcd");
    ViewParent down(LVS_SORTDESCENDING, "bdac");
    EXPECT_EQ(down.State(), "dcba");
}

TEST(ListView, HasItsPlaces) {
    ViewParent view(0, "abcdefghijklmnopqrst");
    RECT header;
    GetWindowRect(ListView_GetHeader(view.Control()), &header);
    const RECT first = view.RectOf(0);
    const int height = first.bottom - first.top;
    EXPECT_EQ(first.top, header.bottom - header.top);
    EXPECT_EQ(first.left, 0);
    EXPECT_EQ(first.right, 210);
    const RECT third = view.RectOf(2);
    EXPECT_EQ(third.top, first.top + 2 * height);
    const struct {
        int x;
        int y;
        int item;
        int sub_item;
    } points[] = {{5, third.top + 3, 2, 0},
                  {80, third.top + 3, 2, 1},
                  {150, third.top + 3, 2, 2},
                  {230, third.top + 3, -1, -1}};
    for (const auto& point : points) {
        LVHITTESTINFO hit = {};
        hit.pt = {point.x, point.y};
        EXPECT_EQ(ListView_SubItemHitTest(view.Control(), &hit), point.item) << point.x;
        EXPECT_EQ(hit.iItem, point.item) << point.x;
        EXPECT_EQ(hit.iSubItem, point.sub_item) << point.x;
    }
    LVHITTESTINFO hit = {};
    hit.pt = {5, third.top + 3};
    EXPECT_EQ(ListView_HitTest(view.Control(), &hit), 2);
    EXPECT_TRUE(hit.flags & LVHT_ONITEMLABEL);
    hit.pt = {230, third.top + 3};
    EXPECT_EQ(ListView_HitTest(view.Control(), &hit), -1);
    EXPECT_TRUE(hit.flags & LVHT_NOWHERE);

    const int page = ListView_GetCountPerPage(view.Control());
    EXPECT_EQ(ListView_GetTopIndex(view.Control()), 0);
    EXPECT_TRUE(ListView_EnsureVisible(view.Control(), 15, FALSE));
    EXPECT_EQ(ListView_GetTopIndex(view.Control()), 16 - page);
    EXPECT_EQ(view.RectOf(16 - page).top, first.top);
    EXPECT_TRUE(ListView_EnsureVisible(view.Control(), 3, FALSE));
    EXPECT_EQ(ListView_GetTopIndex(view.Control()), 3);
    EXPECT_FALSE(ListView_EnsureVisible(view.Control(), 20, FALSE));
}

TEST(ListView, TellsOfItsHeader) {
    ViewParent view(0);
    const HWND header = ListView_GetHeader(view.Control());
    view.Click(100, 8, header);
    EXPECT_EQ(view.Took(), "column1");
    view.Took();
    ViewParent still(LVS_NOSORTHEADER);
    still.Click(100, 8, ListView_GetHeader(still.Control()));
    EXPECT_EQ(still.Took(), "");
    // Dragging a divider changes the width.
    PostMessageW(header, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(139, 8));
    PostMessageW(header, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(169, 8));
    PostMessageW(header, WM_LBUTTONUP, 0, MAKELPARAM(169, 8));
    view.Took();
    EXPECT_EQ(ListView_GetColumnWidth(view.Control(), 1), 100);
}

TEST(ListView, AsksForItsTexts) {
    ViewParent view(0, "");
    view.handler = [](UINT message, WPARAM, LPARAM second, LRESULT&) {
        if (message != WM_NOTIFY ||
            reinterpret_cast<const NMHDR*>(second)->code != LVN_GETDISPINFOW)
            return false;
        auto& item = reinterpret_cast<NMLVDISPINFOW*>(second)->item;
        const WCHAR text[] = {static_cast<WCHAR>('A' + item.lParam),
                              static_cast<WCHAR>('0' + item.iSubItem), 0};
        if (item.mask & LVIF_TEXT && item.cchTextMax >= 3) std::copy_n(text, 3, item.pszText);
        return true;
    };
    LVITEMW item = {};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.pszText = LPSTR_TEXTCALLBACKW;
    item.lParam = 2;
    ListView_InsertItem(view.Control(), &item);
    ListView_SetItemText(view.Control(), 0, 1, LPSTR_TEXTCALLBACKW);
    EXPECT_EQ(view.TextAt(0, 0), TEXT("C0"));
    EXPECT_EQ(view.TextAt(0, 1), TEXT("C1"));
}

} // namespace
