#include "platform/error_of.h"
#include "support/code_page_text.h"
#include "support/host_test.h"
#include "support/wide.h"
#include "support/wine.h"

#include <win32host/control.h>
#include <windows.h>

#include <string>
#include <vector>

namespace {

// A checksum of everything that a code page reads or writes, without a cell of 1361 that only some
// systems know.
class Checksum {
public:
    void Add(uint32_t value) { sum_ = (sum_ ^ value) * 0x01000193; }
    uint32_t sum() const { return sum_; }

private:
    uint32_t sum_ = 0x811C9DC5;
};

uint32_t ChecksumOfReading(UINT code_page) {
    Checksum sum;
    for (int lead = 0; lead < 256; ++lead) {
        const bool is_lead = IsDBCSLeadByteEx(code_page, static_cast<BYTE>(lead));
        for (int trail = 1; trail < (is_lead ? 256 : 2); ++trail) {
            const char bytes[] = {static_cast<char>(lead), static_cast<char>(trail)};
            WCHAR units[4] = {};
            MultiByteToWideChar(code_page, 0, bytes, is_lead ? 2 : 1, units, 4);
            if (code_page == 1361 && lead == 0xD9 && trail == 0xE8) continue;
            sum.Add(units[0] | uint32_t{units[1]} << 16);
        }
    }
    return sum.sum();
}

uint32_t ChecksumOfWriting(UINT code_page, DWORD flags) {
    Checksum sum;
    for (uint32_t value = 1; value < 0x10000; ++value) {
        if (code_page == 1361 && value == 0x327E) continue;
        const WCHAR unit = static_cast<WCHAR>(value);
        unsigned char bytes[4] = {};
        BOOL used = FALSE;
        WideCharToMultiByte(code_page, flags, &unit, 1, reinterpret_cast<char*>(bytes), 4, nullptr,
                            &used);
        sum.Add(bytes[0] | bytes[1] << 8 | (used ? 1u << 16 : 0u));
    }
    return sum.sum();
}

class CodePages : public HostTest {};

TEST_F(CodePages, ConvertTextBothWays) {
    const struct {
        UINT code_page;
        const char* bytes;
        const WCHAR* text;
    } cases[] = {
        {1252, "\x80 \xE4\xFC\xDF\x81", TEXT("€ äüß\u0081")},
        {1251, "\xCF\xF0\xE8\xE2\xE5\xF2", TEXT("Привет")},
        {932, "\x93\xFA\x96\x7B\xB1", TEXT("日本ｱ")},
        {936, "\xD6\xD0\xCE\xC4\x80", TEXT("中文€")},
        {1361, "\xD0\x65\x8B\x69", TEXT("한글")},
        {437, "\x81\xC9", TEXT("ü╔")},
        {65001, "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80", TEXT("ä€😀")},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Decode(c.code_page, c.bytes), c.text) << c.code_page;
        EXPECT_EQ(Encode(c.code_page, c.text), c.bytes) << c.code_page;
    }
}

TEST_F(CodePages, AreTheSameOnEverySystem) {
    const struct {
        UINT code_page;
        uint32_t read, written, with_look_alikes; // 0: there are more than the platform layer has
    } cases[] = {
        {437, 0x4D308040, 0x0B5A909D, 0xF3CA786A},
        {850, 0xC42996D0, 0x84B9A9F3, 0x1A6C5D24},
        {874, 0x3830E455, 0x35CFDDF9, 0x8F2B526C},
        {932, 0x1898BC1F, 0xA74E5782, 0xF055FC5A},
        {936, 0xFED5CAC6, 0x1AB87494, 0},
        {949, 0x936483F5, 0x6747834B, 0},
        {950, 0x58C7AAC4, 0x73E28D7B, 0},
        {1250, 0x46C01BA5, 0xD9A61DE3, 0x6357AE22},
        {1251, 0x865AEB5D, 0xFC52C0D1, 0x5FEDD033},
        {1252, 0x1F0FB4AF, 0xF1DB109B, 0xD4D17507},
        {1253, 0xA79740C6, 0xBBD6FB63, 0xEBDF4313},
        {1254, 0x73AC6D07, 0x3D17A9A5, 0xA290D7BD},
        {1255, 0x1B91C794, 0x835A0695, 0x552C3E72},
        {1256, 0x84F9EA20, 0xD7305EF7, 0x34E845E7},
        {1257, 0x3E6EA4AB, 0xB5CEA7AD, 0xC788C212},
        {1258, 0x2B601276, 0x4AE80E23, 0xC242D51C},
        {1361, 0x76689FD6, 0xC13B1A7D, 0},
        {20127, 0xC7A9B2C5, 0xC58766C7, 0xD08F84E5},
        {28591, 0x90A458C5, 0xA15BF547, 0x8DBA16A3},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ChecksumOfReading(c.code_page), c.read) << c.code_page;
        EXPECT_EQ(ChecksumOfWriting(c.code_page, WC_NO_BEST_FIT_CHARS), c.written) << c.code_page;
        if (c.with_look_alikes) {
            EXPECT_EQ(ChecksumOfWriting(c.code_page, 0), c.with_look_alikes) << c.code_page;
        }
    }
}

