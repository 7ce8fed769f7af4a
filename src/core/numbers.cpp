#include "core/numbers.h"

#include <algorithm>

namespace {

constexpr int32_t kLargestRead = 2000000000;

template <class C>
int32_t ReadNumber(const C* text) {
    if (!text) return 0;
    while (*text == ' ' || *text == '\t') ++text;
    const bool negative = *text == '-';
    if (*text == '-' || *text == '+') ++text;
    int64_t value = 0;
    for (; *text >= '0' && *text <= '9'; ++text)
        value = std::min<int64_t>(value * 10 + (*text - '0'), kLargestRead);
    return static_cast<int32_t>(negative ? -value : value);
}

} // namespace

int32_t muldiv64s(int32_t a, int32_t b, int32_t c) {
    if (c == 0) return 0;
    const int64_t product = int64_t{a} * b;
    const bool negative = (product < 0) != (c < 0);
    const uint64_t divisor = static_cast<uint64_t>(c < 0 ? -int64_t{c} : c);
    const uint64_t magnitude =
        (static_cast<uint64_t>(product < 0 ? -product : product) + divisor / 2) / divisor;
    const uint64_t limit = negative ? uint64_t{1} << 31 : INT32_MAX;
    const int64_t result = static_cast<int64_t>(std::min(magnitude, limit));
    return static_cast<int32_t>(negative ? -result : result);
}

uint32_t muldiv64u(uint32_t a, uint32_t b, uint32_t c) {
    if (c == 0) return 0;
    const uint64_t result = (uint64_t{a} * b + c / 2) / c;
    return static_cast<uint32_t>(std::min<uint64_t>(result, UINT32_MAX));
}

int32_t xtol(const WCHAR* text) {
    return ReadNumber(text);
}

int32_t xtol(const char* text) {
    return ReadNumber(text);
}
