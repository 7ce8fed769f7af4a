#include "support/host_test.h"
#include "support/wide.h"
#include "support/wine.h"

#include <win32host/control.h>
#include <windows.h>

#include <string>

namespace {

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

TEST_F(Formatter, WritesNumbers) {
    EXPECT_EQ(Format(TEXT("%d %i %ld"), -5, 7, INT32_MIN), TEXT("-5 7 -2147483648"));
    EXPECT_EQ(Format(TEXT("%u %lu"), -1, 3u), TEXT("4294967295 3"));
    EXPECT_EQ(Format(TEXT("%x %X %#x %#X"), 0xABC, 0xABC, 255, 255), TEXT("abc ABC 0xff 0XFF"));
    EXPECT_EQ(Format(TEXT("%I64d %I64u"), INT64_MIN, UINT64_MAX),
              TEXT("-9223372036854775808 18446744073709551615"));
    EXPECT_EQ(Format(TEXT("%I32d"), 12), TEXT("12"));
}

TEST_F(Formatter, PadsFields) {
    EXPECT_EQ(Format(TEXT("[%5d][%-5d][%05d]"), -42, 42, -42), TEXT("[  -42][42   ][-0042]"));
    EXPECT_EQ(Format(TEXT("[%.4d][%6.3x]"), 7, 0xA), TEXT("[0007][   00a]"));
    EXPECT_EQ(Format(TEXT("[%4s][%-4s][%.2s]"), TEXT("ab"), TEXT("ab"), TEXT("abcdef")),
              TEXT("[  ab][ab  ][ab]"));
}

TEST_F(Formatter, WritesTextAndReadsNoFurtherThanThePrecision) {
    EXPECT_EQ(Format(TEXT("%s %ls %S %hs"), TEXT("日"), TEXT("b"), "\xE4", "d"), TEXT("日 b ä d"));
    EXPECT_EQ(Format(TEXT("%c%C%hc%lc"), TEXT('日'), 'b', 'c', TEXT('d')), TEXT("日bcd"));
    EXPECT_EQ(Format(TEXT("%s"), static_cast<const WCHAR*>(nullptr)), TEXT("(null)"));
    const char bytes[] = {'a', 'b', 'c'}; // no terminators
    const WCHAR units[] = {TEXT('x'), TEXT('y')};
    EXPECT_EQ(Format(TEXT("%.3S%.2s"), bytes, units), TEXT("abcxy"));
}

TEST_F(Formatter, CopiesWhatIsNoConversionAndStopsAtItsLimit) {
    EXPECT_EQ(Format(TEXT("100%% %q"), 0), TEXT("100% q"));
    EXPECT_EQ(Format(TEXT("end %")), TEXT("end "));
    if (RunsUnderWine()) return; // it counts a unit more than it writes
    const Wide text(3000, TEXT('x'));
    EXPECT_EQ(Format(TEXT("%s%s"), text.c_str(), text.c_str()).size(), 1023u);
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

using MessageBoxes = HostTest;

} // namespace
