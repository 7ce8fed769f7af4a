// Basic Win32 types under their SDK names, with the sizes that they have on Windows.
//
// Every type has a fixed width: DWORD and LONG are 32 bits on every host. WCHAR is a UTF-16 unit.
#pragma once

#include <cstddef>
#include <cstdint>

#define WINAPI
#define CALLBACK
#define APIENTRY WINAPI
#define CONST const

// `__declspec(dllexport)` and `__declspec(dllimport)` as a Windows compiler knows them.
#define __declspec(attribute) WIN32HOST_DECLSPEC_##attribute
#define WIN32HOST_DECLSPEC_dllexport __attribute__((visibility("default")))
#define WIN32HOST_DECLSPEC_dllimport

using BYTE = uint8_t;
using UCHAR = uint8_t;
using CHAR = char;
using WCHAR = char16_t;
using TCHAR = WCHAR;
using SHORT = int16_t;
using USHORT = uint16_t;
using WORD = uint16_t;
using INT = int32_t;
using UINT = uint32_t;
using LONG = int32_t;
using ULONG = uint32_t;
using DWORD = uint32_t;
using BOOL = int32_t;
using BOOLEAN = uint8_t;
using FLOAT = float;
using LONGLONG = int64_t;
using ULONGLONG = uint64_t;
using DWORDLONG = uint64_t;

using INT_PTR = intptr_t;
using UINT_PTR = uintptr_t;
using LONG_PTR = intptr_t;
using ULONG_PTR = uintptr_t;
using DWORD_PTR = uintptr_t;
using SIZE_T = size_t;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;
using HRESULT = LONG;
using ATOM = WORD;
using COLORREF = DWORD;

using PVOID = void*;
using LPVOID = void*;
using LPCVOID = const void*;
using PBYTE = BYTE*;
using LPBYTE = BYTE*;
using PWORD = WORD*;
using LPWORD = WORD*;
using PDWORD = DWORD*;
using LPDWORD = DWORD*;
using PLONG = LONG*;
using LPLONG = LONG*;
using PINT = INT*;
using LPINT = INT*;
using PBOOL = BOOL*;
using LPBOOL = BOOL*;
using PSTR = CHAR*;
using LPSTR = CHAR*;
using PCSTR = const CHAR*;
using LPCSTR = const CHAR*;
using PWSTR = WCHAR*;
using LPWSTR = WCHAR*;
using PCWSTR = const WCHAR*;
using LPCWSTR = const WCHAR*;

using HANDLE = void*;
using LPHANDLE = HANDLE*;
using PHANDLE = HANDLE*;

// A handle type of its own for each kind of object, so that the compiler tells them apart.
#define DECLARE_HANDLE(name)                                                                       \
    struct name##__ {                                                                              \
        int unused;                                                                                \
    };                                                                                             \
    using name = name##__* /* NOLINT(bugprone-macro-parentheses) */

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
using HMODULE = HINSTANCE;
using HGLOBAL = HANDLE;
using HLOCAL = HANDLE;
using HGDIOBJ = void*;
using HCURSOR = HICON;
using PHKEY = HKEY*;
using HFILE = int;

using FARPROC = INT_PTR(WINAPI*)();
using PROC = INT_PTR(WINAPI*)();

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

#define LOBYTE(w) (static_cast<BYTE>(static_cast<DWORD_PTR>(w) & 0xFF))
#define HIBYTE(w) (static_cast<BYTE>((static_cast<DWORD_PTR>(w) >> 8) & 0xFF))
#define LOWORD(l) (static_cast<WORD>(static_cast<DWORD_PTR>(l) & 0xFFFF))
#define HIWORD(l) (static_cast<WORD>((static_cast<DWORD_PTR>(l) >> 16) & 0xFFFF))
#define MAKEWORD(low, high) (static_cast<WORD>(LOBYTE(low) | (LOBYTE(high) << 8)))
#define MAKELONG(low, high) (static_cast<LONG>(LOWORD(low) | (static_cast<DWORD>(LOWORD(high)) << 16)))

struct POINT {
    LONG x;
    LONG y;
};
using PPOINT = POINT*;
using LPPOINT = POINT*;

struct POINTL {
    LONG x;
    LONG y;
};

struct SIZE {
    LONG cx;
    LONG cy;
};
using LPSIZE = SIZE*;

struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};
using LPRECT = RECT*;

struct RECTL {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};

struct FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};
using LPFILETIME = FILETIME*;

static_assert(sizeof(WCHAR) == 2);
static_assert(sizeof(POINT) == 8);
