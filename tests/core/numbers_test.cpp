#include "core/numbers.h"

#include <tuple>
#include <utility>

#include <gtest/gtest.h>

namespace {

TEST(Scaling, RoundsHalvesAwayFromZero) {
    const std::tuple<int32_t, int32_t, int32_t, int32_t> cases[] = {
        {5, 1, 2, 3},   {-4, 1, 3, -1},
        {-5, 1, 2, -3}, {2147483647, 2147483647, 2147483647, 2147483647},
        {5, -1, 2, -3}, {-2147483647 - 1, 254000, 254000, -2147483647 - 1},
        {5, 1, -2, -3}, {72, 254000, 72, 254000},
        {-5, -1, 2, 3}, {2147483647, 2, 1, 2147483647},
        {4, 1, 3, 1},   {2147483647, -2, 1, -2147483647 - 1},
        {7, 3, 0, 0},   {-2147483647 - 1, -1, 1, 2147483647}};
    for (const auto& [a, b, divisor, result] : cases)
        EXPECT_EQ(muldiv64s(a, b, divisor), result) << a << " * " << b << " / " << divisor;
}

TEST(NumberReading, TakesBlanksASignAndDigitsAndSaturates) {
    const std::pair<const char*, int32_t> cases[] = {
        {"123abc", 123}, {"2000000000", 2000000000},
        {" \t-42", -42}, {"2000000001", 2000000000},
        {"+7", 7},       {"1999999999", 1999999999},
        {"- 7", 0},      {"99999999999999999999999999", 2000000000},
        {"--7", 0},      {"-99999999999", -2000000000},
        {"abc", 0},      {"0000000000000000000012", 12},
        {"", 0}};
    for (const auto& [text, value] : cases) EXPECT_EQ(xtol(text), value) << text;
    EXPECT_EQ(xtol(TEXT(" -12x")), -12);
    EXPECT_EQ(xtol(static_cast<const WCHAR*>(nullptr)), 0);
}

} // namespace
