#include "support/host_test.h"

#include <win32host/control.h>
#include <windows.h>

#include <string>

namespace {

class Formatter : public HostTest {
protected:
    template <class... Arguments>
    static std::u16string Format(const char16_t* format, Arguments... arguments) {
        WCHAR text[1024];
        const int length = wsprintfW(text, format, arguments...);
        EXPECT_EQ(static_cast<size_t>(length), std::u16string(text).size());
        return text;
    }
};

TEST_F(Formatter, WritesNumbers) {
    EXPECT_EQ(Format(u"%d %i %ld", -5, 7, INT32_MIN), u"-5 7 -2147483648");
    EXPECT_EQ(Format(u"%u %lu", -1, 3u), u"4294967295 3");
    EXPECT_EQ(Format(u"%x %X %#x %#X", 0xABC, 0xABC, 255, 255), u"abc ABC 0xff 0XFF");
    EXPECT_EQ(Format(u"%I64d %I64u", INT64_MIN, UINT64_MAX),
              u"-9223372036854775808 18446744073709551615");
    EXPECT_EQ(Format(u"%I32d", 12), u"12");
}

TEST_F(Formatter, PadsFields) {
    EXPECT_EQ(Format(u"[%5d][%-5d][%05d]", -42, 42, -42), u"[  -42][42   ][-0042]");
    EXPECT_EQ(Format(u"[%.4d][%6.3x][%#06x]", 7, 0xA, 0xA), u"[0007][   00a][0x000a]");
    EXPECT_EQ(Format(u"[%4s][%-4s][%.2s]", u"ab", u"ab", u"abcdef"), u"[  ab][ab  ][ab]");
}

TEST_F(Formatter, WritesTextAndReadsNoFurtherThanThePrecision) {
    EXPECT_EQ(Format(u"%s %ls %S %hs", u"日", u"b", "\xE4", "d"), u"日 b ä d");
    EXPECT_EQ(Format(u"%c%C%hc%lc", u'日', 'b', 'c', u'd'), u"日bcd");
    EXPECT_EQ(Format(u"%s", static_cast<const WCHAR*>(nullptr)), u"(null)");
    const char bytes[] = {'a', 'b', 'c'}; // no terminators
    const WCHAR units[] = {u'x', u'y'};
    EXPECT_EQ(Format(u"%.3S%.2s", bytes, units), u"abcxy");
}

TEST_F(Formatter, CopiesWhatIsNoConversionAndStopsAtItsLimit) {
    EXPECT_EQ(Format(u"100%% %q", 0), u"100% q");
    EXPECT_EQ(Format(u"end %"), u"end ");
    const std::u16string text(3000, u'x');
    EXPECT_EQ(Format(u"%s%s", text.c_str(), text.c_str()).size(), 1023u);
    EXPECT_EQ(Format(u"%999999999d", 1).size(), 1023u);
}

using ShortTextFunctions = HostTest;

TEST_F(ShortTextFunctions, CompareWithoutCaseAndCopyWhatFits) {
    EXPECT_EQ(lstrcmpiW(u"Größe", u"GRÖßE"), 0);
    EXPECT_LT(lstrcmpiW(u"ab", u"ABC"), 0);
    EXPECT_GT(lstrcmpiW(u"b", u"A"), 0);
    EXPECT_LT(lstrcmpiW(nullptr, u""), 0);
    WCHAR text[4] = {};
    EXPECT_EQ(lstrcpynW(text, u"abcdef", 4), text);
    EXPECT_EQ(std::u16string(text), u"abc");
    EXPECT_EQ(lstrlenW(nullptr), 0);
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
