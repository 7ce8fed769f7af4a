#include "core/ostring.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <tuple>

#include "core/text.h"

namespace {

// Which forms exist, as "n", "w", "nw" or "".
std::string Forms(const OString& text) {
    return std::string(text.is_valid_n() ? "n" : "") + (text.is_valid_w() ? "w" : "");
}

TEST(StringForms, FollowWhatACallerWritesIntoTheBuffer) {
    OString text("before");
    char* buffer = text.GetBufferA(100);
    EXPECT_EQ(Forms(text), "");
    std::memcpy(buffer, "hello", 6);
    EXPECT_EQ(text.nlen(), 5);
    std::memcpy(buffer, "hi", 3);
    EXPECT_EQ(text.nlen(), 2) << "the length is not remembered while the buffer may change";
    text << '!';
    EXPECT_STREQ(text.nstring(), "hi!");
    WCHAR* wide = text.GetBufferW(3);
    wide[0] = 'w';
    wide[1] = 0;
    EXPECT_EQ(text.GetLength(), 1);
    EXPECT_STREQ(text.nstring(), "w");
}

TEST(StringCodePage, ChangesTheBytesAndKeepsTheText) {
    OString text = InCodePage(1252, "\xE9");
    text.SetCodePage(1208);
    EXPECT_STREQ(text.nstring(), "\xC3\xA9");
    EXPECT_EQ(text.nlen(), 2);
    EXPECT_EQ(text.GetLength(), 1);
    text.SetCodePage(1252);
    EXPECT_STREQ(text.nstring(), "\xE9");
    OString copy(text);
    copy.SetCodePage(1251);
    EXPECT_EQ(text.GetCodePage(), 1252u);
}

TEST(StringCodePage, NeverCutsATextThatNeedsMoreBytesThanUsual) {
    // Three bytes for each unit in a code page that the platform converts, not our coder.
    for (const size_t length : {1, 31, 32, 100, 10000}) {
        const WideText euros(length, WCHAR{0x20AC});
        OString text;
        text.SetCodePage(65001);
        text = euros.c_str();
        EXPECT_EQ(std::strlen(text.nstring()), 3 * length);
        // A write leaves only the long 8-bit form, which must be restored completely.
        text << 'x';
        EXPECT_EQ(WideText(text.wstring()), euros + WCHAR{'x'});
    }
}

TEST(StringCodePage, WithoutConverterGivesTheEmptyText) {
    OString text;
    text.SetCodePage(9999);
    text = TEXT("abc");
    EXPECT_STREQ(text.nstring(), "");
    EXPECT_EQ(text.GetLength(), 3);
    const OString bytes = InCodePage(9999, "abc");
    EXPECT_EQ(bytes.wstring()[0], 0);
    EXPECT_STREQ(bytes.nstring(), "abc");
}

TEST(StringAppending, StaysInEightBitsOnlyForTwoEightBitTextsOfOneCodePage) {
    OString wide("b");
    wide.wstring();
    const std::tuple<OString, OString, const char*, uint32_t> cases[] = {
        {OString("a"), OString("b"), "n", 0},
        {OString("a"), wide, "w", 0},
        {OString(TEXT("a")), OString("b"), "w", 0},
        {InCodePage(1208, "a"), OString("b"), "w", 1208},
        {InCodePage(1208, "a"), InCodePage(1208, "b"), "n", 1208},
        {InCodePage(1208, ""), OString("ab"), "n", 0},
        {InCodePage(1208, "ab"), InCodePage(1252, ""), "n", 1208}};
    for (const auto& [first, second, forms, code_page] : cases) {
        OString text(first);
        text << second;
        EXPECT_EQ(Forms(text), forms);
        EXPECT_EQ(text.GetCodePage(), code_page);
        EXPECT_STREQ(text.nstring(), "ab");
    }
}

TEST(StringAppending, AndAssignmentTakePartsOfTheOwnText) {
    OString text = InCodePage(1208, "ab");
    text << text;
    text << text.nstring() + 2;
    EXPECT_STREQ(text.nstring(), "ababab");
    text << text.wstring();
    EXPECT_STREQ(text.nstring(), "abababababab");
    text = text.nstring() + 8;
    EXPECT_STREQ(text.nstring(), "abab");
    text = text.wstring() + 1;
    EXPECT_STREQ(text.nstring(), "bab");
    EXPECT_EQ(text.GetCodePage(), 1208u);
    text.Format(TEXT("%s-%d"), text.wstring(), 12);
    EXPECT_STREQ(text.nstring(), "bab-12");
}

TEST(StringAppending, TakesNumbersCharactersAndManipulators) {
    OString text = "a" + OString("b") + 'c';
    text << tab << -12 << endl;
    EXPECT_STREQ(text.nstring(), "abc\t-12\r\n");
    text << clear << "again";
    EXPECT_STREQ(text.nstring(), "again");
}

TEST(StringOrder, GoesBySignedBytesOrByUnits) {
    const std::tuple<const char*, const char*, int, int, int> cases[] = {
        {"a", "B", 1, -1, 1}, {"a", "A", 1, 0, 1},      {"ab", "a", 1, 1, 1}, {"", "a", -1, -1, -1},
        {"", "", 0, 0, 0},    {"\xE9", "z", -1, -1, 1}, {"[", "a", -1, 1, -1}};
    for (const auto& [a, b, order, order_without_case, order_in_utf16] : cases) {
        const OString first = InCodePage(1252, a);
        const OString second = InCodePage(1252, b);
        EXPECT_EQ(first.Collate(second), order) << a << ' ' << b;
        EXPECT_EQ(second.Collate(first), -order);
        EXPECT_EQ(first.CompareNoCase(second), order_without_case);
        EXPECT_EQ(first == second, order == 0);
        EXPECT_EQ(first != second, order != 0);
        first.wstring();
        EXPECT_EQ(first.Collate(second), order_in_utf16);
    }
}

} // namespace
