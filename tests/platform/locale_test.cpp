// The settings of a test for the user's language, the code pages and the answers to message boxes.
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

TEST_F(UserLocale, IsAmericanEnglishWithoutOne) {
    for (const char* name : {"C", "POSIX", "C.UTF-8", "xx_YY"}) {
        Environment(name);
        EXPECT_EQ(Facts({LOCALE_SABBREVLANGNAME, LOCALE_IMEASURE, LOCALE_ILZERO, LOCALE_SDECIMAL,
                         LOCALE_STHOUSAND, LOCALE_ILANGUAGE, LOCALE_IDEFAULTANSICODEPAGE}),
                  u"ENU 1 1 . , 0409 1252 ")
            << name;
    }
}

TEST_F(UserLocale, IsNamedAfterLanguageAndCountry) {
    const struct {
        const char* locale;
        const char16_t* facts;
    } cases[] = {
        {"de_DE.UTF-8", u"DEU 0407 0 "}, {"de_CH", u"DES 0807 0 "}, {"fr_CA.UTF-8", u"FRC 0c0c 0 "},
        {"pt_PT@euro", u"PTG 0816 0 "},  {"pt", u"PTB 0416 0 "},    {"zh_TW", u"CHT 0404 0 "},
        {"de_XX", u"DEU 0407 0 "},       {"en_GB", u"ENG 0809 0 "},
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

using MessageBoxes = HostTest;

TEST_F(MessageBoxes, AreAnsweredWithCareByThemselvesAndAsSetOtherwise) {
    EXPECT_EQ(MessageBoxW(nullptr, u"t", u"c", MB_OK | MB_ICONERROR), IDOK);
    EXPECT_EQ(MessageBoxW(nullptr, u"t", u"c", MB_OKCANCEL), IDCANCEL);
    EXPECT_EQ(MessageBoxW(nullptr, u"t", u"c", MB_YESNO), IDNO);
    EXPECT_EQ(win32host::TakeMessageBoxes().size(), 3u);
    win32host::AnswerMessageBoxes(IDYES);
    EXPECT_EQ(MessageBoxW(nullptr, u"Really?", u"Title", MB_YESNO), IDYES);
    const auto shown = win32host::TakeMessageBoxes();
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0].text + u"|" + shown[0].caption, u"Really?|Title");
    EXPECT_EQ(shown[0].type, UINT{MB_YESNO});
}

} // namespace
