#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>
#include <tuple>
#include <utility>

#include "core/ostring.h"
#include "core/text.h"

namespace {

TEST(StringSearch, ClampsTheStartAndReportsPositions) {
    const OString text("abcab");
    EXPECT_EQ(text.Find('b', -5), 1);
    EXPECT_EQ(text.Find('b', 2), 4);
    EXPECT_EQ(text.Find('x', 10), -1);
    EXPECT_EQ(text.Find('\0', 0), -1);
    const std::tuple<const char*, int, int> cases[] = {
        {"ab", 0, 0}, {"ab", 1, 3}, {"ab", -1, 0}, {"abcabc", 0, -1}, {"", 1, 1},
        {"", 5, -1},  {"b", 4, 4},  {"b", 5, -1},  {"", INT_MIN, 0}};
    for (const auto& [wanted, start, found] : cases) {
        EXPECT_EQ(text.Find(wanted, start), found) << wanted << " from " << start;
        EXPECT_EQ(text.Find(Widen(wanted).c_str(), start), found);
    }
    EXPECT_EQ(OString().Find("", 0), -1);
    EXPECT_EQ(text.Find(static_cast<const char*>(nullptr), 0), -1);
    EXPECT_EQ(text.ReverseFind('b'), 4);
    EXPECT_EQ(text.ReverseFind('x'), -1);
    EXPECT_EQ(text.ReverseFind('\0'), 5);
    EXPECT_EQ(text.FindOneOf("xcb"), 1);
    EXPECT_EQ(text.ReverseFindOneOf("xca"), 3);
    EXPECT_EQ(text.FindOneOf(""), -1);
    EXPECT_EQ(text.ReverseFindOneOf(nullptr), -1);
    EXPECT_EQ(OString().ReverseFindOneOf("a"), -1);
}

TEST(StringPattern, CoversTheWholeText) {
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"abc", "a*", true}, {"abc", "abc", true},  {"abc", "abc**", true},
        {"abc", "*c", true}, {"abc", "a?c", true},  {"abcbc", "a*bc", true},
        {"abc", "*", true},  {"abc", "ab", false},  {"abc", "*?*?*?", true},
        {"abc", "?", false}, {"abc", "A*", false},  {"ab", "*?*?*?", false},
        {"", "", true},      {"abc", "a?", false},  {"aab", "*a?b", true},
        {"", "*", true},     {"abc", "***", true},  {"xaxbxc", "*a*b*c", true},
        {"", "?", false},    {"abab", "*ab", true}, {"mississippi", "m*iss*ppi", true},
        {"a", "", false}};
    for (const auto& [text, pattern, matches] : cases)
        EXPECT_EQ(OString(text).MatchPattern(OString(pattern)), matches)
            << text << " against " << pattern;
}

TEST(StringPattern, IsQuickOnPatternsMadeToBeSlow) {
    OString pattern;
    for (int i = 0; i < 100; ++i) pattern << "a*";
    EXPECT_FALSE(OString(std::string(5000, 'a').c_str()).MatchPattern(pattern << "b"));
}

TEST(StringInsert, ClampsPositionAndCount) {
    const std::tuple<const char*, int, const char*, int, const char*> cases[] = {
        {"ad", 1, "bcx", 2, "abcd"}, {"a", -7, "b", 1, "ba"},  {"a", 99, "b", 1, "ab"},
        {"a", 0, "b", 0, "a"},       {"a", 0, "b", -1, "a"},   {"", 5, "abc", 2, "ab"},
        {"a", 1, "bc", 99, "abc"},   {"a", 0, nullptr, 3, "a"}};
    for (const auto& [text, pos, added, count, result] : cases) {
        OString narrow(text);
        EXPECT_EQ(narrow.Insert(pos, added, count), static_cast<int>(std::strlen(result)));
        EXPECT_STREQ(narrow.nstring(), result);
        if (!added) continue;
        OString wide(text);
        wide.Insert(pos, Widen(added).c_str(), count);
        EXPECT_STREQ(wide.nstring(), result);
    }
}

