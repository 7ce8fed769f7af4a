// The system's facts about the user's language and others, and its functions for texts.
#include "platform/error_of.h"
#include "support/host_test.h"
#include "support/wide.h"
#include "support/wine.h"

#include <win32host/control.h>
#include <windows.h>

#include <algorithm>
#include <string>

namespace {

constexpr LCID kAmerican = MAKELCID(0x0409, SORT_DEFAULT);

// A fact, or "error N" without it.
Wide Fact(LCID locale, LCTYPE type) {
    WCHAR text[40];
    const int size = GetLocaleInfoW(locale, type, text, 40);
    if (size > 0) return Wide(text, static_cast<size_t>(size) - 1);
    const std::string error = "error " + std::to_string(GetLastError());
    return Wide(error.begin(), error.end());
}

// The same facts of a locale, each followed by a blank.
Wide Facts(LCID locale, std::initializer_list<LCTYPE> types) {
    Wide all;
    for (const LCTYPE type : types) all += Fact(locale, type) + TEXT(" ");
    return all;
}

DWORD Number(LCID locale, LCTYPE type) {
    DWORD number = 0;
    const int size =
        GetLocaleInfoW(locale, type | LOCALE_RETURN_NUMBER, reinterpret_cast<WCHAR*>(&number), 2);
    return size == 2 ? number : ~DWORD{0};
}

using LocaleFacts = HostTest;

TEST_F(LocaleFacts, OfTheUserAreAsTheUserPrefersThem) {
    const std::initializer_list<LCTYPE> preferences = {LOCALE_IMEASURE, LOCALE_ILZERO,
                                                       LOCALE_SDECIMAL, LOCALE_STHOUSAND};
    for (const bool american : {true, false}) {
        win32host::SetLocaleFacts(american
                                      ? win32host::LocaleFacts{true, true}
                                      : win32host::LocaleFacts{false, false, TEXT(","), TEXT("'")});
        for (const LCID locale :
             {LOCALE_NEUTRAL, LOCALE_USER_DEFAULT, LOCALE_SYSTEM_DEFAULT, kAmerican}) {
            EXPECT_EQ(Facts(locale, preferences), american ? TEXT("1 1 . , ") : TEXT("0 0 , ' "));
            EXPECT_EQ(Number(locale, LOCALE_IMEASURE), DWORD{american});
            EXPECT_EQ(Fact(locale, LOCALE_SDECIMAL | LOCALE_NOUSEROVERRIDE), TEXT("."));
            EXPECT_EQ(Number(locale, LOCALE_IMEASURE | LOCALE_NOUSEROVERRIDE), 1u);
            EXPECT_EQ(Facts(locale, {LOCALE_SABBREVLANGNAME, LOCALE_SISO639LANGNAME,
                                     LOCALE_SISO3166CTRYNAME, LOCALE_ILANGUAGE,
                                     LOCALE_IDEFAULTANSICODEPAGE, LOCALE_IDEFAULTCODEPAGE}),
                      TEXT("ENU en US 0409 1252 437 "));
        }
    }
    EXPECT_EQ(GetUserDefaultLCID(), kAmerican);
    EXPECT_EQ(GetUserDefaultLangID(), 0x0409);
}

TEST_F(LocaleFacts, OfAnotherLanguageAreItsOwn) {
    const struct {
        LANGID language;
        const WCHAR* facts;
        DWORD ansi, oem;
    } cases[] = {
        {0x0007, TEXT("DEU de DE 0407 0 "), 1252, 850},
        {0x0807, TEXT("DES de CH 0807 0 "), 1252, 850},
        {0x0C0C, TEXT("FRC fr CA 0c0c 0 "), 1252, 850},
        {0x0411, TEXT("JPN ja JP 0411 0 "), 932, 932},
        {0x0804, TEXT("CHS zh CN 0804 0 "), 936, 936},
        {0x0404, TEXT("CHT zh TW 0404 0 "), 950, 950},
        {0x0412, TEXT("KOR ko KR 0412 0 "), 949, 949},
        {0x0419, TEXT("RUS ru RU 0419 0 "), 1251, 866},
        {0x0415, TEXT("PLK pl PL 0415 0 "), 1250, 852},
        {0x040D, TEXT("HEB he IL 040d 0 "), 1255, 862},
        {0x041E, TEXT("THA th TH 041e 0 "), 874, 874},
        {0x042A, TEXT("VIT vi VN 042a 0 "), 1258, 1258},
    };
    win32host::SetLocaleFacts({true, true});
    for (const auto& c : cases) {
        const LCID locale = MAKELCID(c.language, SORT_DEFAULT);
        EXPECT_EQ(Facts(locale, {LOCALE_SABBREVLANGNAME, LOCALE_SISO639LANGNAME,
                                 LOCALE_SISO3166CTRYNAME, LOCALE_ILANGUAGE, LOCALE_IMEASURE}),
                  c.facts);
        EXPECT_EQ(Number(locale, LOCALE_IDEFAULTANSICODEPAGE), c.ansi) << c.language;
        EXPECT_EQ(Number(locale, LOCALE_IDEFAULTCODEPAGE), c.oem) << c.language;
    }
}

TEST_F(LocaleFacts, FillBuffersThatAreLargeEnough) {
    win32host::SetLocaleFacts({true, true});
    const struct {
        LCTYPE type;
        int size;
        int answer;
        int error;
    } cases[] = {
        {LOCALE_SABBREVLANGNAME, 0, 4, 0},
        {LOCALE_SABBREVLANGNAME, 3, 0, ERROR_INSUFFICIENT_BUFFER},
        {LOCALE_SABBREVLANGNAME, 4, 4, 0},
        {LOCALE_SABBREVLANGNAME, -1, 0, ERROR_INVALID_PARAMETER},
        {LOCALE_IMEASURE | LOCALE_RETURN_NUMBER, 1, 0, ERROR_INSUFFICIENT_BUFFER},
        {LOCALE_IMEASURE | LOCALE_RETURN_NUMBER, 2, 2, 0},
        {LOCALE_SDECIMAL | LOCALE_RETURN_NUMBER, 8, 0, ERROR_INVALID_FLAGS},
        {0x7777, 8, 0, ERROR_INVALID_FLAGS},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << std::hex << c.type << " into " << c.size);
        Wide buffer(8, TEXT('.'));
        const int answer = GetLocaleInfoW(LOCALE_USER_DEFAULT, c.type, buffer.data(), c.size);
        EXPECT_EQ(ErrorOf(answer != 0), c.error);
        EXPECT_EQ(answer, c.answer);
        const int written = c.size > 0 ? answer : 0;
        EXPECT_EQ(std::count(buffer.begin() + written, buffer.end(), '.'), 8 - written);
    }
    EXPECT_EQ(ErrorOf(GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, nullptr, 4) != 0),
              ERROR_INVALID_PARAMETER);
    EXPECT_EQ(Fact(MAKELCID(0x2333, SORT_DEFAULT), LOCALE_SDECIMAL), TEXT("error 87"));
}

