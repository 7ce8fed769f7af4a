#include "core/ascii.h"

char xtoupper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

int xstrnicmp(const char* a, const char* b, int n) {
    if (!a || !b) return -1;
    for (; n > 0; --n, ++a, ++b) {
        const auto x = static_cast<signed char>(xtoupper(*a));
        const auto y = static_cast<signed char>(xtoupper(*b));
        if (x != y) return x < y ? -1 : 1;
        if (x == 0) break;
    }
    return 0;
}
