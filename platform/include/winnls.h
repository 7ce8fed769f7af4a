// Code pages, the user's locale, the system's version and short text functions.
#pragma once

#include <windef.h>

// ---- Code pages ---------------------------------------------------------------------------------

#define CP_ACP 0        // the system's ANSI code page
#define CP_OEMCP 1      // the system's OEM code page
#define CP_THREAD_ACP 3 // the ANSI code page of the user's language; here the same as CP_ACP
#define CP_UTF8 65001

#define MB_PRECOMPOSED 0x00000001
#define MB_ERR_INVALID_CHARS 0x00000008

#define WC_ERR_INVALID_CHARS 0x00000080
#define WC_NO_BEST_FIT_CHARS 0x00000400

#define MAX_LEADBYTES 12
#define MAX_DEFAULTCHAR 2

typedef struct CPINFO {
    UINT MaxCharSize; // bytes of the longest character
    BYTE DefaultChar[MAX_DEFAULTCHAR];
    BYTE LeadByte[MAX_LEADBYTES]; // pairs of first and last byte, ended by two zeros
} CPINFO;
typedef CPINFO* LPCPINFO;
static_assert(sizeof(CPINFO) == 20, "layout");

// ---- Locale -------------------------------------------------------------------------------------

typedef DWORD LCID;
typedef WORD LANGID;
typedef DWORD LCTYPE;

#define LANG_NEUTRAL 0x00
#define LANG_ENGLISH 0x09
#define LANG_GERMAN 0x07
#define SUBLANG_NEUTRAL 0x00
#define SUBLANG_DEFAULT 0x01
#define SUBLANG_SYS_DEFAULT 0x02
#define SUBLANG_ENGLISH_US 0x01
#define SORT_DEFAULT 0x0
#define MAKELANGID(primary, sub) ((WORD)(((WORD)(sub) << 10) | (WORD)(primary)))
#define MAKELCID(language, sort) (((DWORD)(WORD)(sort) << 16) | (DWORD)(WORD)(language))
#define PRIMARYLANGID(language) ((WORD)((WORD)(language)&0x3FF))
#define LANGIDFROMLCID(locale) ((WORD)(locale))
#define LANG_USER_DEFAULT MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT)
#define LANG_SYSTEM_DEFAULT MAKELANGID(LANG_NEUTRAL, SUBLANG_SYS_DEFAULT)
#define LOCALE_NEUTRAL MAKELCID(MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL), SORT_DEFAULT)
#define LOCALE_USER_DEFAULT MAKELCID(LANG_USER_DEFAULT, SORT_DEFAULT)
#define LOCALE_SYSTEM_DEFAULT MAKELCID(LANG_SYSTEM_DEFAULT, SORT_DEFAULT)

#define LOCALE_NOUSEROVERRIDE 0x80000000
#define LOCALE_USE_CP_ACP 0x40000000
#define LOCALE_RETURN_NUMBER 0x20000000

#define LOCALE_ILANGUAGE 0x00000001        // language identifier, four hexadecimal digits
#define LOCALE_SLANGUAGE 0x00000002        // "English (United States)"
#define LOCALE_SABBREVLANGNAME 0x00000003  // three letters: two of the language, one of the country
#define LOCALE_IDEFAULTCODEPAGE 0x0000000B // OEM code page, decimal
#define LOCALE_IMEASURE 0x0000000D         // "0" metric, "1" inches
#define LOCALE_SDECIMAL 0x0000000E
#define LOCALE_STHOUSAND 0x0000000F
#define LOCALE_ILZERO 0x00000012 // "1": decimal fractions below 1 begin with a zero
#define LOCALE_SISO639LANGNAME 0x00000059
#define LOCALE_SISO3166CTRYNAME 0x0000005A
#define LOCALE_IDEFAULTANSICODEPAGE 0x00001004 // decimal

// ---- Version ------------------------------------------------------------------------------------

