#include "core/locale_utility.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "core/text.h"

namespace {

std::string Encoded(const WideText& text) {
    OBuffer<char> out(1000);
    LocaleUtility::ConvertUTF8(Buffer(text), out);
    return Contents(out);
}

WideText Decoded(const std::string& bytes) {
    OBuffer<WCHAR> out(1000);
    LocaleUtility::ConvertUTF8(Buffer(bytes), out);
    return Contents(out);
}

const WCHAR kEnd = 0;

TEST(UTF8, CodesEveryUnitByItself) {
    const std::pair<WideText, std::string> cases[] = {
        {{}, ""},
        {{'A'}, "A"},
        {{0x7F}, "\x7F"},
        {{0x80}, "\xC2\x80"},
        {{0x7FF}, "\xDF\xBF"},
        {{0x800}, "\xE0\xA0\x80"},
        {{0x20AC}, "\xE2\x82\xAC"},
        {{0xFFFF}, "\xEF\xBF\xBF"},
        {{0xD83D, 0xDE00}, "\xED\xA0\xBD\xED\xB8\x80"}};
    for (const auto& [units, bytes] : cases) {
        EXPECT_EQ(Encoded(units), bytes + '\0');
        EXPECT_EQ(Decoded(bytes), units + kEnd);
    }
}

TEST(UTF8, TakesMalformedBytesByTheirLowBits) {
    const std::pair<const char*, WideText> cases[] = {{"\xC3"
                                                       "A",
                                                       {0xC1}},
                                                      {"\x80\x81\x82", {0x42}},
                                                      {"\xF0\x9F\x98"
                                                       "x",
                                                       {0x07D8, 'x'}}};
    for (const auto& [bytes, units] : cases) EXPECT_EQ(Decoded(bytes), units + kEnd);
}

TEST(CodePages, AreFoundByTheirCharacterSetAndBack) {
    const std::pair<uint32_t, unsigned char> cases[] = {
        {874, 222}, {932, 128}, {1252, 0}, {1361, 130}, {2, 2}};
    for (const auto& [code_page, charset] : cases) {
        EXPECT_EQ(LocaleUtility::CharSetToCodePage(charset), code_page);
        EXPECT_EQ(LocaleUtility::CodePageToCharSet(code_page), charset);
    }
    EXPECT_EQ(LocaleUtility::CharSetToCodePage(255), 0u);
    EXPECT_EQ(LocaleUtility::CodePageToCharSet(0), 255);
    EXPECT_EQ(LocaleUtility::CodePageToCharSet(1208), 255);
    EXPECT_TRUE(LocaleUtility::IsMultiByteCodePage(949));
    EXPECT_FALSE(LocaleUtility::IsMultiByteCodePage(1252));
}

} // namespace
