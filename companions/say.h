// Texts of programs and libraries that speak the user's language: English or German.
#pragma once

#include <windows.h>

inline bool IsUserGerman() {
    return PRIMARYLANGID(GetUserDefaultLangID()) == LANG_GERMAN;
}

// The text for the user, as the system's own windows choose it.
inline LPCWSTR Say(LPCWSTR english, LPCWSTR german) {
    return IsUserGerman() ? german : english;
}
