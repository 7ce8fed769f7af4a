#include "support/host_test.h"
#include "support/wide.h"
#include "support/wine.h"

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