class Formatter : public HostTest {
protected:
    template <class... Arguments>
    static Wide Format(const WCHAR* format, Arguments... arguments) {
        WCHAR text[1024];
        const int length = wsprintfW(text, format, arguments...);
        EXPECT_EQ(static_cast<size_t>(length), Wide(text).size());
        return text;
    }
};

TEST_F(Formatter, WritesNumbersTextsAndFields) {
    EXPECT_EQ(Format(TEXT("%d %u %ld"), -5, -1, INT32_MIN), TEXT("-5 4294967295 -2147483648"));
    EXPECT_EQ(Format(TEXT("%x %#X %I64u"), 0xABC, 255, UINT64_MAX),
              TEXT("abc 0XFF 18446744073709551615"));
    EXPECT_EQ(Format(TEXT("[%5d][%-5d][%05d][%6.3x]"), -42, 42, -42, 0xA),
              TEXT("[  -42][42   ][-0042][   00a]"));
    EXPECT_EQ(Format(TEXT("%s %S %C %-4s%%"), TEXT("日"), "\xE4", 'b', TEXT("ab")),
              TEXT("日 ä b ab  %"));
    const char bytes[] = {'a', 'b', 'c'}; // no terminator
    EXPECT_EQ(Format(TEXT("%.3S"), bytes), TEXT("abc"));
    if (RunsUnderWine()) return; // it counts a unit more than it writes
    EXPECT_EQ(Format(TEXT("%999999999d"), 1).size(), 1023u);
}

using ShortTextFunctions = HostTest;

TEST_F(ShortTextFunctions, CompareWithoutCaseAndCopyWhatFits) {
    EXPECT_EQ(lstrcmpiW(TEXT("Größe"), TEXT("GRÖßE")), 0);
    EXPECT_LT(lstrcmpiW(TEXT("ab"), TEXT("ABC")), 0);
    EXPECT_GT(lstrcmpiW(TEXT("b"), TEXT("A")), 0);
    EXPECT_LT(lstrcmpiW(nullptr, TEXT("")), 0);
    WCHAR text[4] = {};
    EXPECT_EQ(lstrcpynW(text, TEXT("abcdef"), 4), text);
    EXPECT_EQ(Wide(text), TEXT("abc"));
    EXPECT_EQ(lstrlenW(nullptr), 0);
}

} // namespace
