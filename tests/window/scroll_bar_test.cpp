// Scroll bars.
#include "control_parent.h"

namespace {

TEST(ScrollBar, KeepsItsNumbersInLimits) {
    const struct {
        int least, most, page, position; // wanted
        int kept_page, kept_position;
    } cases[] = {{0, 99, 10, 50, 10, 50}, {0, 99, 10, 95, 10, 90}, {0, 99, 200, 5, 100, 0},
                 {5, 9, 0, 2, 0, 5},      {0, 0, 1, 3, 1, 0},      {-20, -10, 3, 0, 3, -12}};
    ControlParent parent(TEXT("ScrollBar"), SBS_VERT, 17, 100, {});
    for (const HWND window : {parent.Control(), parent.Window()}) {
        const int bar = window == parent.Control() ? SB_CTL : SB_VERT;
        for (const auto& c : cases) {
            SCROLLINFO info = {sizeof(info), SIF_ALL,   c.least, c.most, static_cast<UINT>(c.page),
                               c.position,   c.position};
            EXPECT_EQ(SetScrollInfo(window, bar, &info, FALSE), c.kept_position);
            info = {sizeof(info), SIF_ALL, 0, 0, 0, 0, 0};
            EXPECT_TRUE(GetScrollInfo(window, bar, &info));
            EXPECT_EQ(info.nMax, c.most);
            EXPECT_EQ(info.nPage, static_cast<UINT>(c.kept_page));
            EXPECT_EQ(info.nPos, c.kept_position);
        }
    }
    // A window's own bar is there while it is needed.
    SCROLLINFO info = {sizeof(info), SIF_RANGE | SIF_PAGE, 0, 9, 3, 0, 0};
    for (const UINT page : {3u, 20u}) {
        info.nPage = page;
        SetScrollInfo(parent.Window(), SB_VERT, &info, FALSE);
        EXPECT_EQ((GetWindowLongPtrW(parent.Window(), GWL_STYLE) & WS_VSCROLL) != 0, page == 3);
    }
}

TEST(ScrollBar, AsksItsParentToScroll) {
    ControlParent parent(TEXT("ScrollBar"), SBS_VERT, 17, 200, {});
    std::string told;
    parent.handler = [&](UINT message, WPARAM first, LPARAM, LRESULT&) {
        if (message == WM_VSCROLL) told += std::to_string(LOWORD(first)) + " ";
        return false;
    };
    const SCROLLINFO info = {sizeof(info), SIF_ALL, 0, 99, 10, 50, 0};
    SetScrollInfo(parent.Control(), SB_CTL, &info, FALSE);
    parent.Click(8, 5);
    parent.Click(8, 195);
    parent.Click(8, 30);
    EXPECT_EQ(told, "0 8 1 8 2 8 ");
    told.clear();
    parent.Key(VK_NEXT);
    EXPECT_EQ(told[0], '3');
}

} // namespace
