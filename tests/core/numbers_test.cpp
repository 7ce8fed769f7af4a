#include "core/numbers.h"

#include <gtest/gtest.h>

namespace {

TEST(Scaling, RoundsHalvesAwayFromZero) {
    const struct {
        int32_t a, b, c, result;
    } cases[] = {
        {5, 1, 2, 3},
        {-5, 1, 2, -3},
        {5, -1, 2, -3},
        {5, 1, -2, -3},
        {-5, -1, 2, 3},
        {4, 1, 3, 1},
        {-4, 1, 3, -1},
        {7, 3, 0, 0},
        {2147483647, 2147483647, 2147483647, 2147483647},
        {-2147483647 - 1, 254000, 254000, -2147483647 - 1},
        {72, 254000, 72, 254000},
        {2147483647, 2, 1, 2147483647},
        {2147483647, -2, 1, -2147483647 - 1},
        {-2147483647 - 1, -1, 1, 2147483647},
    };
    for (const auto& c : cases)
        EXPECT_EQ(muldiv64s(c.a, c.b, c.c), c.result) << c.a << " * " << c.b << " / " << c.c;
}

TEST(Scaling, TakesTheWholeUnsignedRange) {
    EXPECT_EQ(muldiv64u(0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF), 0xFFFFFFFFu);
    EXPECT_EQ(muldiv64u(0x80000000, 3, 0xFFFFFFFF), 2u);
    EXPECT_EQ(muldiv64u(0xFFFFFFFF, 2, 1), 0xFFFFFFFFu);
    EXPECT_EQ(muldiv64u(1, 1, 0), 0u);
}

TEST(NumberReading, TakesBlanksASignAndDigitsAndSaturates) {
    const struct {
        const char* text;
        int32_t value;
    } cases[] = {
        {"123abc", 123},
        {" \t-42", -42},
        {"+7", 7},
        {"- 7", 0},
        {"--7", 0},
        {"abc", 0},
        {"", 0},
        {"2000000000", 2000000000},
        {"2000000001", 2000000000},
        {"1999999999", 1999999999},
        {"99999999999999999999999999", 2000000000},
        {"-99999999999", -2000000000},
        {"0000000000000000000012", 12},
    };
    for (const auto& c : cases) EXPECT_EQ(xtol(c.text), c.value) << c.text;
    EXPECT_EQ(xtol(TEXT(" -12x")), -12);
    EXPECT_EQ(xtol(static_cast<const WCHAR*>(nullptr)), 0);
}

} // namespace
