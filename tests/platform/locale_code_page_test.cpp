#include "platform/error_of.h"
#include "support/host_test.h"

#include <win32host/control.h>
#include <windows.h>

#include <string>
#include <thread>
#include <vector>

namespace {

class CodePages : public HostTest {};
class CodePagesThreads : public HostTest {};

std::u16string Decode(UINT code_page, const std::string& bytes, DWORD flags = 0) {
    WCHAR text[512];
    const int units = MultiByteToWideChar(code_page, flags, bytes.data(),
                                          static_cast<int>(bytes.size()), text, 512);
    return {text, static_cast<size_t>(units)};
}

std::string Encode(UINT code_page, const std::u16string& text, DWORD flags = 0,
                   const char* default_char = nullptr, BOOL* used = nullptr) {
    char bytes[512];
    const int count =
        WideCharToMultiByte(code_page, flags, text.data(), static_cast<int>(text.size()), bytes,
                            512, default_char, used);
    return {bytes, static_cast<size_t>(count)};
}

TEST_F(CodePages, ConvertTextBothWays) {
    const struct {
        UINT code_page;
        const char* bytes;
        const char16_t* text;
    } cases[] = {
        {1252, "\x80 \xE4\xFC\xDF", u"€ äüß"},
        {1250, "\xBB\xB3\xE8", u"»łč"},
        {1251, "\xCF\xF0\xE8\xE2\xE5\xF2", u"Привет"},
        {1253, "\xC1\xE8", u"Αθ"},
        {1254, "\xDD\xFE", u"İş"},
        {1255, "\xF9\xEC\xE5\xED", u"שלום"},
        {1256, "\xE3\xD1", u"مر"},
        {1257, "\xD0\xE7", u"Šē"},
        {1258, "\xD0\xF5", u"Đơ"},
        {874, "\xA1\xD2", u"กา"},
        {932, "\x93\xFA\x96\x7B\xB1", u"日本ｱ"},
        {936, "\xD6\xD0\xCE\xC4\x80", u"中文€"},
        {949, "\xC7\xD1\xB1\xDB", u"한글"},
        {950, "\xA4\xA4\xA4\xE5", u"中文"},
        {1361, "\xD0\x65\x8B\x69", u"한글"},
        {437, "\x81\xC9", u"ü╔"},
        {850, "\xA9\xB7", u"®À"},
        {28591, "\x80\xE9", u"\u0080é"},
        {65001, "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80", u"ä€😀"},
        // Bytes without a character stand for control codes or the private use area.
        {1252, "\x81\x8D\x9D", u"\u0081\u008D\u009D"},
        {1251, "\x98", u"\u0098"},
        {1253, "\xAA", u"\uF8F9"},
        {936, "\xAA\xA1\xF8\xA1\xA1\x40\xA7\xA0", u"\uE000\uE234\uE4C6\uE765"},
        {949, "\xC9\xA1\xFE\xFE", u"\uE000\uE0BB"},
        {932, "\xF0\x40\xF9\xFC", u"\uE000\uE757"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Decode(c.code_page, c.bytes), c.text) << c.code_page;
        EXPECT_EQ(Encode(c.code_page, c.text), c.bytes) << c.code_page;
    }
}

TEST_F(CodePages, EverySingleByteSurvivesTheRoundTrip) {
    for (UINT code_page : {437, 850, 874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258}) {
        std::string all;
        for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
        EXPECT_EQ(Encode(code_page, Decode(code_page, all, MB_ERR_INVALID_CHARS)), all)
            << code_page;
    }
}

TEST_F(CodePages, MinusOneTakesTheTerminatorAlong) {
    WCHAR text[8];
    EXPECT_EQ(MultiByteToWideChar(1252, 0, "ab", -1, text, 8), 3);
    EXPECT_EQ(std::u16string(text), u"ab");
    char bytes[8];
    EXPECT_EQ(WideCharToMultiByte(932, 0, u"日", -1, bytes, 8, nullptr, nullptr), 3);
    EXPECT_EQ(std::string(bytes), "\x93\xFA");
    EXPECT_EQ(MultiByteToWideChar(65001, 0, "\xC3\xA4", -1, nullptr, 0), 2);
    EXPECT_EQ(MultiByteToWideChar(932, 0, "\x81", -1, text, 8), 2);
    EXPECT_EQ(text[1], 0) << "a lead byte does not swallow the terminator";
}

TEST_F(CodePages, TooSmallABufferTakesWholeCharactersAndFails) {
    char bytes[4] = "xxx";
    EXPECT_EQ(ErrorOf(WideCharToMultiByte(932, 0, u"a日本", 3, bytes, 2, nullptr, nullptr)),
              ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(std::string(bytes), "axx");
    WCHAR units[2];
    EXPECT_EQ(ErrorOf(MultiByteToWideChar(65001, 0, "abc", 3, units, 2)),
              ERROR_INSUFFICIENT_BUFFER);
}

TEST_F(CodePages, WrongArgumentsAreRefused) {
    WCHAR to[4];
    char bytes[4];
    BOOL used;
    EXPECT_EQ(ErrorOf(MultiByteToWideChar(1208, 0, "a", 1, to, 4)), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(ErrorOf(MultiByteToWideChar(1252, 0, nullptr, 1, to, 4)), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(ErrorOf(MultiByteToWideChar(1252, 0, "a", 0, to, 4)), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(ErrorOf(MultiByteToWideChar(1252, 0, "a", 1, nullptr, 4)), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(ErrorOf(MultiByteToWideChar(1252, 0, "a", 1, to, -1)), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(ErrorOf(MultiByteToWideChar(1252, 0x80000000, "a", 1, to, 4)), ERROR_INVALID_FLAGS);
    const auto encode = [&](UINT page, LPSTR target, LPCSTR other, LPBOOL any) {
        return ErrorOf(WideCharToMultiByte(page, 0, u"a", 1, target, 4, other, any));
    };
    EXPECT_EQ(encode(65001, bytes, "?", nullptr), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(encode(65001, bytes, nullptr, &used), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(encode(1252, nullptr, nullptr, nullptr), ERROR_INVALID_PARAMETER);
}

TEST_F(CodePages, ReplaceWhatTheCodePageLacks) {
    BOOL used = FALSE;
    EXPECT_EQ(Encode(1252, u"aЖb", 0, nullptr, &used), "a?b");
    EXPECT_TRUE(used);
    EXPECT_EQ(Encode(1252, u"aЖb", 0, "_"), "a_b");
    EXPECT_EQ(Encode(932, u"\u0E01", 0, "\x81\xA0"), "\x81\xA0");
    EXPECT_EQ(Encode(1252, u"äb", 0, nullptr, &used), "\xE4"
                                                      "b");
    EXPECT_FALSE(used);
    EXPECT_EQ(Encode(1252, u"😀"), "??");
    EXPECT_EQ(Encode(65001, u"\xD800x"), "\xEF\xBF\xBDx");
    EXPECT_EQ(Encode(65001, u"\xD800x", WC_ERR_INVALID_CHARS), "");
    EXPECT_EQ(GetLastError(), DWORD{ERROR_NO_UNICODE_TRANSLATION});
}

TEST_F(CodePages, WriteALookAlikeUnlessAskedNotTo) {
    BOOL used = TRUE;
    EXPECT_EQ(Encode(1252, u"Āę\uFF21", 0, nullptr, &used), "AeA");
    EXPECT_FALSE(used);
    EXPECT_EQ(Encode(1251, u"é"), "e");
    EXPECT_EQ(Encode(932, u"¥"), "\\");
    EXPECT_EQ(Encode(1252, u"Āé", WC_NO_BEST_FIT_CHARS, nullptr, &used), "?\xE9");
    EXPECT_TRUE(used);
}

TEST_F(CodePages, MalformedBytesBecomeTheDefaultCharacterOrAnError) {
    const struct {
        UINT code_page;
        const char* bytes;
        const char16_t* text;
    } cases[] = {
        {932, "a\x81", u"a\u30FB"},                     // half a character at the end
        {949, "\xB0\xFF", u"?"},                        // no such second byte
        {65001, "\xC3", u"\uFFFD"},                     // cut
        {65001, "\xC0\xAF", u"\uFFFD\uFFFD"},           // overlong
        {65001, "\xE2\x82x", u"\uFFFDx"},               // cut within
        {65001, "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"}, // a surrogate
        {65001, "\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Decode(c.code_page, c.bytes), c.text) << testing::PrintToString(c.bytes);
        SetLastError(0);
        EXPECT_EQ(Decode(c.code_page, c.bytes, MB_ERR_INVALID_CHARS), u"");
        EXPECT_EQ(GetLastError(), DWORD{ERROR_NO_UNICODE_TRANSLATION});
    }
}

TEST_F(CodePages, TheAnsiCodePageCanBeSet) {
    EXPECT_EQ(Decode(CP_OEMCP, "\x81"), u"ü");
    win32host::SetAnsiCodePage(932);
    EXPECT_EQ(GetACP(), 932u);
    EXPECT_EQ(Decode(CP_ACP, "\x93\xFA"), u"日");
}

TEST_F(CodePages, TheSystemKnowsSomeAndATestCanTakeThemAway) {
    for (UINT code_page : {874, 932, 936, 949, 950, 1250, 1258, 1361, 65001, 20127})
        EXPECT_TRUE(IsValidCodePage(code_page)) << code_page;
    for (UINT code_page : {0, 1, 1208, 1249, 99999}) EXPECT_FALSE(IsValidCodePage(code_page));
    win32host::SetMissingCodePages({932});
    EXPECT_FALSE(IsValidCodePage(932));
    EXPECT_EQ(Decode(932, "a"), u"");
    EXPECT_TRUE(IsValidCodePage(936));
}

TEST_F(CodePages, TellTheirLeadBytes) {
    CPINFO info;
    for (auto [code_page, size] : {std::pair{1252u, 1u}, {65001u, 4u}, {932u, 2u}}) {
        ASSERT_TRUE(GetCPInfo(code_page, &info));
        EXPECT_EQ(info.MaxCharSize, size);
    }
    EXPECT_EQ(std::vector<int>(info.LeadByte, info.LeadByte + 5),
              (std::vector<int>{0x81, 0x9F, 0xE0, 0xFC, 0}));
    EXPECT_FALSE(GetCPInfo(1208, &info));
    EXPECT_TRUE(IsDBCSLeadByteEx(932, 0xE0));
    EXPECT_FALSE(IsDBCSLeadByteEx(932, 0xA1) || IsDBCSLeadByteEx(1252, 0xE0));
}

TEST_F(CodePagesThreads, BuildATableOnceForAll) {
    std::vector<std::thread> threads;
    std::vector<int> answers(4);
    for (int& answer : answers)
        threads.emplace_back([&answer] {
            for (UINT code_page : {1361, 950, 949, 936, 932, 874})
                answer += static_cast<int>(Encode(code_page, u"aé").size());
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(answers, std::vector<int>(4, answers[0]));
}

} // namespace
