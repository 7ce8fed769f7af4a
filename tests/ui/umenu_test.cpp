// Menus, and marks for refreshing.
#include "ui/umenu.h"

#include <gtest/gtest.h>

#include <string>

#include "ui/utrigger.h"

TEST(Menus, AreMadeAndChangedByIdentifierOrPosition) {
    UMenu menu, sub;
    EXPECT_FALSE(menu.Append(1, "no menu") || menu.GetCount());
    ASSERT_TRUE(menu.CreatePopup() && sub.CreatePopup());
    EXPECT_TRUE(menu.Append(1, "one") && menu.AppendSeparator() && sub.Append(5, "five"));
    EXPECT_TRUE(menu.AppendSubMenu(sub, "more") && menu.Insert(1, 2, "two") &&
                menu.Insert(0, 3, "three", true));
    EXPECT_EQ(menu.GetCount(), 5);
    EXPECT_EQ(menu.GetItemID(0), 3);
    EXPECT_EQ(menu.GetItemID(4), -1);
    EXPECT_EQ(menu.GetSubMenu(4).GetItemID(0), 5);
    menu.Check(5, true);
    EXPECT_TRUE(menu.IsChecked(5) && sub.IsChecked(0, true) && !menu.IsChecked(1));
    menu.SetText(2, "second");
    EXPECT_EQ(menu.GetText(1, true), "second");
    EXPECT_EQ(menu.GetText(99), "");
    menu.Enable(2, false);
    EXPECT_TRUE(GetMenuState(menu.GetMenu(), 2, MF_BYCOMMAND) & MF_GRAYED);
    EXPECT_TRUE(menu.Delete(0, true) && menu.Delete(1));
    EXPECT_FALSE(menu.Delete(99));
    EXPECT_EQ(menu.GetItemID(0), 2);
    const UMenu moved = std::move(menu);
    EXPECT_EQ(moved.GetCount(), 3);
}

TEST(Triggers, SetTheChainedOnesOnceAndAreClearedByReading) {
    UTrigger first, second, third;
    first.Chain(second);
    second.Chain(third);
    third.Chain(first);
    first.Set();
    EXPECT_TRUE(first.Get() && !first.Get() && third.Get() && second.Get());
    EXPECT_TRUE(second = true);
    EXPECT_TRUE(first.Get());
    EXPECT_FALSE(second = false);
    EXPECT_TRUE(!second.Get() && third.Get());
}
