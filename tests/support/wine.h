// A test that expects a known difference of Wine from Windows says so and asks here.
#pragma once

#include <windows.h>

inline bool RunsUnderWine() {
    const HMODULE system = GetModuleHandleW(TEXT("ntdll.dll"));
    return system && GetProcAddress(system, "wine_get_version");
}

// Ends the current test, which counts as skipped for this reason.
[[noreturn]] void SkipTest(const char* reason);

// The same under Wine only.
void SkipUnderWine(const char* difference);
