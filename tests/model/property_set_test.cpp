#include "model/property_set.h"

#include <gtest/gtest.h>

TEST(PropertySet, KeepsTextsUnderNamesThatCountCase) {
    OPropertySet set;
    set.SetString("Name", "a");
    set.SetString("name", "b");
    set.SetString("Name", "c");
    set.SetString("empty", "");
    EXPECT_STREQ(set.GetString("Name", "?").nstring(), "c");
    EXPECT_STREQ(set.GetString("name", "?").nstring(), "b");
    EXPECT_STREQ(set.GetString("empty", "?").nstring(), "");
    EXPECT_STREQ(set.GetString("NAME", "?").nstring(), "?");
    ASSERT_EQ(set.GetCount(), 3);
    for (int i = 0; i < 3; ++i) EXPECT_NE(set.GetString(set.GetName(i), "?"), "?");
    set.Clear();
    EXPECT_STREQ(set.GetString("Name", "?").nstring(), "?");
    EXPECT_EQ(set.GetCount(), 0);
}

TEST(PropertySet, KeepsNumbersAndFlagsAsDecimalText) {
    OPropertySet set;
    set.SetInt("n", -42);
    set.SetBool("b", true);
    EXPECT_STREQ(set.GetString("n", "").nstring(), "-42");
    EXPECT_STREQ(set.GetString("b", "").nstring(), "1");
    set.SetString("n", " 12 mm");
    EXPECT_EQ(set.GetInt("n", 7), 12);
    EXPECT_TRUE(set.GetBool("n", false));
    set.SetString("n", "no");
    EXPECT_EQ(set.GetInt("n", 7), 0);
    EXPECT_FALSE(set.GetBool("n", true));
    set.SetString("n", "");
    EXPECT_EQ(set.GetInt("n", 7), 7);
    EXPECT_TRUE(set.GetBool("n", true));
    EXPECT_FALSE(set.GetBool("none", false));
}
