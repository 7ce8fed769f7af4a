// The user's language and the code pages, as set by the environment or a test.
#include "support/code_page_text.h"
#include "support/host_test.h"

#include <win32host/control.h>
#include <windows.h>

#include <cstdlib>
#include <initializer_list>
#include <string>
#include <thread>
#include <vector>

namespace {

class UserLocale : public HostTest {
protected:
    ~UserLocale() override { unsetenv("LC_ALL"); }

    static void Environment(const char* locale) {
        setenv("LC_ALL", locale, 1);
        win32host::UseProcessLocale();
    }
    static std::u16string Facts(std::initializer_list<LCTYPE> types) {
        std::u16string all;
        for (LCTYPE type : types) {
            WCHAR text[32] = {};
            GetLocaleInfoW(LOCALE_USER_DEFAULT, type, text, 32);
            all += text + std::u16string(u" ");
        }
        return all;
    }
};

TEST_F(UserLocale, IsNamedAfterLanguageAndCountryAndAmericanWithoutThem) {
    const struct {
        const char* locale;
        const char16_t* facts;
    } cases[] = {
        {"C", u"ENU 0409 1 "},     {"C.UTF-8", u"ENU 0409 1 "},    {"xx_YY", u"ENU 0409 1 "},
        {"en_GB", u"ENG 0809 0 "}, {"de_XX", u"DEU 0407 0 "},      {"de_CH", u"DES 0807 0 "},
        {"pt", u"PTB 0416 0 "},    {"pt_PT@euro", u"PTG 0816 0 "}, {"zh_TW", u"CHT 0404 0 "},
    };
    for (const auto& c : cases) {
        Environment(c.locale);
        EXPECT_EQ(Facts({LOCALE_SABBREVLANGNAME, LOCALE_ILANGUAGE, LOCALE_IMEASURE}), c.facts)
            << c.locale;
    }
}

TEST_F(UserLocale, AndVersionCanBeSet) {
    win32host::SetLocaleFacts({false, false, u",", u"'", u"DES"});
    EXPECT_EQ(Facts({LOCALE_IMEASURE, LOCALE_ILZERO, LOCALE_SDECIMAL, LOCALE_STHOUSAND,
                     LOCALE_SABBREVLANGNAME, LOCALE_SISO3166CTRYNAME}),
              u"0 0 , ' DES CH ");
    OSVERSIONINFOW version = {};
    version.dwOSVersionInfoSize = sizeof version;
    ASSERT_TRUE(GetVersionExW(&version));
    EXPECT_EQ(version.dwPlatformId, DWORD{VER_PLATFORM_WIN32_NT});
    win32host::SetVersion(VER_PLATFORM_WIN32_WINDOWS, 4, 10, 1998);
    ASSERT_TRUE(GetVersionExW(&version));
    EXPECT_EQ(version.dwPlatformId, DWORD{VER_PLATFORM_WIN32_WINDOWS});
}

class CodePages : public HostTest {};
using CodePagesThreads = CodePages;

TEST_F(CodePages, CanBeSetAndTakenAway) {
    win32host::SetAnsiCodePage(932);
    EXPECT_EQ(Decode(CP_ACP, "\x93\xFA"), u"日");
    for (UINT code_page : {874, 936, 949, 950, 1250, 1258, 1361, 65001, 20127})
        EXPECT_TRUE(IsValidCodePage(code_page)) << code_page;
    for (UINT code_page : {0, 1, 1208, 1249, 99999}) EXPECT_FALSE(IsValidCodePage(code_page));
    win32host::SetMissingCodePages({932});
    EXPECT_FALSE(IsValidCodePage(932));
    EXPECT_EQ(Decode(932, "a"), u"");
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
