#include "core/ostring_array.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "core/text.h"

namespace {

using Strings = std::vector<std::string>;

Strings Contents(const OStringArray& array) {
    Strings strings;
    for (int i = 0; i < array.GetSize(); ++i) strings.push_back(array[i].nstring());
    return strings;
}

OStringArray Array(const Strings& strings) {
    OStringArray array;
    for (const std::string& string : strings) array.Add(OString(string.c_str()));
    return array;
}

TEST(StringArray, TakesItsOwnStrings) {
    OStringArray array = Array({"a", "b"});
    for (int i = 0; i < 20; ++i) array.Add(array[i]);
    EXPECT_EQ(array.GetSize(), 22);
    EXPECT_STREQ(array[21].nstring(), "b");
    array.SetSize(2);
    array.InsertAt(0, array[1], 2);
    EXPECT_EQ(Contents(array), (Strings{"b", "b", "a", "b"}));
    EXPECT_EQ(array.Append(array), 4);
    EXPECT_EQ(Contents(array), (Strings{"b", "b", "a", "b", "b", "b", "a", "b"}));
}

TEST(StringArray, SplitsAndJoinsWithEmptyPieces) {
    const std::tuple<const char*, const char*, Strings> cases[] = {
        {"a,,b", ",", {"a", "", "b"}}, {"a,", ",", {"a", ""}},    {",a", ",", {"", "a"}},
        {",", ",", {"", ""}},          {"abc", nullptr, {"abc"}}, {"", ",", {}},
        {"a, b", ", ", {"a", "b"}},    {"abc", "", {"abc"}},      {"xxx", "xx", {"", "x"}},
        {"abc", ",", {"abc"}}};
    for (const auto& [text, separator, pieces] : cases) {
        OStringArray array = Array({"old"});
        array.Split(OString(text), separator);
        EXPECT_EQ(Contents(array), pieces) << text;
        EXPECT_STREQ(array.Join(separator).nstring(), text);
    }
}

TEST(StringArray, SplitsATextOfAnyCodePage) {
    OStringArray array;
    array.Split(InCodePage(1208, "\xC3\xA9\xE2\x82\xAC,\xC3\xA9,x"), ",");
    EXPECT_EQ(Contents(array), (Strings{"\xC3\xA9\xE2\x82\xAC", "\xC3\xA9", "x"}));
    EXPECT_EQ(array[0].GetCodePage(), 1208u);
    array.Split(array[1], ",");
    EXPECT_EQ(Contents(array), (Strings{"\xC3\xA9"}));
}

TEST(PackedList, HasALayoutForEachMode) {
    using namespace std::string_literals;
    const std::tuple<Strings, int, std::string> cases[] = {
        {{}, 0, "\0"s},   {{"ab", "", "c"}, 0, "ab\0c\0\0"s},
        {{}, 1, "\0\0"s}, {{"ab", "", "c"}, 1, "\3\0ab\0\0c\0"s},
        {{}, 2, "\2\0"s}, {{"ab", "", "c"}, 2, "\10\0ab\0\0c\0"s},
        {{}, 3, ""s},     {{"ab", "", "c"}, 3, "ab\0\0c\0"s},
        {{""}, 0, "\0"s}};
    for (const auto& [strings, mode, packed] : cases) {
        OBuffer<char> buffer;
        EXPECT_EQ(Array(strings).Pack(buffer, mode), packed.size());
        EXPECT_EQ(Contents(buffer), packed);
    }
}

TEST(PackedList, IsAppendedWhenUnpacked) {
    using namespace std::string_literals;
    const std::tuple<std::string, int, Strings> cases[] = {
        {"ab\0c\0\0d\0"s, 0, {"+", "ab", "c"}},
        {"\3\0ab\0\0c\0"s, 1, {"+", "ab", "", "c"}},
        {"\xFF\xFF"s
         "a\0"s,
         2,
         {"+", "a"}},
        {"a\0\0b"s, 3, {"+", "a", "", "b"}},
        {""s, 0, {"+"}},
        {"\0a\0"s, 0, {"+"}},
        {"\1"s, 1, {"+"}},
        {"no end"s, 0, {"+", "no end"}}};
    for (const auto& [packed, mode, strings] : cases) {
        OStringArray array = Array({"+"});
        array.Unpack(Buffer(packed), mode);
        EXPECT_EQ(Contents(array), strings);
    }
    OStringArray array;
    array.Unpack(Buffer(WideText{2, 'a', 0, 0x20AC, 0}), 1);
    ASSERT_EQ(array.GetSize(), 2);
    EXPECT_EQ(WideText(array[1].wstring()), WideText{0x20AC});
}

} // namespace
