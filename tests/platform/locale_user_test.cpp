#include "platform/error_of.h"
#include "support/host_test.h"

#include <win32host/control.h>
#include <windows.h>

#include <cstdlib>
#include <initializer_list>
#include <string>

namespace {

class UserLocale : public HostTest {
protected:
    ~UserLocale() override { unsetenv("LC_ALL"); }

    static void Environment(const char* locale) {
        setenv("LC_ALL", locale, 1);
        win32host::UseProcessLocale();
    }

    static std::u16string Fact(LCTYPE type) {
        WCHAR text[32] = {};
        GetLocaleInfoW(LOCALE_USER_DEFAULT, type, text, 32);
        return text;
    }
    static std::u16string Facts(std::initializer_list<LCTYPE> types) {
        std::u16string all;
        for (LCTYPE type : types) all += Fact(type) + u' ';
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
        const char16_t* abbreviation;
        LANGID id;
    } cases[] = {
        {"de_DE.UTF-8", u"DEU", 0x0407}, {"de_CH", u"DES", 0x0807}, {"fr_CA.UTF-8", u"FRC", 0x0C0C},
        {"pt_PT@euro", u"PTG", 0x0816},  {"pt", u"PTB", 0x0416},    {"ja_JP.eucJP", u"JPN", 0x0411},
        {"zh_TW", u"CHT", 0x0404},       {"de_XX", u"DEU", 0x0407}, {"en_GB", u"ENG", 0x0809},
    };
    for (const auto& c : cases) {
        Environment(c.locale);
        EXPECT_EQ(Fact(LOCALE_SABBREVLANGNAME), c.abbreviation) << c.locale;
        EXPECT_EQ(GetUserDefaultLangID(), c.id) << c.locale;
        EXPECT_EQ(Fact(LOCALE_IMEASURE), u"0") << c.locale;
    }
}

TEST_F(UserLocale, CanBeSet) {
    win32host::SetLocaleFacts({false, false, u",", u"'", u"DES"});
    EXPECT_EQ(Facts({LOCALE_IMEASURE, LOCALE_ILZERO, LOCALE_SDECIMAL, LOCALE_STHOUSAND,
                     LOCALE_SABBREVLANGNAME, LOCALE_SISO3166CTRYNAME}),
              u"0 0 , ' DES CH ");
}

TEST_F(UserLocale, ChecksTheBuffer) {
    const auto get = [](LCTYPE type, LPWSTR text, int size) {
        return GetLocaleInfoW(LOCALE_USER_DEFAULT, type, text, size);
    };
    win32host::SetLocaleFacts({});
    WCHAR text[4];
    EXPECT_EQ(get(LOCALE_SABBREVLANGNAME, nullptr, 0), 4);
    EXPECT_EQ(ErrorOf(get(LOCALE_SABBREVLANGNAME, text, 3)), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(ErrorOf(get(0x7777, text, 4)), ERROR_INVALID_FLAGS);
    EXPECT_EQ(get(LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER, text, 4), 2);
    EXPECT_EQ(text[0], 1252);
}

TEST_F(UserLocale, VersionIsNt5UntilSet) {
    OSVERSIONINFOW version = {};
    EXPECT_FALSE(GetVersionExW(&version)); // no size
    version.dwOSVersionInfoSize = sizeof version;
    ASSERT_TRUE(GetVersionExW(&version));
    EXPECT_EQ(version.dwPlatformId, DWORD{VER_PLATFORM_WIN32_NT});
    EXPECT_EQ(version.dwMajorVersion, 5u);
    win32host::SetVersion(VER_PLATFORM_WIN32_WINDOWS, 4, 10, 1998);
    ASSERT_TRUE(GetVersionExW(&version));
    EXPECT_EQ(version.dwPlatformId, DWORD{VER_PLATFORM_WIN32_WINDOWS});
}

} // namespace
