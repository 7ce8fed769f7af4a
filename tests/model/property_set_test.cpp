#include "model/property_set.h"

#include <gtest/gtest.h>

#include <tuple>
#include <utility>

TEST(PropertySet, KeepsTextsUnderNamesThatCountCase) {
    OPropertySet set;
    for (const auto& [name, text] : {std::pair("Name", "a"), std::pair("name", "b"),
                                     std::pair("Name", "c"), std::pair("empty", "")})
        set.SetString(name, text);
    for (const auto& [name, text] : {std::pair("Name", "c"), std::pair("name", "b"),
                                     std::pair("empty", ""), std::pair("NAME", "?")})
        EXPECT_EQ(set.GetString(name, "?"), text);
    ASSERT_EQ(set.GetCount(), 3);
    for (int i = 0; i < 3; ++i) EXPECT_NE(set.GetString(set.GetName(i), "?"), "?");
    set.Clear();
    EXPECT_EQ(set.GetString("Name", "?"), "?");
    EXPECT_EQ(set.GetCount(), 0);
}

TEST(PropertySet, KeepsNumbersAndFlagsAsDecimalText) {
    OPropertySet set;
    set.SetInt("n", -42);
    set.SetBool("b", true);
    EXPECT_STREQ(set.GetString("n", "").nstring(), "-42");
    EXPECT_STREQ(set.GetString("b", "").nstring(), "1");
    const std::tuple<const char*, int, bool> cases[] = {
        {" 12 mm", 12, true}, {"no", 0, false}, {"", 7, true}};
    for (const auto& [text, number, flag] : cases) {
        set.SetString("n", text);
        EXPECT_EQ(set.GetInt("n", 7), number) << text;
        EXPECT_EQ(set.GetBool("n", true), flag) << text;
    }
    EXPECT_FALSE(set.GetBool("none", false));
}