TEST(StringInsert, TakesPartOfTheOwnText) {
    for (const int repeats : {1, 20}) { // within the block, and beyond it
        std::string expected;
        for (int i = 0; i < repeats; ++i) expected += "abcdef";
        OString narrow(expected.c_str());
        OString wide(expected.c_str());
        wide.wstring();
        const int length = narrow.nlen();
        narrow.Insert(2, narrow.nstring() + 1, length);
        wide.Insert(2, wide.wstring() + 1, length);
        expected = expected.substr(0, 2) + expected.substr(1) + expected.substr(2);
        EXPECT_EQ(narrow.nstring(), expected);
        EXPECT_EQ(wide.nstring(), expected);
    }
}

TEST(StringDelete, ClampsAndCutsBothForms) {
    const std::tuple<int, int, const char*> cases[] = {
        {1, 2, "ad"}, {-3, 2, "cd"},  {3, 99, "abc"},     {99, 1, "abcd"},
        {0, 4, ""},   {1, 0, "abcd"}, {2, INT_MAX, "ab"}, {0, INT_MIN, "abcd"}};
    for (const auto& [pos, count, result] : cases) {
        OString text("abcd");
        text.wstring();
        EXPECT_EQ(text.Delete(pos, count), static_cast<int>(std::strlen(result)));
        EXPECT_STREQ(text.nstring(), result);
        EXPECT_EQ(WideText(text.wstring()), Widen(result));
    }
    OString text("abcd");
    text.Truncate(9);
    EXPECT_STREQ(text.nstring(), "abcd");
    text.Truncate(3);
    EXPECT_STREQ(text.nstring(), "abc");
    text.Truncate(-1);
    EXPECT_TRUE(text.IsEmpty());
}

TEST(StringDelete, KeepsTheFormsTheSameTextWhenTheyCountDifferently) {
    OString text = InCodePage(1208, "\xC3\xA9\xE2\x82\xACx\xC3\xA9  ");
    text.wstring();
    text.Delete(0, 1);
    EXPECT_STREQ(text.nstring(), "\xE2\x82\xACx\xC3\xA9  ");
    text.wstring();
    text.TrimRight(' ');
    EXPECT_STREQ(text.nstring(), "\xE2\x82\xACx\xC3\xA9");
}

TEST(StringReplace, CountsAndNeverSearchesWhatItPutIn) {
    const std::tuple<const char*, const char*, const char*, int, const char*> cases[] = {
        {"aaa", "a", "", 3, ""},    {"aaa", "aa", "b", 1, "ba"}, {"aba", "a", "aa", 2, "aabaa"},
        {"abab", "ab", "", 2, ""},  {"aabb", "ab", "", 1, "ab"}, {"a.b.", ".", "--", 2, "a--b--"},
        {"abc", "", "y", 0, "abc"}, {"abc", "x", "y", 0, "abc"}, {"abc", nullptr, "x", 0, "abc"},
        {"", "a", "b", 0, ""},      {"abc", "abc", "x", 1, "x"}, {"abc", "b", nullptr, 1, "ac"}};
    for (const auto& [original, from, to, count, result] : cases) {
        OString text(original);
        EXPECT_EQ(text.Replace(from, to), count) << original;
        EXPECT_STREQ(text.nstring(), result);
        EXPECT_EQ(text.GetLength(), static_cast<int>(std::strlen(result)));
    }
    OString text("a-b-c");
    EXPECT_EQ(text.Replace('-', '+'), 2);
    EXPECT_EQ(text.Replace('x', 'x'), 0);
    EXPECT_STREQ(text.nstring(), "a+b+c");
    EXPECT_EQ(text.Remove('+'), 2);
    EXPECT_STREQ(text.nstring(), "abc");
}

TEST(StringReplace, TakesPartsOfTheOwnText) {
    OString text("abcabc");
    EXPECT_EQ(text.Replace(text.nstring() + 4, text.nstring() + 3), 2);
    EXPECT_STREQ(text.nstring(), "aabcaabc");
    EXPECT_EQ(text.Replace(text.nstring() + 6, ""), 2);
    EXPECT_STREQ(text.nstring(), "aaaa");
}

TEST(StringRemove, LosesNoCharacterThatTheCodePageLacks) {
    OString text;
    text.SetCodePage(1252);
    text = TEXT("&\x0416&x");
    EXPECT_EQ(text.Remove('&'), 2);
    EXPECT_EQ(WideText(text.wstring()), (WideText{0x0416, 'x'}));
}

