#include "host/text.h"

extern "C" LPWSTR WINAPI CharUpperW(LPWSTR text) {
    using win32host::UpperOf;
    const auto value = reinterpret_cast<ULONG_PTR>(text);
    if (value < 0x10000)
        return reinterpret_cast<LPWSTR>(ULONG_PTR(UpperOf(static_cast<char16_t>(value))));
    for (WCHAR* unit = text; *unit; ++unit) *unit = UpperOf(*unit);
    return text;
}