#define VER_PLATFORM_WIN32s 0
#define VER_PLATFORM_WIN32_WINDOWS 1
#define VER_PLATFORM_WIN32_NT 2

typedef struct OSVERSIONINFOW {
    DWORD dwOSVersionInfoSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    WCHAR szCSDVersion[128];
} OSVERSIONINFOW;
typedef OSVERSIONINFOW* LPOSVERSIONINFOW;
static_assert(sizeof(OSVERSIONINFOW) == 276, "layout");

// The same and more about Windows NT; GetVersionExW knows it by its size.
typedef struct OSVERSIONINFOEXW {
    DWORD dwOSVersionInfoSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    WCHAR szCSDVersion[128];
    WORD wServicePackMajor;
    WORD wServicePackMinor;
    WORD wSuiteMask;
    BYTE wProductType; // VER_NT_
    BYTE wReserved;
} OSVERSIONINFOEXW;
static_assert(sizeof(OSVERSIONINFOEXW) == 284, "layout");

#define VER_NT_WORKSTATION 1

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// Converts bytes of `code_page` to UTF-16. A byte length of -1 means up to and including the
// terminator. With a buffer size of 0 the answer is the number of units needed. 0 means failure:
// ERROR_INVALID_PARAMETER for an unknown code page, a null or empty source, a negative size or a
// buffer that is the source; ERROR_INVALID_FLAGS; ERROR_INSUFFICIENT_BUFFER; with
// MB_ERR_INVALID_CHARS ERROR_NO_UNICODE_TRANSLATION.
int WINAPI MultiByteToWideChar(UINT code_page, DWORD flags, LPCSTR text, int bytes, LPWSTR buffer,
                               int size);

// Converts UTF-16 to bytes of `code_page`, under the same rules. A character that the code page
// lacks becomes a similar one (not with WC_NO_BEST_FIT_CHARS), else `default_char`, else the code
// page's own default, '?'; `used_default` then becomes TRUE. For UTF-8 both must be null.
int WINAPI WideCharToMultiByte(UINT code_page, DWORD flags, LPCWSTR text, int units, LPSTR buffer,
                               int size, LPCSTR default_char, LPBOOL used_default);

BOOL WINAPI IsValidCodePage(UINT code_page);
UINT WINAPI GetACP(void);
UINT WINAPI GetOEMCP(void);
BOOL WINAPI GetCPInfo(UINT code_page, LPCPINFO info);
BOOL WINAPI IsDBCSLeadByteEx(UINT code_page, BYTE byte);

// A fact of a locale as text or, with LOCALE_RETURN_NUMBER, as a DWORD. Answers the units written,
// with the terminator; with a buffer size of 0 the units needed. 0 means failure:
// ERROR_INVALID_PARAMETER for an unknown locale, a negative size or a null buffer with a size;
// ERROR_INVALID_FLAGS for an unknown fact and for the number of a text; ERROR_INSUFFICIENT_BUFFER.
// The user's locale (also the system's here) answers as the user prefers, unless
// LOCALE_NOUSEROVERRIDE asks for its own facts.
int WINAPI GetLocaleInfoW(LCID locale, LCTYPE type, LPWSTR buffer, int size);
LCID WINAPI GetUserDefaultLCID(void);
LANGID WINAPI GetUserDefaultLangID(void);

// The system's version: Windows NT 5.0 unless a test sets another.
BOOL WINAPI GetVersionExW(LPOSVERSIONINFOW information);

int WINAPI lstrlenA(LPCSTR text);
int WINAPI lstrlenW(LPCWSTR text);
LPWSTR WINAPI lstrcpyW(LPWSTR buffer, LPCWSTR text);
// Copies at most `size` - 1 units and always terminates the copy.
LPWSTR WINAPI lstrcpynW(LPWSTR buffer, LPCWSTR text, int size);
// Compare without regard to the case of letters: negative, 0 or positive. Null sorts first.
int WINAPI lstrcmpiW(LPCWSTR first, LPCWSTR second);

WIN32HOST_END_C
#pragma GCC visibility pop
