#include "host/text.h"

namespace win32host {
namespace {

LPWSTR ChangeLetters(LPWSTR text, char16_t (*change)(char16_t)) {
    const auto value = reinterpret_cast<ULONG_PTR>(text);
    if (value < 0x10000)
        return reinterpret_cast<LPWSTR>(ULONG_PTR(change(static_cast<char16_t>(value))));
    for (WCHAR* unit = text; *unit; ++unit) *unit = change(*unit);
    return text;
}

} // namespace
} // namespace win32host

extern "C" LPWSTR WINAPI CharUpperW(LPWSTR text) {
    return win32host::ChangeLetters(text, win32host::UpperOf);
}

extern "C" LPWSTR WINAPI CharLowerW(LPWSTR text) {
    return win32host::ChangeLetters(text, win32host::LowerOf);
}