TEST_F(CodePages, MinusOneTakesTheTerminatorAlong) {
    WCHAR text[8];
    EXPECT_EQ(MultiByteToWideChar(1252, 0, "ab", -1, text, 8), 3);
    EXPECT_EQ(Wide(text), TEXT("ab"));
    char bytes[8];
    EXPECT_EQ(WideCharToMultiByte(932, 0, TEXT("日"), -1, bytes, 8, nullptr, nullptr), 3);
    EXPECT_EQ(std::string(bytes), "\x93\xFA");
    EXPECT_EQ(MultiByteToWideChar(65001, 0, "\xC3\xA4", -1, nullptr, 0), 2);
    EXPECT_EQ(MultiByteToWideChar(932, 0, "\x81", -1, text, 8), 2);
    EXPECT_EQ(text[1], 0) << "a lead byte does not swallow the terminator";
}

TEST_F(CodePages, TooSmallABufferTakesWholeCharactersAndFailsAsWrongArgumentsDo) {
    char bytes[4] = "xxx";
    EXPECT_EQ(ErrorOf(WideCharToMultiByte(932, 0, TEXT("a日本"), 3, bytes, 2, nullptr, nullptr)),
              ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(std::string(bytes), "axx");
    WCHAR units[2];
    EXPECT_EQ(ErrorOf(MultiByteToWideChar(65001, 0, "abc", 3, units, 2)),
              ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(ErrorOf(MultiByteToWideChar(1208, 0, "a", 1, units, 2)), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(ErrorOf(MultiByteToWideChar(1252, 0, nullptr, 1, units, 2)), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(ErrorOf(MultiByteToWideChar(1252, 0, "a", 0, units, 2)), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(ErrorOf(MultiByteToWideChar(1252, 0, "a", 1, units, -1)), ERROR_INVALID_PARAMETER);
}

TEST_F(CodePages, ReplaceWhatTheCodePageLacksByALookAlikeUnlessAskedNotTo) {
    BOOL used = FALSE;
    EXPECT_EQ(Encode(1252, TEXT("aЖb"), 0, nullptr, &used), "a?b");
    EXPECT_TRUE(used);
    EXPECT_EQ(Encode(1252, TEXT("aЖb"), 0, "_"), "a_b");
    EXPECT_EQ(Encode(932, TEXT("\u0E01"), 0, "\x81\xA0"), "\x81\xA0");
    EXPECT_EQ(Encode(1252, TEXT("Āę\uFF21"), 0, nullptr, &used), "AeA");
    EXPECT_FALSE(used);
    EXPECT_EQ(Encode(1252, TEXT("Āé"), WC_NO_BEST_FIT_CHARS, nullptr, &used), "?\xE9");
    EXPECT_TRUE(used);
    EXPECT_EQ(Encode(1252, TEXT("😀")), "??");
    EXPECT_EQ(Encode(65001, TEXT("\xD800x")), "\xEF\xBF\xBDx");
    EXPECT_EQ(Encode(65001, TEXT("\xD800x"), WC_ERR_INVALID_CHARS), "");
    EXPECT_EQ(GetLastError(), DWORD{ERROR_NO_UNICODE_TRANSLATION});
}

TEST_F(CodePages, MalformedBytesBecomeTheDefaultCharacterOrAnError) {
    const struct {
        UINT code_page;
        const char* bytes;
        const WCHAR* text;
    } cases[] = {
        {932, "a\x81", TEXT("a\u30FB")},                     // half a character at the end
        {949, "\xB0\xFF", TEXT("?")},                        // no such second byte
        {1253, "\xAA", TEXT("\uF8F9")},                      // no character
        {65001, "\xC3", TEXT("\uFFFD")},                     // cut
        {65001, "\xC0\xAF", TEXT("\uFFFD\uFFFD")},           // overlong
        {65001, "\xE2\x82x", TEXT("\uFFFDx")},               // cut within
        {65001, "\xED\xA0\x80", TEXT("\uFFFD\uFFFD\uFFFD")}, // a surrogate
        {65001, "\xF4\x90\x80\x80", TEXT("\uFFFD\uFFFD\uFFFD\uFFFD")},
    };
    for (const auto& c : cases) {
        // Wine takes two bytes of an impossible sequence as one part.
        const bool impossible = c.bytes[0] == '\xED' || c.bytes[0] == '\xF4';
        if (!impossible || !RunsUnderWine()) {
            EXPECT_EQ(Decode(c.code_page, c.bytes), c.text) << testing::PrintToString(c.bytes);
        }
        SetLastError(0);
        EXPECT_EQ(Decode(c.code_page, c.bytes, MB_ERR_INVALID_CHARS), TEXT(""));
        EXPECT_EQ(GetLastError(), DWORD{ERROR_NO_UNICODE_TRANSLATION});
    }
}

} // namespace