TEST(StringCase, ChangesAsciiLettersOnly) {
    OString text = InCodePage(1252, "aZ\xE9{`");
    text.wstring();
    text.MakeUpper();
    EXPECT_STREQ(text.nstring(), "AZ\xE9{`");
    EXPECT_EQ(WideText(text.wstring()), Widen("AZ\xE9{`"));
    text.MakeLower();
    EXPECT_STREQ(text.nstring(), "az\xE9{`");
    // The second byte of this katakana letter is the code of "A".
    OString japanese = InCodePage(932, "\x83\x41x");
    japanese.MakeLower();
    japanese.MakeUpper();
    EXPECT_STREQ(japanese.nstring(), "\x83\x41X");
}

TEST(StringPart, IsCutFromTheMiddle) {
    const std::tuple<int, int, const char*> cases[] = {
        {1, 100, "bcd"}, {5, 1, ""}, {1, 2, "bc"},         {-1, 2, "ab"},
        {2, -1, ""},     {4, 1, ""}, {0, INT_MAX, "abcd"}, {3, INT_MAX, "d"}};
    const OString text = InCodePage(1252, "abcd");
    for (const auto& [start, count, result] : cases) {
        const OString part = text.Mid(start, count);
        EXPECT_STREQ(part.nstring(), result) << start << ", " << count;
        EXPECT_EQ(part.GetCodePage(), 1252u);
    }
    EXPECT_EQ(text.Mid(0, 4).nstring(), text.nstring()) << "the whole text is shared";
    EXPECT_STREQ(text.Mid(2).nstring(), "cd");
    EXPECT_STREQ(text.Mid(-2).nstring(), "abcd");
    EXPECT_TRUE(text.Left(-1).IsEmpty());
    EXPECT_STREQ(text.Left(3).nstring(), "abc");
}

TEST(StringPath, IsCutAtItsLastBackslash) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"C:\\dir\\file", "C:\\dir", "file"},
        {"file", "", "file"},
        {"\\file", "\\file", "\\file"},
        {"dir\\", "dir", ""},
        {"", "", ""}};
    for (const auto& [text, path, file] : cases) {
        EXPECT_STREQ(OString(text).PathPart().nstring(), path);
        EXPECT_STREQ(OString(text).FilePart().nstring(), file);
    }
    // The second byte of the first letter is the code of a backslash.
    const OString japanese = InCodePage(932, "\x83\x5C\x5C\x83\x5C");
    EXPECT_STREQ(japanese.PathPart().nstring(), "\x83\x5C");
    EXPECT_STREQ(japanese.FilePart().nstring(), "\x83\x5C");
}

TEST(StringNumbering, CountsUpTheNumberAtTheEnd) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"Copy", "Copy 2", "Copy2"},
        {"Copy ", "Copy 2", "Copy 2"},
        {"Copy 9", "Copy 10", "Copy 10"},
        {"File009", "File10", "File10"},
        {"41", "42", "42"},
        {"", "2", "2"},
        {"x9999999999", "x2000000001", "x2000000001"},
        {"7 up", "7 up 2", "7 up2"}};
    for (const auto& [text, with_space, without_space] : cases) {
        OString with(text);
        with.NextUnique(true);
        EXPECT_STREQ(with.nstring(), with_space);
        OString without(text);
        without.NextUnique(false);
        EXPECT_STREQ(without.nstring(), without_space);
    }
    OString accented = InCodePage(1208, "\xC3\xA9 9");
    accented.wstring();
    accented.NextUnique(true);
    EXPECT_STREQ(accented.nstring(), "\xC3\xA9 10");
}

TEST(StringEscapes, AreDecoded) {
    const std::pair<const char*, const char*> cases[] = {{"a%5Cb%5Cc", "a\\b\\c"},
                                                         {"%4", "%4"},
                                                         {"%41", "A"},
                                                         {"x%00y", "xy"},
                                                         {"%5c", "\\"},
                                                         {"%2541", "%41"},
                                                         {"%zz", "C"},
                                                         {"100%", "100%"},
                                                         {"%%41", "\xE4"
                                                                  "1"},
                                                         {"", ""},
                                                         {"%2F%3A%25", "/:%"}};
    for (const auto& [escaped, result] : cases) {
        OString text = InCodePage(1252, escaped);
        EXPECT_STREQ(text.URLDecode().nstring(), result) << escaped;
    }
}

} // namespace
