#include <windows.h>

#include "host/text.h"

#include <cstring>
#include <string>

extern "C" {

int WINAPI lstrlenA(LPCSTR text) {
    return text ? static_cast<int>(std::strlen(text)) : 0;
}

int WINAPI lstrlenW(LPCWSTR text) {
    return text ? static_cast<int>(std::char_traits<WCHAR>::length(text)) : 0;
}

LPWSTR WINAPI lstrcpyW(LPWSTR buffer, LPCWSTR text) {
    if (!buffer || !text) return nullptr;
    std::memmove(buffer, text, (std::char_traits<WCHAR>::length(text) + 1) * sizeof(WCHAR));
    return buffer;
}

LPWSTR WINAPI lstrcpynW(LPWSTR buffer, LPCWSTR text, int size) {
    if (!buffer || !text) return nullptr;
    LPWSTR to = buffer;
    for (; size > 1 && *text; --size) *to++ = *text++;
    if (size > 0) *to = 0;
    return buffer;
}

int WINAPI lstrcmpiW(LPCWSTR first, LPCWSTR second) {
    if (!first || !second) return first ? 1 : second ? -1 : 0;
    for (;; ++first, ++second) {
        const WCHAR a = win32host::UpperOf(*first), b = win32host::UpperOf(*second);
        if (a != b) return a < b ? -1 : 1;
        if (!a) return 0;
    }
}

} // extern "C"
