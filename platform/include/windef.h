// Basic Win32 types under their SDK names, with the sizes that they have on Windows.
//
// Every type has a fixed width: DWORD and LONG are 32 bits on every host. WCHAR is a UTF-16 unit.
#pragma once

// Programs in C use these headers too.
#ifdef __cplusplus
#include <cstddef>
#include <cstdint>
#define WIN32HOST_BEGIN_C extern "C" {
#define WIN32HOST_END_C }
#else
#include <assert.h>
#include <stdalign.h>
#include <stddef.h>
#include <stdint.h>
#include <uchar.h>
#define WIN32HOST_BEGIN_C
#define WIN32HOST_END_C
#endif

#define WINAPI
#define CALLBACK
#define APIENTRY WINAPI
#define CONST const

// `__declspec(dllexport)` and `__declspec(dllimport)` as a Windows compiler knows them.
#define __declspec(attribute) WIN32HOST_DECLSPEC_##attribute
#define WIN32HOST_DECLSPEC_dllexport __attribute__((visibility("default")))
#define WIN32HOST_DECLSPEC_dllimport

typedef uint8_t BYTE;
typedef uint8_t UCHAR;
typedef char CHAR;
typedef char16_t WCHAR;
typedef WCHAR TCHAR;
typedef int16_t SHORT;
typedef uint16_t USHORT;
typedef uint16_t WORD;
typedef int32_t INT;
typedef uint32_t UINT;
typedef int32_t LONG;
typedef uint32_t ULONG;
typedef uint32_t DWORD;
typedef int32_t BOOL;
typedef uint8_t BOOLEAN;
typedef float FLOAT;
typedef int64_t LONGLONG;
typedef uint64_t ULONGLONG;
typedef uint64_t DWORDLONG;

typedef intptr_t INT_PTR;
typedef uintptr_t UINT_PTR;
typedef intptr_t LONG_PTR;
typedef uintptr_t ULONG_PTR;
typedef uintptr_t DWORD_PTR;
typedef size_t SIZE_T;
typedef UINT_PTR WPARAM;
typedef LONG_PTR LPARAM;
typedef LONG_PTR LRESULT;
typedef LONG HRESULT;
typedef WORD ATOM;
typedef DWORD COLORREF;

typedef void* PVOID;
typedef void* LPVOID;
typedef const void* LPCVOID;
typedef BYTE* PBYTE;
typedef BYTE* LPBYTE;
typedef WORD* PWORD;
typedef WORD* LPWORD;
typedef DWORD* PDWORD;
typedef DWORD* LPDWORD;
typedef LONG* PLONG;
typedef LONG* LPLONG;
typedef INT* PINT;
typedef INT* LPINT;
typedef BOOL* PBOOL;
typedef BOOL* LPBOOL;
typedef CHAR* PSTR;
typedef CHAR* LPSTR;
typedef const CHAR* PCSTR;
typedef const CHAR* LPCSTR;
typedef WCHAR* PWSTR;
typedef WCHAR* LPWSTR;
typedef const WCHAR* PCWSTR;
typedef const WCHAR* LPCWSTR;

typedef void* HANDLE;
typedef HANDLE* LPHANDLE;
typedef HANDLE* PHANDLE;

// A handle type of its own for each kind of object, so that the compiler tells them apart.
#define DECLARE_HANDLE(name)                                                                       \
    struct name##__ {                                                                              \
        int unused;                                                                                \
    };                                                                                             \
    typedef struct name##__* name /* NOLINT(bugprone-macro-parentheses) */

DECLARE_HANDLE(HINSTANCE);
DECLARE_HANDLE(HKEY);
DECLARE_HANDLE(HRSRC);
DECLARE_HANDLE(HWND);
DECLARE_HANDLE(HMENU);
DECLARE_HANDLE(HDC);
DECLARE_HANDLE(HBITMAP);
DECLARE_HANDLE(HICON);
DECLARE_HANDLE(HFONT);
DECLARE_HANDLE(HPEN);
DECLARE_HANDLE(HBRUSH);
DECLARE_HANDLE(HRGN);
DECLARE_HANDLE(HPALETTE);
DECLARE_HANDLE(HHOOK);
typedef HINSTANCE HMODULE;
typedef HANDLE HGLOBAL;
typedef HANDLE HLOCAL;
typedef void* HGDIOBJ;
typedef HICON HCURSOR;
typedef HKEY* PHKEY;
typedef int HFILE;

typedef INT_PTR(WINAPI* FARPROC)();
typedef INT_PTR(WINAPI* PROC)();

#ifndef FALSE
#define FALSE 0
#endif
#ifndef TRUE
#define TRUE 1
#endif
#define MAX_PATH 260

// Wide literals: TEXT("...") is a literal of WCHAR on every host.
#define WIN32HOST_TEXT(quote) u##quote
#define TEXT(quote) WIN32HOST_TEXT(quote)

#define LOBYTE(w) ((BYTE)((DWORD_PTR)(w)&0xFF))
#define HIBYTE(w) ((BYTE)(((DWORD_PTR)(w) >> 8) & 0xFF))
#define LOWORD(l) ((WORD)((DWORD_PTR)(l)&0xFFFF))
#define HIWORD(l) ((WORD)(((DWORD_PTR)(l) >> 16) & 0xFFFF))
#define MAKEWORD(low, high) ((WORD)(LOBYTE(low) | (LOBYTE(high) << 8)))
#define MAKELONG(low, high) ((LONG)(LOWORD(low) | ((DWORD)LOWORD(high) << 16)))

typedef struct POINT {
    LONG x;
    LONG y;
} POINT;
typedef POINT* PPOINT;
typedef POINT* LPPOINT;

typedef struct POINTL {
    LONG x;
    LONG y;
} POINTL;

typedef struct SIZE {
    LONG cx;
    LONG cy;
} SIZE;
typedef SIZE* LPSIZE;

typedef struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
} RECT;
typedef RECT* LPRECT;

typedef struct RECTL {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
} RECTL;

typedef struct FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
} FILETIME;
typedef FILETIME* LPFILETIME;

static_assert(sizeof(WCHAR) == 2, "layout");
static_assert(sizeof(POINT) == 8, "layout");
