#include <windows.h>

extern "C" int WINAPI MulDiv(int number, int numerator, int denominator) {
    if (denominator == 0) return -1;
    const int64_t product = static_cast<int64_t>(number) * numerator;
    const int64_t divisor = denominator < 0 ? -static_cast<int64_t>(denominator) : denominator;
    const bool negative = (product < 0) != (denominator < 0);
    const int64_t size = product < 0 ? -product : product;
    const int64_t rounded = (size + divisor / 2) / divisor;
    if (rounded > INT32_MAX) return -1;
    return static_cast<int>(negative ? -rounded : rounded);
}
