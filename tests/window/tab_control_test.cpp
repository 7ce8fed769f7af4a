// Tab controls.
#include "control_parent.h"

namespace {

const ControlParent::Names kTabCodes = {
    {static_cast<int>(TCN_SELCHANGING), "changing"}, {static_cast<int>(TCN_SELCHANGE), "change"},
    {static_cast<int>(TCN_FOCUSCHANGE), "focus"},    {static_cast<int>(TCN_KEYDOWN), "key"},
    {static_cast<int>(NM_CLICK), "click"},
};

class TabParent : public ControlParent {
public:
    explicit TabParent(DWORD style = WS_TABSTOP, int count = 3, int width = 250)
        : ControlParent(WC_TABCONTROLW, style, width, 150, kTabCodes) {
        for (int i = 0; i < count; ++i)
            Insert(i, Text(TEXT("Page ")) + static_cast<WCHAR>('A' + i));
        Took();
    }
    int Insert(int at, Text text) {
        TCITEMW item = {};
        item.mask = TCIF_TEXT | TCIF_PARAM;
        item.pszText = text.data();
        item.lParam = text.back();
        return TabCtrl_InsertItem(Control(), at, &item);
    }
    // "A*BC": the last letters of the tabs, with a star after the selected one.
    std::string Tabs() const {
        std::string tabs;
        for (int i = 0; i < TabCtrl_GetItemCount(Control()); ++i) {
            WCHAR buffer[10];
            TCITEMW item = {};
            item.mask = TCIF_TEXT | TCIF_PARAM;
            item.pszText = buffer;
            item.cchTextMax = 10;
            EXPECT_TRUE(TabCtrl_GetItem(Control(), i, &item));
            EXPECT_EQ(Text(item.pszText).back(), item.lParam);
            tabs += static_cast<char>(item.lParam);
            if (TabCtrl_GetCurSel(Control()) == i) tabs += '*';
        }
        return tabs;
    }
    RECT RectOf(int tab) const {
        RECT rect = {};
        EXPECT_TRUE(TabCtrl_GetItemRect(Control(), tab, &rect));
        return rect;
    }
    void ClickTab(int tab) {
        const RECT rect = RectOf(tab);
        Click((rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
    }
};

TEST(TabControl, KeepsItsTabsAndSelection) {
    TabParent tabs(0, 0);
    EXPECT_EQ(TabCtrl_GetCurSel(tabs.Control()), -1);
    EXPECT_EQ(tabs.Insert(9, TEXT("Page B")), 0);
    EXPECT_EQ(tabs.Tabs(), "B*"); // the first one is selected
    EXPECT_EQ(tabs.Insert(9, TEXT("Page C")), 1);
    EXPECT_EQ(tabs.Insert(0, TEXT("Page A")), 0);
    EXPECT_EQ(tabs.Tabs(), "AB*C");
    EXPECT_EQ(TabCtrl_SetCurSel(tabs.Control(), 2), 1);
    EXPECT_EQ(TabCtrl_SetCurSel(tabs.Control(), 3), -1);
    EXPECT_EQ(tabs.Tabs(), "ABC*");
    EXPECT_TRUE(TabCtrl_DeleteItem(tabs.Control(), 0));
    EXPECT_EQ(tabs.Tabs(), "BC*");
    EXPECT_FALSE(TabCtrl_DeleteItem(tabs.Control(), 2));
    EXPECT_TRUE(TabCtrl_DeleteItem(tabs.Control(), 1));
    EXPECT_EQ(tabs.Tabs(), "B");
    TabCtrl_SetCurSel(tabs.Control(), 0);
    EXPECT_TRUE(TabCtrl_DeleteAllItems(tabs.Control()));
    EXPECT_EQ(tabs.Tabs(), "");
    EXPECT_EQ(TabCtrl_GetCurSel(tabs.Control()), -1);
    EXPECT_EQ(tabs.Took(), ""); // a program's acts are not told
}

TEST(TabControl, TellsOfClicksAndKeys) {
    TabParent tabs;
    bool stays = false;
    bool had_focus = false;
    int at_change = -1;
    tabs.handler = [&](UINT message, WPARAM, LPARAM second, LRESULT& answer) {
        if (message != WM_NOTIFY) return false;
        const UINT code = reinterpret_cast<const NMHDR*>(second)->code;
        if (code == TCN_SELCHANGING || code == TCN_SELCHANGE)
            at_change = TabCtrl_GetCurSel(tabs.Control());
        if (code == TCN_SELCHANGING) had_focus = GetFocus() == tabs.Control();
        answer = code == TCN_SELCHANGING && stays;
        return true;
    };
    tabs.ClickTab(1);
    EXPECT_EQ(tabs.Took(), "changing change click");
    EXPECT_EQ(at_change, 1);
    EXPECT_EQ(GetFocus(), tabs.Control());
    EXPECT_TRUE(had_focus);
    tabs.ClickTab(1);
    EXPECT_EQ(tabs.Took(), "click");
    stays = true;
    tabs.ClickTab(2);
    EXPECT_EQ(tabs.Took(), "changing click");
    EXPECT_EQ(tabs.Tabs(), "AB*C");
    stays = false;
    tabs.Click(240, 8); // on none
    EXPECT_EQ(tabs.Took(), "click");

    const struct {
        WPARAM key;
        const char* told;
        const char* tabs;
    } keys[] = {
        {VK_RIGHT, "key changing change", "ABC*"},
        {VK_RIGHT, "key", "ABC*"},
        {VK_LEFT, "key changing change", "AB*C"},
        {VK_LEFT, "key changing change", "A*BC"},
        {VK_LEFT, "key", "A*BC"},
        {VK_RIGHT, "key changing change", "AB*C"},
    };
    for (const auto& key : keys) {
        tabs.Key(key.key);
        EXPECT_EQ(tabs.Took(), key.told) << key.key;
        EXPECT_EQ(tabs.Tabs(), key.tabs) << key.key;
    }
    EXPECT_EQ(tabs.Send(WM_GETDLGCODE), DLGC_WANTARROWS | DLGC_WANTCHARS);
    TabCtrl_SetCurFocus(tabs.Control(), 0);
    EXPECT_EQ(tabs.Took(), "changing change");
    EXPECT_EQ(tabs.Tabs(), "A*BC");
}

TEST(TabControl, LaysItsTabsOut) {
    TabParent tabs;
    const RECT first = tabs.RectOf(0);
    const RECT second = tabs.RectOf(1);
    EXPECT_EQ(first.left, 2);
    EXPECT_EQ(first.top, 2);
    EXPECT_EQ(first.right, second.left);
    EXPECT_EQ(first.bottom, second.bottom);
    TCHITTESTINFO hit = {{second.left + 10, second.top + 5}, 0};
    EXPECT_EQ(TabCtrl_HitTest(tabs.Control(), &hit), 1);
    EXPECT_TRUE(hit.flags & TCHT_ONITEM);
    hit.pt = {200, 100};
    EXPECT_EQ(TabCtrl_HitTest(tabs.Control(), &hit), -1);
    EXPECT_EQ(hit.flags, static_cast<UINT>(TCHT_NOWHERE));

    RECT area = {0, 0, 250, 150};
    TabCtrl_AdjustRect(tabs.Control(), FALSE, &area);
    EXPECT_EQ(area.left, 4);
    EXPECT_EQ(area.top, first.bottom + 2);
    EXPECT_EQ(area.right, 246);
    EXPECT_EQ(area.bottom, 146);
    TabCtrl_AdjustRect(tabs.Control(), TRUE, &area);
    EXPECT_EQ(area.left, 0);
    EXPECT_EQ(area.top, 0);
    EXPECT_EQ(area.bottom, 150);
}

TEST(TabControl, HasRowsOfTabs) {
    TabParent tabs(TCS_MULTILINE, 9, 200);
    const int rows = TabCtrl_GetRowCount(tabs.Control());
    EXPECT_GT(rows, 1);
    // The row of the selected tab is the one next to the page.
    for (int selected : {8, 0, 4}) {
        TabCtrl_SetCurSel(tabs.Control(), selected);
        for (int i = 0; i < 9; ++i) {
            EXPECT_LE(tabs.RectOf(i).bottom, tabs.RectOf(selected).bottom) << i;
            EXPECT_LE(tabs.RectOf(i).right, 200) << i;
        }
    }
    RECT area = {0, 0, 200, 150};
    TabCtrl_AdjustRect(tabs.Control(), FALSE, &area);
    EXPECT_GT(area.top, tabs.RectOf(4).bottom);
    // Without that style there is one row.
    TabParent single(0, 9, 200);
    EXPECT_EQ(TabCtrl_GetRowCount(single.Control()), 1);
    EXPECT_EQ(single.RectOf(1).bottom, single.RectOf(0).bottom);
}

} // namespace
