// String tables, resources and formatted texts.
#pragma once

#include <windef.h>

#include <stdarg.h>

// A number in place of a resource's name or type.
#define MAKEINTRESOURCEW(id) ((LPWSTR)(ULONG_PTR)(WORD)(id))
#define IS_INTRESOURCE(name) (((ULONG_PTR)(name) >> 16) == 0)

#define RT_CURSOR MAKEINTRESOURCEW(1)
#define RT_BITMAP MAKEINTRESOURCEW(2)
#define RT_ICON MAKEINTRESOURCEW(3)
#define RT_MENU MAKEINTRESOURCEW(4)
#define RT_DIALOG MAKEINTRESOURCEW(5)
#define RT_STRING MAKEINTRESOURCEW(6)
#define RT_RCDATA MAKEINTRESOURCEW(10)
#define RT_GROUP_ICON MAKEINTRESOURCEW(14)
#define RT_VERSION MAKEINTRESOURCEW(16)

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// Copies a text from a module's string tables, cut to `size` units with its terminator. Answers the
// number of units before the terminator, or 0 if there is no such text. With size 0, `buffer` is an
// LPCWSTR* that receives the address of the text itself, which has no terminator.
int WINAPI LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int size);

// The system's own formatter: %c %C %d %hc %hd %hs %hu %i %lc %ld %li %ls %lu %lx %lX %p %s %S %u
// %x %X and the 64-bit %I64d %I64i %I64u %I64x %I64X, with the flags '-', '0' and '#', a width and
// a precision (no '*'). %s and %c are UTF-16, %S, %hs, %C and %hc are of the ANSI code page.
// Anything else after a '%' is copied. Writes at most 1024 units with the terminator; answers the
// number before the terminator.
int WINAPI wvsprintfW(LPWSTR buffer, LPCWSTR format, va_list arguments);
int wsprintfW(LPWSTR buffer, LPCWSTR format, ...);

WIN32HOST_END_C
#pragma GCC visibility pop
