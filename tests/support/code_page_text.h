#pragma once

#include <windows.h>

#include <string>

#include "support/wide.h"

// Text of up to 512 units or bytes, converted. Empty on failure.
inline Wide Decode(UINT code_page, const std::string& bytes, DWORD flags = 0) {
    WCHAR text[512];
    const int units = MultiByteToWideChar(code_page, flags, bytes.data(),
                                          static_cast<int>(bytes.size()), text, 512);
    return {text, static_cast<size_t>(units)};
}

inline std::string Encode(UINT code_page, const Wide& text, DWORD flags = 0,
                          const char* default_char = nullptr, BOOL* used = nullptr) {
    char bytes[512];
    const int count =
        WideCharToMultiByte(code_page, flags, text.data(), static_cast<int>(text.size()), bytes,
                            512, default_char, used);
    return {bytes, static_cast<size_t>(count)};
}
