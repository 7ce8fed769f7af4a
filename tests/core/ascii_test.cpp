#include "core/ascii.h"

#include <gtest/gtest.h>

#include <climits>
#include <tuple>

namespace {

// Bytes beyond ASCII are negative.
TEST(AsciiText, ComparesByCapitals) {
    const std::tuple<const char*, const char*, int, int> cases[] = {
        {"enu", "ENU", 3, 0},         {"enu", "end", 3, 1},     {"ENA", "enb", 3, -1},
        {"enUS", "enGB", 2, 0},       {"en", "enu", 3, -1},     {"enu", "en", 2, 0},
        {"same", "SAME", INT_MAX, 0}, {"a", "b", 0, 0},         {"\xE4", "\xC4", 1, 1},
        {"\xE4", "a", 1, -1},         {"_", "a", 1, 1},         {nullptr, "a", 1, -1},
        {"a", nullptr, 1, -1},        {nullptr, nullptr, 0, -1}};
    for (const auto& [a, b, n, answer] : cases)
        EXPECT_EQ(xstrnicmp(a, b, n), answer) << (a ? a : "null") << " " << (b ? b : "null");
}

TEST(AsciiText, CapitalsOnlyOfPlainLetters) {
    for (int value = CHAR_MIN; value <= CHAR_MAX; ++value) {
        const char c = static_cast<char>(value);
        EXPECT_EQ(xtoupper(c), c >= 'a' && c <= 'z' ? c & ~0x20 : c);
    }
}

} // namespace
