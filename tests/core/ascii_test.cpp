#include "core/ascii.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

TEST(AsciiText, ComparesByCapitals) {
    const struct {
        const char* a;
        const char* b;
        int n;
        int answer;
    } cases[] = {
        {"enu", "ENU", 3, 0},
        {"enu", "end", 3, 1},
        {"ENA", "enb", 3, -1},
        {"enUS", "enGB", 2, 0},
        {"en", "enu", 3, -1},
        {"enu", "en", 2, 0},
        {"same", "SAME", INT_MAX, 0},
        {"a", "b", 0, 0},
        {"\xE4", "\xC4", 1, 1},
        {"\xE4", "a", 1, -1}, // bytes beyond ASCII are negative
        {"_", "a", 1, 1},     // letters compare as capitals
        {nullptr, "a", 1, -1},
        {"a", nullptr, 1, -1},
        {nullptr, nullptr, 0, -1},
    };
    for (const auto& c : cases)
        EXPECT_EQ(xstrnicmp(c.a, c.b, c.n), c.answer)
            << (c.a ? c.a : "null") << " " << (c.b ? c.b : "null");
}

TEST(AsciiText, CapitalsOnlyOfPlainLetters) {
    for (int value = CHAR_MIN; value <= CHAR_MAX; ++value) {
        const char c = static_cast<char>(value);
        EXPECT_EQ(xtoupper(c), c >= 'a' && c <= 'z' ? c & ~0x20 : c);
    }
}

} // namespace
