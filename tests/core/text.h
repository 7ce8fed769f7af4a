// Texts of WCHAR as tests build and show them.
#pragma once

#include <windows.h>

#include <string>

#include "core/ostring.h"

using WideText = std::basic_string<WCHAR>;

// Every byte becomes the unit of the same number.
inline WideText Widen(const std::string& text) {
    WideText wide;
    for (char c : text) wide.push_back(static_cast<WCHAR>(static_cast<unsigned char>(c)));
    return wide;
}

// A text of one code page, whose 8-bit form is the only one.
inline OString InCodePage(uint32_t code_page, const char* text) {
    OString string;
    string.SetCodePage(code_page);
    string = text;
    return string;
}
