// Whole numbers: scaling without overflow, and reading.
#pragma once

#include <windows.h>

#include <cstdint>

// a * b / c with a 64-bit intermediate, rounded to nearest, halves away from zero. 0 if c is 0. A
// result that does not fit becomes the nearest number that does.
int32_t muldiv64s(int32_t a, int32_t b, int32_t c);
uint32_t muldiv64u(uint32_t a, uint32_t b, uint32_t c);

// The decimal number at the start of a text: skips blanks and tabs, takes a sign, and reads digits
// up to the first other character. Within +-2000000000. 0 if there are no digits or the text is
// null.
int32_t xtol(const WCHAR* text);
int32_t xtol(const char* text);
