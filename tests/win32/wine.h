// Where Wine is known to answer otherwise than Windows, a test says so and asks here.
#pragma once

#include <windows.h>

inline bool RunsUnderWine() {
    const HMODULE system = GetModuleHandleW(TEXT("ntdll.dll"));
    return system && GetProcAddress(system, "wine_get_version");
}

// Ends the running test under Wine, and says why.
#define SKIP_UNDER_WINE(reason)                                                                    \
    if (RunsUnderWine()) GTEST_SKIP() << (reason)
